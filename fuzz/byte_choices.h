#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace fuzzing {

// Choices made by the bytes of an input, in their order; when they have run out every choice is 0.
class ByteChoices {
 public:
  ByteChoices(const uint8_t* data, size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool done() const { return bytes_.empty(); }
  uint8_t byte() {
    if (bytes_.empty()) { return 0; }
    const auto first = static_cast<uint8_t>(bytes_.front());
    bytes_.remove_prefix(1);
    return first;
  }
  // Below count, which is above 0.
  size_t below(size_t count) { return byte() % count; }
  bool flag() { return byte() % 2 == 1; }
  // The bytes up to a line end, or the last.
  std::string_view line() {
    const std::string_view taken = bytes_.substr(0, bytes_.find('\n'));
    bytes_.remove_prefix(taken.size() < bytes_.size() ? taken.size() + 1 : taken.size());
    return taken;
  }
  [[nodiscard]] std::string_view rest() const { return bytes_; }
  template <class Table>
  const auto& of(const Table& table) {
    return table[below(std::size(table))];
  }

 private:
  std::string_view bytes_;
};

}  // namespace fuzzing

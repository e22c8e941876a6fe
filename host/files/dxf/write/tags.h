#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "frame/host/number_text.h"
#include "host/geometry/point.h"

namespace brevan {

using DxfHandle = uint32_t;

// The groups of a DXF file, a code and a value on a line each, into one growing text. Texts come encoded
// and without line breaks (see text.h).
class DxfTags {
 public:
  DxfTags(const DxfTags&) = delete;
  DxfTags& operator=(const DxfTags&) = delete;
  explicit DxfTags(size_t expectedBytes = 256) : bytes_(expectedBytes, '\0') {}

  void text(int code, std::string_view value) {
    this->code(code);
    raw(value);
    raw("\n");
  }
  void integer(int code, long long value) {
    this->code(code);
    whole(value);
    raw("\n");
  }
  void real(int code, double value) {
    this->code(code);
    number(value);
    raw("\n");
  }
  void point(int code, Point p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, 0.0);
  }
  void handle(int code, DxfHandle value) {
    this->code(code);
    hex(value);
    raw("\n");
  }

  // Pieces of groups, for what is written a hundred thousand times.
  [[gnu::always_inline]] inline void raw(std::string_view pieces) {
    std::memcpy(room(pieces.size()), pieces.data(), pieces.size());
    end_ += pieces.size();
  }
  void number(double value) { endAt(numberText::writeShortest(room(numberText::kLongestShortest), value)); }
  void hex(DxfHandle value) {
    constexpr size_t kDigits = 8;
    char* const at = room(kDigits);
    endAt(std::to_chars(at, at + kDigits, value, 16).ptr);
    for (char* digit = at; digit != end_; ++digit) {
      if (*digit >= 'a') { *digit = static_cast<char>(*digit - 'a' + 'A'); }
    }
  }

  [[nodiscard]] size_t size() const { return static_cast<size_t>(end_ - bytes_.data()); }
  [[nodiscard]] std::string_view view() const { return {bytes_.data(), size()}; }
  // The finished text; nothing is written afterwards.
  [[nodiscard]] std::string take() {
    bytes_.resize(size());
    return std::move(bytes_);
  }

 private:
  void code(int value) {
    whole(value);
    raw("\n");
  }
  void whole(long long value) {
    constexpr size_t kDigits = 24;
    char* const at = room(kDigits);
    endAt(std::to_chars(at, at + kDigits, value).ptr);
  }
  // Where that many characters may be written.
  char* room(size_t count) {
    if (static_cast<size_t>(limit_ - end_) < count) { grow(count); }
    return end_;
  }
  void endAt(char* end) { end_ = end; }
  [[gnu::noinline]] void grow(size_t count) {
    const size_t size = this->size();
    bytes_.resize(2 * bytes_.size() + count);
    end_ = bytes_.data() + size;
    limit_ = bytes_.data() + bytes_.size();
  }

  std::string bytes_;
  char* end_ = bytes_.data();
  char* limit_ = bytes_.data() + bytes_.size();
};

}  // namespace brevan

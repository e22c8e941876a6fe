#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/files/dxf_scanner.h"
#include "host/geometry/point.h"

namespace brevan {

// What a file asks for and cannot have; the reader adds where it stands.
class DxfRefusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The groups of one entity, table entry or object, looked up by code; where a code repeats, the first counts
// unless all are asked for. Filled over and over, so that reading a million entities allocates once.
class DxfRecord {
 public:
  static constexpr size_t kMostTags = 4'000'000;

  explicit DxfRecord(const DxfScanner& scanner) : scanner_(scanner) {}

  void begin(const DxfTag& start) {
    tags_.clear();
    kind_ = trimmed(start.value);
    line_ = start.line;
    ++round_;
  }
  [[gnu::always_inline]] void add(const DxfTag& tag) {
    if (tag.code >= 0 && tag.code < kIndexed && rounds_[static_cast<size_t>(tag.code)] != round_) {
      rounds_[static_cast<size_t>(tag.code)] = round_;
      first_[static_cast<size_t>(tag.code)] = static_cast<uint32_t>(tags_.size());
    }
    if (tags_.size() >= kMostTags) {
      fail("the " + std::string(kind_) + " holds more than " + std::to_string(kMostTags) + " groups");
    }
    tags_.push_back(tag);
  }

  [[nodiscard]] std::string_view kind() const { return kind_; }
  [[nodiscard]] size_t line() const { return line_; }
  [[nodiscard]] const std::vector<DxfTag>& tags() const { return tags_; }
  [[nodiscard]] bool has(int code) const { return rounds_[static_cast<size_t>(code)] == round_; }
  [[nodiscard]] std::string_view text(int code) const { return has(code) ? tagOf(code).value : std::string_view(); }
  [[nodiscard]] std::string_view name(int code) const { return trimmed(text(code)); }
  [[nodiscard]] double real(int code, double otherwise = 0.0) const {
    return has(code) ? realOf(tagOf(code)) : otherwise;
  }
  [[nodiscard]] int integer(int code, int otherwise = 0) const {
    return has(code) ? integerOf(tagOf(code)) : otherwise;
  }
  [[nodiscard]] Point point(int code) const { return {real(code), real(code + 10)}; }

  [[nodiscard]] double realOf(const DxfTag& tag) const {
    if (const auto plain = numberText::parseDouble(tag.value)) { return *plain; }
    std::string_view text = trimmed(tag.value);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') { text.remove_prefix(1); }
    const auto value = numberText::parseDouble(text);
    if (!value) { refuse(tag, "a finite number"); }
    return *value;
  }
  [[nodiscard]] int integerOf(const DxfTag& tag) const {
    const auto value = numberText::parseInteger(trimmed(tag.value));
    if (value && *value >= INT32_MIN && *value <= INT32_MAX) { return static_cast<int>(*value); }
    const double real = realOf(tag);  // some programs write 1.0
    if (real != static_cast<double>(static_cast<int64_t>(real)) || real > INT32_MAX || real < INT32_MIN) {
      refuse(tag, "a whole number");
    }
    return static_cast<int>(real);
  }
  // Hexadecimal; 0 where there is none.
  [[nodiscard]] uint64_t handleOf(const DxfTag& tag) const {
    const std::string_view text = trimmed(tag.value);
    uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || end != text.data() + text.size()) { refuse(tag, "a handle"); }
    return value;
  }
  [[nodiscard]] uint64_t handle() const { return has(5) ? handleOf(tagOf(5)) : 0; }

  [[noreturn]] void fail(const std::string& rule) const { scanner_.fail(line_, rule); }
  [[noreturn]] void refuse(const DxfTag& tag, const std::string& expected) const {
    constexpr size_t kShown = 40;
    scanner_.fail(tag.line + 1, std::string(kind_) + ", group " + std::to_string(tag.code) + ": " + expected +
                                    " is expected, got \"" + messageText(tag.value.substr(0, kShown)) + "\"");
  }

 private:
  static constexpr int kIndexed = 1000;
  [[nodiscard]] const DxfTag& tagOf(int code) const { return tags_[first_[static_cast<size_t>(code)]]; }

  const DxfScanner& scanner_;
  std::string_view kind_;
  size_t line_ = 0;
  uint32_t round_ = 0;
  std::vector<DxfTag> tags_;
  std::array<uint32_t, kIndexed> rounds_{};
  std::array<uint32_t, kIndexed> first_{};
};

}  // namespace brevan

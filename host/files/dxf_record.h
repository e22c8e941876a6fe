#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/files/dxf_number.h"
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
//
// After its first group, the handle, an entity often repeats the one before it byte for byte up to its own
// coordinates: owner, layer, colour and their like. This head is taken apart once and then only compared.
class DxfRecord {
 public:
  static constexpr size_t kMostTags = 4'000'000;

  explicit DxfRecord(DxfScanner& scanner) : scanner_(scanner) {}

  // Takes the groups up to the one that starts the next record: `next` starts this record before and the next after.
  // False where the bytes end first.
  bool take(DxfTag& next) {
    kind_ = trimmed(next.value);
    line_ = next.line;
    round_ = ++lastRound_;
    bool more = scanner_.next(next);
    if (!more || next.code == 0) {
      dropHead();
      return more;
    }
    const bool repeats = headTags_ > 0 && tags_.front().code == next.code && scanner_.skip(head_, headLines_);
    count_ = repeats ? headTags_ : 0;
    if (repeats) {
      putFirst(next);
      more = scanner_.next(next);
    } else {
      more = takeHead(next);
    }
    for (; more && next.code != 0; more = scanner_.next(next)) { add(next, round_); }
    return more;
  }

  // Records that share their head, one after the other, have the same number here.
  [[nodiscard]] uint32_t headNumber() const { return headRound_; }
  [[nodiscard]] bool hasOutsideHead(int code) const { return rounds_[static_cast<size_t>(code)] == round_; }

  [[nodiscard]] std::string_view kind() const { return kind_; }
  [[nodiscard]] size_t line() const { return line_; }
  [[nodiscard]] std::span<const DxfTag> tags() const { return {tags_.data(), count_}; }
  [[nodiscard]] bool has(int code) const {
    const uint32_t round = rounds_[static_cast<size_t>(code)];
    return round == round_ || round == headRound_;
  }
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
    if (const auto plain = plainDecimal(tag.value)) { return *plain; }
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
    if (!(real >= INT32_MIN && real <= INT32_MAX) || real != std::trunc(real)) { refuse(tag, "a whole number"); }
    return static_cast<int>(real);
  }
  // Hexadecimal; 0 where there is none.
  [[nodiscard]] uint64_t handleOf(const DxfTag& tag) const {
    if (const auto plain = plainHandle(tag.value)) { return *plain; }
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
    scanner_.fail(line_ + tag.line + 1, std::string(kind_) + ", group " + std::to_string(tag.code) + ": " + expected +
                                            " is expected, got \"" + messageText(tag.value.substr(0, kShown)) + "\"");
  }

 private:
  static constexpr int kIndexed = 1000;
  [[nodiscard]] const DxfTag& tagOf(int code) const { return tags_[first_[static_cast<size_t>(code)]]; }

  [[gnu::always_inline]] void add(const DxfTag& tag, uint32_t round) {
    if (tag.code >= 0 && tag.code < kIndexed && !has(tag.code)) { index(tag.code, round); }
    if (count_ == tags_.size()) { grow(); }
    tags_[count_++] = {tag.code, tag.line - line_, tag.value};
  }
  [[gnu::noinline]] void grow() {
    if (count_ >= kMostTags) {
      fail("the " + std::string(kind_) + " holds more than " + std::to_string(kMostTags) + " groups");
    }
    tags_.resize(std::min(2 * count_ + kFewTags, kMostTags));
  }
  void index(int code, uint32_t round) {
    rounds_[static_cast<size_t>(code)] = round;
    first_[static_cast<size_t>(code)] = static_cast<uint32_t>(count_);
  }

  void putFirst(const DxfTag& tag) {
    tags_.front() = {tag.code, tag.line - line_, tag.value};
    if (tag.code < 0 || tag.code >= kIndexed) { return; }
    rounds_[static_cast<size_t>(tag.code)] = round_;
    first_[static_cast<size_t>(tag.code)] = 0;
  }

  // Ends before the group with the entity's own content, which is then `next`; false at the end of the bytes.
  bool takeHead(DxfTag& next) {
    constexpr size_t kMostInHead = 64;
    headRound_ = ++lastRound_;
    add(next, round_);
    const DxfScanner::Place begin = scanner_.place();
    DxfScanner::Place end = begin;
    bool inSubclass = false;
    bool more = scanner_.next(next);
    while (more && !endsHead(next.code, inSubclass) && count_ < kMostInHead) {
      inSubclass = inSubclass || next.code == kSubclass;
      add(next, headRound_);
      end = scanner_.place();
      more = scanner_.next(next);
    }
    headTags_ = more ? count_ : 0;  // what the end of the bytes cuts short may go on elsewhere
    head_ = scanner_.between(begin, end);
    headLines_ = end.line - begin.line;
    return more;
  }
  [[nodiscard]] bool endsHead(int code, bool inSubclass) const {
    const bool isReal = code >= 10 && code < 60;
    return code == 0 || isReal || (code == kSubclass && inSubclass) || code == tags_.front().code;
  }
  void dropHead() {
    count_ = 0;
    headTags_ = 0;
    headRound_ = round_;
  }

  static constexpr int kSubclass = 100;
  static constexpr size_t kFewTags = 128;

  DxfScanner& scanner_;
  std::string_view kind_;
  uint32_t line_ = 0;
  std::vector<DxfTag> tags_;  // the first count_ of them, their lines counted from the record's
  size_t count_ = 0;
  // Which record, or which head, a code was seen in last, and where its first group stands.
  std::array<uint32_t, kIndexed> rounds_{};
  std::array<uint32_t, kIndexed> first_{};
  uint32_t lastRound_ = 0;
  uint32_t round_ = 0;
  uint32_t headRound_ = 0;
  std::string_view head_;  // without the first group
  uint32_t headLines_ = 0;
  size_t headTags_ = 0;  // with it; 0: there is none
};

}  // namespace brevan

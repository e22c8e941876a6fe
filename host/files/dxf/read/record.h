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
#include "host/files/dxf/read/number.h"
#include "host/files/dxf/read/scanner.h"
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
// Entities repeat what came before them. After its first group, the handle, one often has the head of the one before,
// byte for byte up to its own coordinates: owner, layer, colour and their like. This head is taken apart once and then
// only compared. And the codes of its other groups are mostly those of the entity before of its kind: they are expected
// and compared, and the index by code then stays as it is.
class DxfRecord {
 public:
  static constexpr size_t kMostTags = 4'000'000;

  explicit DxfRecord(DxfScanner& scanner) : scanner_(scanner) {}

  // Takes the groups up to the one that starts the next record: `next` starts this record before and the next after.
  // False where the bytes end first.
  bool take(DxfTag& next) {
    kind_ = trimmed(next.value);
    line_ = next.line;
    if (!repeatsHead() && !takeHeadAlike()) {
      const DxfScanner::Place begin = scanner_.place();
      const bool more = scanner_.next(next);
      if (!more || next.code == 0) {
        dropHead();
        return more;
      }
      takeHead(begin, next);
    }
    Codes& codes = codesOf(kind_);
    return takeAlike(codes, next) || takeTail(codes, next);
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
    const auto plain = plainDecimal(tag.value);
    return plain ? *plain : oddRealOf(tag);
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
  // 0 where there is none, or an empty one.
  [[nodiscard]] uint64_t handle() const { return name(5).empty() ? 0 : handleOf(tagOf(5)); }

  [[noreturn]] void fail(const std::string& rule) const { scanner_.fail(line_, rule); }
  [[noreturn]] void refuse(const DxfTag& tag, const std::string& expected) const {
    constexpr size_t kShown = 40;
    scanner_.fail(line_ + tag.line + 1, std::string(kind_) + ", group " + std::to_string(tag.code) + ": " + expected +
                                            " is expected, got \"" + messageText(tag.value.substr(0, kShown)) + "\"");
  }

 private:
  static constexpr int kIndexed = 1000;
  [[gnu::noinline]] double oddRealOf(const DxfTag& tag) const {
    std::string_view text = trimmed(tag.value);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') { text.remove_prefix(1); }
    const auto value = numberText::parseDouble(text);
    if (!value) { refuse(tag, "a finite number"); }
    return *value;
  }
  [[nodiscard]] const DxfTag& tagOf(int code) const { return tags_[first_[static_cast<size_t>(code)]]; }

  [[gnu::always_inline]] void add(const DxfTag& tag, uint32_t round) {
    indexIfNew(tag.code, round);
    if (count_ == tags_.size()) { grow(); }
    tags_[count_++] = {tag.code, tag.line - line_, tag.value};
  }
  [[gnu::noinline]] void grow() {
    if (count_ >= kMostTags) {
      fail("the " + std::string(kind_) + " holds more than " + std::to_string(kMostTags) + " groups");
    }
    tags_.resize(std::min(2 * count_ + kFewTags, kMostTags));
  }
  // Notes that the group at count_ has this code.
  [[gnu::always_inline]] void indexIfNew(int code, uint32_t round) {
    if (code < 0 || code >= kIndexed || has(code)) { return; }
    rounds_[static_cast<size_t>(code)] = round;
    first_[static_cast<size_t>(code)] = static_cast<uint32_t>(count_);
  }

  void indexFirst() {
    round_ = ++lastRound_;
    const int code = tags_.front().code;
    if (code < 0 || code >= kIndexed) { return; }
    rounds_[static_cast<size_t>(code)] = round_;
    first_[static_cast<size_t>(code)] = 0;
  }

  // The codes of groups that came one after the other, to be expected again.
  static constexpr size_t kMostCodes = 32;
  struct Codes {
    std::array<DxfScanner::CodeText, kMostCodes> texts;
    size_t count = 0;
    bool comparable = false;  // all of them are there, and each can be compared
    void clear() {
      count = 0;
      comparable = true;
    }
    void add(const DxfScanner::CodeText& text) {
      comparable = comparable && count < kMostCodes && text.mask != 0;
      if (comparable) { texts[count++] = text; }
    }
    [[nodiscard]] std::span<const DxfScanner::CodeText> all() const { return {texts.data(), count}; }
  };
  // The codes of the groups after the head, with that of the next record. Kinds that share a place cost time alone.
  Codes& codesOf(std::string_view kind) {
    const size_t first = kind.empty() ? 0 : static_cast<unsigned char>(kind.front());
    return codes_[(kind.size() + first) % codes_.size()];
  }
  // The groups from here up to `end` have these codes.
  [[gnu::noinline]] void indexAlike(std::span<const DxfScanner::CodeText> codes, size_t end, uint32_t round) {
    for (const DxfScanner::CodeText* code = codes.data(); count_ < end; ++count_, ++code) {
      tags_[count_].code = code->code;
      tags_[count_].line = 2 * (static_cast<uint32_t>(count_) + 1);
      indexIfNew(code->code, round);
    }
  }

  // Takes the first group and the head if they come as before, byte for byte but for the first group's value.
  bool repeatsHead() {
    if (headTags_ == 0 || !headCodes_[lastHead_].comparable) { return false; }
    const DxfScanner::Place begin = scanner_.place();
    if (scanner_.nextLike(headCodes_[lastHead_].texts.front(), tags_.front().value) &&
        scanner_.skip(head_, headLines_)) {
      count_ = headTags_;
      return true;
    }
    scanner_.goTo(begin);
    return false;
  }

  // Takes the first group and the head if they have the codes of the last or the one before with other codes: a colour
  // takes one group or two.
  bool takeHeadAlike() {
    if (headTags_ == 0) { return false; }
    if (takeHeadLike(headCodes_[lastHead_])) { return true; }
    if (!takeHeadLike(headCodes_[1 - lastHead_])) { return false; }
    lastHead_ = 1 - lastHead_;
    return true;
  }
  bool takeHeadLike(const Codes& head) {
    if (!head.comparable || head.count == 0) { return false; }
    const DxfScanner::Place start = scanner_.place();
    const auto codes = head.all();
    if (!scanner_.nextLike(codes.front(), tags_.front().value)) { return false; }
    const DxfScanner::Place begin = scanner_.place();
    if (!scanner_.nextLike(codes.subspan(1), tags_.data() + 1)) {
      scanner_.goTo(start);
      return false;
    }
    startHead();
    indexAlike(codes.first(1), 1, round_);
    indexAlike(codes.subspan(1), codes.size(), headRound_);
    endHead(begin, scanner_.place());
    return true;
  }

  // Takes the first group, which is `next` and began there, and those after it up to the entity's own content.
  void takeHead(const DxfScanner::Place& start, DxfTag& next) {
    startHead();
    lastHead_ = 1 - lastHead_;
    Codes& codes = headCodes_[lastHead_];
    codes.clear();
    codes.add(scanner_.codeText(start, next));
    add(next, round_);
    const DxfScanner::Place begin = scanner_.place();
    DxfScanner::Place end = begin;
    bool inSubclass = false;
    bool more = scanner_.next(next);
    while (more && !endsHead(next.code, inSubclass) && count_ < kMostCodes) {
      inSubclass = inSubclass || next.code == kSubclass;
      codes.add(scanner_.codeText(end, next));
      add(next, headRound_);
      end = scanner_.place();
      more = scanner_.next(next);
    }
    scanner_.goTo(end);
    endHead(begin, end);
    if (!more) { headTags_ = 0; }  // what the end of the bytes cuts short may go on elsewhere
  }
  [[nodiscard]] bool endsHead(int code, bool inSubclass) const {
    const bool isReal = code >= 10 && code < 60;
    const bool isList = code == tags_[count_ - 1].code;
    return code == 0 || isReal || isList || code == kEmbedded || (code == kSubclass && inSubclass) ||
           code == tags_.front().code;
  }
  void startHead() {
    round_ = ++lastRound_;
    headRound_ = ++lastRound_;
    indexed_ = nullptr;
    count_ = 0;
  }
  void endHead(const DxfScanner::Place& begin, const DxfScanner::Place& end) {
    headTags_ = count_;
    head_ = scanner_.between(begin, end);
    headLines_ = end.line - begin.line;
  }
  void dropHead() {
    startHead();
    headTags_ = 0;
  }

  // Takes the groups after the head if they have these codes, else none.
  bool takeAlike(const Codes& codes, DxfTag& next) {
    if (!codes.comparable || headTags_ == 0) { return false; }
    const auto all = codes.all();
    if (!scanner_.nextLike(all, tags_.data() + headTags_)) { return false; }
    const size_t end = headTags_ + all.size() - 1;
    if (indexed_ != &codes) {
      indexFirst();
      indexAlike(all, end, round_);
      indexed_ = &codes;
    }
    count_ = end;
    next = {0, scanner_.place().line - 1, tags_[count_].value};
    return true;
  }

  // Takes the groups after the head whatever they are, and notes their codes. What is embedded after them speaks of
  // another object, whose codes mean other things.
  bool takeTail(Codes& codes, DxfTag& next) {
    indexFirst();
    indexed_ = nullptr;
    codes.clear();
    bool embedded = false;
    do {
      const DxfScanner::Place begin = scanner_.place();
      if (!scanner_.next(next)) {
        codes.comparable = false;
        return false;
      }
      embedded = embedded || next.code == kEmbedded;
      codes.add(scanner_.codeText(begin, next));
      codes.comparable = codes.comparable && !embedded;
      if (next.code != 0 && !embedded) { add(next, round_); }
    } while (next.code != 0);
    return true;
  }

  static constexpr int kSubclass = 100;
  static constexpr int kEmbedded = 101;
  static constexpr size_t kFewTags = 128;
  static_assert(2 * kMostCodes < kFewTags);

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
  size_t headTags_ = 0;             // with it; 0: there is none
  std::array<Codes, 2> headCodes_;  // of the last head, and of one before with other codes
  size_t lastHead_ = 0;
  std::array<Codes, 16> codes_;     // by kind
  const Codes* indexed_ = nullptr;  // those that the index by code is of, under the present head
};

}  // namespace brevan

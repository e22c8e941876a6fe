#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "frame/host/core_services.h"

namespace brevan {

// A group of a DXF file: a code and the value on the line after it.
struct DxfTag {
  int code = 0;
  uint32_t line = 0;  // of the code
  std::string_view value;
};

// The ends of the lines of a text, one after the other. Those of a block are bits of a number, so that looking for one
// need not wait until the one before is found.
class LineEnds {
 public:
  static constexpr std::ptrdiff_t kStep = 16;
  LineEnds(const char* at, const char* limit, char lineEnd) : next_(at), limit_(limit), lineEnd_(lineEnd) {}

  // Null where less than a block is left to look at.
  [[gnu::always_inline]] const char* next() {
    while (found_ == 0) {
      if (limit_ - next_ < kBlock) { return nullptr; }
      block_ = next_;
      found_ = inStep(block_, lineEnd_) | inStep(block_ + kStep, lineEnd_) << kStep |
               inStep(block_ + 2 * kStep, lineEnd_) << 2 * kStep | inStep(block_ + 3 * kStep, lineEnd_) << 3 * kStep;
      next_ += kBlock;
    }
    const char* const end = block_ + std::countr_zero(found_);
    found_ &= found_ - 1;
    return end;
  }

  // A bit for each of the next kStep characters.
  [[gnu::always_inline]] static uint64_t inStep(const char* at, char lineEnd) {
#ifdef __SSE2__
    const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(characters, _mm_set1_epi8(lineEnd))));
#else
    uint64_t found = 0;
    for (std::ptrdiff_t n = 0; n < kStep; ++n) { found |= static_cast<uint64_t>(at[n] == lineEnd) << n; }
    return found;
#endif
  }

 private:
  static constexpr std::ptrdiff_t kBlock = 4 * kStep;
  const char* block_ = nullptr;
  const char* next_;
  const char* limit_;
  uint64_t found_ = 0;  // those of the block that were not handed out yet
  char lineEnd_;
};

// Takes a DXF file's bytes apart, without copying any. Lines end with CRLF, LF or CR. Throws HostFailure with the
// line for what is no group and for lines beyond kLongestLine.
class DxfScanner {
 public:
  static constexpr size_t kLongestLine = size_t{1} << 20;

  DxfScanner(std::string_view bytes, std::string file)
      : end_(bytes.data() + bytes.size()), at_(bytes.data()), file_(std::move(file)) {
    if (bytes.starts_with("\xEF\xBB\xBF")) { at_ += 3; }
    lineEnd_ = bytes.find('\n') == std::string_view::npos ? '\r' : '\n';
  }

  // False at the end of the bytes.
  [[gnu::always_inline]] bool next(DxfTag& tag) {
    // Nearly every code is blanks, one to four digits and the line's end.
    const char* at = at_;
    if (end_ - at < kLongestCode) { return nextOdd(tag); }
    while (*at == ' ' && at - at_ < kMostBlanks) { ++at; }
    const char* const first = at;
    unsigned code = 0;
    for (unsigned digit = digitOf(*at); digit < 10 && at - first < 4; digit = digitOf(*++at)) {
      code = code * 10 + digit;
    }
    const bool returned = *at == '\r' && at[1] == lineEnd_;
    if (at == first || !(*at == lineEnd_ || returned) || code > kHighestCode) { return nextOdd(tag); }
    at_ = at + (returned ? 2 : 1);
    ++line_;
    tag.line = line_;
    tag.code = static_cast<int>(code);
    tag.value = takeLine();
    return true;
  }

  struct Place {
    const char* at = nullptr;
    uint32_t line = 0;
  };

  // A code's line with its end, as it stood somewhere in the file.
  struct CodeText {
    uint64_t bytes = 0;
    uint64_t mask = 0;  // set where there are bytes; 0: they are more than a line, or than can be compared
    uint32_t length = 0;
    int code = 0;
  };
  // The code's text of the group that was taken last, from the place before it.
  [[nodiscard]] static CodeText codeText(const Place& before, const DxfTag& taken) {
    CodeText text;
    text.code = taken.code;
    text.length = static_cast<uint32_t>(taken.value.data() - before.at);
    if (text.length > sizeof text.bytes || !isOneLine({before.at, text.length})) { return text; }
    std::memcpy(&text.bytes, before.at, text.length);
    std::memset(&text.mask, 0xFF, text.length);
    return text;
  }
  // Takes the next group's value if the line of its code is this text, which can be compared; else nothing.
  [[gnu::always_inline]] bool nextLike(const CodeText& code, std::string_view& value) {
    if (end_ - at_ < kLongestCode || !beginsWith(at_, code)) { return false; }
    at_ += code.length;
    ++line_;
    value = takeLine();
    return true;
  }
  // The same for several, one after the other, or for none of them, though values may have been written.
  bool nextLike(std::span<const CodeText> codes, DxfTag* tags) {
    const char* at = at_;
    LineEnds ends(at, end_, lineEnd_);
    for (const CodeText& code : codes) {
      if (end_ - at < kLongestCode || !beginsWith(at, code) || ends.next() == nullptr) { return false; }
      at += code.length;
      const char* const found = ends.next();
      if (found == nullptr || found - at > static_cast<std::ptrdiff_t>(kLongestLine)) { return false; }
      const auto length = static_cast<size_t>(found - at);
      (tags++)->value = {at, length - static_cast<size_t>(length > 0 && found[-1] == '\r')};
      at = found + 1;
    }
    at_ = at;
    line_ += 2 * static_cast<uint32_t>(codes.size());
    return true;
  }

  [[nodiscard]] Place place() const { return {at_, line_}; }
  void goTo(const Place& place) {
    at_ = place.at;
    line_ = place.line;
  }

  [[nodiscard]] static std::string_view between(const Place& begin, const Place& end) {
    return {begin.at, static_cast<size_t>(end.at - begin.at)};
  }
  // Goes past these lines if they come next.
  bool skip(std::string_view lines, uint32_t count) {
    if (left() < lines.size() || std::memcmp(at_, lines.data(), lines.size()) != 0) { return false; }
    at_ += lines.size();
    line_ += count;
    return true;
  }

  // Blank lines where a group should begin, which are passed over.
  [[nodiscard]] size_t blankLines() const { return blankLines_; }
  [[nodiscard]] bool restIsBlank() const {
    return std::string_view(at_, left()).find_first_not_of(" \t\r\n\x1A") == std::string_view::npos;
  }

  [[noreturn]] void fail(size_t line, const std::string& rule) const {
    throw HostFailure("\"" + file_ + "\", line " + std::to_string(line) + ": " + rule);
  }

 private:
  static constexpr unsigned kHighestCode = 1071;
  static constexpr std::ptrdiff_t kMostBlanks = 4;
  static constexpr std::ptrdiff_t kLongestCode = 16;  // more than blanks, digits and line end take

  // False where a blank line stands before it.
  static bool isOneLine(std::string_view text) {
    const size_t end = std::min(text.find_first_of("\r\n"), text.size() - 1);
    return end + (text[end] == '\r' && end + 1 < text.size() ? 2 : 1) == text.size();
  }
  static bool beginsWith(const char* at, const CodeText& code) {
    uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    return ((bytes ^ code.bytes) & code.mask) == 0;
  }
  static unsigned digitOf(char character) { return static_cast<unsigned>(character) - '0'; }
  [[nodiscard]] size_t left() const { return static_cast<size_t>(end_ - at_); }

  // Once, however often the reader comes by.
  void noteBlankLine() {
    if (line_ > lastBlank_) { ++blankLines_; }
    lastBlank_ = std::max(lastBlank_, line_);
  }

  [[gnu::noinline]] bool nextOdd(DxfTag& tag) {
    std::string_view code;
    do {
      if (at_ == end_) { return false; }
      code = takeLine();
      if (code.find_first_not_of(" \t") != std::string_view::npos) { break; }
      if (at_ != end_) { noteBlankLine(); }
    } while (true);
    tag.line = line_;
    tag.code = codeOf(code);
    if (at_ == end_ && !endsInLine_) { fail(line_, "a group's value is missing"); }
    tag.value = takeLine();
    return true;
  }

  // Most lines are shorter than two steps of sixteen characters.
  [[gnu::always_inline]] const char* lineEndFrom(const char* at) const {
    for (int step = 0; step < 2 && end_ - at >= LineEnds::kStep; ++step, at += LineEnds::kStep) {
      const uint64_t found = LineEnds::inStep(at, lineEnd_);
      if (found != 0) { return at + std::countr_zero(found); }
    }
    return static_cast<const char*>(std::memchr(at, lineEnd_, static_cast<size_t>(end_ - at)));
  }

  [[gnu::always_inline]] std::string_view takeLine() {
    const char* const begin = at_;
    const char* const found = lineEndFrom(begin);
    endsInLine_ = found != nullptr;
    size_t length = endsInLine_ ? static_cast<size_t>(found - begin) : left();
    at_ = endsInLine_ ? found + 1 : end_;
    ++line_;
    if (length > kLongestLine) {
      fail(line_, "the line is longer than " + std::to_string(kLongestLine) + " characters");
    }
    if (length > 0 && begin[length - 1] == '\r') { --length; }
    return {begin, length};
  }

  int codeOf(std::string_view text) const {
    size_t at = 0;
    while (at < text.size() && text[at] == ' ') { ++at; }
    const bool negative = at < text.size() && text[at] == '-';
    if (negative) { ++at; }
    int code = 0;
    const size_t first = at;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9' && at - first < 5; ++at) {
      code = code * 10 + (text[at] - '0');
    }
    const bool digits = at > first;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) { ++at; }
    if (!digits || at != text.size() || code > static_cast<int>(kHighestCode)) {
      fail(line_, "a group code is expected, a number up to 1071");
    }
    return negative ? -code : code;
  }

  const char* end_;
  const char* at_;
  std::string file_;
  uint32_t line_ = 0;
  uint32_t lastBlank_ = 0;
  size_t blankLines_ = 0;
  char lineEnd_ = '\n';
  bool endsInLine_ = true;
};

}  // namespace brevan

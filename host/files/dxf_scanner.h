#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
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

  [[noreturn]] void fail(size_t line, const std::string& rule) const {
    throw HostFailure("\"" + file_ + "\", line " + std::to_string(line) + ": " + rule);
  }

 private:
  static constexpr unsigned kHighestCode = 1071;
  static constexpr std::ptrdiff_t kMostBlanks = 4;
  static constexpr std::ptrdiff_t kLongestCode = 16;  // more than blanks, digits and line end take

  static unsigned digitOf(char character) { return static_cast<unsigned>(character) - '0'; }
  [[nodiscard]] size_t left() const { return static_cast<size_t>(end_ - at_); }

  [[gnu::noinline]] bool nextOdd(DxfTag& tag) {
    std::string_view code;
    do {
      if (at_ == end_) { return false; }
      code = takeLine();
    } while (code.empty() && at_ == end_);
    tag.line = line_;
    tag.code = codeOf(code);
    if (at_ == end_ && !endsInLine_) { fail(line_, "a group's value is missing"); }
    tag.value = takeLine();
    return true;
  }

  // Most lines are shorter than two steps of sixteen characters.
  [[gnu::always_inline]] const char* lineEndFrom(const char* at) const {
#ifdef __SSE2__
    const __m128i wanted = _mm_set1_epi8(lineEnd_);
    for (int step = 0; step < 2 && end_ - at >= 16; ++step, at += 16) {
      const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
      const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
      if (found != 0) { return at + std::countr_zero(found); }
    }
#endif
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
  char lineEnd_ = '\n';
  bool endsInLine_ = true;
};

}  // namespace brevan

#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"

namespace brevan {

// A group of a DXF file: a code and the value on the line after it.
struct DxfTag {
  int code = 0;
  std::string_view value;
  size_t line = 0;  // of the code
};

// Takes a DXF file's bytes apart, without copying any. Lines end with CRLF, LF or CR. Throws HostFailure with the
// line for what is no group and for lines beyond kLongestLine.
class DxfScanner {
 public:
  static constexpr size_t kLongestLine = size_t{1} << 20;

  DxfScanner(std::string_view bytes, std::string file) : bytes_(bytes), file_(std::move(file)) {
    if (bytes_.starts_with("\xEF\xBB\xBF")) { at_ = 3; }
    lineEnd_ = bytes_.find('\n') == std::string_view::npos ? '\r' : '\n';
  }

  // False at the end of the bytes.
  [[gnu::always_inline]] bool next(DxfTag& tag) {
    const char* const end = bytes_.data() + bytes_.size();
    const char* at = bytes_.data() + at_;
    // Nearly every code is blanks, one to four digits and the line's end.
    while (at != end && *at == ' ') { ++at; }
    int code = 0;
    const char* const first = at;
    while (end - at > 1 && *at >= '0' && *at <= '9' && at - first < 4) { code = code * 10 + (*at++ - '0'); }
    const bool returned = end - at > 1 && *at == '\r' && at[1] == lineEnd_;
    if (at == first || end - at < 2 || !(*at == lineEnd_ || returned) || code > kHighestCode) { return nextOdd(tag); }
    at_ = static_cast<size_t>(at - bytes_.data()) + (returned ? 2 : 1);
    ++line_;
    tag.line = line_;
    tag.code = code;
    tag.value = takeLine();
    return true;
  }

  struct Place {
    size_t at = 0;
    size_t line = 0;
  };
  [[nodiscard]] Place place() const { return {at_, line_}; }
  void goTo(const Place& place) {
    at_ = place.at;
    line_ = place.line;
  }

  [[nodiscard]] std::string_view between(const Place& begin, const Place& end) const {
    return bytes_.substr(begin.at, end.at - begin.at);
  }
  // Goes past these lines if they come next.
  bool skip(std::string_view lines, size_t count) {
    if (!bytes_.substr(at_).starts_with(lines)) { return false; }
    at_ += lines.size();
    line_ += count;
    return true;
  }

  [[noreturn]] void fail(size_t line, const std::string& rule) const {
    throw HostFailure("\"" + file_ + "\", line " + std::to_string(line) + ": " + rule);
  }

 private:
  static constexpr int kHighestCode = 1071;

  [[gnu::noinline]] bool nextOdd(DxfTag& tag) {
    std::string_view code;
    do {
      if (at_ >= bytes_.size()) { return false; }
      code = takeLine();
    } while (code.empty() && at_ >= bytes_.size());
    tag.line = line_;
    tag.code = codeOf(code);
    if (at_ >= bytes_.size() && !endsInLine_) { fail(line_, "a group's value is missing"); }
    tag.value = takeLine();
    return true;
  }

  [[gnu::always_inline]] std::string_view takeLine() {
    const char* const begin = bytes_.data() + at_;
    const size_t left = bytes_.size() - at_;
    const void* const found = std::memchr(begin, lineEnd_, left);
    endsInLine_ = found != nullptr;
    size_t length = endsInLine_ ? static_cast<size_t>(static_cast<const char*>(found) - begin) : left;
    at_ += length + (endsInLine_ ? 1 : 0);
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
    if (!digits || at != text.size() || code > kHighestCode) {
      fail(line_, "a group code is expected, a number up to 1071");
    }
    return negative ? -code : code;
  }

  std::string_view bytes_;
  std::string file_;
  size_t at_ = 0;
  size_t line_ = 0;
  char lineEnd_ = '\n';
  bool endsInLine_ = true;
};

}  // namespace brevan

#pragma once

#include <cctype>
#include <string_view>

// Whether a text is one well-formed JSON value and nothing more.
class JsonCheck {
 public:
  static bool valid(std::string_view text) {
    JsonCheck check(text);
    return check.value() && check.at_ == text.size();
  }

 private:
  explicit JsonCheck(std::string_view text) : text_(text) {}
  bool take(char c) {
    if (at_ >= text_.size() || text_[at_] != c) { return false; }
    ++at_;
    return true;
  }
  bool word(std::string_view expected) {
    if (!text_.substr(at_).starts_with(expected)) { return false; }
    at_ += expected.size();
    return true;
  }
  bool value() {
    if (at_ >= text_.size()) { return false; }
    if (text_[at_] == '{') { return list('{', '}', true); }
    if (text_[at_] == '[') { return list('[', ']', false); }
    if (text_[at_] == '"') { return string(); }
    return word("true") || word("false") || word("null") || number();
  }
  bool list(char open, char close, bool members) {
    take(open);
    if (take(close)) { return true; }
    do {
      if (members && !(string() && take(':'))) { return false; }
      if (!value()) { return false; }
    } while (take(','));
    return take(close);
  }
  bool string() {
    if (!take('"')) { return false; }
    for (; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (static_cast<unsigned char>(text_[at_]) < 0x20) { return false; }
      if (text_[at_] != '\\') { continue; }
      ++at_;
      if (at_ < text_.size() && text_[at_] == 'u') {
        for (int digit = 0; digit < 4; ++digit) {
          if (++at_ >= text_.size() || std::isxdigit(static_cast<unsigned char>(text_[at_])) == 0) { return false; }
        }
      } else if (at_ >= text_.size() || std::string_view("\"\\/bfnrt").find(text_[at_]) == std::string_view::npos) {
        return false;
      }
    }
    return take('"');
  }
  bool digits() {
    const size_t start = at_;
    while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') { ++at_; }
    return at_ > start;
  }
  bool number() {
    take('-');
    if (!digits() || (take('.') && !digits())) { return false; }
    if (!take('e') && !take('E')) { return true; }
    if (!take('+')) { take('-'); }
    return digits();
  }

  std::string_view text_;
  size_t at_ = 0;
};

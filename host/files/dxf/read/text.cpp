#include "host/files/dxf/read/text.h"

#include <charconv>
#include <optional>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

void appendUtf8(std::string& out, uint32_t character) {
  const auto byte = [&out](uint32_t value) { out += static_cast<char>(value); };
  if (character < 0x80) {
    byte(character);
  } else if (character < 0x800) {
    byte(0xC0U | character >> 6U), byte(0x80U | (character & 0x3FU));
  } else {
    byte(0xE0U | character >> 12U), byte(0x80U | (character >> 6U & 0x3FU)), byte(0x80U | (character & 0x3FU));
  }
}

bool isAscii(std::string_view text) {
  for (const char character : text) {
    if (static_cast<unsigned char>(character) >= 0x80) { return false; }
  }
  return true;
}

// Collects a text character by character.
class TextReading {
 public:
  TextReading(std::string_view bytes, DxfEncoding encoding) : bytes_(bytes), encoding_(encoding) {}

  [[nodiscard]] bool atEnd() const { return at_ >= bytes_.size(); }
  [[nodiscard]] bool sees(std::string_view word) const { return bytes_.substr(at_, word.size()) == word; }
  [[nodiscard]] char peek(size_t ahead = 0) const { return at_ + ahead < bytes_.size() ? bytes_[at_ + ahead] : '\0'; }
  void skip(size_t count) { at_ += count; }
  std::string_view takeUntil(char end) {
    const size_t stop = std::min(bytes_.find(end, at_), bytes_.size());
    const std::string_view taken = bytes_.substr(at_, stop - at_);
    at_ = std::min(stop + 1, bytes_.size());
    return taken;
  }

  void plain() {
    const char byte = bytes_[at_++];
    if (encoding_ == DxfEncoding::kWindows1252 && static_cast<unsigned char>(byte) >= 0x80) {
      out_ += toUtf8({&byte, 1});
    } else {
      out_ += byte;  // what is malformed as UTF-8 is replaced later
    }
  }
  void character(uint32_t code) { appendUtf8(out_, code); }
  void lineBreak() { out_ += "\\N"; }
  [[nodiscard]] bool nothingYet() const { return out_.empty(); }
  // Parts what follows from the word before it.
  void blankBetween() {
    if (!out_.empty() && !out_.ends_with(' ') && !out_.ends_with("\\N")) { out_ += ' '; }
  }

  [[nodiscard]] size_t length() const { return out_.size(); }
  // What stands above the line, or below it, with nothing on the other side of the stroke: no fraction. Squares and
  // cubes have characters of their own.
  void unstack(size_t begin, size_t stroke) {
    const bool raised = stroke + 1 == out_.size();
    if (!raised && stroke != begin) { return; }
    out_.erase(stroke, 1);
    if (!raised || out_.find_first_not_of("123", begin) != std::string::npos) { return; }
    const std::string digits = out_.substr(begin);
    out_.erase(begin > 0 && out_[begin - 1] == ' ' ? begin - 1 : begin);
    for (const char digit : digits) { character(digit == '1' ? 0xB9U : 0xB0U + static_cast<unsigned>(digit - '0')); }
  }

  // "\U+20AC"
  bool unicodeEscape() {
    constexpr size_t kDigits = 4;
    if (!sees("\\U+")) { return false; }
    const std::string_view digits = bytes_.substr(at_ + 3, kDigits);
    uint32_t code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (error != std::errc() || digits.size() < kDigits || end != digits.data() + kDigits) { return false; }
    at_ += 3 + kDigits;
    character(code);
    return true;
  }

  // "%%d" and its like; false where these percent signs are no code.
  bool percentCode() {
    if (!sees("%%") || bytes_.size() - at_ < 3) { return false; }
    switch (lowered(peek(2))) {
      case 'd': character(0xB0); break;
      case 'p': character(0xB1); break;
      case 'c': character(0xD8); break;
      case '%': out_ += '%'; break;
      case 'u':
        if (nothingYet()) { read.underlined = true; }
        break;
      case 'o':
      case 'k': break;
      default: return numberedCharacter();
    }
    at_ += 3;
    return true;
  }

  bool caret() {
    if (peek() != '^' || bytes_.size() - at_ < 2) { return false; }
    const char next = peek(1);
    if (next == ' ') {
      out_ += '^';
    } else if (next >= '@' && next <= '_') {
      out_ += static_cast<char>(next - '@');
    } else {
      return false;
    }
    at_ += 2;
    return true;
  }

  DxfTextRead finishName() {
    auto text = toWindows1252(out_);
    read.text = text ? std::move(*text) : messageText(out_);
    return std::move(read);
  }
  DxfTextRead finishText() {
    if (auto text = toWindows1252(out_)) {
      read.text = std::move(*text);
    } else {
      NearestText nearest = nearestWindows1252(out_);
      read.text = std::move(nearest.text);
      read.replaced = nearest.replaced;
    }
    return std::move(read);
  }

  DxfTextRead read;

 private:
  bool numberedCharacter() {  // "%%176"
    constexpr size_t kDigits = 3;
    const std::string_view digits = bytes_.substr(at_ + 2, kDigits);
    const auto code = numberText::parseInteger(digits);
    if (digits.size() < kDigits || !code || *code < 1 || *code > 255) { return false; }
    const char byte = static_cast<char>(*code);
    out_ += toUtf8({&byte, 1});
    at_ += 2 + kDigits;
    return true;
  }

  std::string_view bytes_;
  DxfEncoding encoding_;
  size_t at_ = 0;
  std::string out_;  // UTF-8
};

bool isPlain(std::string_view bytes, DxfEncoding encoding) {
  const bool known = encoding == DxfEncoding::kWindows1252 || isAscii(bytes);
  return known && bytes.find_first_of("%^\\{}") == std::string_view::npos;
}

// A fraction that stands one above the other.
void takeStack(TextReading& reading) {
  reading.blankBetween();
  const size_t begin = reading.length();
  std::optional<size_t> stroke;
  while (!reading.atEnd() && reading.peek() != ';') {
    const char character = reading.peek();
    if (character == '^' || character == '#') {
      reading.skip(1);
      stroke = reading.length();
      reading.character('/');
      if (reading.peek() == ' ') { reading.skip(1); }
    } else if (character == '\\' && reading.peek(1) != '\0') {
      reading.skip(1);
      reading.plain();
    } else {
      reading.plain();
    }
  }
  if (stroke) { reading.unstack(begin, *stroke); }
  reading.skip(1);
  const char next = lowered(reading.peek());
  const bool wordFollows = (next >= '0' && next <= '9') || (next >= 'a' && next <= 'z');
  if (wordFollows) { reading.blankBetween(); }
}

// What follows a backslash in an MTEXT.
void takeFormat(TextReading& reading) {
  const char letter = reading.peek(1);
  if (reading.unicodeEscape()) { return; }
  reading.skip(letter == '\0' ? 1 : 2);
  switch (letter) {
    case 'P':
    case 'X':
    case 'N': reading.lineBreak(); break;
    case '~': reading.character(' '); break;
    case '\\':
    case '{':
    case '}': reading.character(static_cast<unsigned char>(letter)); break;
    case 'L':
      if (reading.nothingYet()) { reading.read.underlined = true; }
      break;
    case 'l':
    case 'O':
    case 'o':
    case 'K':
    case 'k': break;
    case 'W': {
      const auto factor = numberText::leadingDouble(reading.takeUntil(';'));
      if (factor && reading.read.widthFactor == 0.0 && *factor > 0.0) { reading.read.widthFactor = *factor; }
      break;
    }
    case 'A':
    case 'C':
    case 'c':
    case 'F':
    case 'f':
    case 'H':
    case 'Q':
    case 'T':
    case 'p': reading.takeUntil(';'); break;
    case 'S': takeStack(reading); break;
    default: break;
  }
}

}  // namespace

DxfTextRead dxfNameRead(std::string_view bytes, DxfEncoding encoding) {
  if (isPlain(bytes, encoding)) { return {std::string(bytes)}; }
  TextReading reading(bytes, encoding);
  while (!reading.atEnd()) {
    if (!reading.unicodeEscape()) { reading.plain(); }
  }
  return reading.finishName();
}

DxfTextRead dxfTextRead(std::string_view bytes, DxfEncoding encoding) {
  if (isPlain(bytes, encoding)) { return {std::string(bytes)}; }
  TextReading reading(bytes, encoding);
  while (!reading.atEnd()) {
    if (reading.percentCode() || reading.caret() || reading.unicodeEscape()) { continue; }
    reading.plain();
  }
  return reading.finishText();
}

DxfTextRead dxfMTextRead(std::string_view bytes, DxfEncoding encoding) {
  if (isPlain(bytes, encoding)) { return {std::string(bytes)}; }
  TextReading reading(bytes, encoding);
  while (!reading.atEnd()) {
    if (reading.peek() == '\\') {
      takeFormat(reading);
    } else if (reading.peek() == '{' || reading.peek() == '}') {
      reading.skip(1);
    } else if (reading.sees("^J")) {
      reading.skip(2);
      reading.lineBreak();
    } else if (reading.sees("^I")) {
      reading.skip(2);
      reading.character(' ');
    } else if (!reading.percentCode() && !reading.caret()) {
      reading.plain();
    }
  }
  return reading.finishText();
}

}  // namespace brevan

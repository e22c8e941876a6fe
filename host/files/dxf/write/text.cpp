#include "host/files/dxf/write/text.h"

#include <algorithm>

#include "host/core/text_encoding.h"

namespace brevan {

namespace {

bool isControl(char character) { return static_cast<unsigned char>(character) < 0x20; }

std::string encoded(const std::string& text, DxfVersion version) {
  return version == DxfVersion::kR2000 ? text : toUtf8(text);
}

// What a caret and the letters after it would make of a text.
void appendCaretSafe(std::string& out, char character) {
  if (character == '^') {
    out += "^ ";
  } else if (isControl(character)) {
    out += '^';
    out += static_cast<char>(character + '@');
  } else {
    out += character;
  }
}

bool isDoubledPercent(std::string_view text, size_t at) {
  const bool before = at > 0 && text[at - 1] == '%';
  const bool after = at + 1 < text.size() && text[at + 1] == '%';
  return text[at] == '%' && (before || after);
}

void appendMTextCharacter(std::string& out, std::string_view text, size_t at) {
  const char character = text[at];
  if (character == '\\' || character == '{' || character == '}') {
    out += '\\';
    out += character;
  } else if (isDoubledPercent(text, at)) {
    out += "{%}";  // apart from its neighbour, so that the two start no control code
  } else {
    appendCaretSafe(out, character);
  }
}

}  // namespace

std::string dxfPlain(std::string_view windows1252, DxfVersion version) {
  std::string text(windows1252);
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return encoded(text, version);
}

std::string dxfTextValue(std::string_view windows1252, DxfVersion version) {
  std::string text;
  for (size_t at = 0; at < windows1252.size(); ++at) {
    const bool unicodeEscape = windows1252.substr(at, 3) == "\\U+";
    if (unicodeEscape) {
      text += "\\U+005C";  // the backslash of a text that only looks like an escaped character
    } else if (isDoubledPercent(windows1252, at)) {
      text += "%%%";
    } else {
      appendCaretSafe(text, windows1252[at]);
    }
  }
  return encoded(text, version);
}

std::string dxfMTextValue(std::span<const std::string> lines, DxfVersion version) {
  std::string text;
  for (size_t line = 0; line < lines.size(); ++line) {
    if (line > 0) { text += "\\P"; }
    for (size_t at = 0; at < lines[line].size(); ++at) { appendMTextCharacter(text, lines[line], at); }
  }
  return encoded(text, version);
}

}  // namespace brevan

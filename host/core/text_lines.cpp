#include "host/core/text_lines.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "frame/host/core_services.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 2> kUtf16Marks = {"\xFF\xFE", "\xFE\xFF"};

[[noreturn]] void refuse(std::string_view name, std::string_view text, size_t at, std::string_view reason) {
  int line = 1;
  for (size_t i = 0; i < at; ++i) {
    line += text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) ? 1 : 0;
  }
  throw HostFailure(std::string(name) + ":" + std::to_string(line) + ": " + std::string(reason));
}

struct Found {
  bool nul = false;
  bool loneCr = false;
};

// Sixteen bytes a step: every text file goes through here before it is used.
Found look(std::string_view text) {
  using Block = char __attribute__((vector_size(16)));
  Block nuls{};
  Block loneCrs{};
  size_t at = 0;
  for (; at + sizeof(Block) < text.size(); at += sizeof(Block)) {
    Block bytes;
    Block next;
    std::memcpy(&bytes, text.data() + at, sizeof(Block));
    std::memcpy(&next, text.data() + at + 1, sizeof(Block));
    nuls |= Block(bytes == '\0');
    loneCrs |= Block(bytes == '\r') & Block(next != '\n');
  }
  Found found;
  for (size_t i = 0; i < sizeof(Block); ++i) {
    found.nul = found.nul || nuls[i] != 0;
    found.loneCr = found.loneCr || loneCrs[i] != 0;
  }
  for (; at < text.size(); ++at) {
    found.nul = found.nul || text[at] == '\0';
    found.loneCr = found.loneCr || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'));
  }
  return found;
}

// Jumps from line end to line end in steps of nearly the limit instead of visiting every line.
void refuseLongLines(std::string_view text, std::string_view name) {
  for (size_t begin = 0; text.size() - begin > kMaxLineBytes;) {
    const size_t lineEnd = text.substr(begin, kMaxLineBytes + 1).find_last_of("\r\n");
    if (lineEnd == std::string_view::npos) {
      refuse(name, text, begin, "the line is longer than " + std::to_string(kMaxLineBytes) + " bytes");
    }
    begin += lineEnd + 1;
  }
}

size_t firstUnknownCharacter(std::string_view utf8) {
  for (size_t at = 0; at < utf8.size();) {
    const size_t end = std::min(utf8.find('\n', at), utf8.size() - 1) + 1;
    if (!toWindows1252(utf8.substr(at, end - at))) { return at; }
    at = end;
  }
  return utf8.size();
}

}  // namespace

LineSpan PlainText::lineAt(size_t begin) const {
  LineSpan line{begin, text.size(), text.size()};
  if (loneCr) {
    const size_t found = text.find_first_of("\r\n", begin);
    if (found == std::string::npos) { return line; }
    const bool pair = text[found] == '\r' && found + 1 < text.size() && text[found + 1] == '\n';
    return {begin, found, found + (pair ? 2 : 1)};
  }
  const void* const found = std::memchr(text.data() + begin, '\n', text.size() - begin);
  if (found == nullptr) { return line; }
  line.textEnd = static_cast<size_t>(static_cast<const char*>(found) - text.data());
  line.end = line.textEnd + 1;
  if (line.textEnd > begin && text[line.textEnd - 1] == '\r') { --line.textEnd; }
  return line;
}

std::string_view PlainText::lineEnd() const {
  const LineSpan line = text.empty() ? LineSpan{} : lineAt(0);
  if (line.end == line.textEnd) { return "\r\n"; }
  return std::string_view(text).substr(line.textEnd, line.end - line.textEnd);
}

PlainText decodeText(std::string bytes, std::string_view name, Unmarked unmarked) {
  for (const std::string_view mark : kUtf16Marks) {
    if (bytes.starts_with(mark)) { refuse(name, bytes, 0, "the text is UTF-16; Windows-1252 or UTF-8 is needed"); }
  }
  PlainText plain;
  const bool marked = bytes.starts_with(kUtf8Mark);
  plain.utf8 = marked || (unmarked == Unmarked::kAsTheyLook && holdsUtf8(bytes));
  plain.text = std::move(bytes);
  if (plain.utf8) {
    if (marked) { plain.text.erase(0, kUtf8Mark.size()); }
    std::optional<std::string> converted = toWindows1252(plain.text);
    if (!converted) {
      refuse(name, plain.text, firstUnknownCharacter(plain.text),
             "the line holds a character that is malformed or outside Windows-1252");
    }
    plain.text = std::move(*converted);
  }
  const Found found = look(plain.text);
  if (found.nul) { refuse(name, plain.text, plain.text.find('\0'), "the line holds a NUL byte; this is no text"); }
  plain.loneCr = found.loneCr;
  refuseLongLines(plain.text, name);
  return plain;
}

std::string encodeText(std::string text, bool utf8) {
  if (!utf8) { return text; }
  return std::string(kUtf8Mark) + toUtf8(text);
}

}  // namespace brevan

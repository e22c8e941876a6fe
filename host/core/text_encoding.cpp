#include "host/core/text_encoding.h"

#include <algorithm>
#include <charconv>

namespace brevan {
namespace {

// Characters 0x80 to 0x9F; the others have the number of their byte.
constexpr std::array<char32_t, 32> kUpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char, 256> makeLowerCase() {
  std::array<char, 256> lower{};
  for (unsigned code = 0; code < 256; ++code) {
    const bool plainCapital = code >= 'A' && code <= 'Z';
    const bool accentedCapital = code >= 0xC0 && code <= 0xDE && code != 0xD7;
    lower[code] = static_cast<char>(plainCapital || accentedCapital ? code + 0x20 : code);
  }
  for (const unsigned code : {0x8AU, 0x8CU, 0x8EU}) { lower[code] = static_cast<char>(code + 0x10); }
  lower[0x9F] = static_cast<char>(0xFF);
  return lower;
}

constexpr char32_t kMalformed = 0xFFFFFFFF;

// Reads the character at a position and moves behind it; a malformed one takes a single byte.
char32_t nextCharacter(std::string_view utf8, size_t& at) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) { return lead; }
  const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || at + length - 1 > utf8.size()) { return kMalformed; }
  char32_t character = lead & (0x7FU >> length);
  for (size_t i = 0; i + 1 < length; ++i) {
    const auto next = static_cast<unsigned char>(utf8[at + i]);
    if ((next & 0xC0) != 0x80) { return kMalformed; }
    character = (character << 6) | (next & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < kSmallest[length] || character > 0x10FFFF || surrogate) { return kMalformed; }
  at += length - 1;
  return character;
}

std::optional<char> byteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) { return static_cast<char>(character); }
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) { return std::nullopt; }
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void appendHex(std::string& out, char32_t value, size_t digits) {
  std::array<char, 8> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<uint32_t>(value), 16).ptr;
  const auto length = static_cast<size_t>(end - text.data());
  out.append(length < digits ? digits - length : 0, '0');
  std::transform(text.data(), end, std::back_inserter(out),
                 [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
}

}  // namespace

constinit const std::array<char, 256> kLowerCase = makeLowerCase();

std::optional<std::string> toWindows1252(std::string_view utf8) {
  if (isAscii(utf8)) { return std::string(utf8); }
  std::string out;
  out.reserve(utf8.size());
  for (size_t at = 0; at < utf8.size();) {
    const std::optional<char> byte = byteOf(nextCharacter(utf8, at));
    if (!byte) { return std::nullopt; }
    out += *byte;
  }
  return out;
}

bool holdsUtf8(std::string_view bytes) {
  if (isAscii(bytes)) { return false; }
  for (size_t at = 0; at < bytes.size();) {
    if (nextCharacter(bytes, at) == kMalformed) { return false; }
  }
  return true;
}

std::string toUtf8(std::string_view windows1252) {
  if (isAscii(windows1252)) { return std::string(windows1252); }
  std::string out;
  out.reserve(windows1252.size() + windows1252.size() / 8);
  for (const char c : windows1252) {
    const auto byte = static_cast<unsigned char>(c);
    const char32_t character = byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte;
    if (character < 0x80) {
      out += c;
      continue;
    }
    if (character >= 0x800) { out += static_cast<char>(0xE0 | (character >> 12)); }
    out += static_cast<char>(character >= 0x800 ? 0x80 | ((character >> 6) & 0x3F) : 0xC0 | (character >> 6));
    out += static_cast<char>(0x80 | (character & 0x3F));
  }
  return out;
}

namespace {

struct NearRow {
  char32_t first;
  char32_t last;
  std::string_view near;  // Windows-1252
};
// What drawings hold: signs of measures and mathematics, blanks, dashes, quotation marks.
constexpr std::array<NearRow, 36> kNear = {
    {{0x2B9, 0x2B9, "'"},      {0x2BA, 0x2BA, "\""},     {0x2BC, 0x2BC, "'"},      {0x300, 0x36F, ""},
     {0x3A6, 0x3A6, "\xD8"},   {0x3B2, 0x3B2, "\xDF"},   {0x3BC, 0x3BC, "\xB5"},   {0x3C6, 0x3C6, "\xF8"},
     {0x3D5, 0x3D5, "\xF8"},   {0x2000, 0x200A, " "},    {0x200B, 0x200D, ""},     {0x2010, 0x2012, "-"},
     {0x2015, 0x2015, "\x97"}, {0x201B, 0x201B, "'"},    {0x201F, 0x201F, "\""},   {0x2023, 0x2024, "\x95"},
     {0x202F, 0x202F, " "},    {0x2032, 0x2032, "'"},    {0x2033, 0x2033, "\""},   {0x2035, 0x2035, "'"},
     {0x2044, 0x2044, "/"},    {0x205F, 0x205F, " "},    {0x212B, 0x212B, "\xC5"}, {0x2190, 0x2190, "<-"},
     {0x2192, 0x2192, "->"},   {0x2205, 0x2205, "\xD8"}, {0x2212, 0x2212, "-"},    {0x2215, 0x2215, "/"},
     {0x2219, 0x2219, "\xB7"}, {0x2248, 0x2248, "~"},    {0x2260, 0x2260, "<>"},   {0x2264, 0x2264, "<="},
     {0x2265, 0x2265, ">="},   {0x2300, 0x2300, "\xD8"}, {0x3000, 0x3000, " "},    {0xFEFF, 0xFEFF, ""}}};

std::string_view nearestTo(char32_t character) {
  constexpr char32_t kFirstAccented = 0x100;
  constexpr std::string_view kWithoutAccent =
      "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlL"
      "lLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
  if (character >= kFirstAccented && character - kFirstAccented < kWithoutAccent.size()) {
    return kWithoutAccent.substr(character - kFirstAccented, 1);
  }
  const auto* const row = std::find_if(kNear.begin(), kNear.end(), [character](const NearRow& candidate) {
    return candidate.first <= character && character <= candidate.last;
  });
  return row == kNear.end() ? "?" : row->near;
}

}  // namespace

NearestText nearestWindows1252(std::string_view utf8) {
  NearestText nearest;
  for (size_t at = 0; at < utf8.size();) {
    const char32_t character = nextCharacter(utf8, at);
    if (const std::optional<char> known = byteOf(character)) {
      nearest.text += *known;
    } else {
      nearest.text += nearestTo(character);
      ++nearest.replaced;
    }
  }
  return nearest;
}

std::string messageText(std::string_view utf8) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    const char byte = utf8[at];
    const char32_t character = nextCharacter(utf8, at);
    if (const std::optional<char> known = byteOf(character)) {
      out += *known;
      continue;
    }
    out += character == kMalformed ? "<" : "<U+";
    appendHex(out, character == kMalformed ? static_cast<unsigned char>(byte) : character,
              character == kMalformed ? 2 : 4);
    out += '>';
  }
  return out;
}

bool equalWithoutCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowered(x) == lowered(y); });
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) { text.remove_prefix(1); }
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) { text.remove_suffix(1); }
  return text;
}

}  // namespace brevan

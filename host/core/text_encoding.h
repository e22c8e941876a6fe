#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brevan {

// Text inside the host is Windows-1252, one byte a character; screens, file names and exchange files are
// UTF-8. Every byte has a character: the five that Windows-1252 leaves open stand for the control
// characters of the same number (0x81 is U+0081), so bytes survive the way out and back.

// Nothing for malformed UTF-8 and for characters that Windows-1252 lacks.
std::optional<std::string> toWindows1252(std::string_view utf8);
// Well-formed, and with a character beyond ASCII, which in another encoding would hardly come out well-formed.
bool holdsUtf8(std::string_view bytes);
std::string toUtf8(std::string_view windows1252);

// Each character that Windows-1252 lacks as the nearest that it has, a diameter sign as the letter that drawings use
// for it, accented letters without their accent; "?" where none is near, and for malformed bytes.
struct NearestText {
  std::string text;
  size_t replaced = 0;  // characters, those dropped that have no width among them
};
NearestText nearestWindows1252(std::string_view utf8);

// For messages only, where a text must be shown whatever it holds: what Windows-1252 lacks appears as
// "<U+4E2D>", a malformed byte as "<FF>".
std::string messageText(std::string_view utf8);

// Lower case of a Windows-1252 character, accented letters included.
extern const std::array<char, 256> kLowerCase;

inline char lowered(char character) { return kLowerCase[static_cast<unsigned char>(character)]; }
bool equalWithoutCase(std::string_view a, std::string_view b);

struct HashWithoutCase {
  size_t operator()(std::string_view text) const {
    uint64_t hash = 0xcbf29ce484222325ULL;
    for (const char character : text) {
      hash = (hash ^ static_cast<unsigned char>(lowered(character))) * 0x100000001b3ULL;
    }
    return static_cast<size_t>(hash ^ (hash >> 32));
  }
};

inline uint32_t keyHash(std::string_view text) { return static_cast<uint32_t>(HashWithoutCase{}(text)); }

struct EqualWithoutCase {
  bool operator()(std::string_view a, std::string_view b) const { return equalWithoutCase(a, b); }
};

// Without blanks and tabs at either end.
std::string_view trimmed(std::string_view text);

}  // namespace brevan

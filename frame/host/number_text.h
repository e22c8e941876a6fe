#pragma once

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>

// Numbers to text and back, independent of the locale. The one place for both sides of the seam.
namespace numberText {

// The whole text as one finite number; blanks, signs of "+", trailing text, infinities are refused.
inline std::optional<double> parseDouble(std::string_view text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) { return std::nullopt; }
  return value;
}

inline std::optional<long long> parseInteger(std::string_view text) {
  long long value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) { return std::nullopt; }
  return value;
}

// As a person types it: blanks around it, a leading "+" and a decimal comma are taken.
inline std::optional<double> parseTyped(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) { return std::nullopt; }
  std::string plain(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
  if (plain.size() > 1 && plain[0] == '+' && plain[1] != '-') { plain.erase(0, 1); }
  const size_t comma = plain.find(',');
  if (comma != std::string::npos && plain.find('.') == std::string::npos) { plain[comma] = '.'; }
  return parseDouble(plain);
}

// The number at the start of a text, what follows it ignored; nothing where there is none or it is
// not finite.
inline std::optional<double> leadingDouble(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) { text.remove_prefix(1); }
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') { text.remove_prefix(1); }
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || !std::isfinite(value)) { return std::nullopt; }
  return value;
}

// The shortest text that reads back as the same number; never "-0". Into a place with room for
// kLongestShortest characters, returning where it ends, or to the end of a text.
inline constexpr size_t kLongestShortest = 32;
inline char* writeShortest(char* at, double value) {
  return std::to_chars(at, at + kLongestShortest, value == 0.0 ? 0.0 : value).ptr;
}
inline void appendShortest(std::string& out, double value) {
  std::array<char, kLongestShortest> digits{};
  out.append(digits.data(), writeShortest(digits.data(), value));
}
inline std::string shortest(double value) {
  std::string out;
  appendShortest(out, value);
  return out;
}

// As printf's "%.<decimals>f".
inline void appendFixed(std::string& out, double value, int decimals) {
  std::array<char, 400> digits{};  // the longest double has 309 digits before the point
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed,
                                 decimals < 64 ? decimals : 64)
                       .ptr;
  out.append(digits.data(), end);
}
inline std::string fixed(double value, int decimals) {
  std::string out;
  appendFixed(out, value, decimals);
  return out;
}

using Argument = std::variant<long long, double, std::string_view>;

namespace detail {

struct Conversion {
  bool leftAligned = false;
  bool zeroFilled = false;
  int width = 0;
  int precision = -1;
  char letter = 0;
};

inline int readDigits(std::string_view format, size_t& at) {
  int value = 0;
  for (; at < format.size() && format[at] >= '0' && format[at] <= '9'; ++at) {
    value = value * 10 + (format[at] - '0');
  }
  return value;
}

inline Conversion readConversion(std::string_view format, size_t& at) {
  Conversion conversion;
  for (; at < format.size() && (format[at] == '-' || format[at] == '0'); ++at) {
    (format[at] == '-' ? conversion.leftAligned : conversion.zeroFilled) = true;
  }
  conversion.width = readDigits(format, at);
  if (at < format.size() && format[at] == '.') { conversion.precision = readDigits(format, ++at); }
  assert(at < format.size());
  conversion.letter = format[at++];
  return conversion;
}

inline std::string converted(const Conversion& conversion, const Argument& argument) {
  std::string text;
  switch (conversion.letter) {
    case 'd': text = std::to_string(std::get<long long>(argument)); break;
    case 'x': {
      std::array<char, 20> digits{};
      const auto value = static_cast<unsigned long long>(std::get<long long>(argument));
      text.assign(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr);
      break;
    }
    case 'f': appendFixed(text, std::get<double>(argument), conversion.precision < 0 ? 6 : conversion.precision); break;
    default:
      assert(conversion.letter == 's');
      text = std::get<std::string_view>(argument);
      if (conversion.precision >= 0) { text = text.substr(0, static_cast<size_t>(conversion.precision)); }
      break;
  }
  const size_t width = static_cast<size_t>(conversion.width);
  if (text.size() >= width) { return text; }
  if (conversion.leftAligned) { return text.append(width - text.size(), ' '); }
  const size_t sign = conversion.zeroFilled && !text.empty() && text[0] == '-' ? 1 : 0;
  return text.insert(sign, width - text.size(), conversion.zeroFilled ? '0' : ' ');
}

inline Argument argument(double value) { return value; }
inline Argument argument(int value) { return static_cast<long long>(value); }
inline Argument argument(long value) { return static_cast<long long>(value); }
inline Argument argument(long long value) { return value; }
inline Argument argument(unsigned value) { return static_cast<long long>(value); }
inline Argument argument(size_t value) { return static_cast<long long>(value); }
inline Argument argument(std::string_view value) { return value; }

}  // namespace detail

// Arguments into a format in printf notation: %d %x %f %s %%, with the flags "-" and "0", a width and
// a precision. The formats are the program's own, never a user's text; a format that does not fit its
// arguments is a mistake of ours and stops the program.
inline std::string formatList(std::string_view format, std::initializer_list<Argument> arguments) {
  std::string out;
  const Argument* next = arguments.begin();
  for (size_t at = 0; at < format.size();) {
    if (format[at] != '%') {
      out += format[at++];
      continue;
    }
    ++at;
    if (at < format.size() && format[at] == '%') {
      out += format[at++];
      continue;
    }
    const detail::Conversion conversion = detail::readConversion(format, at);
    assert(next != arguments.end());
    out += detail::converted(conversion, *next++);
  }
  assert(next == arguments.end());
  return out;
}

template <class... Arguments>
std::string format(std::string_view format, const Arguments&... arguments) {
  return formatList(format, {detail::argument(arguments)...});
}

}  // namespace numberText

#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace brevan {

namespace dxfNumber {

inline constexpr size_t kMostDigits = 19;  // a significand of so many fits in 64 bits

__extension__ using Wide = unsigned __int128;

// A power of five, shifted up until its highest bit is set, and 2 to the 127th divided by that.
struct Divisor {
  uint64_t atTop = 0;
  uint64_t reciprocal = 0;
  int up = 0;
};
inline constexpr std::array<Divisor, kMostDigits + 1> kPowersOfFive = [] {
  std::array<Divisor, kMostDigits + 1> divisors{};  // the first is not used
  uint64_t power = 1;
  for (size_t n = 1; n < divisors.size(); ++n) {
    power *= 5;
    const int up = std::countl_zero(power);
    divisors[n] = {power << up, static_cast<uint64_t>((Wide{1} << 127) / (power << up)), up};
  }
  return divisors;
}();

// significand / 10^decimals, rounded once and to even, for both above 0: the quotient is worked out to 62 bits or more,
// and its last bit is set where a remainder is left, so that turning it into a double rounds as it should.
inline double quotient(uint64_t significand, size_t decimals) {
  const Divisor& divisor = kPowersOfFive[decimals];
  const int up = std::countl_zero(significand);
  const Wide dividend = significand << up;
  const auto least = static_cast<uint64_t>(dividend * divisor.reciprocal >> 65);  // at most one too small
  const Wide rest = (dividend << 62) - static_cast<Wide>(least) * divisor.atTop;
  const uint64_t whole = least + static_cast<uint64_t>(rest >= divisor.atTop);
  const auto inexact = static_cast<uint64_t>((rest != 0) & (rest != divisor.atTop));
  constexpr int kBias = 1023;
  constexpr int kMantissaBits = 52;
  const int exponent = divisor.up - up - static_cast<int>(decimals) - 62;
  const auto power = std::bit_cast<double>(static_cast<uint64_t>(kBias + exponent) << kMantissaBits);
  return static_cast<double>(static_cast<int64_t>(whole | inexact)) * power;
}

// Digits eight at a time, where the first character is the lowest byte.
inline constexpr size_t kEight = 8;
inline constexpr uint64_t kZeros = 0x3030303030303030;
inline constexpr std::array<uint32_t, kEight> kPowersOfTen = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000, 10'000'000};

inline uint64_t loadEight(const char* at) {
  uint64_t eight = 0;
  std::memcpy(&eight, at, kEight);
  return eight;
}
inline bool areDigits(uint64_t eight) {
  return (((eight + 0x4646464646464646) | (eight - kZeros)) & 0x8080808080808080) == 0;
}
inline uint64_t eightDigits(uint64_t eight) {
  eight -= kZeros;
  eight = eight * 10 + (eight >> 8);  // pairs, in every other byte
  constexpr uint64_t kPairs = 0x000000FF000000FF;
  return ((eight & kPairs) * 0x000F424000000064 + (eight >> 16 & kPairs) * 0x0000271000000001) >> 32 & 0xFFFFFFFF;
}

// Appends the digits from a place to the text's end to a number; false where not all are digits.
inline bool appendDigits(uint64_t& number, std::string_view text, size_t at) {
  if constexpr (std::endian::native == std::endian::little) {
    for (; text.size() - at >= kEight; at += kEight) {
      const uint64_t eight = loadEight(text.data() + at);
      if (!areDigits(eight)) { return false; }
      number = number * 100'000'000 + eightDigits(eight);
    }
    if (const size_t left = text.size() - at; left > 0 && text.size() >= kEight) {
      // The text's last eight characters, those that were counted before made zeros.
      const uint64_t before = ~uint64_t{0} >> (8 * left);
      const uint64_t eight = (loadEight(text.data() + text.size() - kEight) & ~before) | (kZeros & before);
      if (!areDigits(eight)) { return false; }
      number = number * kPowersOfTen[left] + eightDigits(eight);
      return true;
    }
  }
  for (; at < text.size(); ++at) {
    const unsigned digit = static_cast<unsigned>(text[at]) - '0';
    if (digit > 9) { return false; }
    number = number * 10 + digit;
  }
  return true;
}

}  // namespace dxfNumber

// The number that a plain decimal such as "-1234.5678" is, the same as the general reading gives; nothing for a text of
// another form or of more than 19 digits, which may be a number all the same. Nearly all numbers of a DXF file are
// such, and reading them is most of reading it.
inline std::optional<double> plainDecimal(std::string_view text) {
  const size_t first = text.starts_with('-') ? 1 : 0;
  if (text.size() - first > dxfNumber::kMostDigits + 1) { return std::nullopt; }
  uint64_t significand = 0;
  size_t at = first;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    significand = significand * 10 + static_cast<unsigned>(text[at] - '0');
  }
  const size_t ahead = at - first;
  const bool point = at < text.size() && text[at] == '.';
  if (point) { ++at; }
  const size_t decimals = text.size() - at;
  const size_t digits = ahead + decimals;
  if (digits == 0 || digits > dxfNumber::kMostDigits) { return std::nullopt; }
  if (decimals > 0 && !(point && dxfNumber::appendDigits(significand, text, at))) { return std::nullopt; }
  const bool whole = decimals == 0 || significand == 0;
  const double size = whole ? static_cast<double>(significand) : dxfNumber::quotient(significand, decimals);
  return first > 0 ? -size : size;
}

// A handle in hexadecimal digits alone; nothing for a text of another form.
inline std::optional<uint64_t> plainHandle(std::string_view text) {
  constexpr size_t kMostHexDigits = 16;
  if (text.empty() || text.size() > kMostHexDigits) { return std::nullopt; }
  uint64_t value = 0;
  for (const char character : text) {
    const unsigned digit = static_cast<unsigned>(character) - '0';
    const unsigned letter = (static_cast<unsigned>(character) | 0x20U) - 'a';
    if (digit > 9 && letter > 5) { return std::nullopt; }
    value = value << 4 | (digit <= 9 ? digit : letter + 10);
  }
  return value;
}

}  // namespace brevan

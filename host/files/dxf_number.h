#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace brevan {

namespace dxfNumber {

inline constexpr int kMostDecimals = 19;  // 10 to this power fits in 64 bits, and any significand beside it

inline constexpr std::array<uint64_t, kMostDecimals + 1> kPowersOfFive = [] {
  std::array<uint64_t, kMostDecimals + 1> powers{1};
  for (size_t n = 1; n < powers.size(); ++n) { powers[n] = powers[n - 1] * 5; }
  return powers;
}();

// significand / 10^decimals, rounded once and to even, for a significand above 0: the quotient is worked out to 63 bits
// or more, and its last bit is set where a remainder is left, so that turning it into a double rounds as it should.
inline double quotient(uint64_t significand, int decimals) {
  const uint64_t divisor = kPowersOfFive[static_cast<size_t>(decimals)];
  const int up = std::countl_zero(significand);
  const int divisorUp = std::countl_zero(divisor);
  __extension__ using Wide = unsigned __int128;
  const Wide dividend = static_cast<Wide>(significand << up) << 63;
  const uint64_t divisorAtTop = divisor << divisorUp;
  const auto whole = static_cast<uint64_t>(dividend / divisorAtTop);
  const bool exact = static_cast<Wide>(whole) * divisorAtTop == dividend;
  constexpr int kBias = 1023;
  constexpr int kMantissaBits = 52;
  const int exponent = divisorUp - up - decimals - 63;
  const auto power = std::bit_cast<double>(static_cast<uint64_t>(kBias + exponent) << kMantissaBits);
  return static_cast<double>(whole | (exact ? 0U : 1U)) * power;
}

}  // namespace dxfNumber

// The number that a plain decimal such as "-1234.5678" is, the same as the general reading gives; nothing for a text of
// another form or of more than 19 digits, which may be a number all the same. Nearly all numbers of a DXF file are such,
// and reading them is most of reading it.
inline std::optional<double> plainDecimal(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool negative = at != end && *at == '-';
  if (negative) { ++at; }
  uint64_t significand = 0;
  const char* const first = at;
  const auto takeDigits = [&] {
    while (at != end && static_cast<unsigned>(*at - '0') < 10) {
      significand = significand * 10 + static_cast<unsigned>(*at++ - '0');
    }
  };
  takeDigits();
  std::ptrdiff_t digits = at - first;
  int decimals = 0;
  if (at != end && *at == '.') {
    const char* const point = at++;
    takeDigits();
    decimals = static_cast<int>(at - point) - 1;
    digits += decimals;
  }
  if (at != end || digits == 0 || digits > dxfNumber::kMostDecimals) { return std::nullopt; }
  const bool whole = decimals == 0 || significand == 0;
  const double size = whole ? static_cast<double>(significand) : dxfNumber::quotient(significand, decimals);
  return negative ? -size : size;
}

}  // namespace brevan

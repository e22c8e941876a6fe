#include "host/files/dxf/read/number.h"

#include <gtest/gtest.h>

#include <random>

#include "frame/host/number_text.h"

namespace brevan {
namespace {

// A decimal of up to 19 digits; zeros, nines and a last five lie where rounding turns.
std::string anyDecimal(std::mt19937_64& random) {
  constexpr std::array<std::string_view, 4> kDigits = {"0123456789", "09", "05", "01"};
  const std::string_view digits = kDigits[random() % kDigits.size()];
  const size_t count = 1 + random() % 19;
  const size_t point = random() % (count + 1);
  std::string text = random() % 2 == 0 ? "-" : "";
  for (size_t n = 0; n < count; ++n) {
    if (n == point) { text += '.'; }
    text += n + 1 == count && random() % 4 == 0 ? '5' : digits[random() % digits.size()];
  }
  return text;
}

void expectAsGeneral(const std::string& text) {
  const auto plain = plainDecimal(text);
  const auto general = numberText::parseDouble(text);
  ASSERT_TRUE(plain && general) << text;
  EXPECT_EQ(std::bit_cast<uint64_t>(*plain), std::bit_cast<uint64_t>(*general)) << text;
}

TEST(PlainDecimal, IsTheNumberThatTheGeneralReadingGives) {
  std::mt19937_64 random(1);
  for (int n = 0; n < 200'000; ++n) { expectAsGeneral(anyDecimal(random)); }
  // Half-way between two doubles, and a unit of the last digit to either side.
  for (const std::string text : {"9007199254740993", "9007199254740992.999", "9007199254740993.001", "0", "-0.0", "5.",
                                 ".5", ".0000000000000000001", "9999999999999999999", "4503599627370496.5"}) {
    expectAsGeneral(text);
  }
  std::uniform_real_distribution<double> coordinate(-1e4, 1e4);
  for (int n = 0; n < 100'000; ++n) {
    const double value = coordinate(random);
    const std::string text = numberText::shortest(value);
    EXPECT_EQ(plainDecimal(text).value_or(value), value) << text;
  }
}

TEST(PlainDecimal, LeavesAloneWhatIsNotPlain) {
  for (const std::string_view text : {"", "-", ".", "-.", " 1", "1 ", "+1", "--1", "1e5", "1.5.2", "1,5", "0x10", "nan",
                                      "1.2345678x", "12345678901234567890", "0.12345678:01234"}) {
    EXPECT_FALSE(plainDecimal(text)) << text;
  }
}

}  // namespace
}  // namespace brevan

#include "survey/number_formats.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>
#include <string>

using namespace ardenix::survey;

namespace {

constexpr double kPi = std::numbers::pi;

double radiansOf(double degrees, double minutes = 0.0, double seconds = 0.0) {
  return (degrees + minutes / 60.0 + seconds / 3600.0) * kPi / 180.0;
}

TEST(NumberFormats, GroupsDigitsAndKeepsSigns) {
  NumberStyle style{.decimal = ",", .thousands = " ", .bearing = " "};
  const std::pair<double, const char*> plain[] = {
      {1234.567, "1 234,57"},   {-12345.6, "-12 345,60"},      {123.4, "123,40"}, {1234567.891, "1 234 567,89"},
      {123456.0, "123 456,00"}, {-123.0, "-123,00"},           {-0.001, "-0,00"}, {0.0, "0,00"},
      {999.996, "1 000,00"},    {-999999.999, "-1 000 000,00"}};
  for (const auto& [value, text] : plain) { EXPECT_EQ(formattedNumber(value, style), text) << value; }
  EXPECT_EQ(formattedNumber(55.5, style, PlusSign::kAsStyled), "55,50") << "the style has no plus sign";

  style.plusSign = true;
  const std::pair<double, const char*> signedOnes[] = {
      {55.5, "+55,50"}, {0.0, "0,00"}, {1e-12, "0,00"}, {-55.5, "-55,50"}, {2851234.5, "+2 851 234,50"}};
  for (const auto& [value, text] : signedOnes) {
    EXPECT_EQ(formattedNumber(value, style, PlusSign::kAsStyled), text) << value;
  }
  EXPECT_EQ(formattedNumber(55.5, style), "55,50") << "a distance bears no sign";

  style.decimal = "";
  EXPECT_EQ(formattedNumber(1234.567, style), "1 234");
  EXPECT_EQ(formattedNumber(1999.996, style), "2 000") << "cut after rounding to two decimals";
  style.decimal = style.thousands = ",";
  EXPECT_EQ(formattedNumber(1234567.0, style), "1,234,567,00");
}

TEST(NumberFormats, WritesBearings) {
  const std::string degree(1, kDegreeSign);
  const struct {
    double radians;
    bool round;
    std::string separator;
    std::string text;
  } rows[] = {
      {1.0, false, degree, "57" + degree + "17'45\""},
      {1.0, true, degree, "57" + degree + "17'40\""},
      {1.0, false, " ", "57 17 45"},
      {1.0, false, "", "571745"},
      {1.0, false, "-", "57-17-45"},
      {radiansOf(-30.5), false, degree, "329" + degree + "30'00\""},
      {radiansOf(45, 59, 59.7), false, degree, "46" + degree + "00'00\""},
      {radiansOf(10, 20, 45), true, " ", "10 20 50"},
      {radiansOf(10, 20, 44.8), true, " ", "10 20 40"},
      {radiansOf(10, 59, 56), true, " ", "11 00 00"},
      {radiansOf(0, 0, 59.49), false, " ", "0 00 59"},
  };
  for (const auto& row : rows) {
    const NumberStyle style{.bearing = row.separator, .roundBearing = row.round};
    const BearingText bearing = formattedBearing(row.radians, style);
    EXPECT_EQ(bearing.text, row.text) << row.radians;
    EXPECT_FALSE(bearing.zero || bearing.straight) << row.text;
  }
}

TEST(NumberFormats, KnowsBearingsAlongTheAxes) {
  for (const bool round : {false, true}) {
    const NumberStyle style{.bearing = " ", .roundBearing = round};
    for (const double zero : {0.0, 2.0 * kPi, radiansOf(359.9999), -1e-15}) {
      const BearingText bearing = formattedBearing(zero, style);
      EXPECT_TRUE(bearing.text == "0 00 00" && bearing.zero && !bearing.straight) << bearing.text;
    }
    for (const double straight : {kPi, radiansOf(180, 0, 0.3), radiansOf(179, 59, 59.9)}) {
      const BearingText bearing = formattedBearing(straight, style);
      EXPECT_TRUE(bearing.text == "180 00 00" && !bearing.zero && bearing.straight) << bearing.text;
    }
  }
}

// Whole seconds go through radians and come back as the same degrees, minutes and seconds.
TEST(NumberFormats, EveryWholeSecondIsWrittenAsItIs) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> seconds(0, 360 * 3600 - 1);
  std::uniform_real_distribution<double> less(-0.499, 0.499);
  const NumberStyle style{.bearing = "-"};
  const auto twoDigits = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
  for (int n = 0; n < 20'000; ++n) {
    const int whole = seconds(random);
    const double off = whole == 0 ? 0.0 : less(random);
    const std::string wanted =
        std::to_string(whole / 3600) + "-" + twoDigits(whole / 60 % 60) + "-" + twoDigits(whole % 60);
    ASSERT_EQ(formattedBearing((whole + off) * kPi / (180.0 * 3600.0), style).text, wanted) << whole << ' ' << off;
  }
}

TEST(NumberFormats, WritesAreasAndScales) {
  EXPECT_EQ(formattedArea(1234.5678) + formattedArea(0.4), "12350");
  const std::pair<double, const char*> areas[] = {
      {10000.0, "1,0000 hectares"}, {9999.0, "9 999 sq m"}, {9999.6, "1,0000 hectares"}, {12345.6, "1,2346 hectares"}};
  const NumberStyle style{.decimal = ",", .thousands = " "};
  for (const auto& [area, text] : areas) { EXPECT_EQ(areaWithUnit(area, "sq m", style), text); }
  const std::pair<const char*, const char*> rows[] = {
      {"SCALE 1:", "SCALE 1:1250"}, {"Scale 1/", "Scale 1/1250"}, {"Sheet 1", "Sheet 1"}, {"", ""}};
  for (const auto& [text, wanted] : rows) { EXPECT_EQ(withScale(text, 1250.4), wanted); }
}

}  // namespace

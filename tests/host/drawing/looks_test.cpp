#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <vector>

#include "host/drawing/line_types.h"
#include "host/drawing/pens.h"

namespace brevan {
namespace {

TEST(LineTypes, EveryPatternIsDistinctAndReads) {
  std::set<std::vector<double>> patterns;
  std::set<std::string> names;
  for (int number = 1; number <= kPatternedLineTypes; ++number) {
    const LineType& type = lineType(number);
    EXPECT_EQ(type.number, number);
    EXPECT_EQ(type.pattern.size() % 2, 0U) << "a pattern ends in a gap: " << number;
    for (const double length : type.pattern) { EXPECT_GT(length, 0.0) << number; }
    patterns.insert({type.pattern.begin(), type.pattern.end()});
    names.insert(lineTypeName(number));
  }
  EXPECT_EQ(patterns.size(), 32U);
  EXPECT_EQ(names.size(), 32U);
  EXPECT_TRUE(lineType(33).pattern.empty());
  EXPECT_TRUE(lineType(-1).pattern.empty());
  EXPECT_NE(lineTypeName(33), lineTypeName(34));
}

double luminance(Colour colour) {
  return (0.2126 * (colour >> 16 & 0xFFU) + 0.7152 * (colour >> 8 & 0xFFU) + 0.0722 * (colour & 0xFFU)) / 255.0;
}

TEST(Pens, EveryPenIsDistinctAndStandsOffItsGround) {
  for (const Ground ground : {Ground::kPaper, Ground::kDark}) {
    std::set<Colour> colours;
    for (int pen = 1; pen <= kPens; ++pen) {
      const Colour colour = penColour(pen, ground);
      colours.insert(colour);
      if (ground == Ground::kPaper) {
        EXPECT_LT(luminance(colour), 0.75) << pen;
      } else {
        EXPECT_GT(luminance(colour), 0.35) << pen;
      }
    }
    EXPECT_EQ(colours.size(), 255U);
  }
}

TEST(Pens, EveryColourIndexIsThatOfItsPen) {
  std::set<int> pens;
  for (int index = 1; index <= 255; ++index) {
    EXPECT_EQ(colourIndex(penOfIndex(index)), index);
    pens.insert(penOfIndex(index));
  }
  EXPECT_EQ(pens.size(), 255U) << "two entries of one pen";
}

// Degrees round the colour wheel, and how far from grey.
std::pair<double, double> hueOf(Colour colour) {
  const auto channel = [colour](unsigned shift) { return static_cast<double>(colour >> shift & 0xFFU); };
  const double x = channel(16) - 0.5 * (channel(8) + channel(0));
  const double y = std::sqrt(0.75) * (channel(8) - channel(0));
  return {std::atan2(y, x) * 180.0 / 3.141592653589793, std::hypot(x, y)};
}

TEST(Pens, AColourIndexHasTheHueOfItsPen) {
  EXPECT_EQ(colourIndex(1), 7);
  for (int pen = 2; pen <= kPens; ++pen) {
    const auto [hue, strength] = hueOf(penColour(pen, Ground::kPaper));
    const auto [indexed, indexedStrength] = hueOf(indexedColour(colourIndex(pen)));
    EXPECT_EQ(strength < 1.0, indexedStrength < 1.0) << "grey for a colour: " << pen;
    if (strength > 1.0) { EXPECT_LT(std::abs(std::remainder(hue - indexed, 360.0)), 30.0) << pen; }
  }
}

}  // namespace
}  // namespace brevan

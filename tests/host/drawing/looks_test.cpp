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

TEST(Pens, ColourIndexIsTheNearestOne) {
  EXPECT_EQ(colourIndex(1), 7);
  EXPECT_EQ(colourIndex(2), 1);
  EXPECT_EQ(colourIndex(4), 5);
  const auto away = [](Colour a, Colour b) {
    const auto channel = [](Colour colour, unsigned shift) { return static_cast<int>(colour >> shift & 0xFFU); };
    return std::hypot(channel(a, 16) - channel(b, 16), channel(a, 8) - channel(b, 8), channel(a, 0) - channel(b, 0));
  };
  for (int pen = 2; pen <= kPens; ++pen) {
    const Colour wanted = penColour(pen, Ground::kPaper);
    EXPECT_LT(away(indexedColour(colourIndex(pen)), wanted), 100.0) << pen;
    if (isIndexedExactly(pen)) { EXPECT_EQ(indexedColour(colourIndex(pen)), wanted) << pen; }
  }
}

}  // namespace
}  // namespace brevan

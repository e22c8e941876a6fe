#include "host/drawing/text_layout.h"

#include <gtest/gtest.h>

#include "host/drawing/symbol_expansion.h"

namespace brevan {
namespace {

Text sampleText(int justification) { return {{100.0, 50.0}, "Mwy\\Nsecond line", "Arial", 50.0, 0.0, justification}; }

// Where the text's point lies in the block, as parts of its width and height.
Point placeInBlock(const Text& text) {
  const Box box = layOut(text).box;
  return {-box.low.x / box.width(), -box.low.y / box.height()};
}

TEST(TextLayout, JustificationsAreTheNinePointsOfTheBlock) {
  constexpr double kColumns[] = {0.0, 0.5, 1.0};
  for (int justification = 1; justification <= 9; ++justification) {
    const Point place = placeInBlock(sampleText(justification));
    EXPECT_NEAR(place.x, kColumns[(justification - 1) / 3], 1e-12) << justification;
    EXPECT_NEAR(place.y, kColumns[(justification - 1) % 3], 1e-12) << justification;
  }
}

TEST(TextLayout, OffsetJustificationsMoveTheTextAwayFromItsPoint) {
  for (int justification = 11; justification <= 19; ++justification) {
    const Box plain = layOut(sampleText(justification - 10)).box;
    const Point moved = layOut(sampleText(justification)).box.centre() - plain.centre();
    // Away: in the direction in which the block's centre lies from its point already.
    EXPECT_GE(moved.x * plain.centre().x, 0.0) << justification;
    EXPECT_GE(moved.y * plain.centre().y, 0.0) << justification;
    EXPECT_EQ(length(moved) == 0.0, justification == 15);
  }
}

TEST(TextLayout, LinesStandInTheirCellsFromTheTopDown) {
  for (const int justification : {1, 5, 9, 14}) {
    const TextLayout layout = layOut(sampleText(justification));
    ASSERT_EQ(layout.lines.size(), 2U);
    EXPECT_NEAR(layout.lines[0].baseline.y - layout.lines[1].baseline.y, 1.1 * 5.0, 1e-12);
    EXPECT_NEAR(layout.lines[1].baseline.y - layout.box.low.y, kDescender * 5.0, 1e-12);
    for (const PlacedLine& line : layout.lines) {
      EXPECT_GE(line.baseline.x, layout.box.low.x - 1e-12);
      EXPECT_LE(line.baseline.x + line.width, layout.box.high.x + 1e-12);
    }
  }
}

TEST(TextLayout, BreaksAtBackslashAndEitherLetter) {
  EXPECT_EQ(textLines("a\\nb\\Nc\\d"), (std::vector<std::string>{"a", "b", "c\\d"}));
  EXPECT_EQ(textLines("\\n"), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(textLines("end\\"), (std::vector<std::string>{"end\\"}));
}

TEST(TextLayout, WidthsAreThoseOfTheNamedFont) {
  // Columns of figures line up because all digits share one width.
  for (const char* font : {"Arial", "Times New Roman", "Courier New"}) {
    EXPECT_DOUBLE_EQ(lineWidth(font, "0123456789"), 10.0 * lineWidth(font, "8")) << font;
  }
  EXPECT_DOUBLE_EQ(lineWidth("courier new", "iiii"), lineWidth("Courier New", "WWWW"));
  EXPECT_DOUBLE_EQ(lineWidth("Verdana", "Wide"), lineWidth("Arial", "Wide"));
  EXPECT_NEAR(lineWidth("Arial", "\xC4"), lineWidth("Arial", "A"), 1e-12);
  EXPECT_DOUBLE_EQ(lineWidth("Arial", "\t\x01"), 0.0);
}

TEST(TextLayout, TurnedOverTextKeepsItsBox) {
  for (int justification = 1; justification <= 19; justification += justification == 9 ? 2 : 1) {
    Text text = sampleText(justification);
    text.angle = 300.0;
    const Box before = textBounds(text, Parameters());
    const Box after = textBounds(turnedOver(text), Parameters());
    EXPECT_LT(distance(before.low, after.low) + distance(before.high, after.high), 1e-9) << justification;
  }
}

TEST(TextLayout, BoundsFollowPaperAndOrientation) {
  Text text = sampleText(1);
  Parameters metres;
  metres.setUnit(1000.0);
  metres.setScale(500.0);
  const Box paper = layOut(text).box;
  const Box upright = textBounds(text, metres);
  EXPECT_NEAR(upright.width(), paper.width() * 0.5, 1e-12);
  EXPECT_NEAR(upright.low.x, text.at.x, 1e-12);
  metres.setCoordinateSystem(0);
  metres.setOrientation(1);
  const Box turned = textBounds(text, metres);  // upright on paper: to the left and down in coordinates
  EXPECT_NEAR(turned.high.x, text.at.x, 1e-12);
  EXPECT_NEAR(turned.high.y, text.at.y, 1e-12);
  text.angle = 900.0;
  EXPECT_NEAR(textBounds(text, metres).height(), upright.width(), 1e-12);
}

}  // namespace
}  // namespace brevan

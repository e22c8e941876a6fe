#include <gtest/gtest.h>

#include <random>

#include "host/drawing/hatch_patterns.h"
#include "host/drawing/hatch_strokes.h"
#include "tests/host/macros/macro_session.h"

using namespace brevan;

namespace {

// A star of random corners about the origin.
HatchLoop star(std::mt19937& random, double least, double most) {
  std::uniform_real_distribution<double> radius(least, most);
  constexpr int kCorners = 9;
  HatchLoop loop;
  for (int at = 0; at < kCorners; ++at) { loop.push_back({unitOfDegrees(360.0 * at / kCorners) * radius(random)}); }
  return loop;
}

double areaOf(const Hatch& hatch) { return signedArea(loopOf(hatch.loops[0])) - signedArea(loopOf(hatch.loops[1])); }

}  // namespace

// Every line lies within, ends at the outlines, and the lines together cover what the pattern's spacing says.
TEST(HatchFill, FillsTheAreaAndNothingElse) {
  std::mt19937 random(5);
  for (const HatchPattern& pattern : hatchPatterns()) {
    Hatch hatch{std::string(pattern.name), 0.2, 25.0, {3.0, 1.0}, {}, {star(random, 60, 100), star(random, 10, 40)}};
    const HatchFill fill(hatch, 1.0);
    for (const HatchLines& lines : linesOf(hatch)) {
      double length = 0.0;
      size_t dots = 0;
      fill.forEachStroke(lines, [&](Point a, Point b) {
        length += distance(a, b);
        dots += a == b ? 1 : 0;
        EXPECT_TRUE(encloses(hatch, middle(a, b)) || distance(a, b) < 1e-6) << pattern.name;
      });
      double period = 0.0;
      double drawn = lines.dashes.empty() ? 1.0 : 0.0;
      for (const double dash : lines.dashes) { period += std::abs(dash), drawn += std::max(dash, 0.0); }
      const double share = lines.dashes.empty() ? 1.0 : drawn / period;
      const double apart = lines.step.y * hatch.scale;
      if (drawn > 0.0) { EXPECT_NEAR(length * apart / share, areaOf(hatch), areaOf(hatch) * 0.02) << pattern.name; }
      if (drawn == 0.0) {
        EXPECT_NEAR(static_cast<double>(dots) * apart * period * hatch.scale, areaOf(hatch), areaOf(hatch) * 0.02);
      }
    }
  }
}

// Readers that count turns and readers that count crossings fill the same.
TEST(HatchFill, OneChainHoldsAreaAndHoles) {
  std::mt19937 random(6);
  Hatch hatch{"SOLID", 1.0, 0.0, {}, {}, {star(random, 60, 100), star(random, 10, 40)}};
  std::reverse(hatch.loops[0].begin(), hatch.loops[0].end());
  const std::vector<Point> chain = HatchFill(hatch, 1.0).outline();
  double doubled = 0.0;
  for (size_t at = 0; at < chain.size(); ++at) { doubled += cross(chain[at], chain[(at + 1) % chain.size()]); }
  const double area = std::abs(signedArea(loopOf(hatch.loops[0]))) - signedArea(loopOf(hatch.loops[1]));
  EXPECT_NEAR(doubled / 2.0, area, 1e-6);
}

TEST(HatchFill, EndlessPatternsStayPayable) {
  const Hatch hatch{"SAND", 1e-6, 0.0, {}, {}, {{{{0, 0}}, {{1000, 0}}, {{0, 1000}}}}};
  size_t strokes = 0;
  for (const HatchLines& lines : linesOf(hatch)) {
    HatchFill(hatch, 1.0).forEachStroke(lines, [&](Point, Point) { ++strokes; });
  }
  EXPECT_LE(strokes, 100'000U);
}

class Hatching : public MacroSession {
 protected:
  void SetUp() override { answer(""); }
  const Hatch* hatch() {
    const Primitive* last = drawing().find(drawing().lastId());
    return last == nullptr ? nullptr : std::get_if<Hatch>(&last->geometry);
  }
  void box(double size) {
    const Point corners[] = {{-size, -size}, {size, -size}, {size, size}, {-size, size}};
    for (size_t at = 0; at < 4; ++at) { add(Line{corners[at], corners[(at + 1) % 4]}); }
  }
};

TEST_F(Hatching, LeavesOutIslandsAndTexts) {
  box(50.0);
  add(Arc{{10, 0}, {0, 0}, {10, 0}});
  add(Line{{-5, 0}, {5, 0}});  // within the island
  Text text;
  text.at = {20.0, 20.0};
  text.text = "A";
  add(text);
  ASSERT_EQ(macroError("#HATCH \"I\" \"MASONRY\" 1 0 [-40,-40]"), "");
  ASSERT_NE(hatch(), nullptr);
  EXPECT_EQ(hatch()->loops.size(), 3U);
  EXPECT_TRUE(encloses(*hatch(), {-40, -40}));
  EXPECT_FALSE(encloses(*hatch(), {0, 5}));
  EXPECT_FALSE(encloses(*hatch(), text.at));
}

TEST_F(Hatching, OfSelectedOutlinesJoinsTheirPart) {
  const GroupId part = drawing().addGroup("A", "PLATE");
  for (const double size : {50.0, 20.0}) {
    box(size);
    for (PrimitiveId id = drawing().lastId() - 3; id <= drawing().lastId(); ++id) {
      Primitive side = *drawing().find(id);
      side.group = part;
      drawing().replace(id, side);
      drawing().select(id);
    }
  }
  ASSERT_EQ(macroError("#HATCH \"S\" \"GENERAL\" 1 0"), "");
  EXPECT_EQ(drawing().find(drawing().lastId())->group, part);
  EXPECT_FALSE(encloses(*hatch(), {0, 0}));
  EXPECT_TRUE(encloses(*hatch(), {30, 0}));
}

// Lines beneath a pointer are meant before the hatch under them.
TEST_F(Hatching, IsPickedWhereNothingElseIs) {
  box(50.0);
  ASSERT_EQ(macroError("#HATCH \"I\" \"GENERAL\" 1 0 [0,0]"), "");
  const auto any = [](PrimitiveId, const Primitive&) { return true; };
  EXPECT_EQ(drawing().nearest({0, 10}, 5.0, any), drawing().lastId());
  EXPECT_EQ(drawing().nearest({0, 49}, 5.0, any), 3);
  EXPECT_EQ(drawing().nearest({0, 60}, 5.0, any), 0);
}

TEST_F(Hatching, RefusesWhatCannotBeFilled) {
  box(50.0);
  const struct {
    const char* macro;
    const char* rule;
  } kBad[] = {
      {"#HATCH \"I\" \"TWEED\" 1 0 [0,0]", "there is no pattern \"TWEED\""},
      {"#HATCH \"I\" \"GENERAL\" 0 0 [0,0]", "a pattern's scale is above 0"},
      {"#HATCH \"I\" \"GENERAL\" 1 0 [90,0]", "no closed boundary surrounds this point"},
      {"#HATCH \"P\" \"GENERAL\" 1 0 [0,0] [1,0] [#]", "an area has three corners or more"},
      {"#HATCH \"S\" \"GENERAL\" 1 0", "nothing is selected"},
  };
  for (const auto& [macro, rule] : kBad) {
    EXPECT_NE(macroError(macro).find(rule), std::string::npos) << macroError(macro);
  }
  drawing().select(1);
  EXPECT_NE(macroError("#HATCH \"S\" \"GENERAL\" 1 0").find("does not close"), std::string::npos);
  EXPECT_EQ(drawing().count(), 4U);
}

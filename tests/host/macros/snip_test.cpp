#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/host/macros/macro_session.h"

namespace {

using namespace brevan;

class Snip : public MacroSession {
 protected:
  double inkLength() {
    double total = 0.0;
    for (const PrimitiveId id : all()) {
      const Geometry& geometry = drawing().find(id)->geometry;
      if (const auto* segment = std::get_if<Line>(&geometry)) { total += lengthOf(*segment); }
      if (const auto* arc = std::get_if<Arc>(&geometry)) { total += lengthOf(*arc); }
    }
    return total;
  }
  void scatter(unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> any(0.0, 100.0);
    for (int count = 0; count < 60; ++count) {
      if (random() % 3 == 0) {
        circle(any(random), any(random), 1.0 + any(random) / 4.0);
      } else {
        line(any(random), any(random), any(random), any(random));
      }
    }
  }
};

TEST_F(Snip, InsideAndOutsideMakeTheWhole) {
  const std::vector<std::string> regions = {"\"Y\" \"%\" \"N\" [70,80] [20,10]", "\"N\" \"%\" \"N\" [50,50] [50,85]"};
  for (unsigned seed = 0; seed < 20; ++seed) {
    for (const std::string& region : regions) {
      double kept = 0.0;
      double whole = 0.0;
      for (const char flag : {'Y', 'N'}) {
        answer("");
        scatter(seed);
        whole = inkLength();
        const std::string before = json();
        std::string command = "#SNIP " + region + " [#]";
        std::replace(command.begin(), command.end(), '%', flag);
        macro(command);
        kept += inkLength();
        drawing().undo();
        EXPECT_EQ(drawing().count(), 60U);
        EXPECT_NEAR(inkLength(), whole, 1e-9);
      }
      EXPECT_NEAR(kept, whole, 1e-6);
    }
  }
}

TEST_F(Snip, TheOutlineReplacesWhatLayAlongIt) {
  line(0, 0, 0, 10);             // on the left side
  line(-5, 5, 15, 5);            // across
  line(10.0004, 2, 10.0004, 8);  // printed a little off the right side
  macros({"LINETYPE 21 7", "SNIP \"Y\" \"Y\" \"Y\" [10.000,0.000] [0.000,10.000] [#]"});
  EXPECT_EQ(drawing().count(), 6U);
  int drawn = 0;
  for (const PrimitiveId id : all()) { drawn += drawing().find(id)->pen == 7 ? 1 : 0; }
  EXPECT_EQ(drawn, 4);

  answer("");
  line(-10, 0, 10, 0);
  macro("#SNIP \"N\" \"Y\" \"Y\" [0.000,0.000] [0.000,2.000] [#]");
  EXPECT_EQ(drawing().count(), 3U);
  EXPECT_NEAR(inkLength(), 16.0 + 4.0 * kPi, 1e-9);
  macro("#SNIP \"N\" \"Y\" \"Y\" [0.000,0.000] [0.000,2.000] [#]");  // once more changes nothing but the circle's id
  EXPECT_EQ(drawing().count(), 3U);
}

TEST_F(Snip, APolygonKeepsWhatIsInside) {
  line(-10, 5, 30, 5);
  line(-10, 15, 30, 15);
  macro("#POLYSNIP \"N\" \"N\"  [0.0,0.0] [20.0,0.0] [20.0,20.0] [10.0,8.0] [0.0,20.0] [#] ");
  EXPECT_NEAR(inkLength(), 20.0 + 2.0 * 25.0 / 6.0, 1e-9);
}

class Corners : public MacroSession {};

TEST_F(Corners, TwoPointsNameTwoSidesAndOneTheNearestCorner) {
  const PrimitiveId level = line(0, 0, 40, 0);
  const PrimitiveId upright = line(0, 0, 0, 40);
  macro("#FILLET 2 \"Y\" 5.00000000 [20,0.1] [0.1,20] [#]");
  EXPECT_EQ(shape<Line>(level).a, (Point{5, 0}));
  EXPECT_EQ(shape<Line>(upright).a, (Point{0, 5}));
  EXPECT_LT(distance(shape<Arc>(3).centre, {5, 5}), 1e-12);

  line(40, 0, 40, 30);
  macro("FILLET 2 \"N\" 4 [38,2] [#]");
  EXPECT_EQ(shape<Line>(level).b, (Point{36, 0}));
  const std::string before = json();
  EXPECT_EQ(macroError("FILLET 2 \"Y\" 400 [20,0] [0,20] [#]"), "14: no arc of this radius fits between the two sides");
  EXPECT_EQ(json(), before);
}

TEST_F(Corners, TheOpenGroupHasItsCornerHoweverFar) {
  macros(
      {"#BEGINGROUP \"_\"", "ARCR [0,0] [10,0] 20 [#]", "ARCR [0,0] [0,10] -20 [#]", "FILLET 2 \"N\" 1 [40,40] [#]"});
  EXPECT_EQ(drawing().count(), 3U);
}

// A tooth of a gear, as its command sends it: the open group comes first, and the copies close the rim.
TEST_F(Corners, AGearToothIsRoundedMirroredAndRepeated) {
  circle(25.5, 1.0, 30.0);  // another part lies over it
  macros({"#BEGINGROUP \"_\"", "ARC [26.98690000,-0.84060000] [24.99930000,0.19040000] [22.49240000,0.58480000] [#]",
          "ARCR [22.49240000,0.58480000] [22.44440000,1.58140000] -22.50000000 [#]",
          "ARCR [26.98690000,-0.84060000] [26.95880000,-1.48840000] 27.00000000 [#]",
          "FILLET 2 \"N\" 0.62831853 [24.93820000,1.75720000]  [#]"});
  EXPECT_EQ(drawing().count(), 5U);
  macro("SELECT [26.98690000,-0.84060000] [#]");
  EXPECT_EQ(drawing().selection().size(), 4U);
  macro("#MIRROR [22.44440000,1.58140000] \"A\" [24.93820000,1.75720000] \"Y\"");
  EXPECT_EQ(drawing().selection().size(), 8U);
  macros({"#LINKSEL \"_\"", "#REPEAT 24 \"N\"  [0.00000000,0.00000000]  14.40000000"});
  EXPECT_EQ(drawing().count(), 1U + 8U * 25U);
}

}  // namespace

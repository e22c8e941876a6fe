#include "frame/host/number_text.h"
#include "mech/nut_drawer.h"

#include "tests/mech/fastener_session.h"

namespace {

enum Type { kHexagon, kSlotted };
enum Shape { kRounded, kFlatBase, kFlat };

constexpr const char* kUpright = "point 0 0\npoint 0 0\nspace\n";
constexpr const char* kNutPlanOnly = "uncheck \"Draw side view (elevation)\"\ncheck \"Draw top view (plan view)\"\n";

// An M12 nut: 18 across flats, 10.8 high, slots 3.5 wide and 5 deep.
constexpr double kCorner = 10.3923;      // half across corners
constexpr double kChamfer = 0.80385;     // height of the chamfer at the corners
constexpr double kSide = kCorner / 2.0;  // half a side of the hexagon

class NutTest : public FastenerSession {
 protected:
  void drawNut(Type type, Shape shape, const std::string& washer = "16.6,10.106,0", const std::string& edits = "",
               const std::string& answers = kUpright) {
    useLibrary(std::string(kSetup) + "[NUTS]\nNut1=M12,18,10.8,12," + washer + ",3.5,5," + std::to_string(type) + ',' +
               std::to_string(shape) + '\n');
    draw("MechDrawNuts", "Nuts", edits, answers);
  }
};

TEST_F(NutTest, ShapesDifferInTheirChamfers) {
  drawNut(kHexagon, kRounded);
  expectLines({{{kCorner, kChamfer}, {kCorner, 10.8 - kChamfer}},
               {{kCorner, kChamfer}, {9, 0}},
               {{kCorner, 10.8 - kChamfer}, {9, 10.8}}});
  EXPECT_EQ(shapes<brevan::Arc>().size(), 6U);
  for (const double face : {-0.75 * kCorner, 0.0, 0.75 * kCorner}) {
    EXPECT_TRUE(hasArcThrough({face, 0})) << face;
    EXPECT_TRUE(hasArcThrough({face, 10.8})) << face;
  }
  drawNut(kHexagon, kFlatBase);
  expectLines({{{kCorner, 0}, {kCorner, 10.8 - kChamfer}}, {{kSide, 0}, {kSide, 10.8 - kChamfer}}});
  EXPECT_EQ(shapes<brevan::Arc>().size(), 3U);
  drawNut(kHexagon, kFlat);
  expectLines({{{-kCorner, 10.8}, {kCorner, 10.8}}, {{kSide, 0}, {kSide, 10.8}}});
  EXPECT_EQ(shapes<brevan::Arc>().size(), 0U);
}

TEST_F(NutTest, StandsOnItsWasher) {
  drawNut(kHexagon, kFlat, "16.6,10.106,0.6");
  expectLines({{{-8.3, 0}, {8.3, 0}}, {{8.3, 0}, {8.3, 0.6}}, {{-kCorner, 0.6}, {kCorner, 0.6}}});
  EXPECT_NEAR(axis().a.y, -5.4, 1e-9);
  EXPECT_NEAR(axis().b.y, 0.6 + 16.2, 1e-9);
}

TEST_F(NutTest, SendsTheCutsOfItsSlotsBetweenItsBrackets) {
  drawNut(kSlotted, kFlat, "16.6,10.106,0", "", "point 0 0\npoint 0 -30\nspace\n");
  const Texts expected = {
      "SETMACUNDO 1",
      "#PARENT \"NUTS\"",
      "#BEGINGROUP \"M12_S1\"",
      "#SELECTNEW 1",
      "#SNIP \"Y\" \"Y\" \"N\" [1.75000000,11.88000000] [-1.75000000,5.80000000] [#]",
      "#SNIP \"Y\" \"Y\" \"N\" [-6.91922863,11.88000000] [-8.66922863,5.80000000] [#]",
      "#SNIP \"Y\" \"Y\" \"N\" [8.66922863,11.88000000] [6.91922863,5.80000000] [#]",
      "#SELECTNAME \"NUTS M12_S1\"",
      "#LINKSEL \"M12_S1\"",
      "#ROTATE [0.00000000,0.00000000] \"N\" [0.00000000,-10.80000000] [0.00000000,-30.00000000] [#]",
      "#PARENT \"A\"",
      "#SELECTNEW 0",
      "SETMACUNDO 0",
      "#PARENT \"A\"",
      "#STARTPAT \"P1\"",
      "#LOCKANG \"U\"",
      "SETMACUNDO 1",  // the round that the space bar ended
      "SETMACUNDO 0",
      "#PARENT \"A\"",
      "#STARTPAT \"P1\"",
      "#LOCKANG \"U\"",
  };
  EXPECT_EQ(macros(), expected);
  for (const double slot : {0.0, -0.75 * kCorner, 0.75 * kCorner}) {
    const double half = slot == 0.0 ? 1.75 : 0.875;
    EXPECT_TRUE(hasLine({slot - half, 5.8}, {slot + half, 5.8})) << slot;
    EXPECT_TRUE(hasLine({slot + half, 5.8}, {slot + half, 10.8})) << slot;
  }
}

TEST_F(NutTest, SlotsAreCutOutOfTheNutAndOfNothingElse) {
  useLibrary(std::string(kSetup) + "[NUTS]\nNut1=M12,18,10.8,12,16.6,10.106,0,3.5,5,1,0\n");
  draw("MechDrawNuts", "Nuts", "", "point 0 0\npoint 0 0\npoint 0 40\npoint 0 40\nspace\n",
       "line -20 8 20 8\nline 0 0 0 60\n");
  EXPECT_TRUE(hasLine({-20, 8}, {20, 8})) << "what was there before stays whole";
  EXPECT_TRUE(hasLine({0, 0}, {0, 60}));
  EXPECT_EQ(groups(), (Texts{"NUTS M12_S1 32", "NUTS M12_S2 32"}));
  EXPECT_FALSE(hasLine({-9, 10.8}, {9, 10.8}));
  EXPECT_TRUE(hasLine({1.75, 10.8}, {6.91922863, 10.8})) << "the top between two slots";
  for (const double slot : {0.0, -0.75 * kCorner, 0.75 * kCorner}) {
    EXPECT_FALSE(hasArcThrough({slot, 10.8})) << slot;
    EXPECT_TRUE(hasArcThrough({slot, 0})) << "the base is whole";
  }
}

TEST_F(NutTest, EachNutIsOneStepBack) {
  useLibrary(std::string(kSetup) + "[NUTS]\nNut1=M12,18,10.8,12,16.6,10.106,0,3.5,5,1,0\n");
  draw("MechDrawNuts", "Nuts", "", "point 0 0\npoint 0 0\npoint 0 40\npoint 0 40\nspace\n");
  ASSERT_TRUE(drawing().undo());
  EXPECT_EQ(groups(), Texts{"NUTS M12_S1 32"});
}

TEST_F(NutTest, TurnsTowardsThePointAskedFor) {
  drawNut(kHexagon, kFlat, "16.6,10.106,0", "", "point 5 5\npoint 40 5\nspace\n");
  EXPECT_EQ(log_.of("prompt")[0], "Indicate the position of the Nut side view");
  EXPECT_EQ(log_.of("prompt")[1], "Indicate a point on the Nut center line for rotation");
  EXPECT_NEAR(axis().a.x, 5 + 5.4, 1e-6) << "what pointed down points to the right";
  EXPECT_NEAR(axis().b.x, 5 - 16.2, 1e-6);
  drawNut(kHexagon, kFlat, "16.6,10.106,0", "", "point 5 5\nspace\n");
  EXPECT_EQ(drawing().count(), 0U);
  // A row runs square to the nut: at 30 degrees where its axis points 60 degrees down to the right.
  const double down = -30.0 * std::sqrt(3.0);
  drawNut(kHexagon, kFlat, "16.6,10.106,0", "set \"Number =\" 2\nset \"Repeat value\" 25\n",
          numberText::format("point 0 0\npoint 30 %.9f\npoint 45 20\nspace\n", down));
  EXPECT_EQ(macros("#REPEAT"), Texts{"#REPEAT 1 \"Y\" [0.00000000,0.00000000] [21.65063509,12.50000000] [#]"});
}

TEST_F(NutTest, ThePlanLiesOnTheAxisOfItsSideView) {
  for (const char* turned : {"0 -6", "0 -60"}) {  // near the centre line as drawn, and far beyond its end
    drawNut(kHexagon, kRounded, "16.6,10.106,0.6", "check \"Draw top view (plan view)\"\n",
            numberText::format("point 0 0\npoint %s\npoint 9 -80\npoint 9 -80\nspace\n", turned));
    EXPECT_EQ(groups(), (Texts{"NUTS M12_S1 21", "NUTS M12_P1 12"}));
    EXPECT_TRUE(hasCircle({0, -80}, 9)) << turned;
    EXPECT_TRUE(hasCircle({0, -80}, 5.053));
    EXPECT_TRUE(hasCircle({0, -80}, 8.3)) << "the washer";
    EXPECT_TRUE(hasLine({-kCorner - 5, -80}, {kCorner + 5, -80}));
  }
}

TEST_F(NutTest, SixSlotsRunFromTheBoreToTheFlats) {
  drawNut(kSlotted, kRounded, "16.6,10.106,0", kNutPlanOnly, "point 0 0\npoint 0 0\nspace\n");
  const double bore = std::sqrt(5.053 * 5.053 - 1.75 * 1.75);
  EXPECT_TRUE(hasLine({1.75, bore}, {1.75, 9})) << "square to the upper flat";
  int slots = 0;
  for (const brevan::Line& line : shapes<brevan::Line>()) {
    slots += std::fabs(std::hypot(line.a.x, line.a.y) - 5.053) < 1e-6 ? 1 : 0;
  }
  EXPECT_EQ(slots, 12);
  EXPECT_EQ(groups(), Texts{"NUTS M12_P1 23"});
}

}  // namespace

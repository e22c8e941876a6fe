#include <numbers>

#include "mech/bolt_drawer.h"
#include "tests/mech/fastener_session.h"

namespace {

using brevan::Arc;
using brevan::Line;
using brevan::Point;

class BoltCommand : public FastenerSession {
 protected:
  BoltCommand() { forget(); }

  // A library as it was before any dialog.
  void forget() {
    useLibrary(std::string(kSetup) + "[BOLTS]\nCurrent=0\nBolt1=M10,17.000,6.400,10.000,40.000,26.000,8.160\n");
  }
  void draw(const std::string& edits, const std::string& answers, const std::string& before = "") {
    FastenerSession::draw("MechDrawBolts", "Hex Bolts", edits, answers, before);
  }
  // Centres of the plan views: those of their full circles.
  std::vector<Point> planCentres() {
    std::vector<Point> centres;
    for (const Arc& arc : shapes<Arc>()) { centres.push_back(arc.centre); }
    return centres;
  }
};

constexpr const char* kBoltPlanOnly = "uncheck \"Side View (elevation)\"\ncheck \"Top View (plan)\"\n";

// ---- Side view ----------------------------------------------------------------------------------------------

TEST_F(BoltCommand, DrawsTheSideViewOfAnM10) {
  draw("", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_S1 24"});
  const double corner = 8.5 / std::cos(std::numbers::pi / 6.0);
  const double low = 6.4 - (corner - 8.5) / std::sqrt(3.0);  // where the chamfer of 30 degrees ends
  expectLines({{{-corner, 0}, {-corner, low}},
               {{-corner, low}, {-8.5, 6.4}},
               {{0, 6.4}, {8.5, 6.4}},
               {{corner / 2, 0}, {corner / 2, low}},
               {{5, 0}, {5, -39.08}},
               {{5, -39.08}, {4.08, -40}},
               {{5, -39.08}, {1.5, -39.08}},
               {{5, -14}, {-5, -14}},
               {{4.08, -40}, {4.08, -14}},
               {{0, -42}, {0, 8.4}}});
  for (const Line& line : shapes<Line>()) {
    EXPECT_TRUE(hasLine({-line.a.x, line.a.y}, {-line.b.x, line.b.y})) << "it is symmetrical to its axis";
  }
}

TEST_F(BoltCommand, ChamferCurvesSpanTheFacesAndTouchTheTop) {
  draw("", "point 100 50\nmenu \"No Rotation\"\nspace\n");
  const std::vector<Arc> arcs = shapes<Arc>();
  ASSERT_EQ(arcs.size(), 3U);
  for (const Arc& arc : arcs) {
    const double radius = std::hypot(arc.start.x - arc.centre.x, arc.start.y - arc.centre.y);
    EXPECT_NEAR(std::hypot(arc.end.x - arc.centre.x, arc.end.y - arc.centre.y), radius, 1e-9);
    EXPECT_NEAR(arc.centre.y + radius, 56.4, 1e-9);
    EXPECT_NEAR(arc.start.y, 55.6408, 5e-5);
    EXPECT_GT(arc.start.x, arc.end.x) << "counter-clockwise over the top, from right to left";
  }
  EXPECT_NEAR(arcs[0].end.x, 90.185, 5e-5);
  EXPECT_NEAR(arcs[1].centre.x, 100.0, 1e-9);
  EXPECT_NEAR(arcs[2].start.x, 109.815, 5e-5);
}

TEST_F(BoltCommand, TakesItsLineStylesFromTheConfiguration) {
  draw("pick \"Draw head as:\" \"Hidden line\"\n", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  std::map<std::string, int> styles;
  drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& p) { ++styles[styleOf(p)]; });
  const std::map<std::string, int> expected = {{"13/21/2.5", 13}, {"1/1/5.0", 8}, {"1/1/2.5", 2}, {"3/4/1.0", 1}};
  EXPECT_EQ(styles, expected) << "head hidden, shaft solid, thread thin, axis";
}

TEST_F(BoltCommand, NumbersItsGroupsAndGoesOnUntilTheSpaceBar) {
  draw("", "point 0 0\nmenu \"No Rotation\"\npoint 50 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), (Texts{"BOLTS M10_S1 24", "BOLTS M10_S2 24"}));
  EXPECT_EQ(macros("#SELECTNAME"), (Texts{"#SELECTNAME \"BOLTS M10_S1\"", "#SELECTNAME \"BOLTS M10_S2\""}));
  expectFreeCursor();
}

TEST_F(BoltCommand, TurnsByTheMenuOrByAnAngleTyped) {
  struct {
    const char* answers;
    Point shaftEnd;
  } cases[] = {{"menu \"Rotate 90\xC2\xB0\"\n", {42, 0}},
               {"menu \"Rotate 180\xC2\xB0\"\n", {0, 42}},
               {"menu \"Rotate 270\xC2\xB0\"\n", {-42, 0}},
               {"menu \"Enter Rotation\"\ntext \"90 degrees\"\n", {42, 0}},
               {"menu \"Enter Rotation\"\ntext \"-90\"\n", {-42, 0}},
               {"menu \"Enter Rotation\"\nspace\n", {0, -42}}};
  for (const auto& [answers, end] : cases) {
    draw("", std::string("point 0 0\n") + answers + "space\n");
    EXPECT_TRUE(same(axis().a, end)) << answers;
  }
}

TEST_F(BoltCommand, StandsOnTheLineNearbyAndPointsAtThePointPicked) {
  draw("check \"Automatically align the side view\"\n", "point 60 3\nspace\n", "line 20 0 120 0\n");
  EXPECT_EQ(log_.of("prompt").front(), "Indicate the position of the Bolt side view (auto-align)");
  EXPECT_TRUE(same(axis().a, {60, 42}) && same(axis().b, {60, -8.4}))
      << "the shaft points upwards, where the point was";

  draw("check \"Automatically align the side view\"\n", "point 60 90\nmenu \"No Rotation\"\nspace\n",
       "line 20 0 120 0\n");
  EXPECT_NE(std::ranges::find(log_.lines,
                              "call gsSetPrompt No line found nearby to align this bolt to. Please specify rotation "
                              "manually."),
            log_.lines.end());
}

// ---- Plan view ----------------------------------------------------------------------------------------------

TEST_F(BoltCommand, DrawsThePlanFreelyOrOnTheAxisOfItsSideView) {
  draw(kBoltPlanOnly, "point 10 20\npoint 10 20\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_P1 9"});
  EXPECT_EQ(log_.of("prompt")[1], "Indicate a point on the Bolt plan view center line for rotation");
  EXPECT_TRUE(same(drawing().extents().high, {10 + 9.8150 + 5, 20 + 8.5 + 5}));
  EXPECT_EQ(macros("#ROTATE"), Texts{}) << "a rotation point on the centre turns nothing";

  forget();
  draw("check \"Top View (plan)\"\n", "point 0 0\nmenu \"No Rotation\"\npoint 7 -80\npoint 0 -100\nspace\n");
  EXPECT_EQ(groups(), (Texts{"BOLTS M10_S1 24", "BOLTS M10_P1 9"}));
  EXPECT_NEAR(planCentres().back().x, 0.0, 1e-6) << "the cursor is locked to the axis";
  EXPECT_EQ(macros("#LOCKANG L"), Texts{"#LOCKANG L [0.00000000,-20.00000000]"});
  EXPECT_EQ(log_.of("prompt")[2], "Enter a point on the Bolt plan view center line for rotation");
  expectFreeCursor();
}

TEST_F(BoltCommand, KeepsTheSideViewWhenThePlanIsNotPlaced) {
  draw("check \"Top View (plan)\"\n", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_S1 24"});
  expectFreeCursor();
}

// ---- Repeats ------------------------------------------------------------------------------------------------

TEST_F(BoltCommand, RepeatsRoundACircle) {
  struct {
    const char* value;
    double radius;
  } cases[] = {{"Spacing", 20.0}, {"PCD", 10.0}};
  for (const auto& [value, radius] : cases) {
    const std::string edits = std::string(kBoltPlanOnly) + "pick \"Repeat\" \"Polar\"\npick \"Polar value\" \"" +
                              value + "\"\nset \"Number =\" 6\nset \"Repeat value\" 20\n";
    draw(edits, "point 100 100\npoint 100 100\nspace\n");
    const std::vector<Point> centres = planCentres();
    ASSERT_EQ(centres.size(), 6U);
    for (const Point& c : centres) { EXPECT_NEAR(std::hypot(c.x - 100, c.y - 100), radius, 1e-6); }
    EXPECT_TRUE(same(centres[0], {100 - radius, 100})) << "the first one moves left onto the circle";
    EXPECT_EQ(groups(), Texts{"BOLTS M10_P1 54"}) << "the copies belong to the part";
    draw(std::string("expect \"Number =\" 6\nexpect \"Polar value\" \"") + value + "\"\n", "space\n");
  }
}

TEST_F(BoltCommand, RepeatsInARowAlongTheDirectionGiven) {
  const std::string row = std::string(kBoltPlanOnly) + "set \"Number =\" 4\nset \"Repeat value\" 25\n";
  draw(row, "point 0 0\npoint 0 0\npoint 3 90\nspace\n");
  std::vector<Point> centres = planCentres();
  ASSERT_EQ(centres.size(), 4U);
  for (size_t i = 0; i < centres.size(); ++i) {
    EXPECT_TRUE(same(centres[i], {0.0, 25.0 * static_cast<double>(i)})) << "locked square to the part";
  }
  draw(row, "point 0 0\npoint 0 0\nspace\npoint 200 0\npoint 200 0\nspace\nspace\n");
  EXPECT_EQ(groups(), (Texts{"BOLTS M10_P1 9", "BOLTS M10_P2 9"}))
      << "without a direction the part stays single and the command goes on";
  expectFreeCursor();
}

TEST_F(BoltCommand, EscapeEndsTheCommandAfterThePartInHand) {
  draw(std::string(kBoltPlanOnly) + "set \"Number =\" 4\nset \"Repeat value\" 25\n", "point 0 0\npoint 0 0\nescape\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_P1 9"});
}

TEST_F(BoltCommand, ATextThatNamesAreCutToStaysOneGroupName) {
  useLibrary("[Setup]\nWeldSymbols=w\n[BOLTS]\nBolt1=a \"very\" long #DELSELECT,17,6.4,10,40,26,8\n");
  draw("", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS A__VERY__LONG__ 24"});
}

// A shank stays where there is room for one.
TEST(StandardBolt, IsThreadedInTheUsualProportions) {
  const double rows[][3] = {{10, 60, 26}, {10, 26, 21}, {10, 0, 0}};
  for (const auto& [diameter, length, threaded] : rows) {
    EXPECT_DOUBLE_EQ(ardenix::mech::standardBolt(diameter, length).threadLength, threaded) << length;
  }
  EXPECT_DOUBLE_EQ(ardenix::mech::standardBolt(10, 60).headSize, 15.6);
}

}  // namespace

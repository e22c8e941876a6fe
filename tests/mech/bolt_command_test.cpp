#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/mech/command_session.h"

namespace {

using brevan::Arc;
using brevan::Line;
using brevan::Point;
using Texts = std::vector<std::string>;

constexpr const char* kLibrary =
    "[Setup]\nWeldSymbols=w.drg\nSolidPen=1\nSolidLW=0.50\nHiddenPen=13\nHiddenLT=21\nHiddenLW=0.25\nCenterPen=3\n"
    "CenterLT=4\nCenterLW=0.1\n"
    "[BOLTS]\nCurrent=0\nBolt1=M10,17.000,6.400,10.000,40.000,26.000,8.160\n";

class BoltCommand : public CommandSession {
 protected:
  BoltCommand() { useLibrary(kLibrary); }

  // Runs the command with these edits in its dialog and these answers after it.
  void draw(const std::string& edits, const std::string& answers, const std::string& before = "") {
    play(before + "run MechDrawBolts\ndialog \"Mechanical Ardenix - Hex Bolts\"\n" + edits + "press \"OK\"\n" +
         answers);
  }
  [[nodiscard]] Texts macros(const std::string& word) const {
    Texts found;
    for (const std::string& macro : log_.of("macro")) {
      if (macro.starts_with(word)) { found.push_back(macro); }
    }
    return found;
  }
  brevan::Box extents() { return drawing().extents(); }
  // Centres of the plan views: those of their full circles.
  std::vector<Point> planCentres() {
    std::vector<Point> centres;
    for (const Arc& arc : shapes<Arc>()) { centres.push_back(arc.centre); }
    return centres;
  }
  void expectFreeCursor() {
    const Texts tail(log_.lines.end() - 4, log_.lines.end());
    EXPECT_EQ(tail, (Texts{"macro #PARENT \"A\"", "macro #STARTPAT \"P1\"", "macro #LOCKANG \"U\"",
                           "call gsSetCursorHold 0"}));
  }
};

constexpr const char* kBoltPlanOnly = "uncheck \"Side View (elevation)\"\ncheck \"Top View (plan)\"\n";

// ---- Side view ----------------------------------------------------------------------------------------------

bool hasLine(const std::vector<Line>& lines, Point a, Point b) {
  const auto same = [](Point p, Point q) { return std::hypot(p.x - q.x, p.y - q.y) < 1e-3; };
  return std::ranges::any_of(lines, [&](const Line& line) {
    return (same(line.a, a) && same(line.b, b)) || (same(line.a, b) && same(line.b, a));
  });
}

TEST_F(BoltCommand, DrawsTheSideViewOfAnM10) {
  draw("", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_S1 24"});
  const std::vector<Line> lines = shapes<Line>();
  const Point expected[][2] = {{{-9.8150, 0}, {-9.8150, 5.6408}},
                               {{-9.8150, 5.6408}, {-8.5, 6.4}},
                               {{0, 6.4}, {8.5, 6.4}},
                               {{4.9075, 0}, {4.9075, 5.6408}},
                               {{5, 0}, {5, -39.08}},
                               {{5, -39.08}, {4.08, -40}},
                               {{5, -39.08}, {1.5, -39.08}},
                               {{5, -14}, {-5, -14}},
                               {{4.08, -40}, {4.08, -14}},
                               {{0, -42}, {0, 8.4}}};
  for (const auto& [a, b] : expected) { EXPECT_TRUE(hasLine(lines, a, b)) << a.x << ' ' << a.y; }
  for (const Line& line : lines) {
    EXPECT_TRUE(hasLine(lines, {-line.a.x, line.a.y}, {-line.b.x, line.b.y})) << "it is symmetrical to its axis";
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
  drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& p) {
    ++styles[std::to_string(p.pen) + '/' + std::to_string(p.linetype) + '/' + numberText::fixed(p.width, 1)];
  });
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
    const Line axis = shapes<Line>().back();
    EXPECT_NEAR(axis.a.x, end.x, 1e-6) << answers;
    EXPECT_NEAR(axis.a.y, end.y, 1e-6) << answers;
  }
}

TEST_F(BoltCommand, StandsOnTheLineNearbyAndPointsAtThePointPicked) {
  draw("check \"Automatically align the side view\"\n", "point 60 3\nspace\n", "line 20 0 120 0\n");
  EXPECT_EQ(log_.of("prompt").front(), "Indicate the position of the Bolt side view (auto-align)");
  const Line axis = shapes<Line>().back();
  EXPECT_NEAR(axis.a.x, 60, 1e-6);
  EXPECT_NEAR(axis.a.y, 42, 1e-6) << "the shaft points upwards, where the point was";
  EXPECT_NEAR(axis.b.y, -8.4, 1e-6);

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
  EXPECT_NEAR(extents().high.x, 10 + 9.8150 + 5, 5e-5);
  EXPECT_NEAR(extents().high.y, 20 + 8.5 + 5, 1e-9);
  EXPECT_EQ(macros("#ROTATE"), Texts{}) << "a rotation point on the centre turns nothing";

  log_.lines.clear();
  useLibrary(kLibrary);
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
    EXPECT_NEAR(centres[0].x, 100 - radius, 1e-6) << "the first one moves left onto the circle";
    EXPECT_EQ(groups(), Texts{"BOLTS M10_P1 54"}) << "the copies belong to the part";
  }
}

TEST_F(BoltCommand, RepeatsInARowAlongTheDirectionGiven) {
  const std::string row = std::string(kBoltPlanOnly) + "set \"Number =\" 4\nset \"Repeat value\" 25\n";
  draw(row, "point 0 0\npoint 0 0\npoint 3 90\nspace\n");
  std::vector<Point> centres = planCentres();
  ASSERT_EQ(centres.size(), 4U);
  for (size_t i = 0; i < centres.size(); ++i) {
    EXPECT_NEAR(centres[i].x, 0.0, 1e-6) << "locked square to the part";
    EXPECT_NEAR(centres[i].y, 25.0 * static_cast<double>(i), 1e-6);
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

}  // namespace

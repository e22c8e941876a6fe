#include <gtest/gtest.h>

#include <cmath>

#include "host/macros/command.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

TEST(MacroLexer, WaysToWriteTheSameCommand) {
  EXPECT_EQ(readMacroLine("  #lockAng \"L\"[#]").word, "LOCKANG");
  EXPECT_EQ(readMacroLine("LOCKANG L").arguments.at(0).kind, TokenKind::kName);
  EXPECT_EQ(readMacroLine("NEWLAYER \"never ended").arguments.at(0).text, "never ended");
  EXPECT_EQ(readMacroLine("NEWLAYER\"a\"\"b\"\"c\"").arguments.at(0).text, "a\"b\"c");
  const MacroLine glued = readMacroLine("MOVE[1,2][@-3.5e1,+4][#]");
  ASSERT_EQ(glued.arguments.size(), 3U);
  EXPECT_EQ(glued.arguments[0].point, (Point{1, 2}));
  EXPECT_EQ(glued.arguments[1].kind, TokenKind::kRelativePoint);
  EXPECT_EQ(glued.arguments[1].point, (Point{-35, 4}));
  EXPECT_EQ(glued.arguments[2].kind, TokenKind::kTerminator);
}

using Macros = HostSession;

TEST_F(Macros, AMistakeInTheMiddleTakesTheWholeCommandBack) {
  const PrimitiveId near = line(0, 0, 1, 0);
  const PrimitiveId far = line(1e308, 0, 1e308, 1);
  drawing().select(near);
  drawing().select(far);
  const std::string before = json();
  for (const char* command : {"MOVE [0,0] [1e308,0]", "REPEAT 3 Y [0,0] [1e308,0]"}) {
    EXPECT_NE(macroError(command), "");
    EXPECT_EQ(json(), before);
    EXPECT_EQ(drawing().selection(), (std::vector<PrimitiveId>{near, far}));
  }
}

TEST_F(Macros, AnUndoneGroupIsNotMistakenForAnother) {
  macros({"PARENT \"BOLTS\"", "BEGINGROUP \"M10\""});
  line(0, 0, 1, 0);
  while (drawing().undo()) {}
  drawing().add({.group = drawing().addGroup("NUTS", "N8"), .geometry = Line{{5, 5}, {6, 6}}});
  line(0, 0, 1, 0);
  const GroupId group = drawing().find(drawing().lastId())->group;
  EXPECT_EQ(drawing().group(group).name, "M10");
}

TEST_F(Macros, HiddenAndLockedLayersAreNeverChanged) {
  for (const bool locked : {false, true}) {
    SCOPED_TRACE(locked ? "locked" : "hidden");
    start("");
    macros({"PARENT \"P\"", "BEGINGROUP \"G\"", "NEWLAYER \"SAFE\""});
    const PrimitiveId safe = line(0, 0, 1, 0);
    macro("NEWLAYER \"FREE\"");
    const PrimitiveId free = line(0, 5, 1, 5);
    drawing().select(safe);
    drawing().select(free);
    lockLayer("SAFE", locked, locked);
    for (const char* command :
         {"MOVE [0,0] [0,1]", "ROTATE [0,0] Y 10", "MIRROR [0,0] Y N", "SCALE [0,0] N 2 2", "LINKSEL \"OTHER\"",
          "WSNEWLAY \"ELSE\"", "DELSELECT", "SNIP Y N N [20,20] [30,30]", "SNIP Y Y N [-1,-1] [30,30]"}) {
      macro(command);
      ASSERT_NE(drawing().find(safe), nullptr) << command;
      EXPECT_EQ(lineOf(safe).b, (Point{1, 0})) << command;
      EXPECT_EQ(drawing().find(safe)->group, 1) << command;
      EXPECT_EQ(drawing().layer(drawing().find(safe)->layer)->name, "SAFE") << command;
    }
    EXPECT_EQ(drawing().find(free), nullptr);
    macro("SELECTLAYER \"SAFE\"");
    EXPECT_FALSE(drawing().hasSelection());
    macro("SELECTNAME \"P G\"");
    EXPECT_FALSE(drawing().hasSelection());
    EXPECT_EQ(window().pick({0.5, 0}, kLinePrimitive), locked ? safe : 0) << "locked layers are seen";
  }
}

class CursorMacros : public HostSession {
 protected:
  Point given() {
    double x = 0.0;
    double y = 0.0;
    EXPECT_EQ(window().gsGetPointFromUser("Where", x, y), 0);
    return {x, y};
  }
};

TEST_F(CursorMacros, AnAngleLockHoldsItsOrigin) {
  start("point 10 10\npoint 20 11\npoint 11 30\npoint 50 -30\n");
  given();
  macros({"CURSORHOLD", "LOCKANG K 0"});
  EXPECT_EQ(given(), (Point{20, 10}));
  EXPECT_EQ(given(), (Point{10, 30})) << "the held coordinate does not follow later picks";
  macro("lockang \"U\"[#]");
  EXPECT_EQ(given(), (Point{50, -30}));
}

TEST_F(CursorMacros, ALineLockAndItsSquare) {
  start("point 0 0\npoint 9 1\npoint 3 8\npoint 3 8\n");
  line(0, 2, 10, 12);
  const Point origin = given();
  window().gsSetCursorHold(1);
  macro("LOCKANG L [4,6.5]");
  EXPECT_EQ(window().cursor().lockedAngle().value_or(0), 45.0);
  const Point on = given();
  EXPECT_NEAR(on.y - on.x, 2.0, 1e-12);
  macro("yperp");
  EXPECT_NEAR(window().cursor().lockedAngle().value_or(0), -45.0, 1e-12);
  const Point square = given();
  EXPECT_NEAR(square.x + square.y, origin.x + origin.y, 1e-12);
  macro("CURSORHOLD");
  EXPECT_FALSE(window().cursor().held());
  macro("LOCKANG U");
  EXPECT_EQ(given(), (Point{3, 8}));
  line(200, 2, 210, 192);
  macros({"PARENT \"A\"", "BEGINGROUP \"PART\""});
  line(200, 2, 200, 12);
  line(100, 0, 150, 0);
  macro("LOCKANG L [200,202]");
  EXPECT_EQ(window().cursor().lockedAngle().value_or(0), 90.0) << "the part's line that leads to the point";
  window().beginCommand("repeat");
  macros({"PARENT \"A\"", "BEGINGROUP \"REPEATED\""});
  line(295, 50, 305, 50);
  line(300, 0, 300, 100);
  macros({"SELECTNAME \"A REPEATED\"", "REPEAT 1 \"Y\" [300,0] [303,0] [#]", "LOCKANG L [300,50]"});
  EXPECT_EQ(window().cursor().lockedAngle().value_or(0), 90.0) << "the copy's line leads there, too";
  window().endCommand(true);
}

TEST_F(CursorMacros, SnappingComesBeforeTheLock) {
  start("point 10.4 0.4\npoint 30 2\npoint 40 1\npoint 12 0.4\n");
  line(0, 0, 10, 0);
  macro("CURMODE \"A\"");
  EXPECT_EQ(given(), (Point{10, 0}));
  macro("CURMODE F");
  window().gsSetCursorHold(1);
  window().gsSetSnapMode(9);
  EXPECT_EQ(given(), (Point{30, 0}));
  window().gsSetCursorHold(0);
  EXPECT_EQ(given(), (Point{40, 1})) << "without a held coordinate there is nothing to be square to";
  window().beginCommand("next");
  EXPECT_EQ(given(), (Point{12, 0.4})) << "a command starts with a free cursor";
  window().endCommand(true);
}

TEST_F(CursorMacros, AngleOfALockReadsUpright) {
  for (int angle = -720; angle <= 720; angle += 15) {
    macro("LOCKANG K " + std::to_string(angle));
    const double locked = window().cursor().lockedAngle().value();
    EXPECT_GT(locked, -90.0);
    EXPECT_LE(locked, 90.0);
    EXPECT_NEAR(std::remainder(locked - angle, 180.0), 0.0, 1e-9);
  }
}

}  // namespace

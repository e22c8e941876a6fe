#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "frame/host/macro_quote.h"
#include "host/macros/command.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

TEST(MacroLexer, EveryByteStringComesBackFromItsQuotes) {
  std::mt19937 random(3);
  std::string all;
  for (int byte = 0; byte < 256; ++byte) { all += static_cast<char>(byte); }
  std::vector<std::string> texts = {all, "", "\"", "\"\"", "\" [1,2]", "\" \"x\" [#]", "a\"#MOVE"};
  for (int round = 0; round < 3000; ++round) {
    std::string text(static_cast<size_t>(random() % 12), ' ');
    for (char& c : text) { c = random() % 3 == 0 ? "\"[]#\\ "[random() % 6] : static_cast<char>(random() % 256); }
    texts.push_back(std::move(text));
  }
  for (const std::string& text : texts) {
    const MacroLine line = readMacroLine("SELECTNAME " + quotedForMacro(text) + "[#]");
    ASSERT_EQ(line.arguments.size(), 2U) << text;
    EXPECT_EQ(line.arguments[0].kind, TokenKind::kText);
    EXPECT_EQ(line.arguments[0].text, text);
    EXPECT_EQ(line.arguments[1].kind, TokenKind::kTerminator);
  }
}

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

TEST_F(Macros, EveryMistakeIsNamedWithItsColumnAndChangesNothing) {
  drawing().select(line(0, 0, 10, 0));
  const std::string before = json();
  const std::vector<std::pair<std::string, std::string>> mistakes = {
      {"", "1: a macro command starts with a word"},
      {"#", "2: a macro command starts with a word"},
      {"FLY [0,0]", "1: there is no macro command FLY"},
      {"MOVE [0,0", "6: \"[\" without \"]\""},
      {"MOVE [0,0] [1;2]", "13: a point is two numbers with a comma between"},
      {"MOVE [0,0] [1,nan]", "15: a coordinate is a number, got \"nan\""},
      {"MOVE [0,0] [1,2,3]", "15: a coordinate is a number, got \"2,3\""},
      {"MOVE [0,0] [1e400,2]", "13: a coordinate is a number, got \"1e400\""},
      {"MOVE [0,0]", "11: MOVE expects a point in brackets here"},
      {"MOVE [0,0] [1,1] [2,2]", "18: MOVE expects the end of the command here"},
      {"MOVE [0,0] [1,1] [#] [#]", "22: MOVE expects the end of the command here"},
      {"ROTATE [0,0] X 90", "14: ROTATE expects \"Y\" or \"N\" here"},
      {"ROTATE [0,0] Y 1,5", "16: ROTATE expects a number here"},
      {"REPEAT 1.5 Y [0,0] [1,0]", "8: REPEAT expects a whole number here"},
      {"REPEAT 1e9 Y [0,0] [1,0]",
       "8: REPEAT adds at most 5000000 primitives at once, a long text counting as several"},
      {"REPEAT 1e300 N [0,0] 1", "8: REPEAT adds at most 5000000 primitives at once, a long text counting as several"},
      {"SCALE [0,0] N 0 1", "15: SCALE expects a factor other than 0"},
      {"MIRROR [0,0] A [0,0] Y", "16: MIRROR expects two different points"},
      {"SELECTNAME \"NO SUCH\"", "12: there is no group \"NO SUCH\""},
      {"SELECTNAME NOTSET$", "12: SELECTNAME expects a text in quotes here"},
      {"SELECTLAYER \"NONE\"", "13: there is no layer \"NONE\""},
      {"LINETYPE 0 1", "10: a line type is 1 to 32767"},
      {"LINETYPE 1e10 1", "10: a line type is 1 to 32767"},
      {"LINETYPE 1 257", "12: a pen is 1 to 256"},
      {"WIDTH -1", "7: a line width is 0 or more"},
      {"LOCKANG L [500,500]", "11: no line lies at this point"},
      {"YPERP", "1: YPERP expects the cursor locked onto a line"},
  };
  for (const auto& [text, error] : mistakes) { EXPECT_EQ(macroError(text), error) << text; }
  EXPECT_NE(macroError("MOVE [-1e308,0] [1e308,0]"), "");
  EXPECT_EQ(json(), before);
  EXPECT_EQ(drawing().selection().size(), 1U) << "a mistake lost the selection";
  EXPECT_EQ(window().style().linetype, 1);
  ASSERT_TRUE(drawing().undo());
  EXPECT_FALSE(drawing().undo()) << "a mistake left a step";
}

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

TEST_F(Macros, VariablesStandForNumbersAndTexts) {
  drawing().select(line(10, 0, 20, 0));
  host().variables().setNumber("Q1", 90.0);
  host().variables().setText("N$", "DEEP");
  macro("rotate [0,0] y q1");
  EXPECT_NEAR(lineOf(1).b.y, 20.0, 1e-12);
  macro("newlayer n$");
  EXPECT_EQ(window().gsGetCurrentLayerName(), "DEEP");
  // A relative point starts at the point given last.
  start("point 100 50\n");
  double x = 0.0;
  double y = 0.0;
  window().gsGetPointFromUser("Where", x, y);
  drawing().select(line(0, 0, 1, 0));
  macro("MOVE [@-100,-50] [@0,5]");
  EXPECT_EQ(lineOf(1).a, (Point{100, 55}));
}

TEST_F(Macros, RotateTurnsByAnglesAndOntoDirections) {
  const PrimitiveId id = line(10, 0, 20, 0);
  drawing().select(id);
  macro("ROTATE [0,0] \"Y\" 90");
  EXPECT_EQ(lineOf(id).b, (Point{0, 20}));
  macro("#rotate [0,0] N [0,7] [3,-3]");
  EXPECT_NEAR(lineOf(id).b.x, 20 * std::sqrt(0.5), 1e-9);
  EXPECT_NEAR(lineOf(id).b.y, -20 * std::sqrt(0.5), 1e-9);
  const std::string before = json();
  macro("ROTATE [0,0] N [0,0] [3,-3]");
  EXPECT_EQ(json(), before) << "a reference without length turns nothing and says nothing";
}

TEST_F(Macros, RepeatMakesPitchCirclesAndRowsWithinTheGroup) {
  macros({"PARENT \"HOLES\"", "BEGINGROUP \"H1\"", "SELECTNEW 1"});
  line(30, 0, 40, 0);
  macro("REPEAT 5 N [10,0] 60");
  ASSERT_EQ(drawing().count(), 6U);
  EXPECT_EQ(drawing().selection().size(), 6U) << "the copies of what is new are new";
  Point sum{0, 0};
  drawing().forEach([&](PrimitiveId, const Primitive& primitive) {
    EXPECT_EQ(primitive.group, 1);
    const Line& copy = std::get<Line>(primitive.geometry);
    EXPECT_NEAR(distance(copy.a, {10, 0}), 20.0, 1e-9);
    EXPECT_NEAR(distance(copy.b, {10, 0}), 30.0, 1e-9);
    sum = sum + copy.a - Point{10, 0};
  });
  EXPECT_NEAR(length(sum), 0.0, 1e-9) << "evenly spread, the sum of the spokes is nothing";
  macros({"CLEARSEL", "SELECTNEW 0"});
  const PrimitiveId row = line(0, 100, 1, 100);
  EXPECT_FALSE(drawing().hasSelection());
  drawing().select(row);
  macro("REPEAT 3 Y [0,0] [5,1]");
  EXPECT_EQ(lineOf(drawing().lastId()).a, (Point{15, 103}));
  for (const char* count : {"0", "-1", "-1e9"}) { macro(std::string("REPEAT ") + count + " Y [0,0] [5,1]"); }
  EXPECT_EQ(drawing().count(), 10U);
}

TEST_F(Macros, MirrorOverBothAxesAndALine) {
  const PrimitiveId id = line(3, 1, 5, 2);
  drawing().select(id);
  macro("MIRROR [2,0] \"Y\" \"N\"");
  EXPECT_EQ(lineOf(id).a, (Point{1, 1}));
  macro("MIRROR [0,0] N N");
  EXPECT_EQ(lineOf(id).a, (Point{1, -1}));
  macro("#MIRROR [0,0] \"A\" [5,5] \"Y\"");
  EXPECT_EQ(lineOf(id).a, (Point{1, -1}));
  EXPECT_EQ(lineOf(id + 1).a, (Point{-1, 1}));
  EXPECT_EQ(drawing().selection(), (std::vector<PrimitiveId>{id, id + 1})) << "original and copy stay selected";
  EXPECT_EQ(drawing().find(id + 1)->layer, drawing().find(id)->layer);
}

TEST_F(Macros, ScaleKeepsPaperSizesAndRefusesUnevenArcs) {
  drawing().select(line(1, 1, 2, 2));
  const PrimitiveId text = drawing().add({.width = 2.5, .geometry = Text{{2, 2}, "T"}});
  drawing().select(text);
  macro("SCALE [0,0] N 2 3");
  EXPECT_EQ(lineOf(1).b, (Point{4, 6}));
  EXPECT_EQ(std::get<Text>(drawing().find(text)->geometry).height, 35.0);
  EXPECT_EQ(drawing().find(text)->width, 2.5);
  drawing().select(drawing().add({.geometry = Arc{{1, 0}, {0, 0}, {0, 1}}}));
  const std::string before = json();
  EXPECT_NE(macroError("SCALE [0,0] N 2 3"), "");
  EXPECT_EQ(json(), before);
  macro("SCALE [0,0] N 2 -2");
  EXPECT_TRUE(std::get<Arc>(drawing().find(3)->geometry).clockwise);
}

TEST_F(Macros, GroupsOpenContinueAndAreFoundByTheNewest) {
  const auto groupOfNext = [&] { return drawing().find(line(0, 0, 1, 0))->group; };
  EXPECT_EQ(groupOfNext(), 0);
  macros({"PARENT \"BOLTS\"", "BEGINGROUP \"M10\""});
  EXPECT_EQ(groupOfNext(), 1);
  macro("BEGINGROUP \"M10\"");
  EXPECT_EQ(groupOfNext(), 1) << "without PARENT the group goes on";
  macros({"PARENT \"BOLTS\"", "STARTPAT \"M10\""});
  EXPECT_EQ(groupOfNext(), 2) << "after PARENT a new one, whatever its name";
  macro("BEGINGROUP \"M12\"");
  EXPECT_EQ(groupOfNext(), 3);
  macro("PARENT \"A\"");
  EXPECT_EQ(groupOfNext(), 0) << "PARENT ends the open group";
  macros({"PARENT \"BOLTS\"", "SELECTNAME \"BOLTS M10\""});
  EXPECT_EQ(drawing().selection(), drawing().membersOf(2));
  drawing().remove(drawing().membersOf(2).front());
  macro("SELECTNAME \"BOLTS M10\"");
  EXPECT_EQ(drawing().selection(), drawing().membersOf(1)) << "a group without members counts as gone";
  macro("LINKSEL \"M12\"");
  EXPECT_EQ(drawing().membersOf(3).size(), 3U);
  EXPECT_TRUE(drawing().membersOf(1).empty());
  const GroupId before = drawing().lastGroup();
  macro("LINKSEL \"_\"");
  EXPECT_EQ(drawing().lastGroup(), before + 1) << "an unnamed group is always new";
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

TEST_F(Macros, LayersAreMadeMovedToAndCopiedTo) {
  drawing().select(line(0, 0, 1, 0));
  macro("WSNEWLAY \"NEW\"");
  EXPECT_EQ(drawing().layer(drawing().find(1)->layer)->name, "NEW");
  macro("COPYTOLAYER \"NEW2\"");
  EXPECT_EQ(drawing().count(), 2U);
  EXPECT_EQ(drawing().layer(drawing().find(2)->layer)->name, "NEW2");
  EXPECT_EQ(window().gsGetCurrentLayerName(), "0") << "the current layer stays";
  lockLayer("NEW2", true, true);
  const std::string before = json();
  for (const char* command : {"WSNEWLAY \"NEW2\"", "COPYTOLAYER \"NEW2\""}) {
    EXPECT_TRUE(macroError(command).ends_with(": the layer \"NEW2\" is locked")) << command;
  }
  EXPECT_EQ(json(), before);
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
  start("point 10.4 0.4\npoint 30 2\npoint 12 0.4\n");
  line(0, 0, 10, 0);
  macro("CURMODE \"A\"");
  EXPECT_EQ(given(), (Point{10, 0}));
  macro("CURMODE F");
  window().gsSetCursorHold(1);
  window().gsSetSnapMode(9);
  EXPECT_EQ(given(), (Point{30, 0}));
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

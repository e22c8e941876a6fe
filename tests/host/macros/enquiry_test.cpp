#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/macros/command.h"
#include "tests/host/drawing/survey_parameters.h"
#include "tests/host/macros/macro_session.h"

namespace {

using namespace brevan;

// Drawing files made in memory.
class MadeDrawings : public DrawingSource {
 public:
  ReadDrawing open(const std::string& path) override {
    if (path.find("none") != std::string::npos) { throw HostFailure("cannot read \"" + path + "\": no such file"); }
    ReadDrawing made;
    Drawing& drawing = made.drawing;
    Parameters metres;
    metres.setUnit(1000.0);
    metres.setOrientation(turned ? 1 : 0);
    drawing.setParameters(metres);
    const int layer = drawing.addLayer({"FRAME"});
    drawing.add({.layer = layer, .group = drawing.addGroup("SHEETS", "BORDER"), .geometry = Line{{0, 0}, {1, 2}}});
    drawing.addSymbol({"DOT", {Primitive{}}});
    drawing.addSymbol({"W1200P", {{.geometry = Line{{0, 0}, {1200, 100}}}, {.geometry = Symbol{"DOT", {10, 10}}}}});
    if (!lettered) { return made; }
    drawing.addSymbol({"MARK", {Primitive{}}, true, true});
    drawing.add({.geometry = Text{{1, 1}, "TITLE", "Arial", 25.0, 100.0}});
    drawing.add({.geometry = Symbol{"MARK", {1, 2}, 1.0, 10.0}});
    drawing.add({.geometry = Symbol{"DOT", {1, 3}, 1.0, 10.0}});
    return made;
  }
  bool turned = false;
  bool lettered = false;  // a text, a symbol that stays upright and one that turns with the axes
};

class Enquiries : public MacroSession {
 protected:
  using Numbers = std::vector<double>;
  // Each macro is refused with its message and changes nothing.
  void expectRefused(const std::vector<std::pair<std::string, std::string>>& rows) {
    const std::string before = json();
    for (const auto& [command, told] : rows) { EXPECT_EQ(macroError(command), told) << command; }
    EXPECT_EQ(json(), before);
  }
  MadeDrawings files_;
};

TEST_F(Enquiries, SymbolsArePatternsOfTheirOwn) {
  answer("", &files_);
  expectRefused({{"NEWSYMFL \"\\none.DRG\" \"N\" \"N\"", "10: cannot read \"\\none.DRG\": no such file"}});
  macros({"NEWSYMFL \"\\Windows\\W1200.DRG\" \"N\" \"N\"", "PARENT \"PLAN\"",
          "ADDSYM \"W1200P\" [1000.000,500.000] 1 90.00000"});
  EXPECT_NE(drawing().symbol("DOT"), nullptr);  // what it is made of came along
  window().gsSetCurrCoord(950, 900);
  macro("ENQUIRE \"NEARPATNAME\" pat$ xl yl xr yr");
  EXPECT_EQ(text("pat$"), "PLAN W1200P");
  EXPECT_NEAR(std::hypot(number("xl") - 900.0, number("yr") - 1700.0), 0.0, 1e-9);
  macro("QUERYEL [950.000,900.000] A$ B$ C$ [#]");
  EXPECT_EQ(text("A$") + " on " + text("B$"), "SYMBOL 'W1200 W1200P' on 0");
  macros({"#RENAMPAT \"* W1200P\" \"WINDOWS N1\" [#]", "SELECTNAME \"WINDOWS N1\""});
  EXPECT_EQ(drawing().selection().size(), 1U);
  EXPECT_EQ(macroError("#RENAMPAT \"* W1200P\" \"WINDOWS N2\" [#]"), "11: there is no group \"* W1200P\"");
  // A symbol that takes the name of the part being drawn belongs to that part.
  macros({"PARENT \"WELDS\"", "STARTPAT \"N7\""});
  HostSession::line(0, 0, 10, 0);
  macros({"ADDSYM \"DOT\" [0.000,0.000] 1 0", "#RENAMPAT \"* DOT\" \"WELDS N7\" [#]"});
  EXPECT_EQ(drawing().membersOf(drawing().newestGroup("WELDS N7")).size(), 2U);
  EXPECT_EQ(drawing().newestGroup("WELDS DOT"), 0);
}

TEST_F(Enquiries, SymbolsOfEveryWindowAndTheirPanel) {
  answer("menu \"DOT\"\npoint 1 2\npoint 3 4\nspace\n", &files_);
  macros({"NEWSYMFL \"Marks.drg\" \"Y\" \"Y\"", "SYMBOL"});
  EXPECT_EQ(drawing().count(), 2U);
  EXPECT_TRUE(drawing().symbol("DOT")->upright);
  host().openWindow("Other");
  macro("ADDSYM DOT [5,6] 2 0");
  EXPECT_EQ(drawing().count(), 1U);
  macros({"NEWSYMFL \"Marks.drg\" \"N\" \"Y\"", "ADDSYM DOT [5,6] 2 0"});
  EXPECT_TRUE(drawing().symbol("DOT")->upright) << "the drawing's own definition stays";
  host().openWindow("Third");
  macro("ADDSYM DOT [5,6] 2 0");
  EXPECT_FALSE(drawing().symbol("DOT")->upright) << "symbols of real size turn with the drawing";
}

TEST_F(Enquiries, AnInsertedDrawingComesInTheDrawingsUnit) {
  answer("", &files_);
  line(0, 0, 1, 1);
  macro("#LOAD \"Sheet.drg\" [100.00000, 200.00000] 1 0");
  ASSERT_EQ(drawing().selection(), std::vector<PrimitiveId>{2});
  EXPECT_EQ(shape<Line>(2).b, (Point{1100, 2200}));
  EXPECT_EQ(drawing().layer(drawing().find(2)->layer)->name, "FRAME");
  EXPECT_EQ(drawing().group(drawing().find(2)->group).name, "BORDER");
  files_.turned = true;
  macro("#LOAD \"Sheet.drg\" [100.00000, 200.00000] 1 0");
  EXPECT_NEAR(shape<Line>(3).b.x, -900.0, 1e-9);
  setLayer("FRAME", true, true);
  expectRefused({{"#LOAD \"Sheet.drg\" [0,0] 1 0", "7: the layer \"FRAME\" is locked"}});
}

// A title block is drawn upright on its own paper, and reads upright on a south-oriented sheet.
TEST_F(Enquiries, AnInsertedDrawingStandsUprightOnATurnedSheet) {
  answer("", &files_);
  files_.lettered = true;
  drawing().setParameters(surveyParameters());
  macro("#LOAD \"Sheet.drg\" [100.00000, 200.00000] 1 0");
  EXPECT_EQ(shape<Line>(1).b, (Point{-900, -1800}));
  EXPECT_NEAR(shape<Text>(2).angle, 100.0, 1e-9);
  EXPECT_NEAR(shape<Symbol>(3).rotation, 10.0, 1e-9);
  EXPECT_NEAR(shape<Symbol>(4).rotation, 190.0, 1e-9) << "turned with the axes, it looks as before";
  macro("#LOAD \"Sheet.drg\" [0,0] 2 0");
  EXPECT_EQ(shape<Symbol>(drawing().lastId()).scale, 2.0);
}

TEST_F(Enquiries, ThePaperHoldsWhatIsDrawn) {
  line(0, 0, 80000, 120000);  // millimetres at 1:500: 160 x 240
  macro("#HOME");
  window().gsZoomAll();
  macro("#HOME");
  EXPECT_EQ(window().cursor().position(), (Point{40000, 60000}));
  host().variables().setNumber("S", 500);
  window().beginCommand("Sheet");
  macros({"#NEWSCALE 14 S [40000.000,60000.000]", "#SETPORTRAIT 1"});
  window().gsCenterPaper(41000, 60000);
  ASSERT_TRUE(drawing().sheet());
  EXPECT_EQ(drawing().sheet()->name, "A4");
  macro("#HOME");
  EXPECT_EQ(window().cursor().position(), (Point{41000, 60000}));
  macro("#ENQUIRE \"PAPER\" X1 Y1 W L");
  EXPECT_EQ(numbers({"X1", "Y1", "W", "L"}), (Numbers{41000, 60000, 210, 297}));
  for (const double portrait : {0.0, 1.0}) {
    macro("#SETPORTRAIT " + std::to_string(static_cast<int>(portrait)));
    EXPECT_EQ(drawing().sheet()->height, 210.0 + 87.0 * portrait) << "the sheet turns with its setting";
  }
  line(0, 0, 130000, 180000);  // the title block comes later
  window().endCommand(true);
  EXPECT_EQ(drawing().sheet()->name, "A3");
  EXPECT_EQ(macroError("#NEWSCALE 3 S [0,0]"), "11: NEWSCALE expects 14: the scale is given");
}

TEST_F(Enquiries, HomeIsWhereTheUserLooksWhileThereIsNoPaper) {
  const auto home = [this] {
    macro("#HOME");
    return window().cursor().position();
  };
  EXPECT_EQ(home(), (Point{0, 0}));
  line(-48700, 2914200, -48600, 2914300);
  EXPECT_EQ(home(), (Point{-48650, 2914250})) << "nobody looked yet";
  window().setSeen({-48690, 2914210});
  EXPECT_EQ(home(), (Point{-48690, 2914210}));
  std::vector<Box> shown;
  window().setZoom([&](const Box& box) {
    shown.push_back(box);
    window().setSeen({1, 1});
  });
  window().gsZoomRect(-48700, 2914200, -48680, 2914220);
  EXPECT_EQ(home(), (Point{-48690, 2914210})) << "what the command asked for, however the window shows it";
  window().gsZoomAll();
  EXPECT_EQ(home(), (Point{-48650, 2914250}));
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown.front().width(), 20.0);
  EXPECT_TRUE(shown.back().empty());
  window().gsFitPaper(574, 821, 0, 0);
  EXPECT_EQ(drawing().sheet()->name, "A1");
  EXPECT_GT(drawing().sheet()->height, drawing().sheet()->width);
  EXPECT_EQ(home(), (Point{287, 410.5}));
}

TEST_F(Enquiries, EditingAndSwitching) {
  const PrimitiveId edited = line(0, 0, 10, 0);
  macro("#EDITLP \"N\" [5.000,1.000] 4 9 3.500 [#]");
  EXPECT_EQ(drawing().find(edited)->pen, 9);
  setLayer("0", true, true);
  EXPECT_EQ(macroError("#EDITLP \"N\" [5.000,1.000] 4 9 3.500 [#]"), "13: the line at this point is locked");
  macros({"ALLLAYER \"N\"", "SHOWPOWERBAR", "#CLEARCURROBJ"});
  setLayer("0", true, false);
  macro("#POLY");
  window().gsSetPrimHeader(kLinePrimitive, 0, 0, 0, 1, 1, 0, 0, 0);
  window().gsSetLine(0, 0, 1, 1);
  const PrimitiveId first = window().gsAddPrim();
  macro("POLY");
  const PrimitiveId second = window().gsAddPrim();
  EXPECT_NE(drawing().find(first)->group, drawing().find(second)->group);
  EXPECT_EQ(drawing().group(drawing().find(second)->group).name, "POLY");
}

// The manual lists every command, and no other.
TEST_F(Enquiries, TheManualKnowsEveryCommand) {
  const std::string manual = read(std::string(SOURCE_ROOT) + "/docs/macros.md");
  for (const CommandForm& form : commandForms()) {
    const std::string row = "| `" + std::string(form.word) + "` | `" + std::string(form.pattern) + "` | " +
                            std::string(form.summary) + " |";
    EXPECT_NE(manual.find(row), std::string::npos) << "docs/macros.md lacks: " << row;
  }
  size_t rows = 0;
  for (size_t at = manual.find("\n| `"); at != std::string::npos; at = manual.find("\n| `", at + 1)) { ++rows; }
  EXPECT_EQ(rows, commandForms().size());
}

}  // namespace

#include "survey/sheet/survey_table.h"

#include <gtest/gtest.h>

#include "tests/mech/command_session.h"

using namespace ardenix;
using namespace ardenix::survey;
using brevan::Line;
using brevan::Text;

namespace {

class SurveyTableTest : public CommandSession {
 protected:
  SurveyTableTest() { play(""); }

  SurveyTable table(int rows, int columns) {
    return {rows, columns, 10.0, 20.0, {100.0, 500.0}, &host().window(), host().window().gsAddLayer("TABLES")};
  }
  void turn(int orientation, int system) {
    brevan::Parameters parameters;
    parameters.setCoordinateSystem(system);
    parameters.setOrientation(orientation);
    drawing().setParameters(parameters);
  }
};

TEST_F(SurveyTableTest, CutsToFourRowsAndTwentyColumns) {
  SurveyTable most = table(6, 30);
  EXPECT_EQ(most.rows(), 4);
  EXPECT_EQ(most.columns(), 20);
  EXPECT_THROW(most.setCell(4, 0, "", {}), std::out_of_range);
  EXPECT_THROW(most.setColumnWidth(20, 1.0), std::out_of_range);
  SurveyTable none = table(-1, -1);
  none.draw();
  EXPECT_EQ(drawing().count(), 0U);
  SurveyTable(2, 2, 1.0, 1.0, {}, nullptr, 0).draw();  // without a view there is nothing to draw on
}

TEST_F(SurveyTableTest, DrawsWhatItWasGivenAndNoMore) {
  SurveyTable grid = table(2, 3);
  grid.setFrame(5, 2);
  grid.setColumnWidth(1, 50.0);
  grid.setRowHeight(0, 15.0);
  grid.setCell(1, 2, "X", {"Courier New", 3, 25, 4, 7});
  grid.setBorders(1, 2, {.top = true, .right = true});
  grid.setBorders(0, 0, {.bottom = true, .left = true});
  grid.draw();
  EXPECT_TRUE(log_.of("macro").empty()) << "no kind, no group";
  const std::vector<Line> lines = shapes<Line>();
  // The last two right of the wide column, below the high row.
  const std::vector<Line> wanted = {
      {{100, 485}, {120, 485}}, {{100, 500}, {100, 485}}, {{170, 485}, {190, 485}}, {{190, 485}, {190, 475}}};
  EXPECT_EQ(lines, wanted);
  // Texts of cells stand in the middle.
  EXPECT_EQ(shapes<Text>(), (std::vector<Text>{{{180, 480}, "X", "Courier New", 25, 0, 15, 4, 3}}));
  EXPECT_EQ(*drawing().find(1), (brevan::Primitive{drawing().layerNamed("TABLES"), 5, 2, 0, 0, lines.at(0)}));
}

TEST_F(SurveyTableTest, IsOneGroupOfItsKind) {
  SurveyTable grid = table(1, 2);
  grid.setKind("BLOCK");
  grid.setBorders(0, 0, {.top = true});
  grid.setBorders(0, 1, {.top = true});
  grid.draw();
  EXPECT_EQ(log_.of("macro"), (std::vector<std::string>{"#BEGINGROUP \"BLOCK\"", "#STARTPAT \"_\""}));
  EXPECT_EQ(groups(), std::vector<std::string>{" BLOCK 2"});
}

// On a sheet that is turned the same table lies the other way round its origin; the paper shows it alike.
TEST_F(SurveyTableTest, FollowsTheOrientation) {
  const struct {
    int orientation, system;
    double sign;
  } rows[] = {{0, 0, 1.0}, {0, 1, 1.0}, {1, 1, 1.0}, {1, 0, -1.0}};
  for (const auto& row : rows) {
    play("");
    turn(row.orientation, row.system);
    SurveyTable grid = table(1, 2);
    grid.setBorders(0, 1, {.left = true});
    grid.draw();
    grid.placeText(7.0, 3.0, "note", {});
    grid.placeText(7.0, 3.0, "", {});
    grid.placeSymbol(7.0, 3.0, "TRIG");
    EXPECT_EQ(shapes<Line>().at(0), (Line{{100 + row.sign * 20, 500}, {100 + row.sign * 20, 500 - row.sign * 10}}));
    ASSERT_EQ(shapes<Text>().size(), 1U);
    EXPECT_EQ(shapes<Text>()[0].at, (brevan::Point{100 + row.sign * 7, 500 - row.sign * 3}));
    const std::string point = row.sign > 0 ? "[107.000,497.000]" : "[93.000,503.000]";
    const std::vector<std::string> macros = log_.of("macro");
    ASSERT_GE(macros.size(), 2U);
    EXPECT_EQ(macros[macros.size() - 2] + macros.back(), "#ADDSYM TRIG " + point + " 1 0#STARTPAT \"_\"");
  }
}

}  // namespace

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

}  // namespace

#include <gtest/gtest.h>

#include "tests/host/macros/macro_session.h"

namespace {

using namespace brevan;

class ParallelLines : public MacroSession {
 protected:
  // What was drawn last, and how far it reaches.
  void expectBox(PrimitiveId first, PrimitiveId last, const Box& reach) {
    ASSERT_EQ(drawing().count(), static_cast<size_t>(last));
    Box box;
    for (PrimitiveId id = first; id <= last; ++id) { box.add(drawing().bounds(*drawing().find(id))); }
    EXPECT_TRUE(box.low == reach.low && box.high == reach.high);
  }
};

TEST_F(ParallelLines, AlongPointsWithLeaningClosedEnds) {
  answer("point 100 0\npoint 100 0\npoint 100 80\nspace\n");  // a point given twice is one
  macros({"LINETYPE 1 3", "WIDTH 5", "PARLLDEF 1 225.00 90.00 1 1 0 2 2 7 3.5 10 21 8 2.5 -20 ",
          "PARLLINE [0.00000,0.00000]"});
  EXPECT_FALSE(answersLeft());
  ASSERT_EQ(drawing().count(), 10U);  // three lines of two legs, two ends of two pieces
  const struct {
    PrimitiveId id;
    Point a, b;
    int pen, linetype;
  } rows[] = {{3, {10, -10}, {110, -10}, 7, 2},  // at 45 degrees from travel to the right
              {5, {-20, 20}, {80, 20}, 8, 21},
              {7, {-20, 20}, {0, 0}, 8, 21},  // the outer line closes its side
              {9, {0, 0}, {10, -10}, 7, 2}};
  EXPECT_EQ(drawing().find(1)->pen, 3);
  for (const auto& row : rows) {
    EXPECT_LT(distance(shape<Line>(row.id).a, row.a) + distance(shape<Line>(row.id).b, row.b), 1e-9) << row.id;
    EXPECT_EQ(drawing().find(row.id)->pen, row.pen) << row.id;
    EXPECT_EQ(drawing().find(row.id)->linetype, row.linetype) << row.id;
  }
  EXPECT_NE(macroError("PARLLDEF 1 90 180 1 1 0 0"), "");
  drawing().undo();
  EXPECT_EQ(drawing().count(), 0U);
}

TEST_F(ParallelLines, CloseAFigureAtItsFirstPoint) {
  answer("point 0 0\npoint 100 0\npoint 100 100\npoint 0 100\npoint 0 0\n");
  macros({"PARLLDEF 1 90 90 1 1 1 1 1 1 0 10 ", "PARLLINE"});
  EXPECT_EQ(drawing().count(), 4U + 8U) << "the first point closes the figure";
  answer("point 0 0\npoint 100 0\npoint 0 0\npoint 0 50\nspace\n");
  macros({"PARLLDEF 1 90 90 1 0 0 0", "PARLLINE"});
  EXPECT_EQ(drawing().count(), 3U) << "there and back is no figure";
}

TEST_F(ParallelLines, FollowAnOpenLineOnTheSideOfThePoint) {
  line(0, 0, 100, 0);
  line(100, 0, 100, 50);
  macros({"PARLLDEF 0 90 90 1 0 0 1 1 1 0 -5", "PARLLINE [50.00000,30.00000]"});
  expectBox(3, 4, {{0, 5}, {95, 50}});
  answer("");
  line(0, 0, 3000, 0);
  line(3000, 0, 3000, 3000);
  macros({"PARLLDEF 0 90 90 1 0 0 1 1 1 0 -270", "PARLLINE [1000.00000,5000.00000]"});
  expectBox(3, 4, {{0, 270}, {2730, 3000}});  // beyond an end, on the inner side of both lines
  answer("");
  line(0, 0, 100, 0);
  line(50, 0, 50, 40);
  macro("PARLLDEF 0 90 90 1 0 0 1 1 1 0 -5");
  EXPECT_EQ(macroError("PARLLINE [20.00000,30.00000]"), "10: no figure to follow lies near this point");
}

}  // namespace

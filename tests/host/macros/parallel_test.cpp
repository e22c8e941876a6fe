#include <gtest/gtest.h>

#include <random>

#include "host/geometry/fillet.h"
#include "host/geometry/loop.h"
#include "host/geometry/parallel_path.h"
#include "tests/host/macros/macro_session.h"

namespace {

using namespace brevan;

double distanceTo(const std::vector<Curve>& path, Point p) {
  double least = std::numeric_limits<double>::infinity();
  for (const Curve& curve : path) { least = std::min(least, distance(nearestOn(curve, p), p)); }
  return least;
}

class Parallels : public testing::Test {
 protected:
  double any(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  // A walk of lines and arcs, closed by a line or left open.
  std::vector<Curve> anyPath(bool closed) {
    std::vector<Curve> path;
    Point at{0, 0};
    for (int leg = 0; leg < 6; ++leg) {
      const Point next = polar(any(40, 90), leg * kPi / 3.0 + any(-0.3, 0.3));
      const auto arc = leg % 3 == 2 ? arcOf(at, next) : std::nullopt;
      if (leg > 0) { path.push_back(arc ? Curve(*arc) : Curve(Segment{at, next})); }
      at = next;
      if (leg == 0) { first_ = next; }
    }
    if (closed) { path.push_back(Segment{at, first_}); }
    return path;
  }
  std::optional<ArcShape> arcOf(Point from, Point to) {
    return arcOfRadius(from, to, (random_() % 2 == 0 ? 1.0 : -1.0) * any(120, 300));
  }
  Point first_;
  std::mt19937 random_{11};
};

TEST_F(Parallels, KeepTheirDistanceEverywhere) {
  int whole = 0;
  for (int round = 0; round < 1500; ++round) {
    const bool closed = round % 2 == 0;
    const std::vector<Curve> path = anyPath(closed);
    const double offset = any(-12, 12);
    const auto parallel = parallelOf(path, closed, offset, true);
    for (const Curve& curve : parallel) {
      for (const double t : {0.05, 0.4, 0.77}) {
        EXPECT_NEAR(distanceTo(path, pointAt(curve, t)), std::abs(offset), 1e-5);
      }
    }
    bool chained = !parallel.empty();
    for (size_t at = 0; at + 1 < parallel.size(); ++at) {
      chained = chained && distance(endOf(parallel[at]), startOf(parallel[at + 1])) < 1e-5;
    }
    whole += chained ? 1 : 0;
  }
  EXPECT_GT(whole, 1200);
}

TEST_F(Parallels, MitredCornersNeverComeNearer) {
  for (int round = 0; round < 500; ++round) {
    const std::vector<Curve> path = anyPath(true);
    const double offset = any(-12, 12);
    for (const Curve& curve : parallelOf(path, true, offset, false)) {
      EXPECT_GT(distanceTo(path, pointAt(curve, 0.3)), std::abs(offset) - 1e-5);
    }
  }
  const std::vector<Curve> square = {Segment{{0, 0}, {10, 0}}, Segment{{10, 0}, {10, 10}}, Segment{{10, 10}, {0, 10}},
                                     Segment{{0, 10}, {0, 0}}};
  EXPECT_NEAR(signedArea(parallelOf(square, true, 2, false)), 196.0, 1e-9);
  EXPECT_NEAR(signedArea(parallelOf(square, true, 2, true)), 100.0 + 80.0 + 4.0 * kPi, 1e-9);
  EXPECT_NEAR(signedArea(parallelOf(square, true, -2, false)), 36.0, 1e-9);
  EXPECT_TRUE(parallelOf(square, true, -6, false).empty());
}

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

TEST_F(ParallelLines, FollowAFigureFromOutside) {
  answer("point 0 0\npoint 100 0\npoint 100 100\npoint 0 100\npoint 0 0\n");
  macros({"PARLLDEF 1 90 90 1 1 1 1 1 1 0 10 ", "PARLLINE"});
  EXPECT_EQ(drawing().count(), 4U + 8U) << "the first point closes the figure";
  answer("point 0 0\npoint 100 0\npoint 0 0\npoint 0 50\nspace\n");
  macros({"PARLLDEF 1 90 90 1 0 0 0", "PARLLINE"});
  EXPECT_EQ(drawing().count(), 3U) << "there and back is no figure";
  answer("point -50 -50\n");
  line(0, 0, 100, 0);
  line(100, 100, 100, 0);
  line(0, 100, 100, 100);
  line(0, 0, 0, 100);
  line(50, 0, 50, 100);  // divides it
  macro("PARLLDEF 0 90 90 1 0 0 1 2 1 0 -550.000000");
  window().gsSetAutoperimPromptFlag(1);
  macro("PARLLINE");
  window().gsSetAutoperimPromptFlag(0);
  expectBox(6, 9, {{-550, -550}, {650, 650}});
  EXPECT_EQ(macroError("PARLLDEF 0 90 90 1 0 0 1 2 1 0"),
            "24: PARLLDEF expects line type, pen, width and offset for each of its lines");
}

TEST_F(ParallelLines, FollowAnOpenLineOnTheSideOfThePoint) {
  line(0, 0, 100, 0);
  line(100, 0, 100, 50);
  macros({"PARLLDEF 0 90 90 1 0 0 1 1 1 0 -5", "PARLLINE [50.00000,30.00000]"});
  expectBox(3, 4, {{0, 5}, {95, 50}});
  answer("");
  line(0, 0, 100, 0);
  line(50, 0, 50, 40);
  macro("PARLLDEF 0 90 90 1 0 0 1 1 1 0 -5");
  EXPECT_EQ(macroError("PARLLINE [20.00000,30.00000]"), "10: no figure to follow lies near this point");
}

}  // namespace

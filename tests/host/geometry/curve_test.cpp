#include "host/geometry/curve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "host/geometry/clip_region.h"
#include "host/geometry/fillet.h"

namespace {

using namespace brevan;

class Curves : public testing::Test {
 protected:
  double any(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  Point anyPoint() { return {any(-100, 100), any(-100, 100)}; }
  Curve anyCurve() {
    if (random_() % 2 == 0) { return Segment{anyPoint(), anyPoint()}; }
    const Point centre = anyPoint();
    const double radius = any(5, 80);
    const Point start = centre + polar(radius, any(0, 7));
    const Point end = random_() % 4 == 0 ? start : centre + polar(radius, any(0, 7));
    return ArcShape{start, centre, end, random_() % 2 == 0};
  }
  std::mt19937 random_{7};
};

TEST_F(Curves, TravelIsEvenAndParametersComeBack) {
  for (int round = 0; round < 2000; ++round) {
    const Curve curve = anyCurve();
    const double t = any(0.01, 0.99);
    EXPECT_NEAR(parameterOf(curve, pointAt(curve, t)), t, 1e-9);
    const Curve piece = pieceOf(curve, t / 2.0, t);
    EXPECT_NEAR(lengthOf(piece), lengthOf(curve) * t / 2.0, 1e-6);
    EXPECT_LT(distance(pointAt(piece, 0.5), pointAt(curve, t * 0.75)), 1e-6);
    EXPECT_LT(distance(pointAt(reversed(curve), t), pointAt(curve, 1.0 - t)), 1e-6);
    const Point ahead = pointAt(curve, t + 1e-6) - pointAt(curve, t);
    EXPECT_GT(dot(directionAt(curve, t), ahead), 0.99 * length(ahead));
  }
}

TEST_F(Curves, CrossingsLieOnBothAndNoneIsMissed) {
  for (int round = 0; round < 2000; ++round) {
    const Curve first = anyCurve();
    const Curve second = anyCurve();
    const auto found = crossings(first, second, 1e-9);
    for (const Crossing& crossing : found) {
      EXPECT_LT(distance(pointAt(first, crossing.first), crossing.at), 1e-6);
      EXPECT_LT(distance(pointAt(second, crossing.second), crossing.at), 1e-6);
    }
    // Walking along the first, its distance from the second comes near 0 only beside a crossing.
    constexpr int kSteps = 400;
    const double step = lengthOf(first) / kSteps;
    for (int at = 0; at <= kSteps; ++at) {
      const Point p = pointAt(first, static_cast<double>(at) / kSteps);
      if (distance(nearestOn(second, p), p) > step * 1e-3) { continue; }
      EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                              [&](const Crossing& crossing) { return distance(crossing.at, p) < step * 60; }));
    }
  }
}

TEST_F(Curves, TouchingAndLyingOnEachOther) {
  const ArcShape circle{{10, 0}, {0, 0}, {10, 0}};
  EXPECT_EQ(lineWithCircle({{-20, 10}, {20, 10}}, {0, 0}, 10, 1e-9).size(), 1U);
  EXPECT_EQ(lineWithCircle({{-20, 10 + 1e-8}, {20, 10 + 1e-8}}, {0, 0}, 10, 1e-9).size(), 0U);
  EXPECT_EQ(circleWithCircle({0, 0}, 10, {15, 0}, 5, 1e-9).size(), 1U);
  EXPECT_EQ(circleWithCircle({0, 0}, 10, {5, 0}, 5, 1e-9).size(), 1U);
  EXPECT_TRUE(circleWithCircle({0, 0}, 10, {0, 0}, 10, 1e-9).empty());
  const auto overlap = crossings(Segment{{0, 0}, {10, 0}}, Segment{{5, 0}, {20, 0}}, 1e-9);
  ASSERT_EQ(overlap.size(), 2U);
  EXPECT_EQ(crossings(circle, ArcShape{{0, 10}, {0, 0}, {-10, 0}}, 1e-9).size(), 2U);
  const auto tee = crossings(Segment{{0, 0}, {10, 0}}, Segment{{4, 0.0005}, {4, 8}}, 0.001);
  EXPECT_FALSE(tee.empty());
}

// Samples of a curve, to compare coverings.
TEST_F(Curves, InsideAndOutsideOfARegionMakeTheWhole) {
  for (int round = 0; round < 3000; ++round) {
    const Curve curve = anyCurve();
    std::vector<Point> corners;
    for (int corner = 0; corner < 6; ++corner) { corners.push_back(polar(any(20, 90), corner * kPi / 3.0)); }
    const ClipRegion region = round % 3 == 0   ? ClipRegion::window(anyPoint(), anyPoint())
                              : round % 3 == 1 ? ClipRegion::circle(anyPoint(), any(5, 90))
                                               : ClipRegion::polygon(corners);
    const auto inside = cutByRegion(curve, region, {true, true, false}).value_or(std::vector<Curve>{curve});
    const auto outside = cutByRegion(curve, region, {false, false, true}).value_or(std::vector<Curve>{curve});
    double covered = 0.0;
    for (const Curve& piece : inside) {
      covered += lengthOf(piece);
      EXPECT_NE(region.place(pointAt(piece, 0.37)), ClipRegion::Place::kOutside);
    }
    for (const Curve& piece : outside) {
      covered += lengthOf(piece);
      EXPECT_NE(region.place(pointAt(piece, 0.37)), ClipRegion::Place::kInside);
    }
    EXPECT_NEAR(covered, lengthOf(curve), 1e-6);
  }
}

TEST_F(Curves, AnEdgeCountsWithinItsWidthAndLeavesNoSlivers) {
  const ClipRegion region = ClipRegion::window({0, 0}, {10, 10});
  const KeepRule outside{false, false, true};
  // Ends within the edge's width: nothing to cut.
  EXPECT_FALSE(cutByRegion(Segment{{-5, 5}, {0.0005, 5}}, region, outside));
  // Along the edge and beyond its corners: only what is beyond stays.
  const auto along = cutByRegion(Segment{{-5, 10.0004}, {20, 10.0004}}, region, outside);
  ASSERT_TRUE(along && along->size() == 2);
  EXPECT_NEAR(lengthOf(along->at(0)), 5.0, 0.002);
  EXPECT_NEAR(lengthOf(along->at(1)), 10.0, 0.002);
  // A full circle about a corner keeps one arc of three quarters.
  const auto round = cutByRegion(ArcShape{{12, 10}, {10, 10}, {12, 10}}, region, outside);
  ASSERT_TRUE(round && round->size() == 1);
  EXPECT_NEAR(lengthOf(round->front()), 3.0 * kPi, 0.01);
}

TEST_F(Curves, AFilletTouchesBothSides) {
  int fitted = 0;
  for (int round = 0; round < 4000; ++round) {
    const FilletSide first{anyCurve(), anyPoint()};
    const FilletSide second{anyCurve(), anyPoint()};
    const double radius = any(0.5, 8);
    const auto fillet = filletOf(first, second, radius);
    if (!fillet) { continue; }
    ++fitted;
    const Curve arc = *fillet->arc;
    EXPECT_NEAR(arcRadius(*fillet->arc), radius, 1e-6);
    EXPECT_LT(std::abs(arcSweep(*fillet->arc)), kPi + 1e-9);
    for (const auto& [side, t] : {std::pair{fillet->first, 0.0}, std::pair{fillet->second, 1.0}}) {
      const Point touch = pointAt(arc, t);
      if (isClosed(side)) {
        EXPECT_LT(distance(nearestOn(side, touch), touch), 1e-5);
        continue;
      }
      const double at = distance(startOf(side), touch) < distance(endOf(side), touch) ? 0.0 : 1.0;
      EXPECT_LT(distance(pointAt(side, at), touch), 1e-5);
      EXPECT_LT(std::abs(cross(directionAt(side, at), directionAt(arc, t))), 1e-4);
      // Smooth, not a cusp: the side leaves the touching point as the arc arrives.
      const Point away = directionAt(side, at) * (at == 0.0 ? 1.0 : -1.0);
      const Point arriving = directionAt(arc, t) * (t == 1.0 ? 1.0 : -1.0);
      if (std::holds_alternative<Segment>(side)) { EXPECT_GT(dot(away, arriving), 0.99); }
    }
  }
  EXPECT_GT(fitted, 500);
}

TEST_F(Curves, ArcsByRadiusAndByThreePoints) {
  const auto right = arcOfRadius({0, 0}, {0, 10}, 6);
  ASSERT_TRUE(right);
  EXPECT_TRUE(right->clockwise);
  EXPECT_NEAR(arcRadius(*right), 6.0, 1e-12);
  EXPECT_LT(std::abs(arcSweep(*right)), kPi);
  EXPECT_LT(pointAt(*right, 0.5).x, 0.0);  // clockwise going up bulges to the left
  EXPECT_GT(pointAt(*arcOfRadius({0, 0}, {0, 10}, -6), 0.5).x, 0.0);
  EXPECT_FALSE(arcOfRadius({0, 0}, {0, 10}, 4.9));
  EXPECT_FALSE(arcOfRadius({1, 1}, {1, 1}, 4));
  EXPECT_FALSE(arcThrough({0, 0}, {5, 5}, {9, 9}));
  for (int round = 0; round < 1000; ++round) {
    const Point from = anyPoint();
    const Point through = anyPoint();
    const Point to = anyPoint();
    const auto arc = arcThrough(from, through, to);
    ASSERT_TRUE(arc);
    EXPECT_LT(distance(nearestOnArc(*arc, through), through), 1e-5 * (1.0 + arcRadius(*arc)));
    EXPECT_LT(distance(endOf(*arc), to), 1e-5 * (1.0 + arcRadius(*arc)));
  }
}

}  // namespace

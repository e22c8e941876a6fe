#include "host/geometry/parallel_path.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "host/geometry/fillet.h"
#include "host/geometry/loop.h"

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

// Rings with steps as small as a hundredth of the offset, on a grid that makes parallels fall on each other or off it.
class SteppedRings : public testing::Test {
 protected:
  static constexpr double kOffset = 100.0;

  struct Kind {
    bool skew = false;
    bool onGrid = false;
  };

  double any(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  // Small steps are as frequent as large ones.
  double anyStep(bool onGrid) {
    const double step = kOffset * std::pow(10.0, any(-2.0, 0.6));
    constexpr double kGrid = 25.0;
    return onGrid ? kGrid * std::ceil(step / kGrid) : step;
  }
  // From left to right; level and upright pieces in turn, or sloping ones.
  std::vector<Point> anyEdge(const Kind& kind, double width) {
    std::vector<Point> edge = {{0.0, 0.0}};
    while (edge.back().x < width) {
      const Point at = edge.back();
      const double rise = edge.size() == 1 ? 0.0 : (random_() % 2 == 0 ? 1.0 : -1.0) * anyStep(kind.onGrid);
      const double going = std::min(anyStep(kind.onGrid), width - at.x);
      if (!kind.skew && rise != 0.0) { edge.push_back({at.x, at.y + rise}); }
      edge.push_back({at.x + going, at.y + rise});
    }
    return edge;
  }
  // Clockwise, turned any way round.
  std::vector<Curve> anyRing(const Kind& kind) {
    const double width = kOffset * std::ceil(any(3.0, 12.0));
    const std::vector<Point> bottom = anyEdge(kind, width);
    std::vector<Point> corners = anyEdge(kind, width);
    const double lift =
        anyStep(kind.onGrid) + std::ranges::max(bottom, {}, &Point::y).y - std::ranges::min(corners, {}, &Point::y).y;
    for (Point& p : corners) { p.y += lift; }
    corners.insert(corners.end(), bottom.rbegin(), bottom.rend());
    const double turn = random_() % 2 == 0 ? 0.0 : any(0.0, 2.0 * kPi);
    std::vector<Curve> ring;
    for (size_t at = 0; at < corners.size(); ++at) {
      ring.push_back(Segment{turned(corners[at], turn), turned(corners[(at + 1) % corners.size()], turn)});
    }
    return ring;
  }
  static Point turned(Point p, double angle) {
    const Point along = polar(1.0, angle);
    return {p.x * along.x - p.y * along.y, p.x * along.y + p.y * along.x};
  }
  // On the right of a side or about a corner, at the offset.
  static bool isParallelTo(const Curve& side, const Curve& piece, double offset) {
    for (const double t : {0.0, 0.5, 1.0}) {
      const Point p = pointAt(piece, t);
      const Point away = p - startOf(side);
      const double right = -cross(directionAt(side, 0.0), away);
      const bool turns = std::holds_alternative<ArcShape>(piece);
      if (std::abs((turns ? length(away) : right) - (turns ? std::abs(offset) : offset)) > kClose) { return false; }
    }
    return true;
  }
  static void expectLawful(const std::vector<Curve>& ring, double offset) {
    const std::vector<Curve> parallel = parallelOf(ring, true, offset, false);
    for (const Curve& piece : parallel) {
      EXPECT_TRUE(std::ranges::any_of(ring, [&](const Curve& side) { return isParallelTo(side, piece, offset); }));
      for (const double t : {0.0, 0.01, 0.3, 0.99, 1.0}) {
        EXPECT_GT(distanceTo(ring, pointAt(piece, t)), std::abs(offset) - kClose);
      }
      const Point end = endOf(piece);
      const auto begins = [&](const Curve& other) { return distance(startOf(other), end) < kClose; };
      const auto ends = [&](const Curve& other) { return distance(endOf(other), end) < kClose; };
      EXPECT_GE(std::ranges::count_if(parallel, begins), 1);
      EXPECT_EQ(std::ranges::count_if(parallel, begins), std::ranges::count_if(parallel, ends));
    }
    if (offset < 0.0) { EXPECT_GT(std::abs(signedArea(parallel)), std::abs(signedArea(ring))); }
  }

  static constexpr double kClose = 1e-4;
  std::mt19937 random_{17};
};

TEST_F(SteppedRings, HaveParallelsThatMeetAtTheirCrossings) {
  for (int round = 0; round < 400 && !HasFailure(); ++round) {
    const std::vector<Curve> ring = anyRing({round % 2 == 1, round % 4 < 2});
    for (const double offset : {-kOffset, kOffset}) {
      SCOPED_TRACE("round " + std::to_string(round) + ", offset " + std::to_string(offset));
      expectLawful(ring, offset);
    }
  }
}

TEST_F(SteppedRings, OfAHouseWithAStepShorterThanItsWall) {
  const std::vector<Point> corners = {{0, 0},       {0, 6000},    {3000, 6000}, {3000, 6300},
                                      {6000, 6300}, {6000, 5950}, {8000, 5950}, {8000, 0}};
  std::vector<Curve> ring;
  for (size_t at = 0; at < corners.size(); ++at) {
    ring.push_back(Segment{corners[at], corners[(at + 1) % corners.size()]});
  }
  const std::vector<Point> expected = {{-435, -435}, {-435, 6435}, {2565, 6435}, {2565, 6735},
                                       {6435, 6735}, {6435, 6385}, {8435, 6385}, {8435, -435}};
  const std::vector<Curve> parallel = parallelOf(ring, true, -435, false);
  ASSERT_EQ(parallel.size(), expected.size());
  for (size_t at = 0; at < expected.size(); ++at) {
    EXPECT_LT(distance(startOf(parallel[at]), expected[at]), 1e-6) << at;
    EXPECT_LT(distance(endOf(parallel[at]), expected[(at + 1) % expected.size()]), 1e-6) << at;
  }
}

}  // namespace

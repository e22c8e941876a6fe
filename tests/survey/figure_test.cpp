#include "survey/figure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

#include "survey/figure_report.h"

using namespace ardenix;
using namespace ardenix::survey;

namespace {

Figure figureOf(const std::vector<Point>& corners) {
  Figure figure;
  for (size_t n = 0; n < corners.size(); ++n) {
    const size_t next = (n + 1) % corners.size();
    figure.emplace_back(std::string(1, static_cast<char>('A' + n)), corners[n],
                        std::string(1, static_cast<char>('A' + next)), corners[next]);
  }
  return figure;
}

// Corners round a middle far from the origin, as national coordinates are.
std::vector<Point> randomCorners(std::mt19937& random) {
  std::uniform_int_distribution<int> count(3, 12);
  std::uniform_real_distribution<double> reach(8.0, 60.0);
  const int corners = count(random);
  std::vector<Point> points;
  for (int n = 0; n < corners; ++n) {
    const std::complex<double> off = std::polar(reach(random), 2.0 * std::numbers::pi * n / corners);
    points.push_back({-42318.0 + off.real(), 2851764.0 + off.imag()});
  }
  return points;
}

TEST(Figure, DirectionsRunFromTheSecondAxisToTheFirst) {
  const double degree = std::numbers::pi / 180.0;
  const std::pair<Point, double> rows[] = {{{0, 5}, 0},    {{5, 5}, 45},   {{5, 0}, 90},    {{0, -5}, 180},
                                           {{-5, 0}, 270}, {{-5, 5}, 315}, {{-1e-14, 5}, 0}};
  for (const auto& [to, wanted] : rows) { EXPECT_NEAR(joinOf({}, to).direction, wanted * degree, 1e-15) << wanted; }
  EXPECT_EQ(joinOf({3, 4}, {3, 4}).distance, 0.0);
  EXPECT_EQ(joinOf({3, 4}, {3, 4 + 4e-16}).direction, 0.0);
  EXPECT_EQ(joinOf({}, {3, 4}).distance, 5.0);
}

// Walking along the sides by their distances and directions comes back to the start. The area of a figure star-shaped
// round a middle is that of its triangles, whichever way it was traced.
TEST(Figure, ClosesByItsOwnSidesRoundTheAreaOfItsTriangles) {
  std::mt19937 random(6);
  for (int n = 0; n < 500; ++n) {
    std::vector<Point> corners = randomCorners(random);
    long double triangles = 0.0L;
    for (size_t at = 0; at < corners.size(); ++at) {
      const Point a = corners[at];
      const Point b = corners[(at + 1) % corners.size()];
      const long double u = std::hypot(a.x - -42318.0L, a.y - 2851764.0L);
      const long double v = std::hypot(b.x - -42318.0L, b.y - 2851764.0L);
      const long double w = std::hypot(static_cast<long double>(b.x) - a.x, static_cast<long double>(b.y) - a.y);
      const long double half = (u + v + w) / 2.0L;
      triangles += std::sqrt(half * (half - u) * (half - v) * (half - w));
    }
    EXPECT_NEAR(areaOf(figureOf(corners)), static_cast<double>(triangles), 1e-5);
    std::complex<double> walked;
    for (const Side& side : figureOf(corners)) { walked += std::polar(side.join.distance, side.join.direction); }
    EXPECT_LT(std::abs(walked), 1e-8);
    std::vector<Point> backwards(corners.rbegin(), corners.rend());
    EXPECT_NEAR(areaOf(figureOf(backwards)), static_cast<double>(triangles), 1e-5);
  }
  EXPECT_EQ(areaOf(figureOf({{1e6, 3e6}, {1e6 + 30, 3e6}, {1e6 + 30, 3e6 + 40}, {1e6, 3e6 + 40}})), 1200.0);
  EXPECT_EQ(areaOf({}), 0.0);
  const Extents extents = extentsOf(figureOf({{10, 20}, {40, 25}, {30, 60}})).grownBy(10);
  EXPECT_TRUE(extents.low.x == 0 && extents.low.y == 10 && extents.high.x == 50 && extents.high.y == 70);
}

// Arcs over some sides, at most half a circle to either side.
void bend(Figure& figure, std::mt19937& random) {
  std::uniform_real_distribution<double> sweep(-std::numbers::pi, std::numbers::pi);
  for (Side& side : figure) {
    const double angle = sweep(random);
    if (std::fabs(angle) < 0.1) { continue; }
    const Point half = (side.to - side.from) / 2.0;
    side.arc = SideArc{middle(side.from, side.to) + quarterTurned(half) / std::tan(angle / 2.0), angle};
  }
}

// What is known of a boundary with arcs is what is known of the same boundary in very many straight pieces.
TEST(Figure, ArcsCountAsTheyRun) {
  std::mt19937 random(9);
  for (int n = 0; n < 200; ++n) {
    Figure figure = figureOf(randomCorners(random));
    bend(figure, random);
    std::vector<Point> points;
    for (const Side& side : figure) {
      const std::vector<Point> along = side.points(1e-3);
      points.insert(points.end(), along.begin(), along.end());
      if (side.arc) { EXPECT_NEAR(distance(side.arc->centre, side.from), distance(side.arc->centre, side.to), 1e-6); }
    }
    const Figure pieces = figureOf(points);
    const double perimeter = perimeterOf(pieces);
    EXPECT_NEAR(areaOf(figure), areaOf(pieces), 1e-4 * perimeter);
    EXPECT_NEAR(perimeterOf(figure), perimeter, 1e-4 * perimeter);
    const Extents whole = extentsOf(figure);
    const Extents sampled = extentsOf(pieces);
    EXPECT_LT(distance(whole.low, sampled.low) + distance(whole.high, sampled.high), 1e-3);
  }
}

TEST(Figure, CrossingSidesAreFoundAndNamed) {
  std::mt19937 random(11);
  for (int n = 0; n < 200; ++n) { EXPECT_FALSE(crossingSides(figureOf(randomCorners(random)))); }
  const Figure bow = figureOf({{0, 0}, {30, 40}, {30, 0}, {0, 40}});
  const auto crossing = crossingSides(bow);
  ASSERT_TRUE(crossing);
  EXPECT_EQ(crossing->first->name() + ' ' + crossing->second->name(), "AB CD");
  EXPECT_FALSE(crossingSides(figureOf({{0, 0}, {30, 0}, {30, 0}, {30, 40}}))) << "two corners at one place";
  EXPECT_TRUE(crossingSides(figureOf({{0, 0}, {40, 0}, {40, 40}, {20, 0}, {0, 40}}))) << "touching itself";
  Figure bent = figureOf({{0, 0}, {40, 0}, {40, 10}, {0, 10}});
  bent[0].arc = SideArc{{20, 0}, -std::numbers::pi};
  EXPECT_TRUE(crossingSides(bent)) << "an arc that reaches beyond the other side";
}

TEST(Figure, TheStandardScaleIsTheLargestThatWillDo) {
  const double scales[] = {100,  125,  150,  200,  250,  300,  400,  500,  600,  750,  1000,
                           1250, 1500, 2000, 2500, 3000, 4000, 5000, 6000, 7500, 10000};
  for (double needed = 100.0; needed <= 10000.0; needed += 12.5) {
    EXPECT_EQ(standardScale(needed), *std::lower_bound(std::begin(scales), std::end(scales), needed)) << needed;
  }
}

}  // namespace

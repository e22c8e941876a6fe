#include "survey/figure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>

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

}  // namespace

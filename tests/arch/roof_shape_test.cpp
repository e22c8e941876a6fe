#include "arch/roof_shape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace ardenix;
using namespace ardenix::arch;

class Roofs : public ::testing::Test {
 protected:
  double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }

  // A house of wings side by side, which often end at one depth, turned about the origin.
  RoofOutline house(size_t wings, double angle) {
    RoofOutline outline;
    double right = 0.0;
    std::vector<std::pair<double, double>> ends;
    for (size_t wing = 0; wing < wings; ++wing) {
      double depth = 1000.0 * std::floor(between(2, 7));
      if (wing > 0 && depth == ends.back().second) { depth += 1000.0; }
      right += 1000.0 * std::floor(between(1, 6));
      ends.emplace_back(right, depth);
    }
    outline.corners = {{0, 0}, {right, 0}};
    for (size_t wing = wings; wing-- > 0;) {
      outline.corners.push_back({ends[wing].first, ends[wing].second});
      outline.corners.push_back({wing > 0 ? ends[wing - 1].first : 0.0, ends[wing].second});
    }
    for (Point& corner : outline.corners) { corner = turned(corner, angle); }
    outline.sides.assign(outline.count(), RoofSide::kEaves);
    return outline;
  }

  std::mt19937 random_{34};
};

double reach(const std::vector<PlanLine>& strokes, double Point::*coordinate) {
  double most = -1e9;
  for (const PlanLine& stroke : strokes) { most = std::max({most, stroke.a.*coordinate, stroke.b.*coordinate}); }
  return most;
}

// Both faces of a seam have its height there: the roof has no step.
void expectOneRoof(const RoofOutline& outline) {
  const auto seams = roofSeams(outline);
  ASSERT_TRUE(seams);
  ASSERT_GE(seams->size(), outline.count());
  for (const RoofSeam& seam : *seams) {
    for (const size_t side : {seam.left, seam.right}) {
      const Point along = unit(outline.corner(side + 1) - outline.corner(side));
      const double rises = outline.sides[side] == RoofSide::kEaves ? 1.0 : 0.0;
      EXPECT_NEAR(cross(along, seam.from - outline.corner(side)), rises * seam.fromInwards, 1e-3);
      EXPECT_NEAR(cross(along, seam.to - outline.corner(side)), rises * seam.toInwards, 1e-3);
    }
  }
}

TEST_F(Roofs, OfRandomHousesHaveNoStepAndOppositeElevationsOfOneHeight) {
  for (int round = 0; round < 400; ++round) {
    const double angle = round % 2 == 0 ? 0.0 : between(0, 7);
    const RoofOutline outline = house(1 + static_cast<size_t>(round) % 7, angle);
    expectOneRoof(outline);
    const auto shape = RoofShape::over(outline, 0.5);
    ASSERT_TRUE(shape);
    for (const double turn : {0.0, 90.0, 180.0, 270.0}) {
      const Point away = turned(Point{0, -1}, angle + radians(turn));
      const auto seen = shape->seenFrom(away, quarterTurned(away));
      EXPECT_NEAR(reach(seen, &Point::y), shape->highest(), 1e-6);
      double width = -1e9;
      for (const Point corner : outline.corners) { width = std::max(width, dot(corner, quarterTurned(away))); }
      EXPECT_NEAR(reach(seen, &Point::x), width, 1e-6) << "the eaves reach to the outermost corner";
    }
  }
}

TEST_F(Roofs, OfAnyOutlineHaveNoStep) {
  for (int round = 0; round < 300; ++round) {
    RoofOutline outline;
    const int corners = 3 + round % 40;
    for (int corner = 0; corner < corners; ++corner) {
      outline.corners.push_back(polar(between(3000, 10000), 2.0 * std::numbers::pi * corner / corners));
    }
    outline.sides.assign(outline.count(), RoofSide::kEaves);
    expectOneRoof(outline);
  }
}

TEST_F(Roofs, WithoutEavesOrOverACrossedOutlineAreNone) {
  RoofOutline outline = house(1, 0.0);
  outline.sides.assign(4, RoofSide::kGable);
  EXPECT_FALSE(roofSeams(outline));
  outline.sides[0] = RoofSide::kEaves;
  EXPECT_TRUE(roofSeams(outline)) << "a roof of one fall";
  std::swap(outline.corners[1], outline.corners[2]);
  EXPECT_FALSE(roofSeams(outline));
}

}  // namespace

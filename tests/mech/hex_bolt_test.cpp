#include "mech/hex_bolt.h"

#include <gtest/gtest.h>

#include <cmath>

#include "mech/fastener_options.h"
#include "mech/outline.h"
#include "tests/core_fixture.h"

namespace ardenix {
namespace {

double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

TEST(BoltDimensions, OfAnM10) {
  const BoltDimensions bolt = boltDimensions(
      {.headSize = 17, .headHeight = 6.4, .diameter = 10, .length = 40, .threadLength = 26, .minorDiameter = 8.16});
  EXPECT_NEAR(bolt.head.halfAcrossCorners, 9.8150, 5e-5);
  EXPECT_NEAR(bolt.head.halfSide, 4.9075, 5e-5);
  EXPECT_NEAR(bolt.head.halfAcrossCorners - bolt.head.halfAcrossFlats, 1.3150, 5e-5);
  EXPECT_NEAR(bolt.head.cornerHeight, 5.6408, 5e-5);
  EXPECT_NEAR(bolt.chamferStart, 39.08, 1e-9);
  EXPECT_NEAR(bolt.threadEnd, 14.0, 1e-9);
  EXPECT_NEAR(bolt.length + bolt.overhang, 42.0, 1e-9);
  EXPECT_NEAR(bolt.head.height + bolt.overhang, 8.4, 1e-9);
}

TEST(BoltDimensions, UsualProportionsLeaveAShankWhereThereIsRoom) {
  EXPECT_DOUBLE_EQ(standardBolt(10, 60).threadLength, 26.0);
  EXPECT_DOUBLE_EQ(standardBolt(10, 26).threadLength, 21.0);
  EXPECT_DOUBLE_EQ(standardBolt(10, 60).headSize, 15.6);
  const BoltDimensions none = boltDimensions(standardBolt(10, 0));
  EXPECT_EQ(none.threadEnd, 0.0);
  EXPECT_EQ(none.chamferStart, 0.0);
}

TEST(HexagonOutline, IsRegularClosedAndAsWideAsItsFlats) {
  for (const double acrossFlats : {0.001, 17.0, 9999.0}) {
    const Point centre{-3, 1e6};
    const auto outline = hexagonOutline(hexagon(acrossFlats, 1.0), centre);
    EXPECT_TRUE(nearlyEqual(outline.front(), outline.back()));
    const double side = acrossFlats / std::sqrt(3.0);
    for (size_t i = 1; i < outline.size(); ++i) { EXPECT_NEAR(distance(outline[i - 1], outline[i]), side, 1e-8); }
    EXPECT_NEAR(outline[1].y - outline[5].y, acrossFlats, 1e-8);
  }
}

TEST(RadiusThrough, IsThatOfTheCircleInEitherSense) {
  const Point centre{120, -40};
  for (const double radius : {0.5, 20.0, 3e4}) {
    for (double start = 0.1; start < 6.0; start += 0.7) {
      for (const double step : {0.3, -0.3, 1.1, -1.1}) {
        const auto on = [&](double angle) {
          return centre + Point{radius * std::cos(angle), radius * std::sin(angle)};
        };
        EXPECT_NEAR(radiusThrough(on(start), on(start + step), on(start + 2 * step)), radius, radius * 1e-6);
      }
    }
  }
  EXPECT_TRUE(std::isfinite(radiusThrough({0, 0}, {0, 0}, {0, 0})));
  EXPECT_TRUE(std::isfinite(radiusThrough({0, 0}, {1, 0}, {2, 0})));
}

TEST(RepeatSetting, ReadsBackAndStartsAsOnePart) {
  for (const RepeatKind kind : {RepeatKind::kLinear, RepeatKind::kSpacing, RepeatKind::kPitchCircle}) {
    const Repeat read = readRepeat(repeatText({25.5, 4, kind}));
    EXPECT_EQ(read.value, 25.5);
    EXPECT_EQ(read.number, 4);
    EXPECT_EQ(read.kind, kind);
  }
  EXPECT_EQ(repeatText({25, 4, RepeatKind::kPitchCircle}), "25.000000,4,-1");
  const Repeat fresh = readRepeat("");
  EXPECT_EQ(fresh.value, 0.0);
  EXPECT_EQ(fresh.number, 1);
  EXPECT_EQ(fresh.kind, RepeatKind::kLinear);
}

}  // namespace
}  // namespace ardenix

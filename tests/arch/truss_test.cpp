#include "arch/truss.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using ardenix::Point;
using ardenix::arch::FacingTruss;
using ardenix::arch::SideTruss;
using ardenix::arch::Stroke;

constexpr double kNear = 1e-6;

class Trusses : public testing::Test {
 protected:
  double between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
  FacingTruss randomTruss() {
    return {between(2000.0, 20000.0), std::tan(ardenix::radians(between(5.0, 60.0))), between(0.0, 1000.0),
            between(30.0, 300.0), between(50.0, 300.0)};
  }

 private:
  std::mt19937 random_{7};
};

// Under the rafter's top edge, over its under edge or the plates, and not beyond the middle.
bool liesInside(const FacingTruss& truss, Point p) {
  const double rafter = p.x * truss.slope;
  return p.x > -truss.overhang - kNear && p.x < truss.middle() + kNear && p.y < rafter + kNear &&
         (p.y > -kNear || p.y > rafter - truss.uprightDepth() - kNear);
}

TEST_F(Trusses, KeepEveryMemberWithinTheirOutline) {
  int drawn = 0;
  for (int round = 0; round < 2000; ++round) {
    const FacingTruss truss = randomTruss();
    if (!truss.fault().empty()) { continue; }
    ++drawn;
    for (const Stroke& stroke : truss.strokes()) {
      ASSERT_TRUE(liesInside(truss, stroke.from) && liesInside(truss, stroke.to))
          << "span " << truss.span << " slope " << truss.slope << " depth " << truss.depth << " tie " << truss.tieDepth;
    }
  }
  EXPECT_GT(drawn, 1000);
}

TEST_F(Trusses, BesideAFacingTrussStandInFrontOfItsRafter) {
  for (int round = 0; round < 500; ++round) {
    const FacingTruss facing = randomTruss();
    const double plate = between(500.0, 5000.0);
    const SideTruss side{
        plate + facing.span + 3000.0, facing.height(), facing.slope, facing.overhang, 270.0, 38.0, 800.0};
    for (const Stroke& stroke : side.strokesBeside(facing, plate)) {
      for (const Point p : {stroke.from, stroke.to}) {
        ASSERT_LE(std::min(p.x - plate, facing.middle()) * facing.slope, std::max(p.y, 0.0) + kNear)
            << p.x << ' ' << p.y;
      }
    }
  }
}

}  // namespace

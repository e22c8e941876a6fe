#include "host/window/snapping.h"

#include <gtest/gtest.h>

#include "host/macros/macro_drawing.h"
#include "tests/host/drawing/random_drawing.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

const std::set<SnapKind> kDefining = {SnapKind::kCentre, SnapKind::kEnd, SnapKind::kOrigin, SnapKind::kIntersection,
                                      SnapKind::kMiddle};

std::vector<Point> definingPoints(const Primitive& primitive) {
  std::vector<Point> points;
  const auto curve = curveOf(primitive);
  if (!curve) {
    forEachPoint(primitive.geometry, [&points](Point at) { points.push_back(at); });
  } else if (!isClosed(*curve)) {
    points = {startOf(*curve), endOf(*curve), pointAt(*curve, 0.5)};
  }
  if (curve && std::holds_alternative<ArcShape>(*curve)) { points.push_back(std::get<ArcShape>(*curve).centre); }
  return points;
}

// A defining point, or one where two curves cross; and no defining point is nearer.
TEST(Snapping, GivesTheNearestPointOfAllThatIsVisible) {
  constexpr double kReach = 12.0;
  size_t found = 0;
  for (unsigned seed = 1; seed <= 8; ++seed) {
    RandomDrawing random(seed);
    for (int count = 0; count < 80; ++count) { random.add(); }
    for (int pick = 0; pick < 100; ++pick) {
      const Point p = random.point() + Point{random.whole(0, 9) / 10.0, random.whole(0, 9) / 10.0};
      double nearest = kReach;
      bool defining = false;
      int through = 0;
      const auto snap = snapAt(random.drawing, p, kReach, kDefining, std::nullopt);
      random.drawing.forEach([&](PrimitiveId, const Primitive& primitive) {
        if (!random.drawing.layer(primitive.layer)->visible) { return; }
        for (const Point at : definingPoints(primitive)) {
          nearest = std::min(nearest, distance(at, p));
          defining = defining || (snap && at == snap->at);
        }
        const auto curve = curveOf(primitive);
        through += snap && curve && distance(nearestOn(*curve, snap->at), snap->at) <= 0.002 ? 1 : 0;
      });
      EXPECT_EQ(snap.has_value() || nearest == kReach, true);
      if (!snap) { continue; }
      ++found;
      EXPECT_LE(distance(snap->at, p), nearest + 1e-8) << seed << ": " << p.x << ' ' << p.y;
      EXPECT_TRUE(defining || through > 1) << snap->at.x << ' ' << snap->at.y;
    }
  }
  EXPECT_GT(found, 100U);
}

}  // namespace

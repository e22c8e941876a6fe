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

using HolePicks = HostSession;

TEST_F(HolePicks, TheCentreOfAHoleIsMeantAndOfItsCirclesTheSmallest) {
  const auto circle = [this](double radius) {
    return drawing().add({.geometry = Arc{{80 - radius, 30}, {80, 30}, {80 - radius, 30}, true}});
  };
  const PrimitiveId hole = circle(2.75);
  circle(5.0);
  line(76.7, 30, 83.3, 30);
  line(80, 26.7, 80, 33.3);
  line(80, 28, 90, 50);  // ends as far from the pick below as the centre lies
  window().cursor().snapToNear(true);
  for (const Point pick : {Point{80, 30}, Point{80.3, 30.1}, Point{79.9, 29.8}, Point{80, 29}}) {
    EXPECT_EQ(window().cursor().give(pick, drawing()), (Point{80, 30}));
  }
  EXPECT_EQ(drawing().nearest({80, 30}, 5.0,
                              [](PrimitiveId, const Primitive& primitive) {
                                return std::holds_alternative<Arc>(primitive.geometry);
                              }),
            hole);
}

}  // namespace

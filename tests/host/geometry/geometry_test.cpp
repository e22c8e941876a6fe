#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/drawing/text_layout.h"
#include "host/geometry/arc.h"
#include "host/geometry/segment.h"
#include "host/geometry/transform.h"

namespace {

using namespace brevan;

void expectNear(Point a, Point b, double tolerance = 1e-9) {
  EXPECT_NEAR(a.x, b.x, tolerance);
  EXPECT_NEAR(a.y, b.y, tolerance);
}

void expectNear(const Box& a, const Box& b, double tolerance = 1e-9) {
  expectNear(a.low, b.low, tolerance);
  expectNear(a.high, b.high, tolerance);
}

// The points of an arc, found by walking from its start to its end.
std::vector<Point> walked(const ArcShape& arc) {
  constexpr int kSteps = 2000;
  std::vector<Point> points;
  for (int step = 0; step <= kSteps; ++step) {
    points.push_back(arcPointAt(arc, arcStartAngle(arc) + arcSweep(arc) * step / kSteps));
  }
  return points;
}

TEST(Arc, BoundsSweepAndCoverAgreeWithAWalkAlongIt) {
  std::mt19937 random(1);
  std::uniform_int_distribution<int> eighths(0, 15);
  for (int round = 0; round < 300; ++round) {
    const Point centre{10.0 * eighths(random), -7.0};
    const int from = eighths(random);
    const int to = eighths(random);
    const ArcShape arc{centre + polar(5.0, from * kPi / 8), centre, centre + polar(5.0, to * kPi / 8), round % 2 == 0};
    const int eighthsTurned = arc.clockwise ? (from - to + 16) % 16 : (to - from + 16) % 16;
    const double turn = (eighthsTurned == 0 ? 16 : eighthsTurned) * kPi / 8;
    ASSERT_NEAR(arcSweep(arc), arc.clockwise ? -turn : turn, 1e-9) << from << ' ' << to;
    Box walkedBox;
    const Point probe = arc.centre + polar(5.0 + (round % 3 - 1), eighths(random) * 0.4);
    double least = distance(probe, arc.start);
    for (const Point p : walked(arc)) {
      walkedBox.add(p);
      least = std::min(least, distance(probe, p));
      ASSERT_TRUE(arcCovers(arc, angleOf(p - centre)));
    }
    ASSERT_NO_FATAL_FAILURE(expectNear(arcBounds(arc), walkedBox, 1e-5));
    ASSERT_NEAR(distance(probe, nearestOnArc(arc, probe)), least, 1e-2);
    const double beyond = arcStartAngle(arc) + arcSweep(arc) * 1.001;
    ASSERT_EQ(arcCovers(arc, beyond), eighthsTurned == 0);
  }
}

TEST(Arc, QuarterArcsTouchTheirQuadrantsExactly) {
  expectNear(arcBounds({{5, 0}, {0, 0}, {-5, 0}, false}), Box{{-5, 0}, {5, 5}}, 1e-14);
  expectNear(arcBounds({{5, 0}, {0, 0}, {-5, 0}, true}), Box{{-5, -5}, {5, 0}}, 1e-14);
  const Box circle = arcBounds({{3, 4}, {0, 0}, {3, 4}, true});
  EXPECT_EQ(circle.low, (Point{-5, -5}));
  EXPECT_EQ(circle.high, (Point{5, 5}));
}

TEST(Segment, CrossingsAtEndsBesideAndParallel) {
  const Segment level{{0, 0}, {10, 0}};
  expectNear(*crossingOfSegments(level, {{10, 0}, {10, 5}}), {10, 0});
  EXPECT_FALSE(crossingOfSegments(level, {{11, -1}, {11, 1}}));
  expectNear(*crossingOfLines(level, {{11, 1}, {11, 2}}), {11, 0});
  EXPECT_FALSE(crossingOfLines(level, {{0, 1}, {10, 1}}));
  EXPECT_FALSE(crossingOfLines(level, {{3, 3}, {3, 3}}));
  expectNear(nearestOnSegment({{2, 2}, {2, 2}}, {5, 5}), {2, 2});
  expectNear(*crossingOfSegments({{1e6, 1e6}, {1e6 + 1, 1e6}}, {{1e6 + 0.5, 1e6 - 1}, {1e6 + 0.5, 1e6 + 1}}),
             {1e6 + 0.5, 1e6});
}

TEST(Transform, QuarterTurnsStayOnTheGrid) {
  for (int quarter = -8; quarter <= 8; ++quarter) {
    const Point unit = unitOfDegrees(90.0 * quarter);
    const Point turned = Transform::rotation({1000, 2000}, unit.x, unit.y)(Point{1003, 2001});
    EXPECT_EQ(turned.x, std::round(turned.x));
    EXPECT_EQ(turned.y, std::round(turned.y));
    const Geometry text = transformed(Text{{1, 2}, "T"}, Transform::rotation({}, unit.x, unit.y));
    EXPECT_EQ(std::get<Text>(text).angle, (quarter + 8) % 4 * 900.0);
    const Geometry symbol = transformed(Symbol{"S", {1, 2}}, Transform::rotation({}, unit.x, unit.y));
    EXPECT_EQ(std::get<Symbol>(symbol).rotation, (quarter + 8) % 4 * 90.0);
  }
}

std::vector<Transform> mirrors() {
  std::vector<Transform> all;
  for (int angle = 0; angle < 180; angle += 15) { all.push_back(Transform::mirror({3, -4}, polar(7, radians(angle)))); }
  return all;
}

TEST(Mirror, TwiceIsItself) {
  const std::vector<Geometry> figures = {Line{{1, 2}, {3, 4}}, Arc{{5, 0}, {1, 0}, {1, 4}, false},
                                         Symbol{"S", {1, 2}, 2.0, 30.0, false}, Symbol{"S", {1, 2}, 2.0, 200.0, true},
                                         Dimension{DimensionKind::kVertical, {0, 9}, {1, 2}, {3, 4}, "!"}};
  for (const Transform& mirror : mirrors()) {
    for (const Geometry& figure : figures) {
      const Geometry twice = transformed(transformed(figure, mirror), mirror);
      std::vector<Point> points;
      forEachPoint(twice, [&](Point p) { points.push_back(p); });
      size_t next = 0;
      forEachPoint(figure, [&](Point p) { expectNear(points.at(next++), p); });
      if (const Arc* arc = std::get_if<Arc>(&figure)) {
        EXPECT_EQ(std::get<Arc>(twice).clockwise, arc->clockwise);
        EXPECT_NEAR(arcSweep(std::get<Arc>(transformed(figure, mirror))), -arcSweep(*arc), 1e-9);
      }
      if (const Symbol* symbol = std::get_if<Symbol>(&figure)) {
        EXPECT_EQ(std::get<Symbol>(twice).mirrored, symbol->mirrored);
        EXPECT_NEAR(std::get<Symbol>(twice).rotation, symbol->rotation, 1e-9);
      }
    }
  }
}

// The box that a text fills, turned by its angle: its four corners.
std::vector<Point> textCorners(const Text& text) {
  const Box box = layOut(text).box;
  std::vector<Point> corners;
  for (const Point p : {box.low, Point{box.high.x, box.low.y}, box.high, Point{box.low.x, box.high.y}}) {
    corners.push_back(Transform::shift(text.at)(Transform::rotation({}, radians(text.angle / 10.0))(p)));
  }
  return corners;
}

bool readable(const Text& text) {
  const double angle = std::fmod(text.angle, 3600.0);
  return angle <= 900.0 || angle > 2700.0;
}

TEST(Mirror, TextsStayReadableAndFillTheMirroredPlace) {
  for (int justification = 1; justification <= 19; ++justification) {
    if (justification == 10) { continue; }
    for (const double angle : {0.0, 200.0, 470.0, 2800.0, 3500.0}) {
      const Text text{{10, 20}, "Shaft", "Arial", 35.0, angle, justification};
      for (const Transform& mirror : mirrors()) {
        const Text image = std::get<Text>(transformed(text, mirror));
        EXPECT_TRUE(readable(image)) << justification << ' ' << angle << " gave " << image.angle;
        Box expected;
        for (const Point p : textCorners(text)) { expected.add(mirror(p)); }
        Box found;
        for (const Point p : textCorners(image)) { found.add(p); }
        expectNear(found, expected, 1e-6);
        const Text twice = std::get<Text>(transformed(image, mirror));
        EXPECT_EQ(twice.justification, justification);
        EXPECT_NEAR(std::remainder(twice.angle - angle, 3600.0), 0.0, 1e-6);
      }
    }
  }
}

TEST(Dimension, TurnedByAQuarterItMeasuresTheSameLength) {
  const Dimension level{DimensionKind::kHorizontal, {0, 30}, {0, 0}, {40, 10}, "!"};
  const auto length = [](const Dimension& d) {
    return d.kind == DimensionKind::kHorizontal ? std::abs(d.p2.x - d.p1.x) : std::abs(d.p2.y - d.p1.y);
  };
  for (const double angle : {0.0, 90.0, 180.0, 270.0}) {
    const Point unit = unitOfDegrees(angle);
    const Geometry turned = transformed(level, Transform::rotation({5, 5}, unit.x, unit.y));
    EXPECT_EQ(length(std::get<Dimension>(turned)), 40.0) << angle;
  }
}

}  // namespace

#include <gtest/gtest.h>

#include <random>

#include "frame/host/number_text.h"
#include "host/drawing/boundary_map.h"
#include "tests/host/macros/macro_session.h"

namespace {

using namespace brevan;

// A township of parcels: streets and cross streets that wander, drawn as whole lines that cross, as
// separate parcels that repeat each other's sides, or as pieces with T-junctions.
class Township : public MacroSession {
 protected:
  static constexpr int kSize = 12;

  Point corner(int column, int row) const { return corners_[static_cast<size_t>(row * (kSize + 1) + column)]; }
  void layOut(unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> off(-6.0, 6.0);
    corners_.clear();
    for (int row = 0; row <= kSize; ++row) {
      for (int column = 0; column <= kSize; ++column) {
        // Printed corners: three decimals.
        const auto rounded = [](double value) { return std::round(value * 1000.0) / 1000.0; };
        corners_.push_back({rounded(column * 20.0 + off(random)), rounded(row * 30.0 + off(random))});
      }
    }
    for (int row = 0; row <= kSize; ++row) {
      for (int column = 0; column <= kSize; ++column) {
        if (column < kSize) { side(corner(column, row), corner(column + 1, row), random); }
        if (row < kSize) { side(corner(column, row), corner(column, row + 1), random); }
      }
    }
  }
  // Once or twice, in either direction, whole or in pieces, sometimes with a loose end beside it.
  void side(Point a, Point b, std::mt19937& random) {
    if (random() % 2 == 0) { std::swap(a, b); }
    line(a.x, a.y, b.x, b.y);
    if (random() % 3 == 0) { line(b.x, b.y, a.x, a.y); }
    if (random() % 4 == 0) {
      const Point middle = brevan::middle(a, b);
      line(middle.x, middle.y, middle.x + 3.0, middle.y + 2.0);
    }
    if (random() % 4 == 0) {
      const Point third = a + (b - a) * 0.33;
      line(a.x, a.y, third.x, third.y);
    }
  }
  double parcelArea(int column, int row) const {
    return cross(corner(column + 1, row + 1) - corner(column, row), corner(column, row + 1) - corner(column + 1, row)) /
           2.0;
  }
  Point inside(int column, int row) const {
    return (corner(column, row) + corner(column + 1, row) + corner(column + 1, row + 1) + corner(column, row + 1)) *
           0.25;
  }
  std::vector<Point> corners_;
};

TEST_F(Township, ItsParcelsCoverItOnce) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    answer("");
    layOut(seed);
    window().gsAddLayer("PARCELS");
    double total = 0.0;
    for (int row = 0; row < kSize; ++row) {
      for (int column = 0; column < kSize; ++column) {
        const Point p = inside(column, row);
        const size_t before = drawing().count();
        macro("#AUTOPERIM 0 [" + numberText::fixed(p.x, 3) + "," + numberText::fixed(p.y, 3) + "]");
        EXPECT_GE(drawing().count(), before + 4U);
        macro("#QRYAREAPERIM A1 A9 X3 Y3");
        EXPECT_NEAR(number("A1"), parcelArea(column, row), 0.02) << "seed " << seed << " at " << p.x << ", " << p.y;
        EXPECT_TRUE(encloses(window().macroState().boundary.loop, {number("X3"), number("Y3")}));
        total += number("A1");
      }
    }
    BoundaryMap whole(drawing());
    const auto outline = whole.outlineNear({-500, -500});
    ASSERT_TRUE(outline && outline->closed);
    EXPECT_LT(signedArea(outline->curves), 0.0);
    EXPECT_NEAR(-signedArea(outline->curves), total, 0.5);
    drawing().setListener(nullptr);
  }
}

class Boundaries : public MacroSession {
 protected:
  double areaAt(double x, double y) {
    return window().gsAutoPerim(x, y) == 0 ? 0.0 : -signedArea(window().macroState().boundary.loop);
  }
  void square(double x, double y, double size, const std::string& layer = "0") {
    line(x, y, x + size, y, layer);
    line(x + size, y, x + size, y + size, layer);
    line(x + size, y + size, x, y + size, layer);
    line(x, y + size, x, y, layer);
  }
};

TEST_F(Boundaries, ArcsIslandsBridgesAndLooseEnds) {
  square(0, 0, 100);
  EXPECT_NEAR(areaAt(50, 50), 10000.0, 1e-6);
  circle(30, 30, 10);     // an island
  line(40, 30, 100, 30);  // bound to the outside by a bridge
  line(10, 60, 20, 70);   // a loose line
  square(60, 60, 10);     // an island of lines
  line(60, 60, 50, 50);
  EXPECT_NEAR(areaAt(5, 5), 10000.0, 1e-6);
  EXPECT_NEAR(areaAt(30, 32), 100.0 * kPi, 1e-6);
  EXPECT_NEAR(areaAt(65, 65), 100.0, 1e-6);
  line(30, -10, 30, 110);  // cuts square and circle
  EXPECT_NEAR(areaAt(28, 32), 50.0 * kPi, 1e-6);
  EXPECT_NEAR(areaAt(5, 5), 3000.0 - 50.0 * kPi, 1e-6);
  EXPECT_EQ(areaAt(-5, 50), 0.0);
  EXPECT_EQ(areaAt(1e6, 1e6), 0.0);
}

TEST_F(Boundaries, WhatChangesIsSeenAtOnce) {
  square(0, 0, 100);
  EXPECT_NEAR(areaAt(20, 20), 10000.0, 1e-6);
  const PrimitiveId wall = line(50, 0, 50, 100, "WALLS");
  EXPECT_NEAR(areaAt(20, 20), 5000.0, 1e-6);
  const std::function<void()> changes[] = {[&] { setLayer("WALLS", false, false); },
                                           [&] { setLayer("WALLS", true, true); }, [&] { drawing().remove(wall); },
                                           [&] { drawing().undo(); }};
  double wanted = 10000.0;  // without the wall and with it in turn
  for (const auto& change : changes) {
    change();
    EXPECT_NEAR(areaAt(20, 20), std::exchange(wanted, 15000.0 - wanted), 1e-6);
  }
  EXPECT_EQ(macroError("#AUTOPERIM 0 [-20.000,20.000]"), "14: no closed boundary surrounds this point");
  macro("#QRYAREAPERIM A1 A9 X3 Y3");
  EXPECT_EQ(number("A1"), 0.0);
}

// What was drawn over a boundary bounds it still when the boundary itself is gone.
TEST_F(Boundaries, ACopyTakesTheBoundarysPlace) {
  square(0, 0, 100, "ERVEN");
  window().gsAddLayer("COPY");
  macro("#AUTOPERIM 0 [50.000,50.000]");
  EXPECT_EQ(drawing().count(), 8U);
  const Line first = shape<Line>(5);
  const Line second = shape<Line>(6);
  EXPECT_EQ(first.b, second.a);
  EXPECT_LT(cross(first.b - first.a, second.b - second.a), 0.0);  // clockwise
  EXPECT_NEAR(areaAt(50, 50), 10000.0, 1e-6);
  window().gsDeleteLayer("ERVEN");
  EXPECT_NEAR(areaAt(50, 50), 10000.0, 1e-6);
  window().gsDeleteLayer("COPY");
  EXPECT_EQ(areaAt(50, 50), 0.0);
}

TEST_F(Boundaries, AreasComeInTheUnitsOfTheDrawing) {
  Parameters metres = drawing().parameters();
  metres.setUnit(1000.0);
  metres.setAreaUnit(8);
  drawing().setParameters(metres);
  square(1e6, 2e6, 20);
  macros({"#AUTOPERIM 0 [1000005.000,2000005.000]", "#QRYAREAPERIM A1 A9 X3 Y3"});
  EXPECT_NEAR(number("A1"), 400.0, 1e-6);
  EXPECT_NEAR(number("A9"), 80.0, 1e-9);
  EXPECT_NEAR(number("X3"), 1e6 + 10.0, 1e-6);
}

// A chain of lines that runs to the right, each drawn either way round.
class OpenChains : public Boundaries {
 protected:
  double any(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  void anyChain() {
    Point at{any(0, 100), any(0, 100)};
    for (auto lines = 1 + random_() % 5; lines > 0; --lines) {
      const Point next = at + Point{any(1, 60), any(-80, 80)};
      random_() % 2 == 0 ? line(at.x, at.y, next.x, next.y) : line(next.x, next.y, at.x, at.y);
      at = next;
    }
  }
  // Beside the nearest line, outside of the nearest corner, or beside the end's line carried on.
  static bool liesLeftOf(const std::vector<Curve>& chain, Point p) {
    size_t nearest = 0;
    for (size_t at = 1; at < chain.size(); ++at) {
      if (distance(nearestOn(chain[at], p), p) + 1e-9 < distance(nearestOn(chain[nearest], p), p)) { nearest = at; }
    }
    const bool atItsEnd = distance(nearestOn(chain[nearest], p), endOf(chain[nearest])) < 1e-9;
    if (atItsEnd && nearest + 1 < chain.size()) {
      return cross(directionAt(chain[nearest], 0.0), directionAt(chain[nearest + 1], 0.0)) < 0.0;
    }
    return cross(directionAt(chain[nearest], 0.0), p - startOf(chain[nearest])) > 0.0;
  }
  std::mt19937 random_{5};
};

TEST_F(OpenChains, HaveThePointToTheirLeft) {
  for (int round = 0; round < 300; ++round) {
    answer("");
    anyChain();
    BoundaryMap map(drawing());
    for (int look = 0; look < 10; ++look) {
      const Point p{any(-200, 600), any(-400, 500)};
      const auto outline = map.outlineNear(p);
      ASSERT_TRUE(outline && !outline->closed);
      EXPECT_EQ(outline->curves.size(), drawing().count());
      EXPECT_TRUE(liesLeftOf(outline->curves, p)) << "round " << round << " at " << p.x << ", " << p.y;
    }
    drawing().setListener(nullptr);
  }
}

}  // namespace

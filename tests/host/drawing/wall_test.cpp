#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "host/drawing/wall_joins.h"
#include "host/drawing/wall_openings.h"

namespace {

using namespace brevan;

constexpr double kClose = 1e-6;

class Walls : public ::testing::Test {
 protected:
  double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }

  // A straight wall: parallel lines to the left of the way from its start, closed at both ends.
  GroupId wall(Point start, double angle, double length, const std::vector<double>& offsets) {
    const GroupId group = drawing_.addGroup("HOUSE", "PLN" + std::to_string(drawing_.lastGroup()));
    const auto at = [&](double along, double across) {
      return start + polar(along, angle) + polar(across, angle + kPi / 2.0);
    };
    const auto line = [&](Point a, Point b) { drawing_.add({.group = group, .geometry = Line{a, b}}); };
    for (const double offset : offsets) { line(at(0, offset), at(length, offset)); }
    for (const double end : {0.0, length}) { line(at(end, offsets.front()), at(end, offsets.back())); }
    return group;
  }
  std::vector<std::array<double, 4>> lines(GroupId group) {
    std::vector<std::array<double, 4>> all;
    for (const PrimitiveId id : drawing_.membersOf(group)) {
      auto [a, b] = std::get<Line>(drawing_.find(id)->geometry);
      if (std::pair(a.x, a.y) > std::pair(b.x, b.y)) { std::swap(a, b); }
      all.push_back({a.x, a.y, b.x, b.y});
    }
    std::ranges::sort(all);
    return all;
  }
  double lengthOfLines(GroupId group) {
    double all = 0.0;
    for (const auto& [x1, y1, x2, y2] : lines(group)) { all += std::hypot(x2 - x1, y2 - y1); }
    return all;
  }

  Drawing drawing_;
  std::mt19937 random_{21};
};

TEST_F(Walls, OpeningsTakenBackInAnyOrderLeaveTheWallAsItWas) {
  for (int round = 0; round < 50; ++round) {
    const double angle = between(0.0, 7.0);
    const Point start{between(-1e5, 1e5), between(-1e5, 1e5)};
    const GroupId group = wall(start, angle, 10000, {0, 110, 160, 270});
    const auto before = lines(group);
    std::vector<std::vector<PrimitiveId>> openings;
    for (double from = 500; from < 8500; from += between(1300, 3000)) {
      const Point near = start + polar(from, angle) + polar(round % 2 == 0 ? -50 : 320, angle + kPi / 2.0);
      const auto run = wallAt(drawing_, near, 400, [](const Layer&) { return true; });
      ASSERT_TRUE(run);
      EXPECT_NEAR(run->thickness, 270, kClose);
      EXPECT_NEAR(distance(run->origin, near), 50, kClose) << "the nearer face counts";
      const GroupId opening = drawing_.addGroup("", "W1200P");
      drawing_.add({.group = opening, .geometry = Symbol{"W1200P", run->origin}});
      const double width = round % 2 == 0 ? 1200 : -1200;  // the wall runs the other way seen from its other face
      ASSERT_EQ(cutWall(drawing_, *run, {std::min(0.0, width), std::max(0.0, width)}, opening), WallCut::kCut);
      EXPECT_EQ(cutWall(drawing_, *run, {std::min(0.0, width), std::max(0.0, width)}, opening), WallCut::kNoRoom);
      openings.push_back(drawing_.membersOf(opening));
    }
    EXPECT_NEAR(lengthOfLines(group), 4 * 10000 + 2 * 270 - 4 * 1200.0 * static_cast<double>(openings.size()), 0.01);
    std::ranges::shuffle(openings, random_);
    for (const auto& opening : openings) {
      const auto symbol = std::ranges::find_if(
          opening, [this](PrimitiveId id) { return std::holds_alternative<Symbol>(drawing_.find(id)->geometry); });
      removeParts(drawing_, round % 3 == 0 ? std::vector{*symbol} : opening);
    }
    const auto after = lines(group);
    ASSERT_EQ(after.size(), before.size());
    for (const auto& line : before) {
      EXPECT_TRUE(std::ranges::any_of(after, [&](const auto& other) {
        return std::ranges::equal(line, other, [](double a, double b) { return std::abs(a - b) <= kClose; });
      }));
    }
    removeParts(drawing_, drawing_.membersOf(group));
    EXPECT_EQ(drawing_.count(), 0U);
  }
}

TEST_F(Walls, CrossingsAndMouthsAreOpenAtAnyAngle) {
  for (int round = 0; round < 100; ++round) {
    const double angle = between(0.0, 7.0);
    const double lean = between(0.6, 1.5);
    const Point at{between(-1e5, 1e5), between(-1e5, 1e5)};
    const GroupId first = wall(at - polar(3000, angle), angle, 6000, {0, 110});
    const GroupId second = wall(at - polar(2000, angle + lean), angle + lean, 4000, {0, 220});
    const double whole[] = {lengthOfLines(first), lengthOfLines(second)};
    drawing_.beginStep("join");
    joinWalls(drawing_, {second}, [](GroupId) { return true; });
    drawing_.endStep();
    EXPECT_NEAR(lengthOfLines(first), whole[0] - 2 * 220 / std::sin(lean), 0.05);
    EXPECT_NEAR(lengthOfLines(second), whole[1] - 2 * 110 / std::sin(lean), 0.05);
    const auto open = lines(first);
    joinWalls(drawing_, {first, second}, [](GroupId) { return true; });
    EXPECT_EQ(lines(first), open) << "walls that are joined stay as they are";
    drawing_.undo();
    EXPECT_DOUBLE_EQ(lengthOfLines(first), whole[0]);

    // A wall that ends on the face: its end and as much of the face go.
    const GroupId third = wall(at + polar(1000, angle), angle + kPi / 2.0, -1500, {0, 110});
    joinWalls(drawing_, {third}, [](GroupId) { return true; });
    EXPECT_NEAR(lengthOfLines(third), 2 * 1500 + 110, 0.05);
    EXPECT_NEAR(lengthOfLines(first), whole[0] - 110, 0.05);
    drawing_.removeLayer(0);
  }
}

}  // namespace

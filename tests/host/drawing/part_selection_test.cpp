#include "host/drawing/part_selection.h"

#include <gtest/gtest.h>

#include "host/geometry/curve.h"
#include "tests/host/drawing/random_drawing.h"

namespace brevan {
namespace {

std::vector<Point> runOf(const Primitive& primitive) {
  constexpr int kPlaces = 400;
  std::vector<Point> run;
  const auto follow = [&run](const Curve& curve) {
    for (int place = 0; place <= kPlaces; ++place) { run.push_back(pointAt(curve, place / double{kPlaces})); }
  };
  if (const auto* line = std::get_if<Line>(&primitive.geometry)) { follow(*line); }
  if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { follow(*arc); }
  return run;
}

class Windows : public testing::Test {
 protected:
  Windows() {
    for (int change = 0; change < 600; ++change) { random_.change(); }
    const int seen = drawing_.addLayer({"SEEN", true, false, 1});
    for (int part = 0; part < 60; ++part) {
      const GroupId group = drawing_.addGroup("PARTS", "P");
      const Point at = random_.point();
      for (int line = 0; line < 4; ++line) {
        const Point aside = random_.point() * 0.1;
        drawing_.add({.layer = seen, .group = part % 2 == 0 ? group : 0, .geometry = Line{at, at + aside}});
      }
    }
    drawn_ = drawing_.membersOf(drawing_.newestGroup("PARTS", "P"));
    const int locked = drawing_.addLayer({"LOCKED", true, true, 1});
    drawing_.add({.layer = locked, .geometry = Line{{-5, 0}, {5, 0}}});
  }
  std::vector<PrimitiveId> taken(const Box& box, WindowTakes takes) {
    drawing_.clearSelection();
    selectParts(drawing_, box, takes);
    return drawing_.selection();
  }
  Box anyBox() {
    Box box;
    box.add(random_.point());
    box.add(random_.point());
    return box;
  }
  bool allLies(const Box& box, const std::vector<PrimitiveId>& part) {
    return std::ranges::all_of(part, [&](PrimitiveId id) { return box.holds(drawing_.bounds(*drawing_.find(id))); });
  }
  bool anyRunsThrough(const Box& box, const std::vector<PrimitiveId>& part) {
    return std::ranges::any_of(part, [&](PrimitiveId id) {
      return std::ranges::any_of(runOf(*drawing_.find(id)), [&box](Point p) { return box.holds(p); });
    });
  }

  RandomDrawing random_{23};
  Drawing& drawing_ = random_.drawing;
  std::vector<PrimitiveId> drawn_;  // a part
};

TEST_F(Windows, TakeWholePartsThatTheyHoldOrTouch) {
  size_t held = 0;
  for (int round = 0; round < 25; ++round) {
    const Box box = anyBox();
    const std::vector<PrimitiveId> inside = taken(box, WindowTakes::kWhatItHolds);
    const std::vector<PrimitiveId> touched = taken(box, WindowTakes::kWhatItTouches);
    held += inside.size();
    drawing_.forEach([&](PrimitiveId id, const Primitive& primitive) {
      const std::vector<PrimitiveId> part = partOf(drawing_, id);
      const bool isInside = std::ranges::binary_search(inside, id);
      const bool isTouched = std::ranges::binary_search(touched, id);
      const Layer& layer = *drawing_.layer(primitive.layer);
      EXPECT_EQ(part.empty(), !layer.visible || layer.locked);
      EXPECT_EQ(isInside, !part.empty() && allLies(box, part)) << id;
      EXPECT_TRUE(isTouched || !isInside) << id;
      EXPECT_TRUE(isTouched || !anyRunsThrough(box, part)) << id;
      const bool alone = part.size() == 1 && !runOf(primitive).empty();
      EXPECT_TRUE(!alone || !isTouched || anyRunsThrough(box.grownBy(3.0), part)) << id << " only passes by";
      for (const PrimitiveId member : part) {
        EXPECT_EQ(std::ranges::binary_search(touched, member), isTouched) << id << ' ' << member;
      }
    });
  }
  EXPECT_GT(held, 200U);
}

TEST_F(Windows, AClickTakesAPartInAndOut) {
  togglePart(drawing_, drawn_.at(2));
  EXPECT_EQ(drawing_.selection(), drawn_);
  togglePart(drawing_, drawn_.at(0));
  EXPECT_FALSE(drawing_.hasSelection());
  togglePart(drawing_, drawing_.lastId());
  EXPECT_FALSE(drawing_.hasSelection()) << "a locked line";
}

TEST_F(Windows, AreDrawnFromRightToLeftAsTheSheetIsSeen) {
  for (const bool turned : {false, true}) {
    Parameters parameters;
    parameters.setCoordinateSystem(turned ? 0 : 1);
    parameters.setOrientation(turned ? 1 : 0);
    drawing_.setParameters(parameters);
    const Point left = turned ? Point{10, 0} : Point{0, 0};
    const Point right = turned ? Point{0, 10} : Point{10, 10};
    EXPECT_EQ(windowTakes(drawing_, left, right), WindowTakes::kWhatItHolds);
    EXPECT_EQ(windowTakes(drawing_, right, left), WindowTakes::kWhatItTouches);
  }
}

}  // namespace
}  // namespace brevan

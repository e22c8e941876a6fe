#include "host/drawing/drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "host/files/json_writer.h"
#include "tests/host/drawing/random_drawing.h"

namespace {

using namespace brevan;

std::vector<PrimitiveId> idsWhere(const Drawing& drawing, const std::function<bool(const Primitive&)>& wanted) {
  std::vector<PrimitiveId> ids;
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    if (wanted(primitive)) { ids.push_back(id); }
  });
  return ids;
}

// Every index tells what a walk over the whole drawing tells.
void expectIndexesInStep(RandomDrawing& random) {
  const Drawing& drawing = random.drawing;
  EXPECT_EQ(drawing.count(), idsWhere(drawing, [](const Primitive&) { return true; }).size());
  for (int layer = 0; layer < drawing.layerCount(); ++layer) {
    EXPECT_EQ(drawing.onLayer(layer), idsWhere(drawing, [&](const Primitive& p) { return p.layer == layer; }));
  }
  std::map<std::string, GroupId> newest;
  for (GroupId group = 1; group <= drawing.lastGroup(); ++group) {
    const auto members = idsWhere(drawing, [&](const Primitive& p) { return p.group == group; });
    EXPECT_EQ(drawing.membersOf(group), members);
    GroupId& newestOfName = newest[std::string(drawing.group(group).parent) + ' ' + drawing.group(group).name];
    if (!members.empty()) { newestOfName = group; }
  }
  for (const auto& [name, group] : newest) { EXPECT_EQ(drawing.newestGroup(name), group) << name; }
  for (int look = 0; look < 4; ++look) {
    Box box;
    box.add(random.point());
    box.add(random.point());
    EXPECT_EQ(drawing.inBox(box), idsWhere(drawing, [&](const Primitive& p) { return drawing.bounds(p).meets(box); }));
  }
}

void expectNearestIsNearest(RandomDrawing& random) {
  const Drawing& drawing = random.drawing;
  const Point p = random.point();
  constexpr double kReach = 30.0;
  double least = kReach;
  const auto wanted = [](PrimitiveId, const Primitive& primitive) {
    return primitive.pen > 2 && !std::holds_alternative<Hatch>(primitive.geometry);
  };
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    if (wanted(id, primitive)) { least = std::min(least, drawing.distanceTo(primitive, p)); }
  });
  const PrimitiveId found = drawing.nearest(p, kReach, wanted);
  EXPECT_EQ(found == 0 ? kReach : drawing.distanceTo(*drawing.find(found), p), least);
  EXPECT_TRUE(found == 0 || drawing.find(found)->pen > 2);
}

TEST(Drawing, UndoAndRedoGiveEveryStateBackByteForByte) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    RandomDrawing random(seed);
    Drawing& drawing = random.drawing;
    std::vector<std::string> states = {drawingJson(drawing)};
    for (int step = 0; step < 30; ++step) {
      drawing.beginStep("step");
      for (int change = random.whole(0, 12); change >= 0; --change) { random.change(); }
      random.add();
      if (step % 7 == 3) {
        states.push_back(drawingJson(drawing));
        drawing.splitStep();
        random.add();
      }
      drawing.endStep();
      states.push_back(drawingJson(drawing));
    }
    size_t at = states.size() - 1;
    const auto back = [&] { return at > 0 && drawing.undo() && drawingJson(drawing) == states[--at]; };
    const auto forth = [&] { return drawing.redo() && drawingJson(drawing) == states[++at]; };
    while (at > 0) { ASSERT_TRUE(back()) << at; }
    EXPECT_FALSE(drawing.undo());
    expectIndexesInStep(random);
    while (at + 1 < states.size()) { ASSERT_TRUE(forth()) << at; }
    EXPECT_FALSE(drawing.redo());
    for (int walk = 0; walk < 60; ++walk) {
      const bool onward = random.whole(0, 1) == 1 ? at + 1 < states.size() : at == 0;
      ASSERT_TRUE(onward ? forth() : back()) << at;
      if (walk % 10 == 0) { expectIndexesInStep(random); }
    }
  }
}

TEST(Drawing, IndexesFollowEveryChange) {
  for (unsigned seed = 100; seed < 110; ++seed) {
    SCOPED_TRACE(seed);
    RandomDrawing random(seed);
    for (int round = 0; round < 40; ++round) {
      for (int change = 0; change < 8; ++change) { random.change(); }
      if (random.whole(0, 4) == 0) { random.drawing.undo(); }
      expectIndexesInStep(random);
      for (int look = 0; look < 5; ++look) { expectNearestIsNearest(random); }
    }
  }
}

TEST(Drawing, RollingBackLeavesAsBefore) {
  for (unsigned seed = 200; seed < 210; ++seed) {
    SCOPED_TRACE(seed);
    RandomDrawing random(seed);
    Drawing& drawing = random.drawing;
    for (int change = 0; change < 60; ++change) { random.change(); }
    const std::string before = drawingJson(drawing);
    drawing.beginStep("command");
    for (int change = 0; change < 20; ++change) { random.change(); }
    drawing.splitStep();
    for (int change = 0; change < 20; ++change) { random.change(); }
    const std::string middle = drawingJson(drawing);
    const size_t mark = drawing.mark();
    for (int change = 0; change < 20; ++change) { random.change(); }
    drawing.rollBackTo(mark);
    EXPECT_EQ(drawingJson(drawing), middle);
    expectIndexesInStep(random);
    drawing.rollBack();
    EXPECT_EQ(drawingJson(drawing), before);
    EXPECT_FALSE(drawing.inStep());
    expectIndexesInStep(random);
  }
}

TEST(Drawing, RefusedChangesChangeNothing) {
  Drawing drawing;
  const PrimitiveId line = drawing.add({.geometry = Line{{0, 0}, {1, 0}}});
  const std::string before = drawingJson(drawing);
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const std::vector<Primitive> rubbish = {
      {.geometry = Line{{kNan, 0}, {1, 0}}},
      {.geometry = Arc{{1, 0}, {0, kInf}, {1, 0}}},
      {.geometry = Text{{0, 0}, "T", "Arial", kInf}},
      {.geometry = Text{{0, 0}, "T", "Arial", 35, kNan}},
      {.geometry = Arrow{{0, 0}, {1, 1}, kNan}},
      {.geometry = Symbol{"S", {0, 0}, kInf}},
      {.geometry = Symbol{"S", {0, 0}, 1.0, kNan}},
      {.geometry = Arrow{{0, 0}, {1, 1}, 20, kInf}},
      {.geometry = Dimension{DimensionKind::kVertical, {0, -kInf}, {}, {}, ""}},
      {.width = kNan, .geometry = Line{{0, 0}, {1, 0}}},
      {.layer = 7, .geometry = Line{{0, 0}, {1, 0}}},
      {.layer = -1, .geometry = Line{{0, 0}, {1, 0}}},
  };
  for (const Primitive& primitive : rubbish) {
    EXPECT_THROW(drawing.add(primitive), RefusedChange) << kindName(primitive.geometry);
    EXPECT_THROW(drawing.replace(line, primitive), RefusedChange) << kindName(primitive.geometry);
  }
  for (const auto& spoil : std::vector<void (*)(Parameters&)>{
           [](Parameters& p) { p.setScale(0); }, [](Parameters& p) { p.setScale(kNan); },
           [](Parameters& p) { p.setUnit(-1); }, [](Parameters& p) { p.setUnit(1e308); },
           [](Parameters& p) { p.setScale(1e300), p.setUnit(1e-300); }, [](Parameters& p) { p.all[6] = 1e300; },
           [](Parameters& p) { p.setOrientation(2); }, [](Parameters& p) { p.all[4] = kInf; }}) {
    Parameters parameters;
    spoil(parameters);
    EXPECT_THROW(drawing.setParameters(parameters), RefusedChange) << drawingJson(drawing);
  }
  EXPECT_EQ(drawingJson(drawing), before);
  EXPECT_TRUE(drawing.undo());
  EXPECT_FALSE(drawing.undo()) << "a refused change left a step";
}

TEST(Drawing, ASymbolDefinedAnewIsFoundWhereItNowLies) {
  Drawing drawing;
  const PrimitiveId id = drawing.add({.geometry = Symbol{"LATE", {0, 0}}});
  const auto all = [](PrimitiveId, const Primitive&) { return true; };
  EXPECT_EQ(drawing.nearest({10, 10}, 1.0, all), 0);
  drawing.addSymbol({"LATE", {{.geometry = Line{{0, 0}, {20, 20}}}}, true, false});
  EXPECT_EQ(drawing.nearest({10, 10}, 1.0, all), id);
  drawing.addSymbol({"INNER", {}, true, false});
  drawing.addSymbol({"LATE", {{.geometry = Symbol{"INNER", {0, 0}}}}, true, false});
  EXPECT_EQ(drawing.nearest({10, 10}, 1.0, all), 0);
  drawing.addSymbol({"INNER", {{.geometry = Line{{0, 0}, {20, 20}}}}, true, false});
  EXPECT_EQ(drawing.nearest({10, 10}, 1.0, all), id) << "what it is made of was defined anew";
  drawing.remove(id);
  EXPECT_EQ(drawing.nearest({10, 10}, 1.0, all), 0);
}

TEST(Drawing, PicksAtAPoint) {
  Drawing drawing;
  const auto all = [](PrimitiveId, const Primitive&) { return true; };
  drawing.addSymbol({"BOX", {{.geometry = Line{{-5, -5}, {5, 5}}}}, true, false});
  const PrimitiveId symbol = drawing.add({.geometry = Symbol{"BOX", {0, 0}}});
  const PrimitiveId line = drawing.add({.geometry = Line{{-50, 1}, {50, 1}}});
  EXPECT_EQ(drawing.nearest({0, 1}, 5.0, all), symbol) << "a symbol that holds the point wins over a line";
  EXPECT_EQ(drawing.nearest({20, 1}, 5.0, all), line);
  // A dimension stands away from what it measures; the part under its extension lines is still picked.
  drawing.add({.geometry = Dimension{DimensionKind::kHorizontal, {0, 100}, {-40, 0}, {40, 0}, "!"}});
  EXPECT_EQ(drawing.nearest({20, 1.5}, 5.0, all), line);
  // A line so long that its length overflows neither hides what is near nor breaks the search.
  drawing.add({.geometry = Line{{-1e308, 3}, {1e308, 3}}});
  EXPECT_EQ(drawing.nearest({30, 1}, 5.0, all), line);
  const PrimitiveId circle = drawing.add({.geometry = Arc{{330, 0}, {300, 0}, {330, 0}}});
  EXPECT_EQ(drawing.nearest({301, 0}, 5.0, all), circle) << "the centre counts as well as the curve";
  const PrimitiveId across = drawing.add({.geometry = Line{{100 + 4e-9, -50}, {100 + 4e-9, 50}}});
  EXPECT_EQ(drawing.nearest({100, 1}, 5.0, all), across) << "of two lines through a point the newer, but for rounding";
}

TEST(Drawing, GroupsAreToldApartByParentAndName) {
  Drawing drawing;
  const GroupId first = drawing.addGroup("A B", "C");
  drawing.add({.group = first, .geometry = Line{{0, 0}, {1, 0}}});
  EXPECT_EQ(drawing.newestGroup("A", "B C"), 0);
  EXPECT_EQ(drawing.newestGroup("A B", "C"), first);
  const GroupId second = drawing.addGroup("A", "B C");
  drawing.add({.group = second, .geometry = Line{{0, 0}, {1, 0}}});
  EXPECT_EQ(drawing.newestGroup("A B", "C"), first);
  EXPECT_EQ(drawing.newestGroup("A B C"), second);
}

}  // namespace

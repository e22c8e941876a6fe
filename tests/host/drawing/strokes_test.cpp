#include "host/drawing/strokes.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/drawing/dimension_strokes.h"
#include "tests/failure.h"

namespace brevan {
namespace {

Primitive primitiveOf(Geometry geometry) { return {.geometry = std::move(geometry)}; }

struct Recorder : StrokeSink {
  std::vector<Segment> lines;
  std::vector<ArcShape> arcs;
  std::vector<TextStroke> texts;
  std::vector<std::array<Point, 3>> heads;
  std::vector<int> pens;
  void line(const StrokeStyle& style, Point a, Point b) override {
    lines.push_back({a, b});
    pens.push_back(style.pen);
  }
  void arc(const StrokeStyle&, const ArcShape& arc) override { arcs.push_back(arc); }
  void text(const StrokeStyle&, const TextStroke& text) override { texts.push_back(text); }
  void polygon(const StrokeStyle&, std::span<const Point> corners) override {
    heads.push_back({corners[0], corners[1], corners[2]});
  }
};

Symbol placedAtOrigin(std::string name) { return {std::move(name), {}, 1.0, 0.0, false}; }

Recorder strokesOf(const Drawing& drawing) {
  Recorder recorder;
  const Sheet sheet = {"A4", 297.0, 210.0, {0.0, 0.0}};
  StrokeWalk walk(drawing, toSheet(sheet, drawing.parameters()), recorder);
  drawing.forEach([&walk](PrimitiveId, const Primitive& primitive) { walk.primitive(primitive); });
  return recorder;
}

void expectNear(Point actual, Point expected) {
  EXPECT_LT(distance(actual, expected), 1e-9) << actual.x << ' ' << actual.y;
}

Parameters southOriented() {
  Parameters parameters;
  parameters.setUnit(1000.0);
  parameters.setScale(500.0);
  parameters.setCoordinateSystem(0);
  parameters.setOrientation(1);
  return parameters;
}

TEST(Strokes, SymbolsArePlacedMirroredThenTurned) {
  Drawing drawing;
  drawing.addSymbol({"FLAG", {primitiveOf(Line{{0.0, 0.0}, {10.0, 1.0}})}, true, false});
  drawing.add(primitiveOf(Symbol{"FLAG", {100.0, 50.0}, 2.0, 90.0, true}));
  const Recorder strokes = strokesOf(drawing);
  ASSERT_EQ(strokes.lines.size(), 1U);
  expectNear(strokes.lines[0].a, {100.0, 50.0});
  expectNear(strokes.lines[0].b, {98.0, 30.0});  // (10, 1) -> (-10, 1) -> x 2 -> turned to (-2, -20)
}

TEST(Strokes, RealSymbolsShrinkWithTheScaleAndPaperOnesDoNot) {
  Drawing drawing;
  Parameters parameters;
  parameters.setScale(50.0);
  drawing.setParameters(parameters);
  const std::vector<Primitive> parts = {primitiveOf(Line{{0.0, 0.0}, {1000.0, 0.0}})};
  drawing.addSymbol({"DOOR", parts, false, false});
  drawing.addSymbol({"MARK", parts, true, false});
  drawing.add(primitiveOf(Symbol{"DOOR", {0.0, 0.0}, 1.0, 0.0}));
  drawing.add(primitiveOf(Symbol{"MARK", {0.0, 0.0}, 1.0, 0.0}));
  const Recorder strokes = strokesOf(drawing);
  expectNear(strokes.lines[0].b, {20.0, 0.0});
  expectNear(strokes.lines[1].b, {1000.0, 0.0});
}

TEST(Strokes, SouthOrientedSheetTurnsEverythingButTextsAndUprightSymbols) {
  Drawing drawing;
  drawing.setParameters(southOriented());
  Primitive label = primitiveOf(Text{{1.0, 1.0}, "AB"});
  const std::vector<Primitive> parts = {primitiveOf(Line{{0.0, 0.0}, {10.0, 0.0}}), label};
  drawing.addSymbol({"NORTH", parts, true, true});
  drawing.addSymbol({"BEACON", parts, true, false});
  drawing.add(primitiveOf(Line{{0.0, 0.0}, {5.0, 0.0}}));
  drawing.add(primitiveOf(Symbol{"NORTH", {0.0, 0.0}, 1.0, 0.0}));
  drawing.add(primitiveOf(Symbol{"BEACON", {0.0, 0.0}, 1.0, 0.0}));
  drawing.add(primitiveOf(Text{{2.0, 0.0}, "AB"}));
  const Recorder strokes = strokesOf(drawing);
  expectNear(strokes.lines[0].b, {-10.0, 0.0});
  expectNear(strokes.lines[1].b, {10.0, 0.0});
  expectNear(strokes.lines[2].b, {-10.0, 0.0});
  for (const TextStroke& text : strokes.texts) { EXPECT_NEAR(std::remainder(text.angle, 360.0), 0.0, 1e-9); }
  // Turned with its symbol, the label lies left of its point and below it, and still reads upright.
  EXPECT_LT(strokes.texts[1].baseline.x + strokes.texts[1].width, -1.0 + 1e-9);
  EXPECT_LT(strokes.texts[1].baseline.y, -1.0);
  EXPECT_NEAR(strokes.texts[2].baseline.x, -4.0, 1e-9);
}

TEST(Strokes, SymbolsWithinSymbolsCarryScaleAndPen) {
  Drawing drawing;
  const Primitive own{.pen = 7, .geometry = Line{{0.0, 0.0}, {1.0, 0.0}}};
  const Primitive inherited{.pen = kPenByLayer, .geometry = own.geometry};
  drawing.addSymbol({"INNER", {own, inherited, primitiveOf(Text{{0.0, 0.0}, "x"})}, true, false});
  const Primitive within{.pen = kPenByLayer, .geometry = Symbol{"INNER", {10.0, 0.0}, 3.0, 90.0}};
  drawing.addSymbol({"OUTER", {within}, true, false});
  drawing.add({.pen = 5, .geometry = Symbol{"OUTER", {0.0, 0.0}, 2.0, 0.0}});
  const Recorder strokes = strokesOf(drawing);
  expectNear(strokes.lines[0].a, {20.0, 0.0});
  expectNear(strokes.lines[0].b, {20.0, 6.0});
  EXPECT_EQ(strokes.pens, (std::vector<int>{7, 5}));
  EXPECT_NEAR(strokes.texts[0].height, 3.5 * 6.0, 1e-12);
}

TEST(Strokes, SymbolsThatNeverEndAreRefusedByName) {
  Drawing cycle;
  cycle.addSymbol({"HEN", {primitiveOf(placedAtOrigin("EGG"))}, true, false});
  cycle.addSymbol({"EGG", {primitiveOf(placedAtOrigin("HEN"))}, true, false});
  cycle.add(primitiveOf(placedAtOrigin("HEN")));
  EXPECT_NE(failureOf([&] { strokesOf(cycle); }).find("\"HEN\" contains itself"), std::string::npos);

  for (const auto& leaf : {std::vector<Primitive>{primitiveOf(Line{{0, 0}, {1, 1}})}, {}}) {
    Drawing tree;  // 2^40 strokes in 40 symbols, or as many empty ones
    tree.addSymbol({"T0", leaf, true, false});
    for (int level = 1; level <= 40; ++level) {
      const Primitive half = primitiveOf(placedAtOrigin("T" + std::to_string(level - 1)));
      tree.addSymbol({"T" + std::to_string(level), {half, half}, true, false});
    }
    tree.add(primitiveOf(placedAtOrigin("T40")));
    EXPECT_NE(failureOf([&] { strokesOf(tree); }).find("expands to more than"), std::string::npos);
  }
}

TEST(Strokes, UnknownSymbolIsShownAndAnArrowWithoutLengthIsNot) {
  Drawing drawing;
  drawing.add(primitiveOf(Arrow{{1.0, 1.0}, {1.0, 1.0}}));
  EXPECT_TRUE(strokesOf(drawing).heads.empty() && strokesOf(drawing).lines.empty());
  drawing.add(primitiveOf(Symbol{"GONE", {20.0, 20.0}, 1.0, 0.0}));
  EXPECT_FALSE(strokesOf(drawing).lines.empty());
}

TEST(Strokes, DimensionHeadsPointAtTheEndsOfTheDimensionLine) {
  for (const bool turned : {false, true}) {
    for (const DimensionKind kind : {DimensionKind::kHorizontal, DimensionKind::kVertical}) {
      for (const double span : {2.0, 40.0}) {
        Drawing drawing;
        if (turned) { drawing.setParameters(southOriented()); }
        const Dimension dimension = {kind, {5.0, 5.0}, {0.0, 0.0}, {span, span}, "1.000"};
        drawing.add(primitiveOf(dimension));
        const Recorder strokes = strokesOf(drawing);
        const Transform show = toSheet({"A4", 297.0, 210.0, {0.0, 0.0}}, drawing.parameters());
        ASSERT_EQ(strokes.heads.size(), 2U);
        expectNear(strokes.heads[0][0], show(dimensionLine(dimension).first));
        expectNear(strokes.heads[1][0], show(dimensionLine(dimension).second));
        // Read from below or from the right, and clear of its line.
        const TextStroke& text = strokes.texts.at(0);
        EXPECT_EQ(text.angle, kind == DimensionKind::kHorizontal ? 0.0 : 90.0);
        const double clear = kind == DimensionKind::kHorizontal ? text.baseline.y - strokes.heads[0][0].y
                                                                : strokes.heads[0][0].x - text.baseline.x;
        EXPECT_GT(clear, 0.5);
      }
    }
  }
}

}  // namespace
}  // namespace brevan

#include "host/drawing/strokes.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/drawing/dimension_strokes.h"
#include "host/files/json_writer.h"
#include "tests/failure.h"
#include "tests/host/drawing/survey_parameters.h"

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
  drawing.setParameters(surveyParameters(500.0, 1000.0));
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

struct DeafSink : StrokeSink {
  void line(const StrokeStyle&, Point, Point) override {}
  void arc(const StrokeStyle&, const ArcShape&) override {}
  void text(const StrokeStyle&, const TextStroke&) override {}
  void polygon(const StrokeStyle&, std::span<const Point>) override {}
};

TEST(Strokes, APictureOfTooManySymbolPartsIsRefusedByName) {
  Drawing drawing;
  drawing.addSymbol({"LEAF", std::vector<Primitive>(999'998, primitiveOf(Line{{0, 0}, {1, 1}})), true, false});
  DeafSink sink;
  StrokeWalk walk(drawing, {}, sink);
  for (int count = 0; count < 10; ++count) { walk.primitive(primitiveOf(placedAtOrigin("LEAF"))); }
  EXPECT_NE(failureOf([&] { walk.primitive(primitiveOf(placedAtOrigin("LEAF"))); }).find("\"LEAF\" come to more than"),
            std::string::npos);
}

// Where the strokes of a drawing lie, in its own units.
Box strokedBox(const Drawing& drawing) {
  const Recorder strokes = strokesOf(drawing);
  const Transform fromPaper = toSheet({"A4", 297.0, 210.0, {0.0, 0.0}}, drawing.parameters()).inverted();
  Box box;
  for (const Segment& line : strokes.lines) { box.add(fromPaper(line.a)), box.add(fromPaper(line.b)); }
  for (const ArcShape& arc : strokes.arcs) { box.add(fromPaper(arc.start)), box.add(fromPaper(arc.end)); }
  for (const auto& head : strokes.heads) { box.add(fromPaper(head[1])), box.add(fromPaper(head[2])); }
  for (const TextStroke& text : strokes.texts) {
    box.add(fromPaper(text.baseline));
    box.add(fromPaper(text.baseline + unitOfDegrees(text.angle) * text.width));
  }
  return box;
}

// An even grid of symbols within symbols: of paper or real size, upright or not, under each kind of parameters.
void forEachPlacedSymbol(const std::vector<Primitive>& parts, const std::function<void(const Drawing&)>& use) {
  Parameters house;
  house.setScale(50.0);
  for (const Parameters& parameters : {Parameters(), house, surveyParameters(500.0, 1000.0)}) {
    for (const int kind : {0, 1, 2, 3}) {
      Drawing drawing;
      drawing.setParameters(parameters);
      const bool paperSize = (kind & 1) == 0;
      const bool upright = (kind & 2) != 0;
      drawing.addSymbol({"INNER", parts, !paperSize, upright});
      drawing.addSymbol({"OUTER", {primitiveOf(Symbol{"INNER", {7.0, 3.0}, 1.5, 90.0})}, paperSize, upright});
      drawing.add(primitiveOf(Symbol{kind == 0 ? "INNER" : "OUTER", {100.0, 40.0}, 2.0, 180.0}));
      use(drawing);
    }
  }
}

TEST(Strokes, BoundsOfPlacedSymbolsHoldWhatIsShown) {
  const std::vector<Primitive> all = {primitiveOf(Line{{0, 0}, {9, 1}}), primitiveOf(Arc{{3, 0}, {0, 0}, {0, 3}}),
                                      primitiveOf(Arrow{{0, 0}, {0, 30}}), primitiveOf(Text{{2, 2}, "north"}),
                                      primitiveOf(placedAtOrigin("GONE"))};
  forEachPlacedSymbol(all, [](const Drawing& drawing) {
    const Box shown = strokedBox(drawing);
    const Box bounds = drawing.extents().grownBy(1e-9 * shown.width());
    EXPECT_TRUE(bounds.low.x <= shown.low.x && bounds.low.y <= shown.low.y) << drawingJson(drawing);
    EXPECT_TRUE(bounds.high.x >= shown.high.x && bounds.high.y >= shown.high.y) << drawingJson(drawing);
  });
  // Lines about the symbol's own point reach just as far as their bounds.
  forEachPlacedSymbol({primitiveOf(Line{{-9, -9}, {20, 3}})}, [](const Drawing& drawing) {
    Box shown = strokedBox(drawing);
    shown.add(Point{100.0, 40.0});
    EXPECT_NEAR(drawing.extents().width(), shown.width(), 1e-9 * shown.width()) << drawingJson(drawing);
    EXPECT_NEAR(drawing.extents().height(), shown.height(), 1e-9 * shown.width()) << drawingJson(drawing);
  });
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
        if (turned) { drawing.setParameters(surveyParameters(500.0, 1000.0)); }
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

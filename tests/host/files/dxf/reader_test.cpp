#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/core/text_encoding.h"
#include "host/drawing/dimension_strokes.h"
#include "host/files/dxf/read/styles.h"
#include "host/files/dxf/write/writer.h"
#include "tests/failure.h"
#include "tests/host/core/line_ends.h"
#include "tests/host/drawing/random_drawing.h"
#include "tests/host/files/dxf/small_files.h"

namespace brevan {
namespace {

void expectNear(Point a, Point b, const std::string& what) {
  const double reach = 1e-9 * (1.0 + length(a));
  EXPECT_NEAR(a.x, b.x, reach) << what;
  EXPECT_NEAR(a.y, b.y, reach) << what;
}

// An arc comes back counter-clockwise; that it covers the same curve is what counts.
void expectSame(const Arc& before, const Arc& after, const std::string& what) {
  expectNear(before.centre, after.centre, what);
  if (isFullCircle(before) || arcRadius(before) == 0.0) { return; }
  EXPECT_NEAR(std::abs(arcSweep(before)), std::abs(arcSweep(after)), 1e-9) << what;
  expectNear(before.clockwise ? arcPointAt(before, angleOf(before.end - before.centre)) : before.start, after.start,
             what);
}

void expectSame(const Geometry& before, const Geometry& after, const std::string& what) {
  ASSERT_EQ(before.index(), after.index()) << what;
  std::vector<Point> points;
  forEachPoint(before, [&points](Point p) { points.push_back(p); });
  if (const Arc* arc = std::get_if<Arc>(&before)) {
    expectSame(*arc, std::get<Arc>(after), what);
    return;
  }
  if (const Dimension* dimension = std::get_if<Dimension>(&before)) {
    const Dimension& read = std::get<Dimension>(after);
    EXPECT_EQ(std::tie(dimension->kind, dimension->text), std::tie(read.kind, read.text));
    expectNear(dimension->p1, read.p1, what);
    expectNear(dimension->p2, read.p2, what);
    // Where along its line the point lay is not kept.
    expectNear(dimensionLine(*dimension).first, dimensionLine(read).first, what);
    return;
  }
  size_t next = 0;
  forEachPoint(after, [&](Point p) { expectNear(points.at(next++), p, what); });
  if (const Text* text = std::get_if<Text>(&before)) {
    const Text& read = std::get<Text>(after);
    EXPECT_EQ(std::tie(text->text, text->font, text->justification),
              std::tie(read.text, read.font, read.justification));
    EXPECT_NEAR(text->height, read.height, 1e-9 * text->height) << what;
    EXPECT_NEAR(std::remainder(text->angle - read.angle, 3600.0), 0.0, 1e-9) << what;
  }
  if (const Arrow* arrow = std::get_if<Arrow>(&before)) {
    EXPECT_NEAR(arrow->length, std::get<Arrow>(after).length, 1e-7) << what;
    EXPECT_NEAR(arrow->width, std::get<Arrow>(after).width, 1e-7) << what;
  }
  if (const Symbol* symbol = std::get_if<Symbol>(&before)) {
    const Symbol& read = std::get<Symbol>(after);
    EXPECT_EQ(symbol->name, read.name);
    EXPECT_EQ(symbol->mirrored, read.mirrored) << what;
    EXPECT_NEAR(symbol->scale, read.scale, 1e-9) << what;
    EXPECT_NEAR(std::remainder(symbol->rotation - read.rotation, 360.0), 0.0, 1e-9) << what;
  }
}

// What the exchange format cannot hold, or holds in another way, is left out of the drawings compared: arrows too
// short to show a shaft and empty layers' and groups' numbers.
void expectSame(const Drawing& before, const Drawing& after, const std::string& what) {
  EXPECT_EQ(before.parameters(), after.parameters()) << what;
  EXPECT_EQ(before.sheet(), after.sheet()) << what;
  ASSERT_EQ(before.count(), after.count()) << what;
  PrimitiveId next = 0;
  before.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const Primitive& read = *after.find(++next);
    const std::string which = what + ", primitive " + std::to_string(id);
    expectSame(primitive.geometry, read.geometry, which);
    EXPECT_EQ(*before.layer(primitive.layer), *after.layer(read.layer)) << which;
    EXPECT_EQ(primitive.linetype, read.linetype) << which;
    const Text* text = std::get_if<Text>(&primitive.geometry);
    EXPECT_EQ(text == nullptr ? primitive.pen : text->pen, read.pen) << which;
    ASSERT_EQ(primitive.group == 0, read.group == 0) << which;
    if (primitive.group == 0) { return; }
    const Group& wanted = before.group(primitive.group);
    const Group& found = after.group(read.group);
    EXPECT_TRUE(wanted.name == found.name && wanted.parent == found.parent) << which;
  });
}

bool hasShownShaft(const Drawing& drawing, const Primitive& primitive) {
  const Arrow* arrow = std::get_if<Arrow>(&primitive.geometry);
  return arrow == nullptr ||
         distance(arrow->p1, arrow->p2) > arrow->length / 10.0 * drawing.parameters().paperMillimetre();
}

TEST(DxfReader, OwnFilesComeBackWhole) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    RandomDrawing random(seed);
    for (int change = 0; change < 150; ++change) { random.change(); }
    Drawing& drawing = random.drawing;
    if (seed % 3 == 0) {
      Parameters south = drawing.parameters();
      south.setCoordinateSystem(0);
      south.setOrientation(1);
      south.setUnit(1000.0);
      drawing.setParameters(south);
    }
    std::vector<PrimitiveId> hidden;
    drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
      if (!hasShownShaft(drawing, primitive)) { hidden.push_back(id); }
    });
    for (const PrimitiveId id : hidden) { drawing.remove(id); }
    const ReadDrawing read = readText(drawingDxf(drawing));
    EXPECT_EQ(read.notRead, "");
    expectSame(drawing, read.drawing, "seed " + std::to_string(seed));
  }
}

TEST(DxfReader, SymbolsKeepTheirPartsAndKind) {
  Drawing drawing;
  drawing.addSymbol({"INNER", {{.geometry = Line{{0, 0}, {1, 1}}}, {.pen = 256, .geometry = Line{{0, 0}, {0, 9}}}}});
  drawing.addSymbol({"OUTER", {{.geometry = Symbol{"INNER", {2, 3}, 2.0, 30.0, true}}}, false, true});
  drawing.add({.geometry = Symbol{"OUTER", {5, 5}, 1.5, 60.0, true}});
  drawing.add({.geometry = Symbol{"GONE", {7, 7}, 1.0, 0.0, false}});
  const ReadDrawing read = readText(drawingDxf(drawing));
  expectSame(drawing, read.drawing, "symbols");
  ASSERT_EQ(read.drawing.symbols().size(), 2U);
  const SymbolDefinition& outer = *read.drawing.symbol("OUTER");
  EXPECT_TRUE(!outer.paperSize && outer.upright);
  expectSame(drawing.symbol("OUTER")->parts[0].geometry, outer.parts[0].geometry, "inner");
  EXPECT_EQ(read.drawing.symbol("INNER")->parts[1].pen, 256);
}

TEST(DxfReader, SectionsInAnyOrderAreRead) {
  const std::string blocks = section("BLOCKS", block("B", kLine));
  const std::string layers = section("TABLES", "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nA\n70\n4\n62\n-1\n0\nENDTAB\n");
  const std::string drawn =
      section("ENTITIES", insertOf("B", "41\n2\n42\n3\n") + "0\nCIRCLE\n8\na\n10\n0\n20\n0\n40\n5\n");
  for (const std::string& text : {layers + blocks + drawn, drawn + blocks + layers, blocks + drawn + layers}) {
    const ReadDrawing read = readText("999\ncomment\n" + text + "0\nEOF\n");
    ASSERT_EQ(read.drawing.count(), 2U);
    EXPECT_EQ(std::get<Line>(read.drawing.find(1)->geometry).b, (Point{6, 12}));
    const Layer& layer = *read.drawing.layer(read.drawing.find(2)->layer);
    EXPECT_TRUE(!layer.visible && layer.locked && layer.name == "A");
  }
}

TEST(DxfReader, BadInputIsRefusedWithItsLine) {
  const auto radius = [](const std::string& value) { return entities("0\nCIRCLE\n10\n0\n20\n0\n40\n" + value + "\n"); };
  std::string tree = block("N0", kLine);  // 2^40 lines in 40 blocks
  for (int level = 1; level <= 40; ++level) {
    const std::string inner = insertOf("N" + std::to_string(level - 1));
    tree += block("N" + std::to_string(level), inner + inner);
  }
  const std::string manyCells = "70\n1000\n71\n900\n44\n1\n45\n1\n";
  const std::pair<std::string, std::string> rows[] = {
      {section("BLOCKS", tree) + entities(insertOf("N40")), "expands to more than"},
      {"", "line 1: the file does not begin as a DXF file"},
      {"hello\n", "line 1: a group code is expected"},
      {"0\nSECTION\n2\nENTITIES\n" + kLine, "the file ends within a section"},
      {section("HEADER", ""), "the file ends without EOF"},
      {radius("nan"), "line 12: CIRCLE, group 40: a finite number is expected, got \"nan\""},
      {radius("inf"), "got \"inf\""},
      {radius("1e400"), "got \"1e400\""},
      {radius("1,5"), "got \"1,5\""},
      {radius("1.5mm"), "got \"1.5mm\""},
      {radius(""), "got \"\""},
      {radius("1e308"), ""},
      {entities("0\nLWPOLYLINE\n70\n2147483648\n"), "a whole number"},
      {entities("0\nLWPOLYLINE\n70\n1e300\n"), "a whole number"},
      {entities("0\nLWPOLYLINE\n70\n1.5\n"), "a whole number"},
      {entities(std::string(2 << 20, 'x')), "longer than 1048576 characters"},
      {section("BLOCKS", block("A", insertOf("B")) + block("B", insertOf("A"))) + entities(insertOf("A")),
       "block \"A\" contains itself"},
      {section("BLOCKS", block("A", kLine)) + entities(insertOf("A", "70\n32767\n71\n32767\n44\n1\n45\n1\n")),
       "comes to more than"},
      {section("BLOCKS", block("A", "0\nINSERT\n8\nW\n2\nNONE\n10\n0\n20\n0\n")) +
           entities(insertOf("A", manyCells) + insertOf("A", manyCells)),
       "the blocks placed up to \"A\" come to more than 2000000 parts"},
      {"AutoCAD Binary DXF\r\n", "save it as an ASCII one"},
      {"\xFF\xFE", "UTF-16"},
  };
  for (const auto& [text, told] : rows) {
    const std::string reason = dxfReason(text);
    EXPECT_NE(reason.find(told), std::string::npos) << told << "\n got: " << reason;
    EXPECT_EQ(told.empty(), reason.empty()) << reason;
  }
}

// Entities in turn, whose first lines are those of the one before or nearly so.
TEST(DxfReader, EachEntityLooksAsItsOwnLinesSay) {
  const std::string shared = "8\nA\n62\n1\n100\nAcDbEntity\n";
  const std::string ends = "10\n1\n20\n2\n11\n3\n21\n4\n";
  const auto line = [&](const std::string& handle, const std::string& head, const std::string& after = "") {
    return "0\nLINE\n" + (handle.empty() ? "" : "5\n" + handle + "\n") + head + ends + after;
  };
  const std::string headOfB = "8\nB\n62\n3\n";
  struct Row {
    std::string entity, layer;
    int pen;
  };
  const int red = penOfColour(1, -1);
  const int green = penOfColour(3, -1);
  const std::vector<Row> rows = {{line("1F", shared), "A", red},
                                 {line("20", shared), "A", red},
                                 {line("21", "8\nA\n", "62\n3\n"), "A", green},  // after its coordinates
                                 {line("22", "8\nA\n"), "A", kPenByLayer},
                                 {line("", headOfB), "B", green},
                                 {line("", headOfB), "B", green},
                                 {line("", "8\nBB\n62\n3\n"), "BB", green},
                                 {line("23", headOfB), "B", green},
                                 {line("", "62\n1\n8\nB\n62\n3\n"), "B", red},  // the first of two counts
                                 {line("", "62\n1\n8\nB\n"), "B", red},
                                 {line("", "8\nB\n62\n1\n8\nA\n"), "B", red},
                                 {line("", ""), "0", kPenByLayer}};
  for (const bool twice : {false, true}) {
    std::string all;
    for (const Row& row : rows) { all += row.entity + (twice ? row.entity : ""); }
    const Drawing drawing = readText(entities(all)).drawing;
    ASSERT_EQ(drawing.count(), rows.size() * (twice ? 2 : 1));
    drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
      const size_t row = (static_cast<size_t>(id) - 1) / (twice ? 2 : 1);
      EXPECT_EQ(drawing.layer(primitive.layer)->name, rows[row].layer) << row;
      EXPECT_EQ(primitive.pen, rows[row].pen) << row;
    });
  }
  const std::string bad = "0\nLINE\n5\n30\n" + shared + "10\nabc\n";
  const std::string reason = dxfReason(entities(line("1F", shared) + line("20", shared) + bad));
  EXPECT_NE(reason.find("line 52:"), std::string::npos) << reason;
}

TEST(DxfReader, CutAnywhereItIsRefused) {
  RandomDrawing random(3);
  for (int change = 0; change < 20; ++change) { random.change(); }
  const std::string whole = drawingDxf(random.drawing);
  for (size_t length = 0; length + 4 < whole.size(); length += 37) {
    const std::string part = whole.substr(0, length);
    // Cut right after the entities it is read, and that its end is missing is told.
    const std::string reason = dxfReason(part);
    ASSERT_NE(reason.empty() ? readText(part).notRead : reason, "") << length;
  }
}

TEST(DxfReader, LineEndsOfEverySystemAreTheSame) {
  for (const char* end : {"\r\n", "\r"}) {
    const ReadDrawing read = readText("\xEF\xBB\xBF" + withLineEnds(entities(kLine), end));
    ASSERT_EQ(read.drawing.count(), 1U);
    EXPECT_EQ(std::get<Line>(read.drawing.find(1)->geometry).b, (Point{3, 4}));
  }
}

}  // namespace
}  // namespace brevan

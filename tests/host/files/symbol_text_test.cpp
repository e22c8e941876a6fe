#include "host/files/symbol_text.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/files/drawing_files.h"
#include "tests/failure.h"

namespace brevan {
namespace {

namespace fs = std::filesystem;

Box boxOf(const SymbolDefinition& symbol) {
  Drawing drawing;
  Box box;
  for (const Primitive& part : symbol.parts) {
    const Arc* arc = std::get_if<Arc>(&part.geometry);
    box.add(arc == nullptr ? drawing.bounds(part) : arcBounds(*arc));
  }
  return box;
}

Drawing shipped(const std::string& file) { return readDrawing(SOURCE_ROOT "/data/symbols/" + file).drawing; }

constexpr double kSame = 1e-6;

TEST(SymbolText, StatementsAreReadAndMistakesNamedWithTheirLine) {
  const Drawing drawing = drawingFromSymbolText(
      "size real # mm\r\nsymbol A\n line 0 0 1 0 1 1\n closed 0 0 1 0 1 1\n arc 0 0 2 0 90\nupturned B A", "a.sym");
  ASSERT_EQ(drawing.symbols().size(), 2U);
  EXPECT_EQ(drawing.symbol("A")->parts.size(), 6U);
  EXPECT_FALSE(drawing.symbol("A")->paperSize);
  EXPECT_NEAR(boxOf(*drawing.symbol("B")).low.y, -2.0, kSame);
  EXPECT_EQ(drawing.count(), 4U) << "each symbol is shown once, with its name";
  const std::pair<const char*, const char*> mistakes[] = {
      {"symbol A\nfly 1\n", "a.sym:2: there is no statement \"fly\""},
      {"line 0 0 1 1", "a.sym:1: a symbol's name comes before what is drawn in it"},
      {"symbol A\nline 0 0 1 1 2", "a.sym:2: the last point lacks its y"},
      {"symbol A\ncircle 0 0 1,5", "a.sym:2: a number is expected, got \"1,5\""},
      {"symbol A\ncircle 0 0 0", "a.sym:2: a radius is above 0"},
      {"symbol A\nsymbol A", "a.sym:2: there is a symbol \"A\" already"}};
  for (const auto& [text, told] : mistakes) {
    EXPECT_EQ(failureOf([&] { drawingFromSymbolText(text, "a.sym"); }), told);
  }
}

// The names that the weld dialog's choices stand for.
TEST(ShippedSymbols, WeldsHangBelowTheLineAndTheirMirroredOnesStandOnIt) {
  const Drawing welds = shipped("MechWelds.sym");
  for (const char* name : {"SQUARE", "V", "BEVEL", "U", "J", "F_BEVEL", "FLARE_V", "FLANGE_EDGE", "FLANGE_CORNER",
                           "FILLET", "BEAD", "SURFACING", "FUSION", "PLUG", "STUD"}) {
    const SymbolDefinition* plain = welds.symbol(name);
    const SymbolDefinition* mirrored = welds.symbol(std::string("_") + name);
    ASSERT_TRUE(plain != nullptr && mirrored != nullptr) << name;
    const Box below = boxOf(*plain);
    const Box above = boxOf(*mirrored);
    EXPECT_TRUE(below.low.y >= -4.0 - kSame && below.high.y <= kSame) << name;
    EXPECT_NEAR(above.high.y, -below.low.y, kSame) << name;
    EXPECT_NEAR(above.low.x, below.low.x, kSame) << name << ": upright strokes stay left";
    EXPECT_TRUE(plain->paperSize);
  }
  for (const char* name : {"FLUSH", "CONVEX", "CONCAVE"}) {
    const Box contour = boxOf(*welds.symbol(name));
    EXPECT_TRUE(contour.low.y > 4.0 && contour.high.y < 5.0) << name << " lies between symbol and finish letter";
  }
  EXPECT_TRUE(welds.symbol("SITE") != nullptr && welds.symbol("ALL_ROUND") != nullptr);
}

TEST(ShippedSymbols, TolerancesAndLaysFillTheirCells) {
  const Drawing tolerances = shipped("MechTolerances.sym");
  EXPECT_EQ(tolerances.symbols().size(), 25U);
  for (const char* file : {"MechTolerances.sym", "MechSurfaceFinish.sym"}) {
    const Drawing drawing = shipped(file);
    for (const auto& [name, symbol] : drawing.symbols()) {
      if (name == "TS_DATUM") { continue; }
      const Box box = boxOf(symbol);
      EXPECT_TRUE(box.low.x >= 0.0 && box.low.y >= 0.0 && box.high.x <= 10.0 && box.high.y <= 10.0) << name;
      EXPECT_GT(std::max(box.width(), box.height()), 5.0) << name;
    }
  }
  EXPECT_EQ(shipped("MechSurfaceFinish.sym").symbols().size(), 6U);
}

TEST(ShippedSymbols, OpeningsHaveAPlanAndAnElevationAsWide) {
  size_t openings = 0;
  for (const char* folder : {"Windows", "Doors"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_ROOT "/data/symbols") / folder)) {
      const std::string name = entry.path().stem().string();
      const Drawing drawing = readDrawing(entry.path().string()).drawing;
      const SymbolDefinition* plan = drawing.symbol(name + "P");
      const SymbolDefinition* elevation = drawing.symbol(name + "PE");
      ASSERT_TRUE(plan != nullptr && elevation != nullptr) << name;
      const double width = numberText::leadingDouble(name.substr(name.find_first_of("123456789"))).value_or(0.0);
      EXPECT_NEAR(boxOf(*plan).width(), width, kSame);
      const Box face = boxOf(*elevation);
      EXPECT_NEAR(face.width(), width, kSame);
      EXPECT_TRUE(face.low.x == 0.0 && face.high.y == 0.0) << name << " hangs from its head";
      EXPECT_FALSE(plan->paperSize || elevation->paperSize);
      ++openings;
    }
  }
  EXPECT_GE(openings, 10U);
}

}  // namespace
}  // namespace brevan

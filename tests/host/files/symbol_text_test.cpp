#include "host/files/symbol_text.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "tests/failure.h"

namespace brevan {
namespace {

Box boxOf(const SymbolDefinition& symbol) {
  Drawing drawing;
  Box box;
  for (const Primitive& part : symbol.parts) {
    const Arc* arc = std::get_if<Arc>(&part.geometry);
    box.add(arc == nullptr ? drawing.bounds(part) : arcBounds(*arc));
  }
  return box;
}

TEST(SymbolText, StatementsAreReadAndMistakesNamedWithTheirLine) {
  const Drawing drawing = drawingFromSymbolText(
      "size real # mm\r\nsymbol A\n line 0 0 1 0 1 1\n closed 0 0 1 0 1 1\n arc 0 0 2 0 90\nupturned B A", "a.sym");
  ASSERT_EQ(drawing.symbols().size(), 2U);
  EXPECT_EQ(drawing.symbol("A")->parts.size(), 6U);
  EXPECT_FALSE(drawing.symbol("A")->paperSize);
  EXPECT_NEAR(boxOf(*drawing.symbol("B")).low.y, -2.0, 1e-6);
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

}  // namespace
}  // namespace brevan

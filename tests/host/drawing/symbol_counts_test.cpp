#include "host/drawing/symbol_counts.h"

#include <gtest/gtest.h>

#include "host/drawing/drawing.h"
#include "tests/failure.h"

namespace brevan {
namespace {

SymbolDefinition holding(const std::string& name, const std::vector<std::string>& inner) {
  SymbolDefinition symbol{name, {}};
  for (const std::string& held : inner) { symbol.parts.push_back({.geometry = Symbol{held, {}}}); }
  return symbol;
}

struct Family {
  std::string told;  // "": taken
  std::vector<SymbolDefinition> symbols;
};

std::string level(int number) { return "T" + std::to_string(1000 + number); }

Family chain(int length, const std::string& told) {
  Family family{told, {}};
  for (int n = 0; n < length; ++n) { family.symbols.push_back(holding(level(n), {level(n + 1)})); }
  return family;
}

Family tree(int depth, std::vector<Primitive> leaf, const std::string& told) {
  Family family{told, {{level(0), std::move(leaf)}}};
  for (int n = 1; n <= depth; ++n) { family.symbols.push_back(holding(level(n), {level(n - 1), level(n - 1)})); }
  return family;
}

std::vector<Family> families() {
  return {
      {"contains itself.", {holding("LOOP", {"LOOP"})}},
      {"contains itself.", {holding("HEN", {"EGG"}), holding("EGG", {"HEN"})}},
      {"contains itself.", {holding("A", {}), holding("B", {"A", "C"}), holding("C", {"D"}), holding("D", {"B"})}},
      chain(64, ""),
      chain(65, "lies deeper than 64 symbols within symbols."),
      chain(500, "lies deeper than 64 symbols within symbols."),
      tree(12, {}, ""),
      tree(40, {}, "expands to more than 1000000 parts."),
      tree(40, {{.geometry = Line{{0, 0}, {1, 1}}}}, "expands to more than 1000000 parts."),
      {"", {holding("WINDOW", {"FRAME", "PANE", "FRAME"}), holding("FRAME", {}), holding("DOOR", {"FRAME"})}},
  };
}

void expectTold(const std::string& reason, const Family& family) {
  EXPECT_EQ(reason.empty(), family.told.empty()) << reason;
  EXPECT_NE(reason.find(family.told), std::string::npos) << reason;
}

TEST(SymbolCounts, EndlessSymbolsNeverEnterADrawingInWhateverOrderTheyCome) {
  for (const Family& family : families()) {
    for (const bool backwards : {false, true}) {
      std::vector<SymbolDefinition> symbols = family.symbols;
      if (backwards) { std::reverse(symbols.begin(), symbols.end()); }
      Drawing drawing;
      drawing.add({.geometry = Symbol{symbols.front().name, {}}});
      const std::string reason = failureOf([&] {
        for (const SymbolDefinition& symbol : symbols) { drawing.addSymbol(symbol); }
      });
      expectTold(reason, family);
      EXPECT_LE(drawing.symbolParts(symbols.back().name), SymbolCounts::kMostParts);
      if (reason.empty()) { EXPECT_FALSE(drawing.extents().empty()); }
      while (drawing.undo()) {}
      EXPECT_TRUE(drawing.symbols().empty());
    }
  }
}

TEST(SymbolCounts, EndlessSymbolsAreToldWhereLoadingEnds) {
  for (const Family& family : families()) {
    Drawing drawing;
    drawing.beginLoading();
    for (const SymbolDefinition& symbol : family.symbols) { drawing.addSymbol(symbol); }
    expectTold(failureOf([&] { drawing.endLoading(); }), family);
  }
}

TEST(SymbolCounts, TooManyPlacedPartsAreToldWhereLoadingEnds) {
  Drawing drawing;
  drawing.beginLoading();
  const Family pair = tree(18, {}, "");
  for (const SymbolDefinition& symbol : pair.symbols) { drawing.addSymbol(symbol); }
  for (int count = 0; count < 20; ++count) { drawing.add({.geometry = Symbol{level(18), {}}}); }
  EXPECT_NE(failureOf([&] { drawing.endLoading(); }).find("come to more than 10000000 parts"), std::string::npos);
}

TEST(SymbolCounts, WhatIsDefinedAnewIsCountedAnew) {
  Drawing drawing;
  drawing.addSymbol(holding("OUTER", {"INNER", "INNER"}));
  EXPECT_EQ(drawing.symbolParts("OUTER"), 3U);
  drawing.addSymbol(holding("INNER", {"DOT", "DOT", "DOT"}));
  EXPECT_EQ(drawing.symbolParts("OUTER"), 9U);
  EXPECT_THROW(drawing.addSymbol(holding("DOT", {"OUTER"})), RefusedChange);
  EXPECT_EQ(drawing.symbolParts("OUTER"), 9U);
  drawing.undo();
  EXPECT_EQ(drawing.symbolParts("OUTER"), 3U);
}

}  // namespace
}  // namespace brevan

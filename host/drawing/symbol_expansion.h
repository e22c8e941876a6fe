#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// Symbols may hold symbols. Before a symbol is shown, what it expands to is counted, so that one that
// contains itself, or one of few bytes and endless strokes, is refused by name and never walked.
class SymbolExpansion {
 public:
  static constexpr size_t kMostParts = 1'000'000;
  static constexpr size_t kDeepest = 64;

  explicit SymbolExpansion(const Drawing& drawing, size_t mostParts = kMostParts)
      : drawing_(drawing), mostParts_(mostParts) {}

  // Null for a name without definition. Throws HostFailure for a symbol that contains itself, that nests
  // deeper than kDeepest, or that expands to more parts than allowed.
  const SymbolDefinition* definition(std::string_view name);
  // What it expands to, each symbol itself counted; 1 for a name without definition. Throws alike.
  size_t parts(std::string_view name);

 private:
  size_t partsOf(std::string_view name);

  const Drawing& drawing_;
  size_t mostParts_;
  std::map<std::string, size_t, std::less<>> parts_;
  std::vector<std::string_view> open_;
};

// A symbol's definition with all that it is made of; the other drawing's own definition of a name stays.
void copyDefinition(const Drawing& from, std::string_view name, Drawing& onto);

// From a symbol's own millimetres to the coordinates in which it is placed.
Transform symbolPlacement(const Symbol& symbol, double size);

// What stands for a symbol whose definition is not there: a crossed square of 3 mm.
std::vector<Geometry> missingSymbolStrokes();

// A text that keeps its place but reads from the other side.
Text turnedOver(Text text);

}  // namespace brevan

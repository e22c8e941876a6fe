#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "host/drawing/symbol_definition.h"

namespace brevan {

// Symbols may hold symbols. What each expands to is counted once, when its definition enters the drawing, so that one
// that contains itself, or one of few bytes and endless strokes, is refused by name and nobody ever walks it.
class SymbolCounts {
 public:
  using Definitions = std::map<std::string, SymbolDefinition, std::less<>>;
  // The most parts of one symbol, each symbol within it counted, too.
  static constexpr size_t kMostParts = 1'000'000;
  // The most parts that all symbols of a drawing from a file come to together, and those that one picture shows.
  static constexpr size_t kMostPlacedParts = 10'000'000;
  // Symbols within symbols, so that whoever follows them may call himself.
  static constexpr size_t kDeepest = 64;

  // Throws RefusedChange that names a symbol which contains itself, nests too deep or expands to too many parts.
  void countAll(const Definitions& definitions);
  // As if this definition stood among them. What refers to it is counted anew, all else is known.
  void countWith(const Definitions& definitions, const SymbolDefinition& added);
  // Definitions were taken away or put back.
  void forget() { counts_.clear(); }
  [[nodiscard]] bool empty() const { return counts_.empty(); }
  // 1 for a name without definition. Ask only where something was counted.
  [[nodiscard]] size_t parts(std::string_view name) const;

 private:
  struct Count {
    size_t parts = 1;   // so that a tree of empty symbols comes to something, too
    size_t height = 0;  // symbols within symbols, 1 for one that holds none
  };
  using Counts = std::map<std::string, Count, std::less<>>;
  class Counting;

  Counts counts_;  // names without definition included
};

}  // namespace brevan

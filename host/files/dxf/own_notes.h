#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/drawing/drawing.h"

namespace brevan {

// What DXF has no place for stands in comments of the files that this program writes, so that they come back
// whole; other programs pass them over.

std::string parametersNote(const Parameters& parameters);
std::string sheetNote(const Sheet& sheet);
// The note of a symbol's block; null where the symbol's definition is not there.
std::string symbolNote(const SymbolDefinition* symbol);

struct DxfOwnNotes {
  std::optional<Parameters> parameters;
  std::optional<Sheet> sheet;
  // False for a note that begins as ours and is none; comments of others are passed over.
  bool take(std::string_view comment);
};

// What a block was in the drawing that it was written from; what this program wrote as a symbol is one again.
struct DxfBlockOrigin {
  enum class Kind { kForeign, kPaperSymbol, kRealSymbol, kMissingSymbol };
  Kind kind = Kind::kForeign;
  bool upright = false;
};
// Nothing for a comment that says nothing of a symbol.
std::optional<DxfBlockOrigin> readSymbolNote(std::string_view comment);

// Groups are described as "PARENT NAME"; the group's own name in its dictionary tells where one ends, though it
// may have been made unique with a number after it.
struct GroupName {
  std::string parent;
  std::string name;
};
GroupName ownGroupName(std::string_view description, std::string_view dictionaryName);

}  // namespace brevan

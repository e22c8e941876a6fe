#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/drawing/drawing.h"
#include "host/files/dxf_blocks.h"

namespace brevan {

// What DXF has no place for stands in comments of the files that this program writes, so that they come back
// whole; other programs pass them over.

std::string parametersNote(const Parameters& parameters);
std::string sheetNote(const Sheet& sheet);
// Of a symbol's block; null: the symbol's definition is not there.
std::string symbolNote(const SymbolDefinition* symbol);

struct DxfOwnNotes {
  std::optional<Parameters> parameters;
  std::optional<Sheet> sheet;
  // False for a note that begins as ours and is none; comments of others are passed over.
  bool take(std::string_view comment);
};
void readSymbolNote(std::string_view comment, DxfBlockRead& block);

// Groups are described as "PARENT NAME"; the group's own name in its dictionary tells where one ends, though it
// may have been made unique with a number after it.
struct GroupName {
  std::string parent;
  std::string name;
};
GroupName ownGroupName(std::string_view description, std::string_view dictionaryName);

}  // namespace brevan

#pragma once

#include <string>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/scripts/script_cursor.h"

namespace brevan {

// The items that a statement's words name by their ids: "12", or "12-40" for all from one to another. Fails where the
// drawing has one of them not.
std::vector<PrimitiveId> itemsOf(const ScriptCursor& cursor, const Statement& statement, const Drawing& drawing);

// The words for these items, which are in drawing order: " 3 7-12".
std::string itemRanges(const std::vector<PrimitiveId>& items);

}  // namespace brevan

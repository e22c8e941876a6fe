#pragma once

#include "host/scripts/script_cursor.h"
#include "host/window/drawing_window.h"

namespace brevan {

// What the statements `draw`, `style` and `textstyle` give; bad values fail with the rule.
Geometry plainGeometry(const ScriptCursor& cursor, const Statement& statement, DrawingWindow& window);
DrawingStyle styleOf(const ScriptCursor& cursor, const Statement& statement);
// Font, height, width factor, justification and pen; the other members are as new.
Text textOfStyle(const ScriptCursor& cursor, const Statement& statement);

}  // namespace brevan

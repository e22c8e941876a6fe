#pragma once

#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// What a user selects by clicks and windows: whole parts, that is, items with the others of their group. What is
// hidden or locked is never selected and counts for nothing.

// On a layer that is visible and not locked.
bool isChangeable(const Drawing& drawing, PrimitiveId id);

// The item and what belongs to it, in drawing order; nothing for one that is hidden or locked.
std::vector<PrimitiveId> partOf(const Drawing& drawing, PrimitiveId id);

// Adds the part to the selection, or takes it out where the item is selected.
void togglePart(Drawing& drawing, PrimitiveId id);

enum class WindowTakes { kWhatItHolds, kWhatItTouches };

// As windows are drawn on the sheet: from left to right for what they hold, from right to left for what they touch.
WindowTakes windowTakes(const Drawing& drawing, Point corner, Point opposite);

// Adds the parts of which the box holds all or, for the other kind, touches any.
void selectParts(Drawing& drawing, const Box& box, WindowTakes takes);

}  // namespace brevan

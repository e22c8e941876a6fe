#pragma once

#include <string>

#include "host/drawing/drawing.h"
#include "host/files/json_text.h"

namespace brevan {

// The whole drawing as UTF-8 JSON, a primitive a line, in drawing order.
std::string drawingJson(const Drawing& drawing);

// The members of one primitive ("id", "type", ...), so that a transcript can put its own before them. None
// for an id that is not there. Two members mean the part that is seen: "pen" of a text is its font's pen,
// "width" of an arrow its head's width; the arrow's line width is "lineWidth".
void addPrimitiveMembers(JsonObject& object, const Drawing& drawing, PrimitiveId id);

}  // namespace brevan

#pragma once

#include <string_view>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// A symbol's definition with all that it is made of; the other drawing's own definition of a name stays.
void copyDefinition(const Drawing& from, std::string_view name, Drawing& onto);

// From a symbol's own millimetres to the coordinates in which it is placed.
Transform symbolPlacement(const Symbol& symbol, double size);

// What stands for a symbol whose definition is not there: a crossed square of 3 mm.
std::vector<Geometry> missingSymbolStrokes();

// A text that keeps its place but reads from the other side.
Text turnedOver(Text text);

}  // namespace brevan

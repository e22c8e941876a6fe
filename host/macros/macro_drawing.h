#pragma once

#include <optional>
#include <string>

#include "host/drawing/primitive.h"
#include "host/geometry/curve.h"

namespace brevan {

class Drawing;
class DrawingWindow;

// What the commands that draw, cut and trace share.

// The line or arc that a primitive is; nothing for the other kinds.
std::optional<Curve> curveOf(const Primitive& primitive);
Geometry geometryOf(const Curve& curve);
// Draws in the current style on the current layer, into the open group.
PrimitiveId drawInStyle(DrawingWindow& window, Geometry geometry);
// The line or arc whose curve is nearest to the point within reach, on a visible layer; what the open group
// holds comes first. 0: none.
PrimitiveId nearestCurve(DrawingWindow& window, Point p, double reach);
// Whether the drawing, or a symbol file that was loaded, defines a symbol of this name.
bool hasSymbol(DrawingWindow& window, const std::string& name);
// Brings such a symbol into the drawing with all that it is made of; the drawing's own definition of a name stays.
void takeSymbol(DrawingWindow& window, const std::string& name);
// The same for a drawing that only shows it.
void copySymbol(DrawingWindow& window, const std::string& name, Drawing& onto);
// Places a symbol as a pattern of its own, named for it.
PrimitiveId placeSymbol(DrawingWindow& window, Symbol symbol);
// The group that is open and has members; 0 where there is none.
GroupId groupInTheMaking(DrawingWindow& window);

}  // namespace brevan

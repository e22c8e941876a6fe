#pragma once

#include <optional>
#include <string_view>

#include "host/window/cursor.h"

namespace brevan {

class DrawingWindow;

// The user's next point; nothing when the prompt was left.
std::optional<Point> askPoint(DrawingWindow& window, std::string_view prompt);
// The same with a rubber band from a point that was given, or with what the point would make.
std::optional<Point> askPointFrom(DrawingWindow& window, Point from, std::string_view prompt,
                                  Cursor::Rubber rubber = nullptr);

// The sides of an upright rectangle by two corners.
std::vector<Geometry> boxOf(Point corner, Point opposite);

// Makes sure that something is selected: asks for items where nothing is. False when the user wants none.
bool askSelection(DrawingWindow& window);

}  // namespace brevan

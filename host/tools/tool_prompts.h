#pragma once

#include <optional>
#include <string_view>

#include "host/geometry/point.h"

namespace brevan {

class DrawingWindow;

// The user's next point; nothing when the prompt was left.
std::optional<Point> askPoint(DrawingWindow& window, std::string_view prompt);
// The same with a rubber band from a point that was given.
std::optional<Point> askPointFrom(DrawingWindow& window, Point from, std::string_view prompt);

// Makes sure that something is selected: asks for items where nothing is. False when the user wants none.
bool askSelection(DrawingWindow& window);

}  // namespace brevan

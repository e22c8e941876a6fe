#pragma once

// What the drawing tools do; one function a row of their table.
namespace brevan {

class DrawingWindow;

namespace toolHandlers {

// draw_tools.cpp
void line(DrawingWindow& window);
void polyline(DrawingWindow& window);
void rectangle(DrawingWindow& window);
void circle(DrawingWindow& window);
void arc(DrawingWindow& window);
void text(DrawingWindow& window);

// change_tools.cpp
void select(DrawingWindow& window);
void erase(DrawingWindow& window);
void move(DrawingWindow& window);
void copy(DrawingWindow& window);
void rotate(DrawingWindow& window);
void mirror(DrawingWindow& window);
void group(DrawingWindow& window);
void ungroup(DrawingWindow& window);

// wall_tool.cpp
void joinwalls(DrawingWindow& window);

// hatch_tool.cpp
void hatch(DrawingWindow& window);

// trim_tool.cpp
void trim(DrawingWindow& window);

}  // namespace toolHandlers

}  // namespace brevan

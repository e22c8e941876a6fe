#include "host/geometry/fillet.h"
#include "host/tools/tool_handlers.h"
#include "host/tools/tool_prompts.h"
#include "host/window/drawing_window.h"

namespace brevan::toolHandlers {

namespace {

constexpr std::string_view kNextPoint = "Indicate the next point (space bar to stop)";

void chain(DrawingWindow& window, Point from, GroupId group) {
  while (const auto to = askPointFrom(window, from, kNextPoint)) {
    if (*to == from) { continue; }
    window.addPlain(Line{from, *to}, group);
    from = *to;
  }
}

GroupId newChain(DrawingWindow& window) { return window.drawing().addGroup("", "POLY"); }

}  // namespace

void line(DrawingWindow& window) {
  while (const auto from = askPoint(window, "Indicate the start of the line (space bar to stop)")) {
    chain(window, *from, 0);
    if (window.gsEscapePressed() != 0) { return; }
  }
}

void polyline(DrawingWindow& window) {
  const auto from = askPoint(window, "Indicate the start of the polyline");
  if (!from) { return; }
  chain(window, *from, newChain(window));
}

void rectangle(DrawingWindow& window) {
  const auto first = askPoint(window, "Indicate a corner of the rectangle");
  if (!first) { return; }
  const auto opposite = askPointFrom(window, *first, "Indicate the opposite corner",
                                     [&first](Point corner) { return boxOf(*first, corner); });
  if (!opposite || opposite->x == first->x || opposite->y == first->y) { return; }
  const GroupId group = newChain(window);
  for (Geometry& side : boxOf(*first, *opposite)) { window.addPlain(std::move(side), group); }
}

void circle(DrawingWindow& window) {
  while (const auto centre = askPoint(window, "Indicate the circle's centre (space bar to stop)")) {
    const auto on = askPointFrom(window, *centre, "Indicate a point on the circle", [&centre](Point through) {
      return std::vector<Geometry>{Arc{through, *centre, through}, Line{*centre, through}};
    });
    if (!on) { return; }
    if (!(*on == *centre)) { window.addPlain(Arc{*on, *centre, *on}); }
  }
}

void arc(DrawingWindow& window) {
  const auto from = askPoint(window, "Indicate the start of the arc");
  if (!from) { return; }
  const auto through = askPointFrom(window, *from, "Indicate a point on the arc");
  if (!through) { return; }
  const auto to = askPointFrom(window, *through, "Indicate the end of the arc", [&](Point end) {
    const auto shape = arcThrough(*from, *through, end);
    return shape ? std::vector<Geometry>{Arc{*shape}} : std::vector<Geometry>{Line{*from, end}};
  });
  if (!to) { return; }
  const auto shape = arcThrough(*from, *through, *to);
  if (!shape) {
    window.gsSetStatus("The three points lie on one line: no arc passes through them.");
    return;
  }
  window.addPlain(*shape);
}

void text(DrawingWindow& window) {
  while (const auto at = askPoint(window, "Indicate the position of the text (space bar to stop)")) {
    std::string words;
    window.gsGetTextFromPromptBar("Text:", words, 255);
    if (words.empty()) { return; }
    const TextDefaults& defaults = window.textDefaults();
    Text drawn;
    drawn.at = *at;
    drawn.text = words;
    drawn.font = defaults.font;
    drawn.height = defaults.height;
    drawn.widthFactor = defaults.width == 0.0 ? 1.0 : defaults.width;
    drawn.angle = defaults.angle;
    drawn.justification = defaults.justification;
    drawn.style = defaults.style;
    drawn.pen = defaults.pen;
    window.addPlain(std::move(drawn));
  }
}

}  // namespace brevan::toolHandlers

#include <algorithm>

#include "host/drawing/boundary_map.h"
#include "host/drawing/drawing.h"
#include "host/geometry/parallel_path.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

constexpr size_t kFixedArguments = 7;
constexpr size_t kArgumentsPerLine = 4;
constexpr double kMostLines = 64.0;
constexpr double kSharpestEnd = 1.0;  // degrees

constexpr std::string_view kFirstPrompt = "Indicate the start of the parallel lines";
constexpr std::string_view kNextPrompt = "Indicate the next point of the parallel lines (space bar to stop)";
constexpr std::string_view kFigurePrompt = "Indicate a position outside the figure to follow";
constexpr std::string_view kPerimeterPrompt = "Indicate the perimeter to follow";

// A line that leans by half a turn more is the same line.
double endAngle(const MacroRun& run, size_t argument) {
  constexpr double kHalfTurn = 180.0;
  const double angle = std::fmod(run.number(argument), kHalfTurn);
  if (angle < kSharpestEnd || angle > kHalfTurn - kSharpestEnd) {
    throw MacroError(run.column(argument), "an end's angle is 1 to 179 degrees, or 181 to 359");
  }
  return angle;
}

bool flag(const MacroRun& run, size_t argument) {
  const double value = run.number(argument);
  if (value != 0.0 && value != 1.0) { throw MacroError(run.column(argument), "PARLLDEF expects 0 or 1 here"); }
  return value == 1.0;
}

ParallelLine parallelLine(const MacroRun& run, size_t first) {
  const double linetype = run.number(first);
  const int pen = run.pen(first + 1);
  if (linetype < 1.0 || linetype != std::floor(linetype)) {
    throw MacroError(run.column(first), "a line type is 1 or more");
  }
  if (pen != run.number(first + 1)) { throw MacroError(run.column(first + 1), "a pen is a whole number"); }
  if (run.number(first + 2) < 0.0) { throw MacroError(run.column(first + 2), "a line width is 0 or more"); }
  return {static_cast<int>(linetype), pen, run.number(first + 2), run.number(first + 3)};
}

// What is followed, and whether it closes.
struct Path {
  std::vector<Curve> curves;
  bool closed = false;
};

std::optional<Point> ask(DrawingWindow& window, std::string_view prompt) {
  Point at;
  return window.gsGetPointFromUser(prompt, at.x, at.y) == 0 ? std::optional<Point>(at) : std::nullopt;
}

// Point after point, until the user has enough or comes back to the first.
Path pathOfPoints(DrawingWindow& window, Point first) {
  Path path;
  Point last = first;
  while (const auto next = ask(window, kNextPrompt)) {
    if (distance(*next, last) <= BoundaryMap::kJoin) { continue; }
    constexpr size_t kFewestBefore = 2;
    path.closed = path.curves.size() >= kFewestBefore && distance(*next, first) <= BoundaryMap::kJoin;
    path.curves.emplace_back(Segment{last, path.closed ? first : *next});
    if (path.closed) { break; }
    last = *next;
  }
  return path;
}

void drawParallel(DrawingWindow& window, const ParallelLine& line, const std::vector<Curve>& curves) {
  for (const Curve& curve : curves) {
    window.addDrawn(
        Primitive{window.drawing().currentLayer(), line.pen, line.linetype, line.width, 0, geometryOf(curve)});
  }
}

struct Drawn {
  ParallelLine line;
  std::vector<Curve> curves;
};

// From each line to its neighbour, in the style of the one that lies further out: the faces of a wall close its end
// and the edges of its foundation close theirs.
void closeEnds(DrawingWindow& window, std::vector<Drawn> drawn) {
  std::ranges::stable_sort(drawn, {}, [](const Drawn& each) { return each.line.offset; });
  const double middle = (drawn.front().line.offset + drawn.back().line.offset) / 2.0;
  for (size_t place = 0; place + 1 < drawn.size(); ++place) {
    const Drawn& left = drawn[place];
    const Drawn& right = drawn[place + 1];
    if (left.line.offset == right.line.offset) { continue; }
    const bool leftIsOuter = middle - left.line.offset >= right.line.offset - middle;
    drawParallel(window, leftIsOuter ? left.line : right.line,
                 {Segment{startOf(left.curves.front()), startOf(right.curves.front())},
                  Segment{endOf(left.curves.back()), endOf(right.curves.back())}});
  }
}

void drawAll(MacroRun& run, const Path& path) {
  DrawingWindow& window = run.window;
  const ParallelDefinition& definition = *window.macroState().parallels;
  const EndAngles angles{radians(definition.startAngle), radians(definition.endAngle)};
  std::vector<Drawn> drawn;
  if (!definition.tracks) {
    const DrawingStyle& style = window.style();
    drawn.push_back({{style.linetype, style.pen, style.width, 0.0}, path.curves});
  }
  for (const ParallelLine& line : definition.lines) {
    drawn.push_back({line, parallelOf(path.curves, path.closed, line.offset, definition.roundsCorners, angles)});
    if (drawn.back().curves.empty()) {
      throw MacroError(1, "the figure is too narrow for the offset of its parallel line");
    }
  }
  for (const Drawn& each : drawn) { drawParallel(window, each.line, each.curves); }
  if (definition.closesEnds && !path.closed && !drawn.empty()) { closeEnds(window, std::move(drawn)); }
}

void follow(MacroRun& run, Point p) {
  const auto outline = run.window.boundaries().outlineNear(p);
  if (!outline) { throw MacroError(run.column(0), "no figure to follow lies near this point"); }
  drawAll(run, {outline->curves, outline->closed});
}

constexpr const char* kNoPerimeter = "the line nearest to this point belongs to no closed figure";

Loop perimeterAt(DrawingWindow& window, Point p) { return window.boundaries().figureOfNearest(p); }

// The one given, or asked for until one is pointed at.
void followPerimeter(MacroRun& run, std::optional<Point> given) {
  if (given) {
    const Loop figure = perimeterAt(run.window, *given);
    if (figure.empty()) { throw MacroError(run.column(0), kNoPerimeter); }
    drawAll(run, {figure, true});
    return;
  }
  while (const auto at = ask(run.window, kPerimeterPrompt)) {
    const Loop figure = perimeterAt(run.window, *at);
    if (!figure.empty()) {
      drawAll(run, {figure, true});
      return;
    }
    run.window.gsSetStatus(std::string("PARLLINE: ") + kNoPerimeter);
  }
}

void drawFrom(MacroRun& run, std::optional<Point> first) {
  const auto& definition = run.window.macroState().parallels;
  if (!definition) { throw MacroError(1, "PARLLINE expects PARLLDEF before it"); }
  if (definition->tracks && run.window.macroState().promptsForPerimeter) {
    followPerimeter(run, first);
    return;
  }
  if (!first) { first = ask(run.window, definition->tracks ? kFigurePrompt : kFirstPrompt); }
  if (!first) { return; }
  if (definition->tracks) {
    follow(run, *first);
    return;
  }
  const Path path = pathOfPoints(run.window, *first);
  if (!path.curves.empty()) { drawAll(run, path); }
}

}  // namespace

void defineParallels(MacroRun& run) {
  ParallelDefinition definition;
  definition.tracks = !flag(run, 0);
  definition.startAngle = endAngle(run, 1);
  definition.endAngle = endAngle(run, 2);
  if (run.number(3) != 1.0) { throw MacroError(run.column(3), "PARLLDEF expects 1 here"); }
  definition.closesEnds = flag(run, 4);
  definition.roundsCorners = flag(run, 5);
  const double count = run.number(6);
  if (count < 0.0 || count > kMostLines) { throw MacroError(run.column(6), "PARLLDEF takes 0 to 64 lines"); }
  const auto lines = static_cast<size_t>(count);
  if (run.arguments.size() != kFixedArguments + lines * kArgumentsPerLine) {
    throw MacroError(run.column(6), "PARLLDEF expects line type, pen, width and offset for each of its lines");
  }
  for (size_t line = 0; line < lines; ++line) {
    definition.lines.push_back(parallelLine(run, kFixedArguments + line * kArgumentsPerLine));
  }
  run.window.macroState().parallels = std::move(definition);
}

void drawParallels(MacroRun& run) { drawFrom(run, std::nullopt); }

void drawParallelsFrom(MacroRun& run) { drawFrom(run, run.point(0)); }

}  // namespace brevan::macroHandlers

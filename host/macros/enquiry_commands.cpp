#include <algorithm>
#include <initializer_list>
#include <variant>

#include "host/drawing/area_units.h"
#include "host/drawing/drawing.h"
#include "host/drawing/pens.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

using Value = std::variant<double, std::string>;

// Sets the variables named, from an argument on, in the order of the values.
void answer(MacroRun& run, size_t from, std::initializer_list<Value> values) {
  size_t at = from;
  for (const Value& value : values) {
    if (!run.has(at)) { return; }
    const std::string& name = run.text(at);
    const bool wantsText = name.ends_with('$');
    if (wantsText != std::holds_alternative<std::string>(value)) {
      throw MacroError(run.column(at), name + (wantsText ? " would take a number here" : " would take a text here"));
    }
    if (wantsText) {
      run.variables.setText(name, std::get<std::string>(value));
    } else {
      run.variables.setNumber(name, std::get<double>(value));
    }
    ++at;
  }
  if (run.has(at)) { throw MacroError(run.column(at), "there is nothing more to enquire"); }
}

const Primitive& nearestAtCursor(const MacroRun& run, int type, const char* nothing) {
  const Primitive* found = run.window.drawing().find(run.window.pick(run.window.cursor().position(), type));
  if (found == nullptr) { throw MacroError(1, nothing); }
  return *found;
}

std::string patternName(const Drawing& drawing, GroupId group) {
  return group == 0 ? "" : std::string(drawing.group(group).parent) + " " + drawing.group(group).name;
}

Point nearestPoint(const Primitive& primitive, Point p) {
  if (const auto curve = curveOf(primitive)) { return nearestOn(*curve, p); }
  Point best = p;
  double bestDistance = std::numeric_limits<double>::infinity();
  forEachPoint(primitive.geometry, [&](Point candidate) {
    if (distance(candidate, p) >= bestDistance) { return; }
    best = candidate;
    bestDistance = distance(candidate, p);
  });
  return best;
}

void jumpTo(MacroRun& run, int type, const char* nothing) {
  const Point from = run.window.cursor().position();
  run.window.cursor().setPosition(nearestPoint(nearestAtCursor(run, type, nothing), from));
}

std::string capitals(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) { c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
  return upper;
}

// What an element is, in words; of a symbol the file it came from and its name, in apostrophes.
std::string elementText(const Drawing& drawing, const Primitive& primitive) {
  std::string text = capitals(kindName(primitive.geometry));
  if (const auto* symbol = std::get_if<Symbol>(&primitive.geometry)) {
    const SymbolDefinition* definition = drawing.symbol(symbol->name);
    text += " '" + (definition == nullptr ? std::string() : definition->file) + " " + symbol->name + "'";
    if (symbol->mirrored) { text += " MIRRORED"; }
  }
  return text;
}

}  // namespace

void enquireNearLine(MacroRun& run) {
  const Primitive& found = nearestAtCursor(run, kLinePrimitive, "no line lies at the cursor");
  const Line& line = std::get<Line>(found.geometry);
  answer(run, 0,
         {line.a.x, line.a.y, line.b.x, line.b.y, static_cast<double>(found.pen), static_cast<double>(found.linetype)});
}

void enquireCursor(MacroRun& run) {
  const Point at = run.window.cursor().position();
  answer(run, 0, {at.x, at.y});
}

void enquireNearPattern(MacroRun& run) {
  const Drawing& drawing = run.window.drawing();
  const auto grouped = [&drawing](PrimitiveId, const Primitive& primitive) {
    return primitive.group != 0 && drawing.layer(primitive.layer)->visible;
  };
  const Primitive* found = drawing.find(drawing.nearest(run.window.cursor().position(), aperture(drawing), grouped));
  if (found == nullptr) { throw MacroError(1, "no pattern lies at the cursor"); }
  Box extent;
  for (const PrimitiveId id : drawing.group(found->group).members) { extent.add(drawing.bounds(*drawing.find(id))); }
  answer(run, 0, {patternName(drawing, found->group), extent.low.x, extent.low.y, extent.high.x, extent.high.y});
}

// Its extent is told as it would lie at the origin without its turn, so that the corners of a turned one can be found.
void enquireNearSymbol(MacroRun& run) {
  const Primitive& found = nearestAtCursor(run, kSymbolPrimitive, "no symbol lies at the cursor");
  const Symbol& symbol = std::get<Symbol>(found.geometry);
  Primitive unturned = found;
  unturned.geometry = Symbol{symbol.name, {}, symbol.scale, 0.0, symbol.mirrored};
  const Box own = run.window.drawing().bounds(unturned);
  answer(run, 0,
         {symbol.name, symbol.at.x, symbol.at.y, symbol.scale, symbol.rotation, own.low.x, own.low.y, own.high.x,
          own.high.y});
}

namespace {

// A symbol that stands on a line: how far along, and its middle.
struct SymbolOnLine {
  double along = 0.0;
  Point middle;
};

// Its own x axis runs along the line, which passes through it or bounds it.
std::optional<SymbolOnLine> standsOn(const Drawing& drawing, const Primitive& primitive, const Segment& line) {
  const auto* symbol = std::get_if<Symbol>(&primitive.geometry);
  if (symbol == nullptr || !drawing.layer(primitive.layer)->visible) { return std::nullopt; }
  const Point unit = (line.b - line.a) * (1.0 / distance(line.a, line.b));
  const Point own = unitOfDegrees(symbol->rotation);
  const double millimetre = 1.0 / drawing.parameters().unit();
  constexpr double kParallel = 1e-3;
  if (std::abs(cross(unit, own)) > kParallel) { return std::nullopt; }
  Primitive unturned = primitive;
  unturned.geometry = Symbol{symbol->name, {}, symbol->scale, 0.0, symbol->mirrored};
  const Box box = drawing.bounds(unturned);
  const auto placed = [&](Point p) { return symbol->at + own * p.x + Point{-own.y, own.x} * p.y; };
  const double low = cross(unit, placed(box.low) - line.a);
  const double high = cross(unit, placed(box.high) - line.a);
  const Point middle = placed(box.centre());
  const double along = dot(middle - line.a, unit);
  const bool meets = std::min(low, high) <= millimetre && std::max(low, high) >= -millimetre;
  if (!meets || along < 0.0 || along > distance(line.a, line.b)) { return std::nullopt; }
  return SymbolOnLine{along, middle};
}

// A face that openings have cut: as far as lines of its part run on in one line with it.
Segment wholeFace(const Drawing& drawing, const Segment& line) {
  const Point unit = (line.b - line.a) * (1.0 / distance(line.a, line.b));
  const double close = 1.0 / drawing.parameters().unit();
  const auto isIt = [&](PrimitiveId, const Primitive& primitive) {
    const auto* other = std::get_if<Line>(&primitive.geometry);
    if (primitive.group == 0 || other == nullptr) { return false; }
    const auto ends = [&](Point a, Point b) {
      return distance(other->a, a) <= close && distance(other->b, b) <= close;
    };
    return ends(line.a, line.b) || ends(line.b, line.a);
  };
  const Primitive* const piece = drawing.find(drawing.nearest(middle(line.a, line.b), close, isIt));
  if (piece == nullptr) { return line; }
  double from = 0.0;
  double to = distance(line.a, line.b);
  for (const PrimitiveId id : drawing.group(piece->group).members) {
    const auto* other = std::get_if<Line>(&drawing.find(id)->geometry);
    if (other == nullptr) { continue; }
    for (const Point end : {other->a, other->b}) {
      const bool isOn =
          std::max(std::abs(cross(unit, other->a - line.a)), std::abs(cross(unit, other->b - line.a))) <= close;
      if (!isOn) { break; }
      from = std::min(from, dot(end - line.a, unit));
      to = std::max(to, dot(end - line.a, unit));
    }
  }
  return {line.a + unit * from, line.a + unit * to};
}

}  // namespace

// In their order from the first point.
void symbolOnLine(MacroRun& run) {
  if (run.point(0) == run.point(1)) { throw MacroError(run.column(1), "a line has two different points"); }
  const Drawing& drawing = run.window.drawing();
  const Segment line = wholeFace(drawing, {run.point(0), run.point(1)});
  std::vector<SymbolOnLine> found;
  for (const PrimitiveId id : drawing.inBox(boundsOf(Curve{line}).grownBy(aperture(drawing)))) {
    if (const auto symbol = standsOn(drawing, *drawing.find(id), line)) { found.push_back(*symbol); }
  }
  std::ranges::sort(found, {}, &SymbolOnLine::along);
  const double number = run.number(2);
  const bool isThere = number >= 1.0 && number <= static_cast<double>(found.size());
  const Point middle = isThere ? found.at(static_cast<size_t>(number) - 1).middle : Point{};
  answer(run, 3, {static_cast<double>(found.size()), middle.x, middle.y});
}

void enquireLineDefinition(MacroRun& run) {
  const DrawingStyle& style = run.window.style();
  const Colour colour = penColour(style.pen, Ground::kPaper);
  const auto part = [colour](int shift) { return static_cast<double>(colour >> shift & 0xFFU); };
  // Of the colour by number, the pattern's scale and the filling the host has one each.
  answer(run, 0,
         {static_cast<double>(style.linetype), static_cast<double>(style.pen), style.width,
          static_cast<double>(colourIndex(style.pen)), 1.0, 0.0, part(16), part(8), part(0)});
}

void enquireScale(MacroRun& run) { answer(run, 0, {run.window.drawing().parameters().scale()}); }

void enquirePaper(MacroRun& run) {
  const Drawing& drawing = run.window.drawing();
  if (!drawing.sheet()) { throw MacroError(1, "no paper is set"); }
  const Point centre = sheetCentre(*drawing.sheet(), drawing.parameters());
  answer(run, 0, {centre.x, centre.y, drawing.sheet()->width, drawing.sheet()->height});
}

void enquireTextDefaults(MacroRun& run) {
  const TextDefaults& text = run.window.textDefaults();
  answer(run, 0,
         {text.height, static_cast<double>(text.justification), text.angle, static_cast<double>(text.style), text.width,
          text.font, static_cast<double>(text.pen), 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
}

void enquireAreaUnits(MacroRun& run) {
  const int code = run.window.drawing().parameters().areaUnit();
  const AreaUnit unit = areaUnit(code);
  answer(run, 0, {static_cast<double>(code), std::string(unit.name), unit.millimetres});
}

void enquireLockedAngle(MacroRun& run) { answer(run, 0, {run.window.cursor().lockedAngle().value_or(0.0)}); }

void queryElement(MacroRun& run) {
  const Drawing& drawing = run.window.drawing();
  const Primitive* found = drawing.find(run.window.pick(run.point(0), kAnyPrimitive));
  if (found == nullptr) { throw MacroError(run.column(0), "nothing lies at this point"); }
  answer(run, 1, {elementText(drawing, *found), drawing.layer(found->layer)->name, patternName(drawing, found->group)});
}

void jumpNearLine(MacroRun& run) { jumpTo(run, kLinePrimitive, "no line lies near the cursor"); }

void jumpNear(MacroRun& run) { jumpTo(run, kAnyPrimitive, "nothing lies near the cursor"); }

void enterCoordinate(MacroRun& run) { run.window.cursor().enter({run.number(0), run.number(1)}); }

// What the variable holds is offered as the default.
void enterText(MacroRun& run) {
  const std::string& name = run.text(1);
  if (!name.ends_with('$')) { throw MacroError(run.column(1), "ENTER expects a text variable, ending in \"$\""); }
  const std::string* before = run.variables.text(name);
  std::string typed = before == nullptr ? "" : *before;
  run.window.gsGetTextFromPromptBar(run.text(0), typed, 0);
  run.variables.setText(name, typed);
}

}  // namespace brevan::macroHandlers

#include "host/macros/macro_drawing.h"

#include "host/drawing/drawing.h"
#include "host/window/drawing_window.h"

namespace brevan {

namespace {

const SymbolDefinition* inTable(const SymbolTable* table, const std::string& name) {
  const auto entry = table == nullptr ? SymbolTable::const_iterator() : table->find(name);
  return table == nullptr || entry == table->end() ? nullptr : &entry->second;
}

const SymbolDefinition* definitionOf(DrawingWindow& window, const std::string& name) {
  if (const SymbolDefinition* here = window.drawing().symbol(name)) { return here; }
  if (const SymbolDefinition* loaded = inTable(&window.macroState().symbols, name)) { return loaded; }
  return inTable(window.services().symbols, name);
}

}  // namespace

bool hasSymbol(DrawingWindow& window, const std::string& name) { return definitionOf(window, name) != nullptr; }

void copySymbol(DrawingWindow& window, const std::string& name, Drawing& onto) {
  const SymbolDefinition* definition = definitionOf(window, name);
  if (definition == nullptr || onto.symbol(name) != nullptr) { return; }
  onto.addSymbol(*definition);
  for (const Primitive& part : onto.symbol(name)->parts) {
    if (const auto* inner = std::get_if<Symbol>(&part.geometry)) { copySymbol(window, inner->name, onto); }
  }
}

void takeSymbol(DrawingWindow& window, const std::string& name) { copySymbol(window, name, window.drawing()); }

PrimitiveId placeSymbol(DrawingWindow& window, Symbol symbol) {
  Drawing& drawing = window.drawing();
  const std::string name = symbol.name;
  const GroupId group = drawing.addGroup(window.openGroup().parent(), name);
  const PrimitiveId id = drawInStyle(window, std::move(symbol));
  takeSymbol(window, name);  // last: a placing that is refused leaves none behind
  Primitive grouped = *drawing.find(id);
  grouped.group = group;
  drawing.replace(id, std::move(grouped));
  return id;
}

std::optional<Curve> curveOf(const Primitive& primitive) {
  if (const auto* line = std::get_if<Line>(&primitive.geometry)) { return *line; }
  if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { return *arc; }
  return std::nullopt;
}

Geometry geometryOf(const Curve& curve) {
  return std::visit([](const auto& shape) { return Geometry(shape); }, curve);
}

PrimitiveId drawInStyle(DrawingWindow& window, Geometry geometry) {
  const DrawingStyle& style = window.style();
  return window.addDrawn(
      Primitive{window.drawing().currentLayer(), style.pen, style.linetype, style.width, 0, std::move(geometry)});
}

GroupId groupInTheMaking(DrawingWindow& window) {
  const GroupId open = window.openGroup().idIn(window.drawing());
  const Drawing& drawing = window.drawing();
  return open != 0 && open <= drawing.lastGroup() && !drawing.group(open).members.empty() ? open : 0;
}

PrimitiveId nearestCurve(DrawingWindow& window, Point p, double reach) {
  const Drawing& drawing = window.drawing();
  const GroupId open = groupInTheMaking(window);
  Box around;
  around.add(p);
  PrimitiveId best = 0;
  double bestDistance = reach;
  bool bestIsOpen = false;
  for (const PrimitiveId id : drawing.inBox(around.grownBy(reach))) {
    const Primitive& primitive = *drawing.find(id);
    const auto curve = curveOf(primitive);
    if (!curve || !drawing.layer(primitive.layer)->visible) { continue; }
    const double away = distance(nearestOn(*curve, p), p);
    const bool isOpen = open != 0 && primitive.group == open;
    if (away > reach || (bestIsOpen && !isOpen)) { continue; }
    if (away > bestDistance && isOpen == bestIsOpen) { continue; }
    best = id;
    bestDistance = away;
    bestIsOpen = isOpen;
  }
  return best;
}

}  // namespace brevan

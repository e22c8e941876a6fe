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

void takeSymbol(DrawingWindow& window, const std::string& name) {
  const SymbolDefinition* definition = definitionOf(window, name);
  if (definition == nullptr || window.drawing().symbol(name) != nullptr) { return; }
  window.drawing().addSymbol(*definition);
  for (const Primitive& part : window.drawing().symbol(name)->parts) {
    if (const auto* inner = std::get_if<Symbol>(&part.geometry)) { takeSymbol(window, inner->name); }
  }
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

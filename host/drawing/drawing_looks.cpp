#include <array>
#include <limits>

#include "host/drawing/arrow_shape.h"
#include "host/drawing/dimension_strokes.h"
#include "host/drawing/drawing.h"
#include "host/drawing/drawing_store.h"
#include "host/drawing/symbol_expansion.h"
#include "host/drawing/text_layout.h"

// What lies where: the spatial index, bounds and distances.
namespace brevan {

void Drawing::unindex(PrimitiveId id, Slot& place) {
  if (!place.indexed) { return; }
  index_.remove(bounds(place.primitive), id);
  place.indexed = false;
}

// New and changed primitives enter the tree when something is looked for, so that drawing costs nothing
// here; many, at once or by and by, are packed anew. That walks the drawing, but seldom enough.
void Drawing::flushIndex() const {
  if (unindexed_.empty()) { return; }
  if (index_.insertedSincePacked() + unindexed_.size() > static_cast<size_t>(lastId_) / 2) {
    std::vector<SpatialIndex::Entry> entries;
    entries.reserve(count_);
    forEach([&](PrimitiveId id, const Primitive& primitive) {
      entries.emplace_back(bounds(primitive), id);
      slot(id).indexed = true;
      noteIndexed(primitive.geometry);
    });
    index_.rebuild(entries);
  } else {
    for (const PrimitiveId id : unindexed_) {
      Slot& place = slot(id);
      if (!place.there || place.indexed) { continue; }
      index_.insert(bounds(place.primitive), id);
      place.indexed = true;
      noteIndexed(place.primitive.geometry);
    }
  }
  unindexed_.clear();
}

// A symbol's bounds follow from its definition and from those of the symbols in it.
void Drawing::noteIndexed(const Geometry& geometry) const {
  const Symbol* placed = std::get_if<Symbol>(&geometry);
  if (placed == nullptr || !indexedSymbols_.insert(placed->name).second) { return; }
  const SymbolDefinition* definition = symbol(placed->name);
  if (definition == nullptr) { return; }
  for (const Primitive& part : definition->parts) { noteIndexed(part.geometry); }
}

std::vector<PrimitiveId> Drawing::inBox(const Box& box) const {
  flushIndex();
  std::vector<PrimitiveId> ids;
  index_.query(box, [&ids](PrimitiveId id) { ids.push_back(id); });
  std::sort(ids.begin(), ids.end());
  return ids;
}

// Boxes that double, from about as far as primitives lie apart: what is found in one is nearer than all beyond it.
PrimitiveId Drawing::nearest(Point p, double reach, const Filter& filter) const {
  flushIndex();
  for (double near = index_.spacing();; near *= 2.0) {
    const bool all = !(near < reach) || near <= 0.0;
    const PrimitiveId found = nearestWithin(p, all ? reach : near, filter);
    if (found != 0) { return found; }
    if (all) { return hatchAt(p, reach, filter); }
  }
}

// A hatch lies beneath all else, so it is meant where nothing else is: the newest that holds the point, else the one
// whose edge is nearest.
PrimitiveId Drawing::hatchAt(Point p, double reach, const Filter& filter) const {
  Box around;
  around.add(p);
  PrimitiveId best = 0;
  double bestDistance = reach;
  index_.query(around.grownBy(reach), [&](PrimitiveId id) {
    const Primitive& primitive = *find(id);
    const Hatch* hatch = std::get_if<Hatch>(&primitive.geometry);
    if (hatch == nullptr || !filter(id, primitive)) { return; }
    const double away = encloses(*hatch, p) ? 0.0 : distanceTo(primitive, p);
    if (away > bestDistance || (away == bestDistance && id < best)) { return; }
    best = id;
    bestDistance = away;
  });
  return best;
}

PrimitiveId Drawing::nearestWithin(Point p, double reach, const Filter& filter) const {
  Box around;
  around.add(p);
  PrimitiveId best = 0;
  double bestDistance = reach;
  bool bestIsSymbol = false;
  // Of all that passes through the point the newest counts: points come printed with eight decimals.
  const double onPoint = 1e-8 + 1e-12 * std::max(std::fabs(p.x), std::fabs(p.y));
  index_.query(around.grownBy(reach), [&](PrimitiveId id) {
    const Primitive& primitive = *find(id);
    if (std::holds_alternative<Hatch>(primitive.geometry) || !filter(id, primitive)) { return; }
    const double distance = distanceTo(primitive, p);
    const double away = distance <= onPoint ? 0.0 : distance;
    const bool symbol = std::holds_alternative<Symbol>(primitive.geometry);
    // Written so that a distance that is no number, of a line too long to measure, never counts.
    const bool nearer = away < bestDistance || (away == bestDistance && (symbol == bestIsSymbol ? id > best : symbol));
    if (!nearer) { return; }
    best = id;
    bestDistance = away;
    bestIsSymbol = symbol;
  });
  const Primitive* found = find(best);
  return found != nullptr && std::holds_alternative<Arc>(found->geometry) ? closestOfCentre(best, p, filter) : best;
}

// Of arcs that are equally near by the centre that they share, the one whose curve is nearest is meant: of a
// counterbore, picked at its centre, the hole.
PrimitiveId Drawing::closestOfCentre(PrimitiveId id, Point p, const Filter& filter) const {
  const Arc& meant = std::get<Arc>(find(id)->geometry);
  const double away = distance(p, meant.centre);
  if (away > distanceTo(*find(id), p)) { return id; }
  const auto rank = [p](const Arc& arc) { return std::pair{distance(p, nearestOnArc(arc, p)), arcRadius(arc)}; };
  auto best = rank(meant);
  Box around;
  around.add(meant.centre);
  const double same = 1e-8 + 1e-12 * std::max(std::fabs(p.x), std::fabs(p.y));
  index_.query(around.grownBy(same), [&](PrimitiveId other) {
    const Primitive& primitive = *find(other);
    const Arc* arc = std::get_if<Arc>(&primitive.geometry);
    if (arc == nullptr || distance(arc->centre, meant.centre) > same || !(rank(*arc) < best)) { return; }
    if (!filter(other, primitive)) { return; }
    best = rank(*arc);
    id = other;
  });
  return id;
}

Box Drawing::extents() const {
  Box box;
  forEach([&](PrimitiveId, const Primitive& primitive) { box.add(bounds(primitive)); });
  return box;
}

namespace {

// From the millimetres of a symbol that is placed in the drawing itself to drawing units.
Transform symbolPlacing(Symbol symbol, const SymbolDefinition* definition, const Parameters& parameters) {
  const bool realSize = definition != nullptr && !definition->paperSize;
  const bool staysUpright = definition != nullptr && definition->upright && parameters.turnedOnPaper();
  if (staysUpright) { symbol.rotation += 180.0; }
  return symbolPlacement(symbol, symbol.scale * (realSize ? 1.0 / parameters.unit() : parameters.paperMillimetre()));
}

// Those of a symbol's own millimetres, in which its texts measure what they shall on paper.
Parameters parametersWithin(const SymbolDefinition* definition, const Parameters& parameters) {
  const bool realSize = definition != nullptr && !definition->paperSize;
  Parameters within;
  within.setUnit(1.0);
  within.setScale(realSize ? parameters.scale() : 1.0);
  return within;
}

// The two extension lines and the dimension line.
std::array<Segment, 3> dimensionLines(const Dimension& dimension) {
  const DimensionLine line = dimensionLine(dimension);
  return {{{dimension.p1, line.first}, {line.first, line.second}, {line.second, dimension.p2}}};
}

Box arrowBounds(const Arrow& arrow, const Parameters& parameters) {
  Box box;
  box.add(arrow.p1);
  box.add(arrow.p2);
  box = box.grownBy(arrow.width / 20.0 * parameters.paperMillimetre());
  const ArrowShape shape = arrowShape(arrow, parameters.paperMillimetre());
  if (shape.drawn) {  // a head longer than the arrow reaches beyond its tail
    for (const Point corner : shape.head) { box.add(corner); }
  }
  return box;
}

}  // namespace

// What a symbol holds is counted when its definition enters the drawing, so this calls itself no deeper than that.
Box Drawing::bounds(const Primitive& primitive) const {
  struct Bounds {
    const Drawing& drawing;
    const Parameters& parameters;  // the drawing's own, or a symbol's
    bool withinSymbol = false;
    Box operator()(const Line& line) const {
      Box box;
      box.add(line.a);
      box.add(line.b);
      return box;
    }
    Box operator()(const Arc& arc) const {
      Box box = arcBounds(arc);
      box.add(arc.centre);  // a pick at the centre finds it
      return box;
    }
    Box operator()(const Text& text) const { return textBounds(text, parameters); }
    Box operator()(const Arrow& arrow) const { return arrowBounds(arrow, parameters); }
    Box operator()(const Symbol& symbol) const {
      Box box;
      box.add(symbol.at);
      const SymbolDefinition* definition = drawing.symbol(symbol.name);
      const Transform placing =
          withinSymbol ? symbolPlacement(symbol, symbol.scale) : symbolPlacing(symbol, definition, parameters);
      const Parameters ofParts = withinSymbol ? parameters : parametersWithin(definition, parameters);
      const Bounds bounds{drawing, ofParts, true};
      const auto addPart = [&](const Geometry& part) {
        const Box inner = std::visit(bounds, part);
        for (const Point corner :
             {inner.low, inner.high, Point{inner.low.x, inner.high.y}, Point{inner.high.x, inner.low.y}}) {
          box.add(placing(corner));
        }
      };
      if (definition == nullptr) {
        for (const Geometry& stroke : missingSymbolStrokes()) { addPart(stroke); }
        return box;
      }
      for (const Primitive& part : definition->parts) { addPart(part.geometry); }
      return box;
    }
    Box operator()(const Dimension& dimension) const {
      Box box;
      box.add(dimension.at);
      for (const Segment& line : dimensionLines(dimension)) {
        box.add(line.a);
        box.add(line.b);
      }
      return box.grownBy(5.0 * parameters.paperMillimetre());  // text and arrows
    }
    Box operator()(const Hatch& hatch) const { return hatchBounds(hatch); }
  };
  return std::visit(Bounds{*this, parameters_}, primitive.geometry);
}

double Drawing::distanceTo(const Primitive& primitive, Point p) const {
  struct Distance {
    const Drawing& drawing;
    const Primitive& primitive;
    Point p;
    [[nodiscard]] double toBox() const {
      const Box box = drawing.bounds(primitive);
      return distance(p, {std::clamp(p.x, box.low.x, box.high.x), std::clamp(p.y, box.low.y, box.high.y)});
    }
    double operator()(const Line& line) const { return distance(p, nearestOnSegment(line, p)); }
    double operator()(const Arc& arc) const {
      return std::min(distance(p, nearestOnArc(arc, p)), distance(p, arc.centre));
    }
    double operator()(const Text&) const { return toBox(); }
    double operator()(const Arrow& arrow) const { return distance(p, nearestOnSegment({arrow.p1, arrow.p2}, p)); }
    double operator()(const Symbol&) const { return toBox(); }
    double operator()(const Dimension& dimension) const {
      double least = distance(p, dimension.at);
      for (const Segment& line : dimensionLines(dimension)) {
        least = std::min(least, distance(p, nearestOnSegment(line, p)));
      }
      return least;
    }
    double operator()(const Hatch& hatch) const {
      double least = std::numeric_limits<double>::max();
      for (const HatchLoop& loop : hatch.loops) {
        for (const Curve& side : loopOf(loop)) { least = std::min(least, distance(p, nearestOn(side, p))); }
      }
      return least;
    }
  };
  return std::visit(Distance{*this, primitive, p}, primitive.geometry);
}

}  // namespace brevan

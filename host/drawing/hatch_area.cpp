#include "host/drawing/hatch_area.h"

#include <algorithm>
#include <cmath>

#include "host/drawing/text_layout.h"

namespace brevan {

namespace {

std::optional<Curve> shownCurve(const Drawing& drawing, const Primitive& primitive) {
  if (!drawing.layer(primitive.layer)->visible) { return std::nullopt; }
  if (const Line* line = std::get_if<Line>(&primitive.geometry)) { return Curve(*line); }
  if (const Arc* arc = std::get_if<Arc>(&primitive.geometry)) { return Curve(*arc); }
  return std::nullopt;
}

bool liesOn(const Loop& loop, Point p) {
  return std::any_of(loop.begin(), loop.end(),
                     [p](const Curve& side) { return distance(nearestOn(side, p), p) <= BoundaryMap::kJoin; });
}

bool liesWithin(const Loop& outer, const Loop& inner) {
  return std::all_of(inner.begin(), inner.end(), [&outer](const Curve& side) {
    const Point middle = pointAt(side, 0.5);
    return encloses(outer, middle) && !liesOn(outer, middle);
  });
}

// The islands of a boundary, each found once from the curves in it.
class Islands {
 public:
  Islands(BoundaryMap& map, const Loop& outer) : map_(map), outer_(outer) {}

  void look(const Curve& curve) {
    const Point at = pointAt(curve, 0.37);  // off the middle, where other curves often meet it
    const bool known = std::any_of(found_.begin(), found_.end(),
                                   [at](const Loop& island) { return encloses(island, at) || liesOn(island, at); });
    if (known || !encloses(outer_, at) || liesOn(outer_, at)) { return; }
    Loop island = map_.figureOfNearest(at);
    if (island.empty() || !liesWithin(outer_, island)) { return; }
    std::erase_if(found_, [&island](const Loop& inner) { return encloses(island, startOf(inner.front())); });
    found_.push_back(std::move(island));
  }
  [[nodiscard]] const std::vector<Loop>& found() const { return found_; }

 private:
  BoundaryMap& map_;
  const Loop& outer_;
  std::vector<Loop> found_;
};

HatchLoop roundText(const Text& text, const Parameters& parameters) {
  const double margin = text.height / 20.0 * parameters.paperMillimetre();
  const Box box = textBounds(text, parameters).grownBy(margin);
  return {{box.low}, {{box.high.x, box.low.y}}, {box.high}, {{box.low.x, box.high.y}}};
}

bool within(const Loop& outer, const HatchLoop& corners) {
  return std::all_of(corners.begin(), corners.end(),
                     [&outer](const HatchCorner& corner) { return encloses(outer, corner.at); });
}

}  // namespace

std::vector<HatchLoop> hatchAreaAround(const Drawing& drawing, BoundaryMap& map, Point p) {
  const Loop outer = map.around(p);
  if (outer.empty()) { return {}; }
  Box box;
  for (const Curve& side : outer) { box.add(boundsOf(side)); }
  std::vector<HatchLoop> loops = {hatchLoop(outer)};
  Islands islands(map, outer);
  for (const PrimitiveId id : drawing.inBox(box)) {
    const Primitive& primitive = *drawing.find(id);
    if (const auto curve = shownCurve(drawing, primitive)) { islands.look(*curve); }
    const Text* text = std::get_if<Text>(&primitive.geometry);
    if (text == nullptr || !drawing.layer(primitive.layer)->visible) { continue; }
    HatchLoop clear = roundText(*text, drawing.parameters());
    if (within(outer, clear)) { loops.push_back(std::move(clear)); }
  }
  for (const Loop& island : islands.found()) { loops.push_back(hatchLoop(island)); }
  return loops;
}

}  // namespace brevan

#include "host/drawing/hatch_strokes.h"

#include <algorithm>
#include <cmath>

namespace brevan {

namespace {

constexpr double kChordError = 0.02;  // how far a side may leave the arc that it stands for, millimetres

// A pattern's lines as rows along x, counted from the one through the start.
struct Rows {
  Point start;
  Point along;  // unit
  double apart = 1.0;
  double shift = 0.0;  // of the dashes from row to row

  [[nodiscard]] Point toRows(Point p) const { return {dot(p - start, along), cross(along, p - start)}; }
  [[nodiscard]] Point onPaper(double x, double y) const { return start + along * x + Point{-along.y, along.x} * y; }
};

struct RowCrossing {
  double row = 0.0;
  double x = 0.0;
  friend auto operator<=>(const RowCrossing&, const RowCrossing&) = default;
};

// Where a side crosses the rows from its lower end on and before its upper one, so that each corner counts once.
void addCrossings(Point a, Point b, double apart, double stride, std::vector<RowCrossing>& crossings) {
  if (a.y > b.y) { std::swap(a, b); }
  const double step = apart * stride;
  for (double row = std::ceil(a.y / step); row * step < b.y; ++row) {
    const double y = row * step;
    crossings.push_back({row * stride, a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y))});
  }
}

// Lays dashes along rows.
class Dashes {
 public:
  Dashes(const std::vector<double>& dashes, double scale) {
    for (const double dash : dashes) {
      lengths_.push_back(dash * scale);
      period_ += std::abs(dash * scale);
    }
  }
  // Calls draw(x0, x1) for what of the piece the dashes cover; `phase` is where one period begins.
  template <class Draw>
  void lay(double from, double to, double phase, const Draw& draw) const {
    const bool continuous = !(period_ > 0.0) || (to - from) / period_ > HatchFill::kMostRows;
    if (continuous) {
      draw(from, to);
      return;
    }
    double at = phase + std::floor((from - phase) / period_) * period_;
    while (at < to) {
      for (const double length : lengths_) {
        const double end = at + std::abs(length);
        const double begun = std::max(at, from);
        const double ended = std::min(end, to);
        const bool within = length == 0.0 ? at >= from && at <= to : length > 0.0 && begun < ended;
        if (within) { draw(begun, ended); }
        at = end;
      }
    }
  }

 private:
  std::vector<double> lengths_;
  double period_ = 0.0;
};

Rows rowsOf(const HatchLines& lines, Point origin, double angle, double scale) {
  Rows rows;
  rows.along = unitOfDegrees(lines.angle + angle);
  const Point turned = unitOfDegrees(angle);
  rows.start = origin + Transform::rotation({}, turned.x, turned.y)(lines.start * scale);
  rows.apart = lines.step.y * scale;
  rows.shift = lines.step.x * scale;
  if (rows.apart < 0.0) {  // counted the other way
    rows.apart = -rows.apart;
    rows.shift = -rows.shift;
  }
  return rows;
}

}  // namespace

HatchFill::HatchFill(const Hatch& hatch, double paperScale)
    : origin_(hatch.origin), angle_(hatch.angle), scale_(hatch.scale * paperScale) {
  rings_.reserve(hatch.loops.size());
  for (const HatchLoop& loop : hatch.loops) { rings_.push_back(flattened(loopOf(loop), kChordError)); }
}

namespace {

double doubledArea(const std::vector<Point>& ring) {
  double area = 0.0;
  for (size_t at = 0; at < ring.size(); ++at) {
    area += cross(ring[at] - ring.front(), ring[(at + 1) % ring.size()] - ring.front());
  }
  return area;
}

bool holds(const std::vector<Point>& ring, Point p) {
  bool inside = false;
  for (size_t at = 0; at < ring.size(); ++at) {
    const Point a = ring[at];
    const Point b = ring[(at + 1) % ring.size()];
    const bool beside = (a.y > p.y) != (b.y > p.y);
    if (beside && p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y))) { inside = !inside; }
  }
  return inside;
}

}  // namespace

// Outlines run counter-clockwise and holes clockwise, for readers who count turns instead of crossings.
std::vector<Point> HatchFill::outline() const {
  std::vector<Point> chain;
  for (const std::vector<Point>& ring : rings_) {
    if (ring.empty()) { continue; }
    const auto around = std::count_if(rings_.begin(), rings_.end(), [&ring](const std::vector<Point>& other) {
      return &other != &ring && holds(other, ring.front());
    });
    const bool turnsLeft = doubledArea(ring) > 0.0;
    const bool isOutline = around % 2 == 0;
    if (turnsLeft == isOutline) {
      chain.insert(chain.end(), ring.begin(), ring.end());
    } else {
      chain.insert(chain.end(), ring.rbegin(), ring.rend());
    }
    chain.push_back(turnsLeft == isOutline ? ring.front() : ring.back());
    if (!rings_.front().empty()) { chain.push_back(chain.front()); }
  }
  return chain;
}

void HatchFill::forEachStroke(const HatchLines& lines, const Draw& draw) const {
  const Rows rows = rowsOf(lines, origin_, angle_, scale_);
  if (!(rows.apart > 0.0)) { return; }
  std::vector<std::vector<Point>> turned = rings_;
  Box box;
  for (std::vector<Point>& ring : turned) {
    for (Point& corner : ring) { box.add(corner = rows.toRows(corner)); }
  }
  if (box.empty()) { return; }
  const double stride = std::max(1.0, std::ceil(box.height() / rows.apart / kMostRows));
  std::vector<RowCrossing> crossings;
  for (const std::vector<Point>& ring : turned) {
    for (size_t at = 0; at < ring.size(); ++at) {
      addCrossings(ring[at], ring[(at + 1) % ring.size()], rows.apart, stride, crossings);
    }
  }
  std::sort(crossings.begin(), crossings.end());
  const Dashes dashes(lines.dashes, scale_);
  for (size_t at = 0; at + 1 < crossings.size(); at += 2) {
    const double y = crossings[at].row * rows.apart;
    dashes.lay(crossings[at].x, crossings[at + 1].x, crossings[at].row * rows.shift,
               [&](double from, double to) { draw(rows.onPaper(from, y), rows.onPaper(to, y)); });
  }
}

}  // namespace brevan

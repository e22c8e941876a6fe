#include "host/files/dxf/read/entity_reader.h"

#include <algorithm>

#include "host/drawing/hatch_patterns.h"
#include "host/files/dxf/read/curves.h"
#include "host/files/dxf/read/hatch.h"

namespace brevan {

namespace {

constexpr Transform kFlip = {-1.0, 0.0, 0.0, 0.0, 1.0, 0.0};

}  // namespace

struct DxfEntityReader::KindRow {
  std::string_view kind;
  void (DxfEntityReader::*read)(const DxfRecord&);
  bool inOwnPlane;  // its coordinates are those of a plane of its own
};

const std::vector<DxfEntityReader::KindRow>& DxfEntityReader::rows() {
  using Reader = DxfEntityReader;
  static const std::vector<KindRow> kRows = {
      {"LINE", &Reader::line, false},
      {"LWPOLYLINE", &Reader::lightPolyline, true},
      {"ARC", &Reader::arc, true},
      {"CIRCLE", &Reader::circle, true},
      {"VERTEX", &Reader::vertex, false},
      {"POLYLINE", &Reader::polyline, true},
      {"SEQEND", &Reader::nothing, false},
      {"TEXT", &Reader::text, true},
      {"MTEXT", &Reader::severalLines, false},
      {"INSERT", &Reader::insert, true},
      {"ATTRIB", &Reader::attribute, true},
      {"ATTDEF", &Reader::attributeDefinition, true},
      {"SOLID", &Reader::solid, true},
      {"TRACE", &Reader::solid, true},
      {"3DFACE", &Reader::face, false},
      {"POINT", &Reader::point, false},
      {"ELLIPSE", &Reader::ellipse, false},
      {"SPLINE", &Reader::spline, false},
      {"LEADER", &Reader::leader, false},
      {"DIMENSION", &Reader::dimension, false},
      {"HATCH", &Reader::hatch, true},
      {"VIEWPORT", &Reader::nothing, false},
  };
  return kRows;
}

void DxfEntityReader::read(const DxfRecord& record, DxfSink& sink) {
  if (polyline_.open && record.kind() != "VERTEX") { finish(sink); }
  const std::vector<KindRow>& kinds = rows();
  const auto row = std::find_if(kinds.begin(), kinds.end(),
                                [&record](const KindRow& candidate) { return candidate.kind == record.kind(); });
  if (row == kinds.end()) {
    shaft_.reset();
    report_.note(record.kind());
    return;
  }
  if (record.integer(67) == 1) {
    const bool own = record.kind() != "VIEWPORT" && record.kind() != "SEQEND" && record.kind() != "VERTEX";
    if (own) { report_.note(std::string(record.kind()) + " on a layout"); }
    return;
  }
  if (record.integer(60) == 1) {
    report_.note(std::string(record.kind()) + " that is invisible");
    return;
  }
  flipped_ = false;
  if (record.kind() != "SOLID") { shaft_.reset(); }
  if (row->inOwnPlane && !liesInPlane(record)) { return; }
  sink_ = &sink;
  look_ = styles_.lookOf(record);
  (this->*row->read)(record);
}

bool DxfEntityReader::liesInPlane(const DxfRecord& record) {
  if (!record.has(230)) { return true; }
  const Point aside = record.point(210);
  const double up = record.real(230, 1.0);
  constexpr double kSlanted = 1e-9;
  if (std::max(std::abs(aside.x), std::abs(aside.y)) > kSlanted * std::abs(up)) {
    report_.note(std::string(record.kind()) + " out of the drawing's plane");
    return false;
  }
  flipped_ = up < 0.0;
  return true;
}

void DxfEntityReader::put(Geometry&& geometry) {
  if (!flipped_) {
    sink_->take(look_, std::move(geometry));
    return;
  }
  forEachPlaced(geometry, kFlip, [this](Geometry&& placed) { sink_->take(look_, std::move(placed)); });
}

// ---- Lines and curves ------------------------------------------------------------------------------------------

void DxfEntityReader::line(const DxfRecord& record) {
  shaft_ = Line{record.point(10), record.point(11)};
  if (own_) { shaftLook_ = look_; }
  sink_->take(look_, Geometry(*shaft_));
}

void DxfEntityReader::circle(const DxfRecord& record) {
  const Point centre = record.point(10);
  const double radius = std::abs(record.real(40));
  const Point start = centre + Point{radius, 0.0};
  put(Arc{start, centre, start, false});
}

void DxfEntityReader::arc(const DxfRecord& record) {
  const Point centre = record.point(10);
  const double radius = std::abs(record.real(40));
  const Point start = centre + unitOfDegrees(record.real(50)) * radius;
  const Point end = centre + unitOfDegrees(record.real(51, 360.0)) * radius;
  put(Arc{start, centre, end, false});
}

// A circle whose radius is nothing is written as a point.
void DxfEntityReader::point(const DxfRecord& record) {
  if (!own_) {
    report_.note(record.kind());
    return;
  }
  const Point at = record.point(10);
  sink_->take(look_, Arc{at, at, at, false});
}

Geometry DxfEntityReader::sideBetween(const Vertex& from, const Vertex& to) {
  return std::visit([](const auto& side) { return Geometry(side); }, bulgedSide(from.at, to.at, from.bulge));
}

void DxfEntityReader::outline(const std::vector<Vertex>& vertices, bool closed) {
  for (size_t n = 1; n < vertices.size(); ++n) { put(sideBetween(vertices[n - 1], vertices[n])); }
  if (closed && vertices.size() > 1) { put(sideBetween(vertices.back(), vertices.front())); }
}

void DxfEntityReader::lightPolyline(const DxfRecord& record) {
  vertices_.clear();
  for (const DxfTag& tag : record.tags()) {
    if (tag.code == 10) { vertices_.push_back({{record.realOf(tag), 0.0}}); }
    if (vertices_.empty()) { continue; }
    if (tag.code == 20) { vertices_.back().at.y = record.realOf(tag); }
    if (tag.code == 42) { vertices_.back().bulge = record.realOf(tag); }
  }
  outline(vertices_, (record.integer(70) & 1) != 0);
}

void DxfEntityReader::polyline(const DxfRecord& record) {
  constexpr int kClosed = 1;
  constexpr int kMeshes = 16 + 64;
  const int flags = record.integer(70);
  if ((flags & kMeshes) != 0) {
    report_.note("POLYLINE that is a mesh");
    return;
  }
  vertices_.clear();
  polyline_ = {true, (flags & kClosed) != 0, look_, flipped_};
}

void DxfEntityReader::vertex(const DxfRecord& record) {
  constexpr int kSplineFrame = 16;
  if (!polyline_.open || (record.integer(70) & kSplineFrame) != 0) { return; }
  if (vertices_.size() >= DxfRecord::kMostTags) { record.fail("the POLYLINE has too many vertices"); }
  vertices_.push_back({record.point(10), record.real(42)});
}

void DxfEntityReader::finish(DxfSink& sink) {
  if (!polyline_.open) { return; }
  polyline_.open = false;
  sink_ = &sink;
  look_ = polyline_.look;
  flipped_ = polyline_.flipped;
  outline(vertices_, polyline_.closed);
}

void DxfEntityReader::chain(const std::vector<Point>& points) {
  for (size_t n = 1; n < points.size(); ++n) { put(Line{points[n - 1], points[n]}); }
}

void DxfEntityReader::ellipse(const DxfRecord& record) {
  if (!liesInPlane(record)) { return; }
  const bool fromBelow = std::exchange(flipped_, false);  // its coordinates are the drawing's all the same
  const double ratio = record.real(40, 1.0) * (fromBelow ? -1.0 : 1.0);
  EllipseShape shape;
  shape.centre = record.point(10);
  shape.major = record.point(11);
  shape.minor = Point{-shape.major.y, shape.major.x} * ratio;
  shape.from = record.real(41);
  shape.to = record.real(42, 2.0 * kPi);
  if (std::abs(ratio) != 1.0) {
    chain(ellipseChain(shape));
    return;
  }
  const auto at = [&shape](double angle) {
    return shape.centre + shape.major * std::cos(angle) + shape.minor * std::sin(angle);
  };
  const bool full = std::abs(shape.to - shape.from - 2.0 * kPi) < 1e-9;
  put(Arc{at(shape.from), shape.centre, full ? at(shape.from) : at(shape.to), ratio < 0.0});
}

void DxfEntityReader::spline(const DxfRecord& record) {
  SplineShape shape;
  shape.degree = record.integer(71, 3);
  for (const DxfTag& tag : record.tags()) {
    switch (tag.code) {
      case 40: shape.knots.push_back(record.realOf(tag)); break;
      case 41: shape.weights.push_back(record.realOf(tag)); break;
      case 10: shape.controls.push_back({record.realOf(tag), 0.0}); break;
      case 20:
        if (!shape.controls.empty()) { shape.controls.back().y = record.realOf(tag); }
        break;
      default: break;
    }
  }
  const std::vector<Point> points = splineChain(shape);
  if (points.empty()) { report_.note("SPLINE without a full set of control points"); }
  chain(points);
}

// ---- Areas, leaders, blocks --------------------------------------------------------------------------------------

// An arrow is written as its shaft and its head.
bool DxfEntityReader::becomesArrow(const std::array<Point, 4>& corners) {
  const std::optional<Line> shaft = std::exchange(shaft_, std::nullopt);
  if (!own_ || !shaft || !(corners[2] == corners[3])) { return false; }
  const Point tip = corners[0];
  const Point base = middle(corners[1], corners[2]);
  const double head = distance(tip, base);
  constexpr double kSame = 1e-9;
  const double reach = std::max(distance(shaft->a, tip), head);
  const double offShaft = std::abs(cross(tip - base, shaft->b - shaft->a));
  const bool joined = distance(base, shaft->b) <= kSame * (reach + length(base));
  if (!joined || offShaft > 1e-6 * head * distance(shaft->a, shaft->b)) { return false; }
  Arrow arrow{shaft->a, tip, head * 10.0, distance(corners[1], corners[2]) * 10.0};
  arrow.style[2] = look_.pen == shaftLook_.pen ? kPenByLayer : look_.pen;
  sink_->replaceLast(shaftLook_, arrow);
  return true;
}

void DxfEntityReader::solid(const DxfRecord& record) {
  std::array<Point, 4> corners = {record.point(10), record.point(11), record.point(12), record.point(12)};
  if (record.has(13)) { corners[3] = record.point(13); }
  if (becomesArrow(corners)) { return; }
  // The third and fourth corner stand crosswise.
  std::vector<Vertex> around = {{corners[0]}, {corners[1]}, {corners[3]}};
  if (!(corners[2] == corners[3])) { around.push_back({corners[2]}); }
  outline(around, true);
}

void DxfEntityReader::face(const DxfRecord& record) {
  const int hidden = record.integer(70);  // a bit an edge
  std::vector<Point> corners = {record.point(10), record.point(11), record.point(12)};
  if (record.has(13) && !(record.point(13) == record.point(12))) { corners.push_back(record.point(13)); }
  for (size_t edge = 0; edge < corners.size(); ++edge) {
    // The last edge of a triangle counts as the fourth.
    const size_t number = edge + 1 == corners.size() ? 3 : edge;
    if ((hidden >> number & 1) == 0) { put(Line{corners[edge], corners[(edge + 1) % corners.size()]}); }
  }
}

void DxfEntityReader::leader(const DxfRecord& record) {
  std::vector<Point> points;
  for (const DxfTag& tag : record.tags()) {
    if (tag.code == 10) { points.push_back({record.realOf(tag), 0.0}); }
    if (tag.code == 20 && !points.empty()) { points.back().y = record.realOf(tag); }
  }
  constexpr double kLengthOfWidth = 3.0;  // of the head that goes without saying
  const double head = 10.0 * styles_.headSizeOf(record).length();
  const bool pointed = record.integer(71, 1) == 1 && points.size() > 1 && head > 0.0;
  if (pointed) {
    sink_->take(look_, Arrow{points[1], points[0], head, head / kLengthOfWidth});
    points.erase(points.begin());
  }
  chain(points);
}

void DxfEntityReader::hatch(const DxfRecord& record) {
  Hatch read = dxfHatchRead(record, own_);
  const bool drawn = !read.loops.empty() && (read.pattern == kSolidPattern || !linesOf(read).empty());
  if (!drawn) {
    report_.note(read.loops.empty() ? "HATCH without a closed outline" : "HATCH without lines");
    return;
  }
  put(std::move(read));
}

void DxfEntityReader::insert(const DxfRecord& record) {
  DxfInsert insert;
  insert.block = dxfNameRead(record.name(2), styles_.encoding()).text;
  insert.at = record.point(10);
  insert.scaleX = record.real(41, 1.0);
  insert.scaleY = record.real(42, 1.0);
  insert.rotation = record.real(50);
  insert.flipped = flipped_;
  insert.columns = std::max(record.integer(70, 1), 1);
  insert.rows = std::max(record.integer(71, 1), 1);
  insert.columnSpacing = record.real(44);
  insert.rowSpacing = record.real(45);
  sink_->insert(look_, std::move(insert));
}

void DxfEntityReader::dimension(const DxfRecord& record) {
  constexpr int kKind = 7;
  if (own_ && (record.integer(70) & kKind) == 0) {
    const DxfTextRead read = dxfMTextRead(record.text(1), styles_.encoding());
    const bool vertical = record.real(50) != 0.0;
    sink_->take(look_, Dimension{vertical ? DimensionKind::kVertical : DimensionKind::kHorizontal, record.point(10),
                                 record.point(13), record.point(14), read.text == " " ? "" : read.text});
    return;
  }
  DxfInsert picture;
  picture.block = dxfNameRead(record.name(2), styles_.encoding()).text;
  picture.at = record.point(12);
  picture.isPicture = true;
  sink_->insert(look_, std::move(picture));
}

}  // namespace brevan

#include "host/drawing/wall_openings.h"

#include <algorithm>
#include <array>
#include <set>

#include "host/drawing/part_selection.h"

namespace brevan {

namespace {

bool same(double a, double b) { return std::abs(a - b) <= kWallRounding; }

bool anyLayer(const Layer&) { return true; }

// A line of the wall in the run's own coordinates, from left to right.
struct Piece {
  PrimitiveId id = 0;
  double from = 0.0;
  double to = 0.0;
  double inwards = 0.0;
};

std::vector<Piece> piecesOf(const Drawing& drawing, const WallRun& run, const WallPlace& place) {
  Box box;
  for (const double along : {place.from, place.to}) {
    for (const double inwards : {0.0, run.thickness}) { box.add(run.at(along, inwards)); }
  }
  std::vector<Piece> pieces;
  for (const PrimitiveId id : wallLines(drawing, box.grownBy(kWallRounding), anyLayer)) {
    const Primitive& primitive = *drawing.find(id);
    const Line& line = std::get<Line>(primitive.geometry);
    if (primitive.group != run.group || !isParallel(line, run.along)) { continue; }
    const Point a = run.own(line.a);
    const Point b = run.own(line.b);
    if (a.y < -kWallRounding || a.y > run.thickness + kWallRounding) { continue; }
    pieces.push_back({id, std::min(a.x, b.x), std::max(a.x, b.x), a.y});
  }
  return pieces;
}

// The line of a face that runs on at both ends of the opening; null where there is none.
const Piece* faceThrough(const std::vector<Piece>& pieces, const WallPlace& place, double inwards) {
  const auto found = std::ranges::find_if(pieces, [&](const Piece& piece) {
    return same(piece.inwards, inwards) && piece.from < place.from - kWallRounding &&
           piece.to > place.to + kWallRounding;
  });
  return found == pieces.end() ? nullptr : &*found;
}

void cutPiece(Drawing& drawing, const WallRun& run, const Piece& piece, const WallPlace& place) {
  Primitive part = *drawing.find(piece.id);
  const auto keep = [&](double from, double to) {
    part.geometry = Line{run.at(from, piece.inwards), run.at(to, piece.inwards)};
  };
  const bool before = piece.from < place.from - kWallRounding;
  const bool after = piece.to > place.to + kWallRounding;
  if (piece.to <= place.from + kWallRounding || piece.from >= place.to - kWallRounding) { return; }
  if (!before && !after) { drawing.remove(piece.id); }
  if (before) {
    keep(piece.from, place.from);
    drawing.replace(piece.id, part);
  }
  if (!after) { return; }
  keep(place.to, piece.to);
  if (before) {
    drawing.add(part);
  } else {
    drawing.replace(piece.id, part);
  }
}

}  // namespace

WallCut cutWall(Drawing& drawing, const WallRun& run, const WallPlace& place, GroupId opening) {
  const std::vector<Piece> pieces = piecesOf(drawing, run, place);
  const Piece* const face = faceThrough(pieces, place, 0.0);
  if (face == nullptr || faceThrough(pieces, place, run.thickness) == nullptr) { return WallCut::kNoRoom; }
  if (!std::ranges::all_of(pieces, [&](const Piece& piece) { return isChangeable(drawing, piece.id); })) {
    return WallCut::kLocked;
  }
  Primitive jamb = *drawing.find(face->id);
  jamb.group = opening;
  for (const Piece& piece : pieces) { cutPiece(drawing, run, piece, place); }
  for (const double along : {place.from, place.to}) {
    jamb.geometry = Line{run.at(along, 0.0), run.at(along, run.thickness)};
    drawing.add(jamb);
  }
  return WallCut::kCut;
}

// ---- Healing ------------------------------------------------------------------------------------------------

namespace {

using Jambs = std::array<PrimitiveId, 2>;

// Of an opening by its symbol; nothing for what is none.
std::optional<Jambs> jambsOf(const Drawing& drawing, PrimitiveId symbol) {
  const Primitive& placed = *drawing.find(symbol);
  if (!std::holds_alternative<Symbol>(placed.geometry) || placed.group == 0 || !isOpening(drawing, placed.group)) {
    return std::nullopt;
  }
  std::vector<PrimitiveId> lines = drawing.membersOf(placed.group);
  std::erase_if(lines, [&](PrimitiveId id) { return !std::holds_alternative<Line>(drawing.find(id)->geometry); });
  return lines.size() == 2 ? std::optional(Jambs{lines[0], lines[1]}) : std::nullopt;
}

// A wall's line that ends at a jamb.
struct End {
  PrimitiveId id = 0;
  double inwards = 0.0;  // where on the jamb
  Point far;             // its other end
};

std::vector<End> endsAt(const Drawing& drawing, const Line& jamb) {
  Box box;
  box.add(jamb.a);
  box.add(jamb.b);
  const double reach = distance(jamb.a, jamb.b);
  const Point unit = (jamb.b - jamb.a) * (1.0 / reach);
  std::vector<End> ends;
  for (const PrimitiveId id : wallLines(drawing, box.grownBy(kWallRounding), anyLayer)) {
    const Line& line = std::get<Line>(drawing.find(id)->geometry);
    for (const auto& [near, far] : {std::pair(line.a, line.b), std::pair(line.b, line.a)}) {
      const double inwards = dot(near - jamb.a, unit);
      const bool isOn =
          same(cross(unit, near - jamb.a), 0.0) && inwards >= -kWallRounding && inwards <= reach + kWallRounding;
      if (isOn && isChangeable(drawing, id) && !isParallel(line, unit)) { ends.push_back({id, inwards, far}); }
    }
  }
  return ends;
}

bool isOneLine(const Drawing& drawing, const End& one, const End& other) {
  Primitive alike = *drawing.find(one.id);
  alike.geometry = drawing.find(other.id)->geometry;
  const Line whole{one.far, other.far};
  return one.id != other.id && same(one.inwards, other.inwards) && alike == *drawing.find(other.id) &&
         isParallel(std::get<Line>(alike.geometry), (whole.b - whole.a) * (1.0 / distance(whole.a, whole.b)));
}

void heal(Drawing& drawing, const Line& first, const Line& second) {
  if (first.a == first.b || second.a == second.b) { return; }
  std::vector<End> rest = endsAt(drawing, second);
  for (const End& end : endsAt(drawing, first)) {
    const auto other = std::ranges::find_if(rest, [&](const End& each) { return isOneLine(drawing, end, each); });
    if (other == rest.end()) { continue; }
    Primitive joined = *drawing.find(end.id);
    joined.geometry = Line{end.far, other->far};
    drawing.remove(other->id);
    drawing.replace(end.id, std::move(joined));
    rest.erase(other);
  }
}

}  // namespace

void removeParts(Drawing& drawing, const std::vector<PrimitiveId>& ids) {
  std::set<PrimitiveId> going(ids.begin(), ids.end());
  for (const PrimitiveId id : ids) {
    const auto jambs = drawing.find(id) == nullptr ? std::nullopt : jambsOf(drawing, id);
    if (!jambs || !std::ranges::all_of(*jambs, [&](PrimitiveId jamb) { return isChangeable(drawing, jamb); })) {
      continue;
    }
    heal(drawing, std::get<Line>(drawing.find(jambs->front())->geometry),
         std::get<Line>(drawing.find(jambs->back())->geometry));
    going.insert(jambs->begin(), jambs->end());
  }
  for (const PrimitiveId id : going) {
    if (drawing.find(id) != nullptr) { drawing.remove(id); }
  }
}

}  // namespace brevan

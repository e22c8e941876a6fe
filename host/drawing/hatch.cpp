#include "host/drawing/hatch.h"

#include <cmath>

namespace brevan {

HatchLoop hatchLoop(const Loop& loop) {
  HatchLoop corners;
  corners.reserve(loop.size() + 1);
  for (const Curve& side : loop) {
    if (!isClosed(side)) {
      corners.push_back({startOf(side), bulgeOf(side)});
      continue;
    }
    for (const Curve& half : {pieceOf(side, 0.0, 0.5), pieceOf(side, 0.5, 1.0)}) {
      corners.push_back({startOf(half), bulgeOf(half)});
    }
  }
  return corners;
}

Loop loopOf(const HatchLoop& corners) {
  Loop loop;
  loop.reserve(corners.size());
  for (size_t at = 0; at < corners.size(); ++at) {
    loop.push_back(bulgedSide(corners[at].at, corners[(at + 1) % corners.size()].at, corners[at].bulge));
  }
  return loop;
}

bool hasBulges(const Hatch& hatch) {
  for (const HatchLoop& loop : hatch.loops) {
    for (const HatchCorner& corner : loop) {
      if (corner.bulge != 0.0) { return true; }
    }
  }
  return false;
}

Hatch straightened(Hatch hatch, double tolerance) {
  for (HatchLoop& loop : hatch.loops) {
    HatchLoop straight;
    for (const Point corner : flattened(loopOf(loop), tolerance)) { straight.push_back({corner}); }
    loop = std::move(straight);
  }
  return hatch;
}

Box hatchBounds(const Hatch& hatch) {
  Box box;
  for (const HatchLoop& loop : hatch.loops) {
    for (const Curve& side : loopOf(loop)) { box.add(boundsOf(side)); }
  }
  return box;
}

bool encloses(const Hatch& hatch, Point p) {
  bool inside = false;
  for (const HatchLoop& loop : hatch.loops) { inside = inside != encloses(loopOf(loop), p); }
  return inside;
}

Hatch transformed(Hatch hatch, const Transform& transform) {
  const bool mirrors = transform.mirrors();
  for (HatchLoop& loop : hatch.loops) {
    for (HatchCorner& corner : loop) {
      corner.at = transform(corner.at);
      if (mirrors && corner.bulge != 0.0) { corner.bulge = -corner.bulge; }
    }
  }
  hatch.origin = transform(hatch.origin);
  const bool plainShift = transform.xx == 1.0 && transform.yx == 0.0 && transform.yy == 1.0;
  if (plainShift || mirrors) { return hatch; }
  const Point image = transform.direction(unitOfDegrees(hatch.angle));
  const double turned = std::fmod(degrees(angleOf(image)), 360.0);
  hatch.angle = turned < 0.0 ? turned + 360.0 : turned;
  return hatch;
}

}  // namespace brevan

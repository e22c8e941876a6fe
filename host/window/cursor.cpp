#include "host/window/cursor.h"

#include "host/drawing/drawing.h"
#include "host/geometry/transform.h"
#include "host/window/snapping.h"

namespace brevan {

namespace {

constexpr int kOrthogonal = 9;
constexpr double kApertureMillimetres = 5.0;

Point footOn(Point through, Point unit, Point p) { return through + unit * dot(p - through, unit); }

}  // namespace

double aperture(const Drawing& drawing) { return kApertureMillimetres * drawing.parameters().paperMillimetre(); }

void Cursor::reset() {
  held_.reset();
  lock_ = Lock::kFree;
  snapToNear_ = false;
  snapMode_ = 0;
  rubberBand_ = false;
}

void Cursor::hold(bool held) {
  if (held) {
    held_ = position_;
  } else {
    held_.reset();
  }
}

void Cursor::lockAtAngle(double degrees) {
  lock_ = Lock::kAngle;
  lockDirection_ = unitOfDegrees(degrees);
}

void Cursor::lockOntoLine(const Segment& line) {
  lock_ = Lock::kLine;
  lockThrough_ = line.a;
  const double size = distance(line.a, line.b);  // divided by, since the reciprocal of a tiny one is infinite
  lockDirection_ = {(line.b.x - line.a.x) / size, (line.b.y - line.a.y) / size};
}

bool Cursor::lockSquare() {
  if (lock_ != Lock::kLine) { return false; }
  lockThrough_ = heldAt();
  lockDirection_ = {-lockDirection_.y, lockDirection_.x};
  return true;
}

void Cursor::unlock() { lock_ = Lock::kFree; }

std::optional<double> Cursor::lockedAngle() const {
  if (lock_ == Lock::kFree) { return std::nullopt; }
  double angle = degrees(angleOf(lockDirection_));
  if (angle <= -90.0) { angle += 180.0; }
  if (angle > 90.0) { angle -= 180.0; }
  return angle;
}

Point Cursor::snapped(Point p, const Drawing& drawing) const {
  if (snapMode_ == kOrthogonal && held_) {
    const Point origin = *held_;
    return std::abs(p.x - origin.x) >= std::abs(p.y - origin.y) ? Point{p.x, origin.y} : Point{origin.x, p.y};
  }
  if (!snapToNear_) { return p; }
  static const std::set<SnapKind> kDefining = {SnapKind::kCentre, SnapKind::kEnd, SnapKind::kOrigin,
                                               SnapKind::kIntersection, SnapKind::kMiddle};
  const auto found = snapAt(drawing, p, aperture(drawing), kDefining, std::nullopt);
  return found ? found->at : p;
}

// An angle lock offers two lines through its origin, at the angle and square to it; the nearer one counts.
Point Cursor::locked(Point p) const {
  if (lock_ == Lock::kFree) { return p; }
  if (lock_ == Lock::kLine) { return footOn(lockThrough_, lockDirection_, p); }
  const Point along = footOn(heldAt(), lockDirection_, p);
  const Point across = footOn(heldAt(), {-lockDirection_.y, lockDirection_.x}, p);
  return distance(p, along) <= distance(p, across) ? along : across;
}

Point Cursor::give(Point typed, const Drawing& drawing) {
  position_ = lastGiven_ = locked(snapped(typed, drawing));
  return position_;
}

}  // namespace brevan

#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/geometry/segment.h"

namespace brevan {

class Drawing;

// The drawing cursor. A point the user gives passes through snap, then lock, before a caller sees it.
class Cursor {
 public:
  // As a command finds and leaves it: unheld, unlocked, free.
  void reset();

  [[nodiscard]] Point position() const { return position_; }
  void setPosition(Point position) { position_ = position; }
  // As if the user had typed it: neither snap nor lock move it.
  void enter(Point at) { position_ = lastGiven_ = at; }
  // The point that the user gave last; relative points start there.
  [[nodiscard]] Point lastGiven() const { return lastGiven_; }

  // Holding keeps the present position as the origin of locks and the rubber band.
  void hold(bool held);
  [[nodiscard]] bool held() const { return held_.has_value(); }
  [[nodiscard]] Point heldAt() const { return held_.value_or(position_); }

  void lockAtAngle(double degrees);
  // Onto an endless line; its two points must differ.
  void lockOntoLine(const Segment& line);
  // Turns the lock square to its line, through the held coordinate. False where no line is locked.
  bool lockSquare();
  void unlock();
  // The locked direction in degrees, above -90 up to 90, so that texts read upright; nothing while free.
  [[nodiscard]] std::optional<double> lockedAngle() const;

  void snapToNear(bool on) { snapToNear_ = on; }
  void setSnapMode(int mode) { snapMode_ = mode; }
  void setRubberBand(bool on) { rubberBand_ = on; }
  [[nodiscard]] bool rubberBand() const { return rubberBand_; }
  // What a point would make, shown while it is asked for; null for nothing.
  using Rubber = std::function<std::vector<Geometry>(Point)>;
  void setRubber(Rubber rubber) { rubber_ = std::move(rubber); }
  [[nodiscard]] const Rubber& rubber() const { return rubber_; }

  // Takes a point that the user gave: where it comes to lie after snap and lock. The cursor is there then.
  Point give(Point typed, const Drawing& drawing);

 private:
  enum class Lock { kFree, kAngle, kLine };
  [[nodiscard]] Point snapped(Point p, const Drawing& drawing) const;
  [[nodiscard]] Point locked(Point p) const;

  Point position_;
  Point lastGiven_;
  std::optional<Point> held_;
  Lock lock_ = Lock::kFree;
  Point lockDirection_{1.0, 0.0};  // a unit vector
  Point lockThrough_;              // of a line lock
  bool snapToNear_ = false;
  int snapMode_ = 0;
  bool rubberBand_ = false;
  Rubber rubber_;
};

// What calls and picks at a point see: 5 mm on paper.
double aperture(const Drawing& drawing);

}  // namespace brevan

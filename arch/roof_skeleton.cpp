#include "arch/roof_skeleton.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace ardenix::arch {

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();
constexpr double kShare = 1e-9;  // of the outline's size: less is nothing
constexpr double kParallel = 1e-9;
constexpr double kLate = 1e-6;  // of a time: what comes so late is taken with what comes first

double area(const std::vector<Point>& corners) {
  double twice = 0.0;
  for (size_t at = 0; at < corners.size(); ++at) { twice += cross(corners[at], corners[(at + 1) % corners.size()]); }
  return twice / 2.0;
}

bool areOnBothSides(Point a, Point b, Point from, Point to) {
  return cross(to - from, a - from) * cross(to - from, b - from) < 0.0;
}

bool isSimple(const std::vector<Point>& corners) {
  const auto corner = [&](size_t at) { return corners[at % corners.size()]; };
  for (size_t one = 0; one < corners.size(); ++one) {
    for (size_t other = one + 2; other < corners.size(); ++other) {
      if (areOnBothSides(corner(one), corner(one + 1), corner(other), corner(other + 1)) &&
          areOnBothSides(corner(other), corner(other + 1), corner(one), corner(one + 1))) {
        return false;
      }
    }
  }
  return true;
}

// A side as it moves.
struct Front {
  Point through;
  Point along;  // unit vectors
  Point inwards;
  double speed = 1.0;

  [[nodiscard]] double depth(Point p) const { return dot(p - through, inwards); }
};

// When a corner comes to lie on the line of a side.
struct Hit {
  double time = 0.0;
  size_t side = 0;
};

// A corner of what is left of the outline, between the side before it and the one after.
struct Corner {
  Point at;
  size_t before = 0;
  size_t after = 0;
  Point born{};
  double bornAt = 0.0;
  Point velocity{};
  // Of one that points inwards: all its hits in their order, which do not change while it lives; and the first to come.
  std::shared_ptr<const std::vector<Hit>> hits{};
  size_t nextHit = 0;
};
using Loop = std::vector<Corner>;

class Skeleton {
 public:
  explicit Skeleton(const RoofOutline& outline) : outline_(outline) {
    double size = 0.0;
    for (size_t side = 0; side < outline.count(); ++side) {
      const Point a = outline.corner(side);
      const Point b = outline.corner(side + 1);
      const double length = distance(a, b);
      const Point along = (b - a) * (1.0 / length);
      fronts_.push_back({a, along, quarterTurned(along), outline.sides[side] == RoofSide::kEaves ? 1.0 : 0.0});
      size += length;
    }
    small_ = kShare * size;
  }

  std::optional<std::vector<RoofSeam>> grow() {
    Loop loop;
    for (size_t side = 0; side < outline_.count(); ++side) {
      const size_t before = (side + outline_.count() - 1) % outline_.count();
      loop.push_back(newCorner(outline_.corner(side), before, side));
    }
    loops_.push_back(std::move(loop));
    const size_t mostSteps = 4 * outline_.count();
    for (size_t step = 0; !loops_.empty(); ++step) {
      const double wait = nextMeeting();
      if (wait == kNever || step == mostSteps) { return std::nullopt; }
      advance(wait);
      resolveAll();
    }
    return holds() ? std::optional(std::move(seams_)) : std::nullopt;
  }

 private:
  // Whether every seam lies in its faces; gables that stand against the fall of a roof give none.
  [[nodiscard]] bool holds() const {
    const auto lies = [this](size_t side, Point p, double inwards) {
      const Front& front = fronts_[side];
      return std::abs(front.depth(p) - front.speed * inwards) <= std::sqrt(kShare) * small_ / kShare;
    };
    return std::ranges::all_of(seams_, [&](const RoofSeam& seam) {
      return lies(seam.left, seam.from, seam.fromInwards) && lies(seam.right, seam.from, seam.fromInwards) &&
             lies(seam.left, seam.to, seam.toInwards) && lies(seam.right, seam.to, seam.toInwards);
    });
  }

  // ---- Corners ----------------------------------------------------------------------------------------------
  [[nodiscard]] Corner newCorner(Point at, size_t before, size_t after) const {
    Corner corner{at, before, after, at, now_, velocityOf(fronts_[before], fronts_[after])};
    if (isReflex(corner)) { corner.hits = std::make_shared<const std::vector<Hit>>(hitsOf(corner)); }
    return corner;
  }

  [[nodiscard]] std::vector<Hit> hitsOf(const Corner& corner) const {
    std::vector<Hit> hits;
    for (size_t side = 0; side < fronts_.size(); ++side) {
      const Front& front = fronts_[side];
      const double nears = front.speed - dot(corner.velocity, front.inwards);
      const double depth = front.depth(corner.at) - front.speed * now_;
      if (side == corner.before || side == corner.after || nears <= kShare || depth < -small_) { continue; }
      hits.push_back({now_ + std::max(0.0, depth / nears), side});
    }
    std::ranges::sort(hits, {}, &Hit::time);
    return hits;
  }

  // So that the corner stays on both sides.
  static Point velocityOf(const Front& before, const Front& after) {
    const double turn = cross(before.inwards, after.inwards);
    if (std::abs(turn) <= kParallel) { return before.inwards * std::max(before.speed, after.speed); }
    return {(before.speed * after.inwards.y - after.speed * before.inwards.y) / turn,
            (after.speed * before.inwards.x - before.speed * after.inwards.x) / turn};
  }

  [[nodiscard]] bool isReflex(const Corner& corner) const {
    return cross(fronts_[corner.before].along, fronts_[corner.after].along) < 0.0;
  }

  // ---- Time -------------------------------------------------------------------------------------------------
  double nextMeeting() {
    double wait = kNever;
    for (Loop& loop : loops_) {
      for (size_t at = 0; at < loop.size(); ++at) {
        wait = std::min(wait, waitOfSide(loop[at], loop[(at + 1) % loop.size()]));
      }
      for (Corner& corner : loop) {
        if (corner.hits != nullptr) { wait = waitOfReflex(loop, corner, wait); }
      }
    }
    return wait;
  }

  // Until a side has no length.
  [[nodiscard]] double waitOfSide(const Corner& from, const Corner& to) const {
    const Point along = fronts_[from.after].along;
    const double length = dot(to.at - from.at, along);
    const double shrinks = dot(from.velocity - to.velocity, along);
    return shrinks > kShare ? std::max(0.0, length / shrinks) : kNever;
  }

  // Until a corner that points inwards meets a side that is none of its own, not only its line.
  double waitOfReflex(const Loop& loop, Corner& corner, double wait) const {
    const std::vector<Hit>& hits = *corner.hits;
    while (corner.nextHit < hits.size() && hits[corner.nextHit].time < now_ - small_) { ++corner.nextHit; }
    for (size_t at = corner.nextHit; at < hits.size() && hits[at].time - now_ < wait; ++at) {
      const double then = std::max(0.0, hits[at].time - now_);
      if (isOnSide(loop, hits[at].side, corner.at + corner.velocity * then, then)) { return then; }
    }
    return wait;
  }

  [[nodiscard]] bool isOnSide(const Loop& loop, size_t side, Point meets, double then) const {
    for (size_t at = 0; at < loop.size(); ++at) {
      const Corner& from = loop[at];
      if (from.after != side) { continue; }
      const Corner& to = loop[(at + 1) % loop.size()];
      const Point along = fronts_[side].along;
      if (dot(meets - (from.at + from.velocity * then), along) >= -small_ &&
          dot(meets - (to.at + to.velocity * then), along) <= small_) {
        return true;
      }
    }
    return false;
  }

  void advance(double wait) {
    now_ += wait;
    for (Loop& loop : loops_) {
      for (Corner& corner : loop) { corner.at = corner.at + corner.velocity * wait; }
    }
  }

  // ---- What has met -------------------------------------------------------------------------------------------
  void resolveAll() {
    std::vector<Loop> open = std::move(loops_);
    loops_.clear();
    while (!open.empty()) {
      Loop loop = std::move(open.back());
      open.pop_back();
      mergeNeighbours(loop);
      if (loop.size() < 3) {
        close(loop);
      } else if (auto parts = split(loop)) {
        open.push_back(std::move(parts->first));
        open.push_back(std::move(parts->second));
      } else {
        loops_.push_back(std::move(loop));
      }
    }
  }

  [[nodiscard]] bool same(Point a, Point b) const { return distance(a, b) <= small_; }

  // A side without length goes, and its corners become one.
  void mergeNeighbours(Loop& loop) {
    for (size_t at = 0; loop.size() > 1 && at < loop.size();) {
      const size_t next = (at + 1) % loop.size();
      if (!same(loop[at].at, loop[next].at)) {
        ++at;
        continue;
      }
      end(loop[at]);
      end(loop[next]);
      loop[at] = newCorner(loop[at].at, loop[at].before, loop[next].after);
      loop.erase(loop.begin() + static_cast<std::ptrdiff_t>(next));
      at = 0;
    }
  }

  // What is left has no area: a ridge, or a point.
  void close(const Loop& loop) {
    for (const Corner& corner : loop) { end(corner); }
    if (loop.size() == 2) { addSeam({loop[0].at, loop[1].at, now_, now_, loop[0].after, loop[1].after}); }
  }

  void end(const Corner& corner) {
    addSeam({corner.born, corner.at, corner.bornAt, now_, corner.before, corner.after});
  }

  void addSeam(RoofSeam seam) {
    if (!same(seam.from, seam.to)) { seams_.push_back(seam); }
  }

  // Two loops in place of one that touches itself: a corner at another, or on a side.
  std::optional<std::pair<Loop, Loop>> split(const Loop& loop) {
    for (size_t corner = 0; corner < loop.size(); ++corner) {
      if (!mayTouch(loop[corner])) { continue; }
      for (size_t other = 0; other < loop.size(); ++other) {
        const size_t apart = (other + loop.size() - corner) % loop.size();
        if (apart > 1 && apart + 1 < loop.size() && same(loop[corner].at, loop[other].at)) {
          return splitAtCorners(loop, corner, other);
        }
      }
    }
    for (size_t corner = 0; corner < loop.size(); ++corner) {
      if (!mayTouch(loop[corner])) { continue; }
      for (size_t side = 0; side < loop.size(); ++side) {
        if (touches(loop, corner, side)) { return splitAtSide(loop, corner, side); }
      }
    }
    return std::nullopt;
  }

  // Only what is new now, lies between sides in one line, or points inwards and is on the line of a side.
  [[nodiscard]] bool mayTouch(const Corner& corner) const {
    const double turn = cross(fronts_[corner.before].along, fronts_[corner.after].along);
    if (corner.bornAt == now_ || std::abs(turn) <= kParallel) { return true; }
    if (corner.hits == nullptr) { return false; }
    for (size_t at = corner.nextHit; at < corner.hits->size(); ++at) {
      const double late = (*corner.hits)[at].time - now_;
      if (late > kLate * (now_ + small_)) { return false; }
      if (late >= -kLate * (now_ + small_)) { return true; }
    }
    return false;
  }

  [[nodiscard]] bool touches(const Loop& loop, size_t corner, size_t side) const {
    const Corner& from = loop[side];
    const size_t next = (side + 1) % loop.size();
    if (corner == side || corner == next) { return false; }
    const Point at = loop[corner].at;
    const Front& front = fronts_[from.after];
    return std::abs(dot(at - from.at, front.inwards)) <= small_ && dot(at - from.at, front.along) > small_ &&
           dot(loop[next].at - at, front.along) > small_;
  }

  static Loop between(const Loop& loop, size_t from, size_t to) {
    Loop part;
    for (size_t at = from; at != to; at = (at + 1) % loop.size()) { part.push_back(loop[at]); }
    return part;
  }

  std::pair<Loop, Loop> splitAtCorners(const Loop& loop, size_t one, size_t other) {
    end(loop[one]);
    end(loop[other]);
    Loop first = between(loop, one, other);
    Loop second = between(loop, other, one);
    first.front() = newCorner(loop[one].at, loop[other].before, loop[one].after);
    second.front() = newCorner(loop[other].at, loop[one].before, loop[other].after);
    return {std::move(first), std::move(second)};
  }

  std::pair<Loop, Loop> splitAtSide(const Loop& loop, size_t corner, size_t side) {
    const Corner& meets = loop[corner];
    const size_t front = loop[side].after;
    end(meets);
    Loop first = between(loop, corner, (side + 1) % loop.size());
    Loop second = between(loop, (side + 1) % loop.size(), corner);
    first.front() = newCorner(meets.at, front, meets.after);
    second.push_back(newCorner(meets.at, meets.before, front));
    return {std::move(first), std::move(second)};
  }

  const RoofOutline& outline_;
  std::vector<Front> fronts_;
  double small_ = 0.0;
  double now_ = 0.0;
  std::vector<Loop> loops_;
  std::vector<RoofSeam> seams_;
};

}  // namespace

bool RoofOutline::isOneFace(size_t side, size_t other) const {
  if (sides[side] != sides[other]) { return false; }
  const Point along = corner(side + 1) - corner(side);
  const Point across = corner(other + 1) - corner(other);
  const double close = 1e-9 * length(along);
  return dot(along, across) > 0.0 && std::abs(cross(along, across)) <= close * length(across) &&
         std::abs(cross(along, corner(other) - corner(side))) <=
             close * (length(along) + distance(corner(other), corner(side)));
}

std::optional<std::vector<RoofSeam>> roofSeams(const RoofOutline& outline) {
  if (outline.count() < 3 || outline.sides.size() != outline.count() || area(outline.corners) <= 0.0) {
    return std::nullopt;
  }
  for (size_t side = 0; side < outline.count(); ++side) {
    if (nearlyEqual(outline.corner(side), outline.corner(side + 1))) { return std::nullopt; }
  }
  return isSimple(outline.corners) ? Skeleton(outline).grow() : std::nullopt;
}

}  // namespace ardenix::arch

#include "survey/sectional/section_tracing.h"

#include <cmath>
#include <cstddef>

namespace ardenix::survey {

namespace {

class OutlineTracing {
 public:
  OutlineTracing(CCadWindow& view, int pen) : view_(view), pen_(pen) {}
  OutlineTracing(const OutlineTracing&) = delete;
  OutlineTracing& operator=(const OutlineTracing&) = delete;
  ~OutlineTracing() {
    view_.gsSetPrompt("");
    view_.gsEndFunc();
  }

  std::optional<std::vector<Point>> run() {
    while (view_.gsEscapePressed() == 0) {
      const std::optional<Point> next = pick();
      if (!next) { return std::nullopt; }
      if (closes(*next)) {
        showSide(corners_.back(), corners_.front());
        return std::move(corners_);
      }
      add(*next);
    }
    return std::nullopt;
  }

 private:
  std::optional<Point> pick() {
    constexpr std::string_view kPrompt = "Trace around figure (ending on first point)";
    if (!corners_.empty()) {
      view_.gsSetCurrCoord(corners_.back().x, corners_.back().y);
      view_.gsSetRubberBand(1);
    }
    Point at;
    const bool picked = view_.gsGetPointFromUser(kPrompt, at.x, at.y) == 0;
    view_.gsSetRubberBand(0);
    return picked ? std::optional(at) : std::nullopt;
  }

  [[nodiscard]] bool closes(Point at) const {
    constexpr double kNear = 0.05;
    constexpr double kTolerance = 1e-12;
    constexpr size_t kFewest = 3;
    return corners_.size() >= kFewest && distance(at, corners_.front()) < kNear - (kNear * kTolerance + kTolerance);
  }

  void add(Point corner) {
    if (!corners_.empty() && nearlyEqual(corner, corners_.back())) {
      view_.gsSetStatus("This corner is the one before it once more.");
    }
    if (!corners_.empty()) { showSide(corners_.back(), corner); }
    corners_.push_back(corner);
  }

  void showSide(Point from, Point to) {
    constexpr int kTemporary = 13;
    constexpr int kNormal = 10;
    view_.gsSetDrawMode(kTemporary);
    view_.gsDisplayLine(from.x, from.y, to.x, to.y, pen_);
    view_.gsSetDrawMode(kNormal);
  }

  CCadWindow& view_;
  int pen_;
  std::vector<Point> corners_;
};

}  // namespace

std::optional<std::vector<Point>> traceOutline(CCadWindow& view, int pen) { return OutlineTracing(view, pen).run(); }

double areaOf(const std::vector<Point>& corners) {
  // From the first corner: of coordinates of seven digits the products would keep no square millimetres.
  double twice = 0.0;
  for (size_t n = 2; n < corners.size(); ++n) {
    twice += cross(corners[n - 1] - corners.front(), corners[n] - corners.front());
  }
  return std::fabs(twice) / 2.0;
}

}  // namespace ardenix::survey

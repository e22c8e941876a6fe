#include "host/files/dxf/read/curves.h"

#include <algorithm>

#include "host/geometry/box.h"

namespace brevan {

namespace {

// Sides of a full turn whose chords stray from the circle by kCurveTolerance of its radius.
constexpr int kSidesATurn = 224;
constexpr int kHighestDegree = 15;
constexpr int kDeepestHalving = 12;

// De Boor's scheme in homogeneous coordinates, inside one span of the knots.
Point splinePoint(const SplineShape& spline, size_t span, double at) {
  struct Weighted {
    double x, y, w;
  };
  const auto degree = static_cast<size_t>(spline.degree);
  std::array<Weighted, kHighestDegree + 1> points{};
  for (size_t n = 0; n <= degree; ++n) {
    const size_t control = span - degree + n;
    const double weight = spline.weights.empty() ? 1.0 : spline.weights[control];
    points[n] = {spline.controls[control].x * weight, spline.controls[control].y * weight, weight};
  }
  for (size_t level = 1; level <= degree; ++level) {
    for (size_t n = degree; n >= level; --n) {
      const double low = spline.knots[span - degree + n];
      const double high = spline.knots[span + 1 + n - level];
      const double part = high > low ? (at - low) / (high - low) : 0.0;
      const auto mixed = [part](double a, double b) { return a + (b - a) * part; };
      points[n] = {mixed(points[n - 1].x, points[n].x), mixed(points[n - 1].y, points[n].y),
                   mixed(points[n - 1].w, points[n].w)};
    }
  }
  const Weighted& end = points[degree];
  return end.w == 0.0 ? Point{end.x, end.y} : Point{end.x / end.w, end.y / end.w};
}

class SpanChain {
 public:
  SpanChain(const SplineShape& spline, double tolerance, std::vector<Point>& chain)
      : spline_(spline), tolerance_(tolerance), chain_(chain) {}

  void add(size_t span) {
    const double from = spline_.knots[span];
    const double to = spline_.knots[span + 1];
    // Quarters first, so that an S whose middle lies on its chord is not taken for straight.
    Point before = splinePoint(spline_, span, from);
    for (int quarter = 1; quarter <= 4; ++quarter) {
      const double low = from + (to - from) * (quarter - 1) / 4.0;
      const double high = quarter == 4 ? to : from + (to - from) * quarter / 4.0;
      const Point end = splinePoint(spline_, span, high);
      halve(span, {low, before}, {high, end}, 0);
      before = end;
    }
  }

 private:
  struct Place {
    double at;
    Point point;
  };
  void halve(size_t span, const Place& from, const Place& to, int depth) {
    const Place half = {(from.at + to.at) / 2.0, splinePoint(spline_, span, (from.at + to.at) / 2.0)};
    if (depth < kDeepestHalving && distance(half.point, middle(from.point, to.point)) > tolerance_) {
      halve(span, from, half, depth + 1);
      halve(span, half, to, depth + 1);
    } else {
      chain_.push_back(to.point);
    }
  }
  const SplineShape& spline_;
  double tolerance_;
  std::vector<Point>& chain_;
};

bool isSpline(const SplineShape& spline) {
  const bool counts = spline.degree >= 1 && spline.degree <= kHighestDegree &&
                      spline.controls.size() > static_cast<size_t>(spline.degree) &&
                      spline.knots.size() == spline.controls.size() + static_cast<size_t>(spline.degree) + 1 &&
                      (spline.weights.empty() || spline.weights.size() == spline.controls.size());
  return counts && std::is_sorted(spline.knots.begin(), spline.knots.end()) &&
         std::all_of(spline.weights.begin(), spline.weights.end(), [](double weight) { return weight > 0.0; });
}

}  // namespace

std::vector<Point> ellipseChain(const EllipseShape& ellipse) {
  double sweep = positiveAngle(ellipse.to - ellipse.from);
  if (sweep < 1e-12) { sweep = 2.0 * kPi; }
  const int sides = std::max(1, static_cast<int>(std::ceil(kSidesATurn * sweep / (2.0 * kPi))));
  std::vector<Point> chain;
  for (int side = 0; side <= sides; ++side) {
    const double at = ellipse.from + sweep * side / sides;
    chain.push_back(ellipse.centre + ellipse.major * std::cos(at) + ellipse.minor * std::sin(at));
  }
  return chain;
}

std::vector<Point> splineChain(const SplineShape& spline) {
  if (!isSpline(spline)) { return {}; }
  Box box;
  for (const Point control : spline.controls) { box.add(control); }
  const double tolerance = kCurveTolerance * std::max(box.width(), box.height());
  const auto degree = static_cast<size_t>(spline.degree);
  std::vector<Point> chain = {splinePoint(spline, degree, spline.knots[degree])};
  SpanChain spans(spline, tolerance, chain);
  for (size_t span = degree; span < spline.controls.size(); ++span) {
    if (spline.knots[span + 1] > spline.knots[span]) { spans.add(span); }
  }
  return chain;
}

}  // namespace brevan

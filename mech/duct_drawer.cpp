#include "mech/duct_drawer.h"

#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"

namespace ardenix::mech {

namespace {

constexpr double kUnitOfParms = 100000.0;

// The style of new dimensions while ducts are dimensioned.
class PlainDimensions {
 public:
  explicit PlainDimensions(CCadWindow& view) : view_(view), before_(view.gsGetDimDefStyle()) {
    view_.gsSetDimDefStyle(0);
  }
  PlainDimensions(const PlainDimensions&) = delete;
  PlainDimensions& operator=(const PlainDimensions&) = delete;
  ~PlainDimensions() { view_.gsSetDimDefStyle(before_); }

 private:
  CCadWindow& view_;
  int before_;
};

// A third of the length high, on paper in tenths of a millimetre.
double textHeight(CCadWindow& view, double length) {
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  return length / 3.0 / parms.p[1] * (parms.p[3] / kUnitOfParms);
}

}  // namespace

DuctDrawer::DuctDrawer(CCadWindow& view, const LineStyle& style)
    : view_(view),
      pen_(view, style),
      folds_(style),
      text_{.justification = 2, .font = "Arial", .pen = style.pen, .ninth = 1.0} {}

void DuctDrawer::take(const Duct& duct) {
  duct_ = duct;
  pattern_ = ductPattern(duct).value_or(DuctPattern{});
  text_.height = textHeight(view_, duct.length);
}

void DuctDrawer::drawThinFolds() {
  constexpr double kThin = 2.5;
  folds_.width = kThin;
}

void DuctDrawer::placeDucts() {
  view_.SetFocus();
  const PlainDimensions dimensions(view_);
  view_.gsStartPat("");  // a duct is no part, nor of the one that is open
  drawRounds(view_, [this] {
    if (!mayDrawOn(view_, view_.gsGetCurrentLayerName())) { return false; }
    const auto lowerLeft = askPlace(view_, "Position cursor at lower left of drawing (else spacebar to exit) ?");
    if (lowerLeft) { draw(*lowerLeft); }
    return lowerLeft.has_value();
  });
}

void DuctDrawer::draw(Point lowerLeft) {
  origin_ = lowerLeft;
  clearAll(view_);
  view_.gsExecuteMacro(macroText::kSelectNewPlain);
  strokeSideView();
  dimensionSideView();
  strokeEndView();
  strokePlan();
  dimensionPlan();
  strokePattern();
  strokeTitles();
  view_.gsExecuteMacro(macroText::scaleExact(origin_, 1.0, 1.0));
  clearAll(view_);
  view_.gsExecuteMacro(macroText::kSelectNewPlainEnd);
}

// ---- Views ----------------------------------------------------------------------------------------------------

// The rectangle lies on the base line, the round end is seen edge-on above it.
void DuctDrawer::strokeSideView() const {
  const double along = toLeft();
  const double height = duct_.height;
  const Point right = at(duct_.length, 0);
  pen_.path({origin_, at(along - duct_.radius, height), at(along + duct_.radius, height), right});
  pen_.path({right, at(along, height), origin_});
  pen_.line(origin_, right);
}

void DuctDrawer::strokeEndView() const {
  const double foot = duct_.length + 2.0 * duct_.height;
  const double top = duct_.length + duct_.height;
  const double middle = duct_.width / 2.0;
  const Point low = plan(foot, 0);
  const Point high = plan(foot, duct_.width);
  pen_.path({low, plan(top, middle - duct_.radius), plan(top, middle + duct_.radius), high, low});
  pen_.path({low, plan(top, middle), high});
}

void DuctDrawer::strokePlan() const {
  const Point corner = plan(0, 0);
  pen_.path({corner, plan(duct_.length, 0), plan(duct_.length, duct_.width), plan(0, duct_.width), corner});
  pen_.circle(plan(toLeft(), duct_.width / 2.0), duct_.radius, CircleStart::kRight);
}

// The side view's length is given from the point that the user gave last, its lower left.
void DuctDrawer::dimensionSideView() const {
  view_.gsExecuteMacro(
      macroText::levelDimensionFromHere({duct_.length / 2.0, -duct_.height / 3.0}, {}, {duct_.length, 0}));
  view_.gsExecuteMacro(macroText::uprightDimension(at(-duct_.length / 6.0, 0), origin_, at(0, duct_.height)));
}

void DuctDrawer::dimensionPlan() const {
  const Point centre = plan(toLeft(), duct_.width / 2.0);
  const Point radius{duct_.radius, 0};
  view_.gsExecuteMacro(
      macroText::levelDimension(centre + Point{0, 1.5 * duct_.radius}, centre - radius, centre + radius));
  view_.gsExecuteMacro(macroText::uprightDimension(at(-duct_.length / 6.0, 0), plan(0, 0), plan(0, duct_.width)));
}

// ---- Pattern --------------------------------------------------------------------------------------------------

void DuctDrawer::strokePattern() const {
  const Point left = at(1.5 * duct_.length, 0);
  const Point right = at(2.5 * duct_.length, 0);
  pen_.line(left, at(2.0 * duct_.length - duct_.offset, 0));
  strokeLeftHalf(left, pattern_.left);
  pen_.line(left, right);
  strokeRightHalf(right, pattern_.right);
}

// Its round end from the middle outwards, then the folds from its corner.
void DuctDrawer::strokeLeftHalf(Point corner, const DuctHalf& half) const {
  const auto& [v, u, t, s, r] = half;
  constexpr std::string_view kNames[] = {"v", "u", "t", "s"};
  for (size_t i = 0; i < std::size(kNames); ++i) {
    pen_.line(corner + half[i], corner + half[i + 1]);
    label(kNames[i], corner + half[i], -1, 1, i == 0 ? 5.0 : 6.0);
  }
  foldPen().line(corner, corner + v);
  label("r", corner + r, -1, 1, 6.0);
  label("o", corner, -1, -1, 6.0);
  for (const Point to : {u, t, s}) { foldPen().line(corner, corner + to); }
  pen_.line(corner, corner + r);
}

void DuctDrawer::strokeRightHalf(Point corner, const DuctHalf& half) const {
  constexpr std::string_view kNames[] = {"w", "x", "y", "z"};
  const auto onRight = [&](size_t i) { return corner + Point{-half[i].x, half[i].y}; };
  for (size_t i = 0; i < std::size(kNames); ++i) {
    pen_.line(onRight(i), onRight(i + 1));
    label(kNames[i], onRight(i + 1), i + 1 < std::size(kNames) ? 1 : -1, 1, 6.0);
  }
  label("p", corner, -1, -1, 6.0);
  for (size_t i = 0; i < half.size(); ++i) { (i + 1 < half.size() ? foldPen() : pen_).line(corner, onRight(i)); }
}

void DuctDrawer::strokeTitles() const {
  const double length = duct_.length;
  label("SIDE", at(length / 3.0, duct_.height / 5.0));
  label("PLAN", plan(2.0 * length / 3.0, duct_.width / 5.0));
  label("END", plan(length + 1.5 * duct_.height, duct_.width / 2.0));
  label("PATTERN", at(2.0 * length - length / 6.0, duct_.height / 5.0));
}

void DuctDrawer::label(std::string_view text, Point at) const { pen_.text(at, text, text_); }

// Beside a point by a part of the round end's radius, and half of it above or below.
void DuctDrawer::label(std::string_view text, Point point, int across, int up, double part) const {
  label(text, point + Point{across * duct_.radius / part, up * duct_.radius / 2.0});
}

}  // namespace ardenix::mech

#include "mech/hole_preview.h"

namespace ardenix::mech {

namespace {

constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kYellow = 0xFFFF00;
constexpr int kLetterHeight = 8;

using Stroke = dialog::Canvas::Stroke;

// What lies beyond every canvas, as a field that is still being typed may put it, stays there.
int pixel(double at) {
  constexpr int kFarthest = 100'000;
  if (!(at > -kFarthest)) { return -kFarthest; }
  return at < kFarthest ? static_cast<int>(at) : kFarthest;
}

// A canvas with the hole's scale and the middle of the canvas.
class HolePane {
 public:
  HolePane(dialog::Canvas& canvas, const HoleRecord& hole)
      : canvas_(canvas), hole_(hole), middleX_(canvas.width() / 2), middleY_(canvas.height() / 2) {
    extent_ = hole.length + (blind() ? 2.0 * hole.diameter : 0.0);
    scale_ = extent_ > 0.0 ? 0.8 * canvas.height() / extent_ : 0.8;
    radius_ = hole.diameter / 2.0;
    threadRadius_ = hole.threadDiameter / 2.0;
  }

  void paint() {
    constexpr int kTallestPlan = 200;
    canvas_.fill(kBlack);
    canvas_.line(middleX_, 0, middleX_, canvas_.height(), kYellow, Stroke::kDashDot);
    canvas_.height() > kTallestPlan ? paintSide() : paintPlan();
  }

 private:
  [[nodiscard]] bool blind() const { return hole_.range == HoleRange::kBlind; }
  [[nodiscard]] bool tapped() const { return hole_.type == HoleType::kTapped; }
  [[nodiscard]] bool sunk() const { return hole_.countersinkDepth > 0.0; }
  [[nodiscard]] bool counterbored() const { return hole_.counterboreDiameter > 0.0; }
  [[nodiscard]] int x(double aside) const { return pixel(middleX_ + aside * scale_); }
  // Depths count from the surface of the material.
  [[nodiscard]] int y(double depth) const { return pixel(middleY_ + (depth - extent_ / 2.0) * scale_); }
  [[nodiscard]] int pixels(double length) const { return pixel(length * scale_); }

  void line(double fromX, double fromY, double toX, double toY) {
    canvas_.line(x(fromX), y(fromY), x(toX), y(toY), kWhite, Stroke::kSolid);
  }
  void across(double halfWidth, double depth) { line(-halfWidth, depth, halfWidth, depth); }
  void circle(double radius) { canvas_.circle(middleX_, middleY_, pixels(radius), kWhite); }
  void label(std::string_view text) { canvas_.text(2, 2, text, kLetterHeight, kWhite, kBlack); }

  void paintSide() {
    label("SIDE");
    for (const double depth : {0.0, extent_}) {
      canvas_.line(0, y(depth), canvas_.width(), y(depth), kWhite, Stroke::kSolid);
    }
    for (const double side : {-1.0, 1.0}) { paintWall(side); }
    if (sunk()) { across(radius_, hole_.countersinkDepth); }
    if (blind()) { across(radius_, hole_.length + radius_ / 2.0); }
    if (tapped()) { paintThread(); }
  }

  void paintWall(double side) {
    const double wall = side * radius_;
    const double sink = hole_.countersinkDepth;
    line(wall, sink, wall, hole_.length);
    if (counterbored()) {
      const double bore = side * hole_.counterboreDiameter / 2.0;
      line(wall, sink, bore, sink);
      line(bore, sink, bore, 0.0);
    } else if (sunk()) {
      line(wall, sink, side * (radius_ + sink), 0.0);
    }
    if (!blind()) { return; }
    line(wall, hole_.length, wall, hole_.length + radius_ / 2.0);
    line(wall, hole_.length + radius_ / 2.0, 0.0, hole_.length + radius_);
  }

  void paintThread() {
    const double start = hole_.countersinkDepth;
    const double end = start + hole_.threadLength;
    for (const double side : {-threadRadius_, threadRadius_}) { line(side, start, side, end); }
    across(threadRadius_, end);
  }

  // At the scale that the side pane has when the panes are 236 and 89 pixels high.
  void paintPlan() {
    canvas_.line(0, middleY_, canvas_.width(), middleY_, kYellow, Stroke::kDashDot);
    scale_ *= 236.0 / 89.0;
    label("PLAN");
    circle(radius_);
    if (sunk()) { circle(counterbored() ? hole_.counterboreDiameter / 2.0 : radius_ + hole_.countersinkDepth); }
    if (tapped()) { circle(threadRadius_); }
    if (hole_.type != HoleType::kDowel) { return; }
    for (const double start : {90.0, 270.0}) { canvas_.pie(middleX_, middleY_, pixels(radius_), start, 90.0, kWhite); }
  }

  dialog::Canvas& canvas_;
  const HoleRecord& hole_;
  int middleX_;
  int middleY_;
  double extent_;  // of the material
  double scale_;   // pixels a drawing unit
  double radius_;
  double threadRadius_;
};

}  // namespace

void paintHolePreview(dialog::Canvas& canvas, const HoleRecord& hole) { HolePane(canvas, hole).paint(); }

}  // namespace ardenix::mech

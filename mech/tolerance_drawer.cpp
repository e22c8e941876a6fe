#include "mech/tolerance_drawer.h"

#include <algorithm>
#include <optional>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "mech/tolerance_leader.h"
#include "mech/tolerance_stack.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kToleranceSymbols[] = {
    "TS_ANGULARITY",   "TS_PERPENDICITY", "TS_FLATNESS",     "TS_SURF_PROFILE", "TS_CIRCULARITY",  "TS_PARALLELISM",
    "TS_CYLINDRICITY", "TS_RUNOUT",       "TS_SYMMETRY",     "TS_POSITION",     "TS_LINE_PROFILE", "TS_MATERIAL_L",
    "TS_MATERIAL_M",   "TS_DIAMETER",     "TS__14",          "TS_PROJECTED",    "TS_CENTRELINE",   "TS_COAXIALITY",
    "TS_MATERIAL_S",   "TS_TOTAL_RUNOUT", "TS_STRAIGHTNESS", "TS__21",          "TS__22",          "TS__23"};

constexpr int kDiameter = 13;
constexpr int kProjected = 15;
constexpr double kHeight = 5.0;  // of a compartment, in units
constexpr double kInset = 0.5;   // of a text
constexpr int kMiddleLeft = 2;

// Draws one frame, its rows from left to right.
class FrameStrokes {
 public:
  FrameStrokes(AnnotationPen& pen, const ToleranceFrame& frame, Point corner)
      : pen_(pen), frame_(frame), corner_(corner), height_(kHeight * pen.unit()) {}

  void draw() {
    drawTolerance();
    if (!frame_.height.empty() || frame_.projected) { drawZone(); }
    if (frame_.identifier.empty()) { return; }
    newRow();
    drawTextCell(frame_.identifier);
  }

  // Leaves the first row level, at the end that lies nearer to the feature, and turns to it a compartment's height on.
  void drawLeaderTo(Leader leader) const {
    const Point left = corner_ + Point{0.0, height_ / 2.0};
    const Point right{end_, left.y};
    const bool leftwards = left.x - leader.feature.x > leader.feature.x - right.x;
    const double away = leftwards ? left.x - leader.feature.x : leader.feature.x - right.x;
    const double level = away > 0.0 ? std::min(away, height_) : height_;
    leader.begin = leftwards ? left : right;
    leader.bend = leader.begin + Point{leftwards ? -level : level, 0.0};
    drawLeader(pen_, leader);
  }

 private:
  void drawTolerance() {
    at_ = corner_;
    drawSymbolCell(frame_.characteristic);
    for (const ToleranceCell& cell : frame_.cells) { drawCell(cell); }
    end_ = at_.x;
  }

  void drawZone() {
    newRow();
    if (!frame_.height.empty()) { drawTextCell(frame_.height); }
    if (frame_.projected) { drawSymbolCell(kProjected); }
  }

  void drawCell(const ToleranceCell& cell) {
    const double start = at_.x;
    if (cell.diameter) { drawSymbol(kDiameter); }
    if (!cell.value.empty()) { drawText(cell.value); }
    if (cell.modifier != kNoToleranceSymbol) { drawSymbol(cell.modifier); }
    if (at_.x > start) { drawBox(start); }
  }
  void drawSymbolCell(int number) {
    const double start = at_.x;
    drawSymbol(number);
    drawBox(start);
  }
  void drawTextCell(std::string_view text) {
    const double start = at_.x;
    drawText(text);
    drawBox(start);
  }

  void drawSymbol(int number) {
    const std::string_view name = toleranceSymbol(number);
    if (!name.empty()) { pen_.symbol(name, macroText::placeSymbolCoarse(name, at_, pen_.style().scale * kCellScale)); }
    at_.x += height_;
  }
  void drawText(std::string_view text) {
    pen_.text(at_ + Point{kInset, kHeight / 2.0} * pen_.unit(), text, kMiddleLeft);
    at_.x += static_cast<double>(text.size()) * height_ / 2.0;
  }
  // From a place of the row to where it has come.
  void drawBox(double start) const {
    const Point low{start, at_.y};
    const Point high{at_.x, at_.y + height_};
    pen_.strokes().path({low, {high.x, low.y}, high, {low.x, high.y}, low});
  }

  void newRow() { at_ = corner_ - Point{0.0, height_ * ++rows_}; }

  AnnotationPen& pen_;
  const ToleranceFrame& frame_;
  Point corner_;
  double height_;
  Point at_;
  double end_ = 0.0;  // of the first row
  int rows_ = 0;      // below the first
};

}  // namespace

std::string_view toleranceSymbol(int number) {
  return number < 0 || number >= static_cast<int>(std::size(kToleranceSymbols))
             ? ""
             : kToleranceSymbols[static_cast<size_t>(number)];
}

void sketchToleranceFrame(AnnotationPen& pen, const ToleranceFrame& frame, Point corner) {
  FrameStrokes(pen, frame, corner).draw();
}

namespace {

// The frame's lower left corner; under another frame it is put exactly, where that is wanted.
std::optional<Point> askCorner(CCadWindow& view, const AnnotationPart& part, bool stacked) {
  const auto picked = askPoint(view, "Indicate the position of the Tolerance annotation.");
  if (!picked || !stacked) { return picked; }
  part.showLayer(true);
  const auto corner = cornerUnderFrame(view, *picked, kHeight * part.pen().unit());
  part.showLayer(false);
  return corner.value_or(*picked);
}

}  // namespace

void drawToleranceFrame(CCadWindow& view, const DefinitionStore& store, const ToleranceFrame& frame) {
  warnOfMissingLayer(store, kToleranceAnnotation, &view);
  const auto part = AnnotationPart::prepare(view, store, kToleranceAnnotation);
  if (!part) { return; }
  part->begin("TS");
  const auto corner = askCorner(view, *part, stackingWanted(store));
  if (!corner) { return; }
  FrameStrokes strokes(part->pen(), frame, *corner);
  strokes.draw();
  if (leadersWanted(store)) {
    if (const auto leader = askLeader(view)) { strokes.drawLeaderTo(*leader); }
  }
  part->finish(LinkEnding::kOpen);
}

}  // namespace ardenix::mech

#include "mech/weld.h"

#include <cmath>
#include <span>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix::mech {

namespace {

// In the order of their lists; the first entry, none, is left out. Below the reference line stands the plain symbol,
// above it the one whose name begins with "_".
constexpr std::string_view kSymbols[] = {"SQUARE",  "V",           "BEVEL",         "U",      "J",    "F_BEVEL",
                                         "FLARE_V", "FLANGE_EDGE", "FLANGE_CORNER", "FILLET", "BEAD", "SURFACING",
                                         "FUSION",  "PLUG",        "STUD"};
constexpr std::string_view kContours[] = {"FLUSH", "CONVEX", "CONCAVE"};
constexpr std::string_view kFinishes[] = {"M", "G", "C", "F"};

// The entry of a list; "" for none, and for a number that a record holds beyond the list.
std::string_view entryOf(std::span<const std::string_view> list, int chosen) {
  return chosen < 1 || chosen > static_cast<int>(list.size()) ? "" : list[static_cast<size_t>(chosen) - 1];
}

// What is said of one side of the joint.
struct WeldSide {
  int symbol;
  int surface;
  int finish;
  const std::string& upperSize;
  const std::string& lowerSize;
};
WeldSide otherSide(const WeldRecord& weld) {
  return {weld.otherSymbol, weld.otherSurface, weld.otherFinish, weld.otherUpper, weld.otherLower};
}
WeldSide arrowSide(const WeldRecord& weld) {
  return {weld.arrowSymbol, weld.arrowSurface, weld.arrowFinish, weld.arrowUpper, weld.arrowLower};
}

ArrowHead headOf(const DefinitionStore& store) {
  constexpr double kTenths = 10.0;
  const std::string settings = annotationSettings(store, kWeldAnnotation);
  return {.length = coreGetFieldDouble(settings, 3.0, 5, kFieldSeparator) * kTenths,
          .width = coreGetFieldDouble(settings, 1.5, 6, kFieldSeparator) * kTenths};
}

// Draws one weld annotation, bit by bit as its points are given.
class WeldStrokes {
 public:
  WeldStrokes(AnnotationPen& pen, const WeldRecord& record, const ArrowHead& head)
      : pen_(pen), record_(record), other_(otherSide(record)), arrow_(arrowSide(record)), head_(head) {}

  void drawArrow(Point joint, Point knee) {
    knee_ = knee;
    pen_.strokes().arrow(knee_, joint, head_);
  }

  void drawTexts(Point symbols) {
    symbols_ = symbols;
    drawRuns();
    drawFinish(other_, kBottomCentre, 1.0);
    drawFinish(arrow_, kTopCentre, -1.0);
    drawSizes();
  }

  void drawLine(Point end) const {
    pen_.strokes().line(knee_, end);
    drawTail(end);
  }

  void drawSymbols(std::string_view group) {
    if (record_.site) { drawMark("SITE", group); }
    if (record_.allAround) { drawMark("ALL_ROUND", group); }
    drawWeld(other_, pen_.flip() > 0.0);
    drawWeld(arrow_, pen_.flip() < 0.0);
    drawContour(other_, 0);
    drawContour(arrow_, kHalfTurn);
  }

 private:
  enum Justification {
    kBottomLeft = 1,
    kMiddleLeft,
    kTopLeft,
    kBottomCentre,
    kTopCentre = 6,
    kBottomRight,
    kMiddleRight,
    kTopRight
  };
  static constexpr int kHalfTurn = 180;

  void drawRuns() const {
    constexpr double kNothing = 1e-12;
    if (std::fabs(record_.length) <= kNothing || std::fabs(record_.pitch) <= kNothing) { return; }
    pen_.text({(knee_.x + symbols_.x) / 2.0, knee_.y}, numberText::format("%.1f - %.1f", record_.length, record_.pitch),
              kBottomCentre);
  }

  // Beyond the symbol, and beyond its contour where it has one.
  void drawFinish(const WeldSide& side, int justification, double way) const {
    const double away = side.surface > 0 ? 5.0 : 4.0;
    pen_.text({symbols_.x, symbols_.y + way * pen_.flip() * away * pen_.unit()}, entryOf(kFinishes, side.finish),
              justification);
  }

  void drawSizes() const {
    const bool left = symbols_.x <= knee_.x;
    const double away = (left ? -2.0 : 2.0) * pen_.flip() * pen_.unit();
    const Point at{symbols_.x + away, knee_.y};
    drawSize(other_, at, left ? kBottomRight : kBottomLeft);
    drawSize(arrow_, at, left ? kTopRight : kTopLeft);
  }

  // An empty upper size keeps its line.
  void drawSize(const WeldSide& side, Point at, int justification) const {
    if (side.upperSize.empty() && side.lowerSize.empty()) { return; }
    pen_.text(at, std::string(side.upperSize).append(kStoredLineBreak).append(side.lowerSize), justification);
  }

  // Open away from the knee.
  void drawTail(Point end) const {
    if (record_.tail.empty()) { return; }
    constexpr double kSpread = 4.0;
    const double flip = pen_.flip();
    const bool right = flip * knee_.x < flip * end.x || nearlyEqual(flip * knee_.x, flip * end.x);
    const double across = (right ? kSpread : -kSpread) * flip * pen_.unit();
    const double up = kSpread * pen_.unit();
    pen_.strokes().line(end, end + Point{across, up});
    pen_.strokes().line(end, end + Point{across, -up});
    pen_.text({end.x + across, knee_.y}, withStoredLineBreaks(record_.tail), right ? kMiddleLeft : kMiddleRight);
  }

  // They grow with the arrow's head.
  void drawMark(std::string_view name, std::string_view group) {
    constexpr double kMarkScale = 0.05;
    const double scale = head_.length * pen_.style().scale * kMarkScale;
    if (pen_.symbol(name, macroText::placeSymbol(name, knee_, scale, 0))) {
      pen_.view().gsExecuteMacro(macroText::takeSymbolInto(name, kWeldAnnotation.parent, group));
    }
  }

  void drawWeld(const WeldSide& side, bool above) {
    const std::string_view plain = entryOf(kSymbols, side.symbol);
    if (!plain.empty()) { place(std::string(above ? "_" : "").append(plain), 0); }
  }
  void drawContour(const WeldSide& side, int rotation) {
    const std::string_view name = entryOf(kContours, side.surface);
    if (!name.empty()) { place(name, rotation); }
  }
  void place(std::string_view name, int rotation) {
    pen_.symbol(name, macroText::placeSymbol(name, symbols_, pen_.style().scale, rotation));
  }

  AnnotationPen& pen_;
  const WeldRecord& record_;
  WeldSide other_;
  WeldSide arrow_;
  const ArrowHead head_;
  Point knee_;
  Point symbols_;
};

// The next points lie on the level and plumb lines through a point.
void holdCursorOnAxes(CCadWindow& view, Point at) {
  view.gsSetCurrCoord(at.x, at.y);
  view.gsExecuteMacro(macroText::kLockAxes);
  view.gsSetCursorHold(1);
}

void freeCursor(CCadWindow& view) {
  view.gsSetCursorHold(0);
  view.gsExecuteMacro(macroText::kFreeAxes);
}

}  // namespace

void sketchWeld(AnnotationPen& pen, const WeldRecord& weld, const ArrowHead& head, Point knee) {
  WeldStrokes strokes(pen, weld, head);
  strokes.drawArrow(knee + Point{-12.0, -16.0} * pen.unit(), knee);
  strokes.drawTexts(knee + Point{24.0, 0.0} * pen.unit());
  strokes.drawLine(knee + Point{44.0, 0.0} * pen.unit());
  strokes.drawSymbols("");
}

void WeldDrawer::sketch() {
  AnnotationPen pen = sketchingPen(view_, annotationStyle(store_, kWeldAnnotation));
  sketchWeld(pen, record_, headOf(store_), {});
}

void WeldDrawer::draw() const {
  const auto part = AnnotationPart::prepare(view_, store_, kWeldAnnotation);
  if (!part) { return; }
  part->beginOnScratch("WS");
  WeldStrokes strokes(part->pen(), record_, headOf(store_));
  const auto joint = askPoint(view_, "Indicate the arrow head position for the Weld indicator");
  if (!joint) { return; }
  const auto knee = askPoint(view_, "Indicate the position of the Weld indicator.");
  if (!knee) { return; }
  strokes.drawArrow(*joint, *knee);
  holdCursorOnAxes(view_, *knee);
  const auto symbols = askPoint(view_, "Indicate the position of the weld symbols.");
  if (!symbols) { return; }
  strokes.drawTexts(*symbols);
  const auto end = askPoint(view_, "Indicate the position of the tail.");
  if (!end) { return; }
  freeCursor(view_);
  strokes.drawLine(*end);
  strokes.drawSymbols(part->group());
  part->finish(LinkEnding::kQuote);
}

}  // namespace ardenix::mech

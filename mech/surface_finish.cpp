#include "mech/surface_finish.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kLaySymbols[] = {"SF_PARALLEL", "SF_PERPENDIC", "SF_CIRCULAR",
                                            "SF_RADIAL",   "SF_MULTI",     "SF_ANGULAR"};

// From the tip of the mark, in units.
constexpr Point kShortEnd{-2.828, 4.0};
constexpr Point kLongEnd{8.484, 12.0};
constexpr Point kExtensionEnd{24.0, 12.0};
constexpr Point kBarEnd{2.828, 4.0};
constexpr Point kCircle{0.0, 3.2};
constexpr double kCircleRadius = 1.84;
constexpr Point kLayPlace{4.0, 0.0};
constexpr Point kRoughnessPlace{0.0, 4.0};
constexpr Point kCutoffPlace{12.0, 8.0};
constexpr Point kNotePlace{12.0, 16.0};
constexpr Point kAllowancePlace{-4.0, 0.0};
constexpr double kAllAroundRadius = 1.2;

// The brackets that say "in general", round a plain mark: the bracket's height and how far it bulges, and the places
// of its left end, of that mark's tip and of its right end, counted from where they begin.
constexpr double kBracketFoot = -1.0;
constexpr double kBracketTop = 13.0;
constexpr double kBulge = 2.0;
constexpr double kGap = 2.0;
constexpr double kPlainTip = 5.5;
constexpr double kBracketWidth = 17.5;

// A record of a library may hold a number beyond the list: none then.
bool hasLay(const SurfaceFinishRecord& record) {
  const int lay = static_cast<int>(record.lay);
  return lay > 0 && lay <= static_cast<int>(std::size(kLaySymbols));
}

// Draws one mark.
class FinishStrokes {
 public:
  FinishStrokes(AnnotationPen& pen, const SurfaceFinishRecord& record, Point tip)
      : pen_(pen), record_(record), tip_(tip) {}

  void draw() {
    drawLay();
    drawMark();
    drawScope();
    drawTexts();
  }

 private:
  [[nodiscard]] Point at(Point units) const { return tip_ + units * pen_.unit(); }

  void drawLay() {
    if (!hasLay(record_)) { return; }
    const std::string_view name = kLaySymbols[static_cast<size_t>(record_.lay) - 1];
    pen_.symbol(name, macroText::placeSymbolCoarse(name, at(kLayPlace), pen_.style().scale * kCellScale));
  }

  [[nodiscard]] bool extended() const {
    return hasLay(record_) || !record_.cutoff.empty() || !record_.note.empty() ||
           record_.scope == FinishScope::kAllAround;
  }

  void drawLegs(Point tip) const {
    pen_.strokes().line(at(tip + kShortEnd), at(tip));
    pen_.strokes().line(at(tip), at(tip + kLongEnd));
  }

  void drawMark() const {
    const DraftingPen& strokes = pen_.strokes();
    drawLegs({});
    if (extended()) { strokes.line(at(kLongEnd), at(kExtensionEnd)); }
    if (record_.removal == MaterialRemoval::kRequired) { strokes.line(at(kShortEnd), at(kBarEnd)); }
    if (record_.removal == MaterialRemoval::kProhibited) { strokes.circle(at(kCircle), kCircleRadius * pen_.unit()); }
  }

  void drawScope() const {
    if (record_.scope == FinishScope::kAllAround) {
      pen_.strokes().circle(at(kLongEnd), kAllAroundRadius * pen_.unit());
    }
    if (record_.scope != FinishScope::kGeneral) { return; }
    const double begin = (extended() ? kExtensionEnd.x : kLongEnd.x) + kGap;
    drawBracket(begin + kBulge, -kBulge);
    drawLegs({begin + kPlainTip, 0.0});
    drawBracket(begin + kBracketWidth - kBulge, kBulge);
  }
  // A bracket whose ends lie at x, bulging to the left for a bulge below 0.
  void drawBracket(double x, double bulge) const {
    const double half = (kBracketTop - kBracketFoot) / 2.0;
    const Point centre{x + bulge / 2.0 - half * half / (2.0 * bulge), kBracketFoot + half};
    const ArcSense sense = bulge < 0.0 ? ArcSense::kClockwise : ArcSense::kCounterClockwise;
    pen_.strokes().arc(at({x, kBracketFoot}), at(centre), at({x, kBracketTop}), sense);
  }

  void drawTexts() const {
    pen_.text(at(kRoughnessPlace), record_.roughness, 4);
    pen_.text(at(kCutoffPlace), record_.cutoff, 2);
    pen_.text(at(kNotePlace), record_.note, 2);
    pen_.text(at(kAllowancePlace), record_.allowance, 17);
  }

  AnnotationPen& pen_;
  const SurfaceFinishRecord& record_;
  Point tip_;
};

}  // namespace

void sketchFinish(AnnotationPen& pen, const SurfaceFinishRecord& finish, Point tip) {
  FinishStrokes(pen, finish, tip).draw();
}

void SurfaceFinishDrawer::sketch() {
  AnnotationPen pen = sketchingPen(view_, annotationStyle(store_, kSurfaceFinishAnnotation));
  sketchFinish(pen, record_, {});
}

void SurfaceFinishDrawer::draw() const {
  const auto part = AnnotationPart::prepare(view_, store_, kSurfaceFinishAnnotation);
  if (!part) { return; }
  const auto tip = askPoint(view_, "Indicate the position of the Surface Finish annotation.");
  if (!tip) { return; }
  part->begin("SF");
  FinishStrokes(part->pen(), record_, *tip).draw();
  part->finish(LinkEnding::kOpen);
}

}  // namespace ardenix::mech

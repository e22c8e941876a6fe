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
    drawTexts();
  }

 private:
  [[nodiscard]] Point at(Point units) const { return tip_ + units * pen_.unit(); }

  void drawLay() {
    if (!hasLay(record_)) { return; }
    const std::string_view name = kLaySymbols[static_cast<size_t>(record_.lay) - 1];
    pen_.symbol(name, macroText::placeSymbolCoarse(name, at(kLayPlace), pen_.style().scale * kCellScale));
  }

  void drawMark() const {
    const DraftingPen& strokes = pen_.strokes();
    strokes.line(at(kShortEnd), tip_);
    strokes.line(tip_, at(kLongEnd));
    if (hasLay(record_) || !record_.cutoff.empty() || !record_.note.empty()) {
      strokes.line(at(kLongEnd), at(kExtensionEnd));
    }
    if (record_.removal == MaterialRemoval::kRequired) { strokes.line(at(kShortEnd), at(kBarEnd)); }
    if (record_.removal == MaterialRemoval::kProhibited) { strokes.circle(at(kCircle), kCircleRadius * pen_.unit()); }
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

void SurfaceFinishDrawer::sketch() {
  AnnotationPen pen(view_, annotationStyle(store_, kSurfaceFinishAnnotation));
  static_cast<void>(pen.loadSymbols());  // without its symbols the mark is still to be seen
  FinishStrokes(pen, record_, {}).draw();
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

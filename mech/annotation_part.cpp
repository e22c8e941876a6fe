#include "mech/annotation_part.h"

#include "frame/drafting/group_numbering.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::mech {

// ---- Strokes ------------------------------------------------------------------------------------------------

namespace {

double flipOf(CCadWindow& view) {
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  return paperSign(parms);
}

}  // namespace

AnnotationPen::AnnotationPen(CCadWindow& view, const AnnotationStyle& style)
    : view_(view),
      style_(style),
      strokes_(view, kStrokes),
      unit_(style.scale * paperMillimetre(view)),
      flip_(flipOf(view)) {}

void AnnotationPen::text(Point at, std::string_view text, int justification) const {
  strokes_.text(at, text, style_.text(justification));
}

bool AnnotationPen::loadSymbols() const {
  return view_.gsExecuteMacro(macroText::annotationSymbols(style_.symbols)) != 0;
}

bool AnnotationPen::symbol(std::string_view name, std::string_view command) {
  const bool placed = view_.gsExecuteMacro(command) != 0;
  if (!placed && missing_.empty()) { missing_ = name; }
  return placed;
}

AnnotationPen sketchingPen(CCadWindow& view, const AnnotationStyle& style) {
  AnnotationPen pen(view, style);
  static_cast<void>(pen.loadSymbols());
  return pen;
}

// ---- Whether an annotation can be drawn ---------------------------------------------------------------------

namespace {

bool refuse(CCadWindow& view, std::string_view message) {
  ErrorMessage(message, &view);
  return false;
}

// What the user set to nothing would draw nothing.
bool hasSizes(CCadWindow& view, const AnnotationKind& kind, const AnnotationStyle& style) {
  constexpr std::string_view kRule = "The %s of \"%sSettings\" must be above 0, it is %s. Please use Annotation Setup.";
  if (style.scale <= 0.0) {
    return refuse(view, numberText::format(kRule, "symbol scale", kind.word, numberText::shortest(style.scale)));
  }
  return style.textSize > 0.0 ||
         refuse(view, numberText::format(kRule, "text size", kind.word, numberText::shortest(style.textSize)));
}

}  // namespace

std::unique_ptr<AnnotationPart> AnnotationPart::prepare(CCadWindow& view, const DefinitionStore& store,
                                                        const AnnotationKind& kind) {
  const AnnotationStyle style = annotationStyle(store, kind);
  if (coreFileExist(style.symbols) == 0) {
    ErrorMessage(kind.symbolsMissing, &view);
    return nullptr;
  }
  if (!hasSizes(view, kind, style) || !mayDrawOn(view, style.layer)) { return nullptr; }
  if (!AnnotationPen(view, style).loadSymbols()) {
    ErrorMessage(numberText::format("The symbol file \"%s\" cannot be read.", style.symbols), &view);
    return nullptr;
  }
  return std::unique_ptr<AnnotationPart>(new AnnotationPart(view, kind, style));
}

// ---- From the first stroke to the layer ---------------------------------------------------------------------

AnnotationPart::AnnotationPart(CCadWindow& view, const AnnotationKind& kind, const AnnotationStyle& style)
    : view_(view),
      kind_(kind),
      pen_(view, style),
      before_(view.gsGetCurrentLayer()),
      isNew_(view.gsGetLayerIndexFromName(style.layer) < 0),
      target_(view.gsAddLayer(style.layer)) {
  settings_.emplace(view, AnnotationPen::kStrokes);
}

// What the host refuses here it rolls back.
AnnotationPart::~AnnotationPart() {
  try {
    if (!finished_) { abandon(); }
  } catch (const HostFailure&) { return; }
}

void AnnotationPart::begin(std::string_view prefix) {
  beginOnLayer(prefix);
  openScratch();
}

void AnnotationPart::beginOnScratch(std::string_view prefix) {
  clearAll(view_);
  openScratch();
  beginOnLayer(prefix);
}

void AnnotationPart::openScratch() {
  scratch_ = std::make_unique<ScratchLayer>(view_, scratchNames::kMechanical, Surroundings::kCurrentHidden);
}

void AnnotationPart::beginOnLayer(std::string_view prefix) { group_ = startPart(view_, kind_.parent, prefix); }

bool AnnotationPart::hasSymbols() const {
  return pen_.missingSymbol().empty() ||
         refuse(view_, numberText::format("The symbol file \"%s\" has no symbol \"%s\".", pen_.style().symbols,
                                          pen_.missingSymbol()));
}

bool AnnotationPart::finish(LinkEnding ending) {
  if (!hasSymbols()) { return false; }
  scratch_->selectAll();
  view_.gsExecuteMacro(ending == LinkEnding::kQuote ? macroText::linkSelection(group_)
                                                    : macroText::linkSelectionOpen(group_));
  scratch_->copyTo(pen_.style().layer);
  finishOnLayer();
  return true;
}

void AnnotationPart::finishOnLayer() {
  finished_ = true;
  leave();
}

void AnnotationPart::abandon() {
  scratch_.reset();
  leave();
  if (isNew_) { view_.gsDeleteLayer(target_); }
}

void AnnotationPart::leave() {
  clearAll(view_);
  view_.gsExecuteMacro(macroText::kRootParent);
  view_.gsSetCurrentLayer(before_);
  settings_.reset();
  view_.gsSetViewDirty(1);
  view_.gsRefresh();
}

}  // namespace ardenix::mech

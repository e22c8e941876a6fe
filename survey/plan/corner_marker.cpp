#include "survey/plan/corner_marker.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/plan/label_places.h"
#include "survey/text_row.h"

namespace ardenix::survey {

bool CornerMarker::mayDraw() const {
  return mayDrawOn(view_, view_.gsGetCurrentLayerName()) && (radius_ == 0.0 || mayDrawOn(view_, kCornerLayer));
}

void CornerMarker::drawCircle(Point corner) const {
  if (radius_ == 0.0) { return; }
  if (corner.y + radius_ == corner.y) {
    throw HostFailure(numberText::format("The corner at %s, %s lies too far from the origin for a circle of %s.",
                                         numberText::shortest(corner.x), numberText::shortest(corner.y),
                                         numberText::shortest(radius_)));
  }
  const int current = view_.gsGetCurrentLayer();
  view_.gsAddLayer(kCornerLayer);
  view_.gsExecuteMacro(macroText::kThisLayerOnly);
  view_.gsExecuteMacro(macroText::cutCircle(corner, corner + Point{0.0, radius_}));
  view_.gsSetCurrentLayer(current);
}

void CornerMarker::drawLabel(Point corner, std::string_view label) const {
  const bool clear = job_.options().lettersClear;
  const LetterPlace place = clear ? placeBeside(view_, job_, corner, radius_, label) : LetterPlace{corner, kCentred};
  TextStyle style = job_.textStyle();
  style.justification = place.justification;
  DraftingPen(view_, {}, job_.layer()).text(place.at, label, style);
}

}  // namespace ardenix::survey

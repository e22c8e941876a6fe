#include "frame/drafting/style_keeper.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"

namespace ardenix {

StyleKeeper::StyleKeeper(CCadWindow& view) : view_(view) {
  if (view_.gsExecuteMacro(macroText::kLineDefinition) == 0) { return; }
  style_ = {wholeVariable(view_, "P"), wholeVariable(view_, "L"), numberVariable(view_, "W")};
}

// A command that fails here has failed already.
StyleKeeper::~StyleKeeper() {
  if (!style_) { return; }
  try {
    view_.gsExecuteMacro(macroText::lineType(style_->linetype, style_->pen));
    view_.gsExecuteMacro(macroText::exactWidth(style_->width));
  } catch (const HostFailure&) { return; }
}

}  // namespace ardenix

#include "frame/drafting/line_settings.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"

namespace ardenix {

LineSettings::LineSettings(CCadWindow& view, const LineStyle& style) : view_(view) {
  view_.gsExecuteMacro(macroText::kEnquireLineSettings);
  before_ = {wholeVariable(view_, "P"), wholeVariable(view_, "L"), numberVariable(view_, "W")};
  set(style);
}

// What the host refuses here it rolls back.
LineSettings::~LineSettings() {
  try {
    set(before_);
  } catch (const HostFailure&) { return; }
}

void LineSettings::set(const LineStyle& style) const {
  view_.gsExecuteMacro(macroText::lineType(style.linetype, style.pen));
  view_.gsExecuteMacro(macroText::exactWidth(style.width));
}

}  // namespace ardenix

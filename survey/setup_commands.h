#pragma once

#include "frame/host/cad_window.h"
#include "frame/services.h"

namespace ardenix::survey {

// The commands that show the setup dialog; the keyboard goes back to the view.
void setUpDiagrams(CCadWindow& view, const Services& services);
void setUpGeneralPlans(CCadWindow& view, const Services& services);

}  // namespace ardenix::survey

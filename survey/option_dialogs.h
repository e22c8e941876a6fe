#pragma once

#include "frame/host/dialog.h"
#include "frame/host/ini.h"
#include "frame/services.h"
#include "survey/survey_mode.h"

namespace ardenix::survey {

// Shows the option dialog of a mode on a settings file and, on OK, writes its keys into the file without saving it.
// Returns whether it was closed with OK.
bool runOptions(SurveyMode mode, TINIFile& file, const Services& services, CWnd* owner);

// Writes every option that a file holds into another.
void copyOptions(const TINIFile& from, TINIFile& to);

}  // namespace ardenix::survey

#pragma once

#include <string>
#include <string_view>

#include "frame/host/cad_window.h"
#include "frame/host/main_frame.h"
#include "survey/job_settings.h"
#include "survey/sheet/extents.h"

namespace ardenix::survey {

// Opens a window for a sheet of what another view shows, with its drawing parameters, which the job takes over. Null,
// with a message, where the host opens none.
CCadWindow* openSheetWindow(JobSettings& job, CCadWindow& view, CMDIFrameWnd& frame);

// Loads the job's symbol file; says so where it is missing or damaged.
void loadSheetSymbols(const JobSettings& job, CCadWindow& view);

// Gives a sheet's window the job's scale and an upright paper, of which what the view shows stands so many
// millimetres right of the middle.
void setUpPaper(const JobSettings& job, CCadWindow& view, double shownRight);

// Inserts a template drawing in the middle of the paper. Returns the extents of the sheet, those of the template's
// lines, or of the paper where they have none. A file that is missing or damaged is told, and the paper is the sheet.
Extents insertTemplate(const JobSettings& job, CCadWindow& view, const std::string& path);
// The same with the template's origin at a point.
Extents insertTemplate(const JobSettings& job, CCadWindow& view, const std::string& path, Point at);

// The corner at the top right on paper, from which settings files place everything on a sheet.
Point topRightOnPaper(const JobSettings& job, const Extents& sheet);

}  // namespace ardenix::survey

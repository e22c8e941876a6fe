#pragma once

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "survey/job_settings.h"

namespace ardenix::survey {

// Gives a diagram's view its scale and an upright paper, centred a little beside what it shows.
void setUpPaper(const JobSettings& job, CCadWindow& view);

// Inserts the job's title block in the middle of the paper. Returns the origin from which the settings file places
// everything on the sheet: the top right corner of the title block's lines, or of the paper where there is no title
// block.
Point insertTitleBlock(const JobSettings& job, CCadWindow& view);

}  // namespace ardenix::survey

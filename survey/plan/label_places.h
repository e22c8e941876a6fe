#pragma once

#include <string_view>

#include "survey/job_settings.h"
#include "survey/sheet/paper_box.h"

namespace ardenix::survey {

// Where the label of a mark of this radius (drawing units) stands beside it: clear of lines, arcs, texts and other
// marks where there is room within a centimetre on paper, in the widest gap that the lines at the mark leave. The label
// is written in the job's text style.
LetterPlace placeBeside(CCadWindow& view, const JobSettings& job, Point mark, double radius, std::string_view label);

}  // namespace ardenix::survey

#pragma once

#include "survey/figure.h"
#include "survey/sheet/sheet_writer.h"

namespace ardenix::survey {

// Everything of a diagram's sheet that the settings file places: asks for the texts of the frame and writes them,
// draws the data table of the figure and the lines of the frame, then the notes and what names the figure. False, with
// nothing drawn, where the user gives the diagram up while asked.
bool drawDiagramFrame(SheetWriter& sheet, const Figure& figure);

}  // namespace ardenix::survey

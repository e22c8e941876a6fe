#pragma once

#include "survey/figure.h"
#include "survey/sheet/sheet_writer.h"

namespace ardenix::survey {

// The row that places the data table: among the texts, or else beside the table's columns.
TextRow dataTableRow(const JobSettings& job);

// From the first line of the table to the line after its last, in drawing units; 0 where nothing is drawn.
double heightOfDataTable(const SheetWriter& sheet, const TextRow& row, const Figure& figure);

// Draws the table of sides, directions and coordinates where a row places it and in its style, an empty line, and
// the control points. Each beacon of the figure gets its circle, which clears what lies inside, and its label.
// Returns where the line after the last would stand; where the settings give no columns nothing is drawn, and that is
// the row's own place.
double drawDataTable(SheetWriter& sheet, const TextRow& row, const Figure& figure);

}  // namespace ardenix::survey

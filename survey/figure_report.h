#pragma once

#include "frame/host/cad_window.h"
#include "survey/figure.h"
#include "survey/sheet/extents.h"
#include "survey/sheet/sheet_writer.h"

// What a user is told of a traced figure before its diagram is drawn.
namespace ardenix::survey {

// False, with a message, for a figure of fewer than three corners. Tells by how much the last side missed the first
// corner, and of sides that cross.
bool reportFigure(CCadWindow& view, const Figure& figure, Point misclosure);

// Tells what does not fit a sheet: the figure, with the largest standard scale at which it does, and the data table.
void reportFit(const SheetWriter& sheet, const Extents& paper, const Figure& figure);

// The smallest standard denominator that is no smaller: 1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6, 7.5 and ten, a hundred, ...
// times these.
double standardScale(double denominator);

}  // namespace ardenix::survey

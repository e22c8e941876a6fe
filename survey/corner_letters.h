#pragma once

#include <vector>

#include "survey/figure.h"
#include "survey/sheet/paper_box.h"
#include "survey/sheet/sheet_writer.h"

namespace ardenix::survey {

// Where the letters of a figure's corners stand outside it, clear of its sides and of the circles of its beacons
// (radius in drawing units), and where there is room of the lines of the surroundings and of each other: each at the
// side of its corner that points outwards. In the order of the sides.
std::vector<LetterPlace> placeLetters(const SheetWriter& sheet, const Figure& figure, const TextRow& row,
                                      double circleRadius);

}  // namespace ardenix::survey

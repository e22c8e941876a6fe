#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/drawing/parameters.h"
#include "host/geometry/box.h"
#include "host/geometry/transform.h"

namespace brevan {

// The paper on which a drawing is shown and printed.
struct Sheet {
  std::string name;     // "A4"
  double width = 0.0;   // millimetres, as it lies
  double height = 0.0;  // millimetres
  Point corner;         // its lower left corner as seen on paper, in drawing units
  friend bool operator==(const Sheet&, const Sheet&) = default;
};

// The ISO 216 sheets A0 to A4 by name; nothing for another name.
std::optional<Sheet> isoSheet(std::string_view name, bool portrait);

// The smallest ISO sheet (landscape before portrait, A4 first) that holds the extents at the drawing's
// scale with a margin of 10 mm, the drawing centred; A0 where none does.
Sheet sheetFor(const Box& extents, const Parameters& parameters);

// Where a point of the drawing is the middle of the sheet.
void centreSheet(Sheet& sheet, const Parameters& parameters, Point centre);
Point sheetCentre(const Sheet& sheet, const Parameters& parameters);

// From drawing units to millimetres on the sheet, from its lower left corner, y upwards. A south-oriented
// survey sheet is turned by half a turn.
Transform toSheet(const Sheet& sheet, const Parameters& parameters);

}  // namespace brevan

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/parameters.h"
#include "host/drawing/primitive.h"
#include "host/geometry/box.h"

namespace brevan {

// How a text lies on paper, the same for screen, PDF, SVG, DXF and picking.
//
// The em cell is as high as the text; its bottom is the descender, its baseline kDescender of the height
// above. Justification 1-9 are the left, centre, right columns of bottom, middle, top (1 bottom left, 2
// middle left, 3 top left, 4 bottom centre, 5 centre, 6 top centre, 7 bottom right, 8 middle right, 9 top
// right); 11-19 the same points moved by half a character away from the text, 15 the exact centre. Several
// lines, 1.1 heights apart, are justified as one block.
inline constexpr double kDescender = 0.212;
inline constexpr double kLineSpacing = 1.1;

// The lines of a text: split at "\n" and "\N" (backslash and letter).
std::vector<std::string> textLines(std::string_view text);

// The advance width of one line in heights, for the metric equals of Arial, Times New Roman and Courier
// New; other fonts count as Arial.
double lineWidth(std::string_view font, std::string_view line);

// One line placed: the left end of its baseline relative to the text's point, in units of 1 mm on paper,
// unturned, y upwards.
struct PlacedLine {
  std::string text;
  Point baseline;
  double width = 0.0;  // millimetres
};

struct TextLayout {
  double height = 0.0;  // em size in millimetres on paper
  Box box;              // all lines' cells, relative to the text's point, unturned
  std::vector<PlacedLine> lines;
};

TextLayout layOut(const Text& text);

// The corners' box of a text in drawing units.
Box textBounds(const Text& text, const Parameters& parameters);

}  // namespace brevan

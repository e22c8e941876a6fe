#pragma once

namespace ardenix {

// How a stroke is drawn.
struct LineStyle {
  int pen = 1;
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre on paper
};

}  // namespace ardenix

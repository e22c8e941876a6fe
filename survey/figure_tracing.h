#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/host/cad_window.h"
#include "survey/figure.h"
#include "survey/label_sequences.h"

namespace ardenix::survey {

struct TracedFigure {
  Figure figure;
  Point misclosure;  // from the first corner to where the last side was taken to end
};

// How a figure is asked for and shown while it is traced. As it stands: the outside figure of a diagram.
struct TracingStyle {
  std::string_view firstPrompt = "Enter first corner of outside figure";
  std::string_view nextPrompt = "Enter next corner of outside figure (Click on start corner to end)";
  // Offers the label that comes after one given; null: corners have no labels.
  std::string (*nextLabel)(std::string_view label) = nextLettersThenDigits;
  int pen = 4;                   // of the temporary lines
  double closingDistance = 0.1;  // from the first corner, drawing units
  size_t fewestSides = 0;        // that stand before a point near the first corner closes the figure
  bool snaps = true;             // to what is near; else as the user has set the cursor
  bool tellsRepeats = false;     // that a corner is the one before it once more
};

// Lets the user pick and name the corners of a figure, until the first corner is picked again. Nothing when it was
// abandoned.
std::optional<TracedFigure> traceFigure(CCadWindow& view, const TracingStyle& style = {});

}  // namespace ardenix::survey

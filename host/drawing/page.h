#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// What a user asks of the page on which a picture shows a drawing.
struct PageOptions {
  std::optional<double> scale;      // its denominator: 50 for 1:50, 0.5 for 2:1
  bool fit = false;                 // the scale at which the paper is filled
  std::string paper;                // an ISO sheet; empty: the rule of pageOf
  std::optional<double> margin;     // millimetres; 10 where none is given, none round a sheet that is scaled
  double rotation = 0.0;            // degrees by which the drawing is turned on the paper, counter-clockwise
  std::optional<Box> window;        // the part of the drawing to show, in its units; nothing: all
  std::vector<std::string> layers;  // shown alone, Windows-1252; none: all that are visible
};

// The paper and how large the drawing stands on it.
struct Page {
  Sheet sheet;            // its corner as seen on paper, in drawing units
  double zoom = 1.0;      // paper lengths, those of texts and symbols too, over those at the drawing's own scale
  double rotation = 0.0;  // degrees, of the drawing on the paper
  std::string told;       // what the user should know of it; empty: nothing
};

// A drawing with a sheet shows that sheet. One without gets the smallest ISO sheet that holds it at its scale; where
// none does, or where it would be a speck, the largest standard scale (1, 2 or 5 times a power of ten) at which A3
// holds it. What is asked for goes before either. Throws HostFailure, which says where the drawing lies, for a page on
// which nothing of it would stand.
Page pageOf(const Drawing& drawing, const PageOptions& options = {});

// From drawing units to millimetres on the page, from its lower left corner, y upwards, before TurnedStrokes turns the
// strokes about that corner.
Transform toPage(const Page& page, const Parameters& parameters);

}  // namespace brevan

#pragma once

#include <vector>

#include "frame/host/cad_window.h"
#include "survey/figure.h"
#include "survey/job_settings.h"

namespace ardenix::survey {

// The layers of a drawing on their way into another one, all of them open while it is worked on, since what is hidden
// or locked could not be clipped.
class OpenedLayers {
 public:
  OpenedLayers(CCadWindow& from, CCadWindow& onto);
  // Hides and locks again what was hidden and locked, but for the layers that the sheet is drawn on.
  void close(int drawnOn);

 private:
  struct Kept {
    int index = 0;
    LayerDef definition;
  };

  CCadWindow& onto_;
  std::vector<Kept> kept_;
};

// Copies what lies within 10 drawing units of the figure's extents from one view into another; where a diagram
// deletes isolated lines, not those that neither cross nor touch a side.
void copySurroundings(const JobSettings& job, CCadWindow& from, CCadWindow& onto, const Figure& figure);

// Copies lines and arcs that lie within extents onto the current layer of another view, thin, in a pen of their own.
void copyLinesInPen(CCadWindow& from, CCadWindow& onto, const Extents& extents, int pen);

// Cuts away what lies farther out than the job wants it: outside a rectangle round the figure, or outside the
// figure scaled about its middle.
void clipSurroundings(const JobSettings& job, CCadWindow& view, const Figure& figure);

}  // namespace ardenix::survey

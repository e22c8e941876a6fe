#pragma once

#include <memory>

#include "frame/services.h"
#include "frame/toolset.h"
#include "survey/figure.h"
#include "survey/job_settings.h"

namespace ardenix::survey {

// What the diagram commands run in. Keeps the settings and the figure of the last diagram.
class TraceTool : public Toolset {
 public:
  TraceTool(CCadWindow* view, const Services& services) : Toolset(view), services_(services) {}

  // Traces an erf in the view and draws its diagram in a new one.
  void makeDiagram();
  // Gives lines that the user picks the line type of what lies outside the figure.
  void adjustDrawing();

 private:
  CCadWindow* openDiagramView();
  void drawSheet(CCadWindow& diagram);

  const Services& services_;
  std::unique_ptr<JobSettings> job_;
  Figure figure_;
};

std::unique_ptr<TraceTool> makeTraceTool(CCadWindow* view, const Services& services);

// The commands.
void tracePolyArea(TraceTool& tool);
void adjustDrawing(TraceTool& tool);

}  // namespace ardenix::survey

#include "host/drawing/drawing.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

constexpr double kGivenScale = 14.0;  // the scale follows as a number

}  // namespace

void home(MacroRun& run) { run.window.goHome(); }

// A sheet that is there turns about its middle.
void setPortrait(MacroRun& run) {
  const bool portrait = run.number(0) != 0.0;
  run.window.macroState().paper.portrait = portrait;
  Drawing& drawing = run.window.drawing();
  if (!drawing.sheet() || (drawing.sheet()->height > drawing.sheet()->width) == portrait) { return; }
  Sheet sheet = *drawing.sheet();
  const Point centre = sheetCentre(sheet, drawing.parameters());
  std::swap(sheet.width, sheet.height);
  centreSheet(sheet, drawing.parameters(), centre);
  drawing.setSheet(std::move(sheet));
}

void newScale(MacroRun& run) {
  if (run.number(0) != kGivenScale) { throw MacroError(run.column(0), "NEWSCALE expects 14: the scale is given"); }
  if (run.number(1) <= 0.0) { throw MacroError(run.column(1), "a scale is above 0"); }
  Parameters parameters = run.window.drawing().parameters();
  parameters.setScale(run.number(1));
  run.window.drawing().setParameters(parameters);
  run.window.macroState().seen = {run.point(2)};
}

}  // namespace brevan::macroHandlers

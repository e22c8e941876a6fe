#include "mech/annotation_preview.h"

#include "mech/surface_finish.h"
#include "mech/tolerance_drawer.h"
#include "mech/weld.h"

namespace ardenix::mech {

namespace {

// Each as it stands in daily use.
WeldRecord sampleWeld() {
  constexpr int kFillet = 10;
  WeldRecord weld;
  weld.otherSymbol = weld.arrowSymbol = kFillet;
  weld.otherLower = weld.arrowLower = "a5";
  weld.allAround = true;
  weld.tail = "135";
  return weld;
}
SurfaceFinishRecord sampleFinish() {
  SurfaceFinishRecord finish;
  finish.removal = MaterialRemoval::kRequired;
  finish.lay = Lay::kPerpendicular;
  finish.roughness = "3.2";
  finish.note = "planed";
  return finish;
}
ToleranceFrame sampleFrame() {
  constexpr int kPosition = 9;
  constexpr int kMaximumMaterial = 12;
  ToleranceFrame frame;
  frame.characteristic = kPosition;
  frame.cells[0] = {.diameter = true, .value = "0.2", .modifier = kMaximumMaterial};
  frame.cells[2].value = "A";
  frame.cells[3].value = "B";
  return frame;
}

bool hasSize(const AnnotationStyle& style) { return style.scale > 0.0 && style.textSize > 0.0; }

}  // namespace

// The weld above, the finish and the frame side by side below it, in units of each.
void sketchAnnotations(CCadWindow& view, const AnnotationSamples& samples) {
  constexpr double kWeldFoot = 20.0;
  constexpr double kFinishTop = 20.0;
  constexpr double kFinishEnd = 28.0;
  AnnotationPen weld = sketchingPen(view, samples.weld);
  AnnotationPen finish = sketchingPen(view, samples.finish);
  AnnotationPen frame = sketchingPen(view, samples.tolerance);
  const double level = -kWeldFoot * weld.unit() - kFinishTop * finish.unit();
  if (hasSize(samples.weld)) { sketchWeld(weld, sampleWeld(), samples.weldHead, {}); }
  if (hasSize(samples.finish)) { sketchFinish(finish, sampleFinish(), {0.0, level}); }
  if (hasSize(samples.tolerance)) { sketchToleranceFrame(frame, sampleFrame(), {kFinishEnd * finish.unit(), level}); }
}

}  // namespace ardenix::mech

#include "frame/drafting/part_round.h"
#include "mech/annotation_commands.h"
#include "mech/annotation_dialog.h"
#include "mech/surface_finish.h"

namespace ardenix::mech {

namespace surfaceFinish {

namespace {

constexpr const char* kRemovals[] = {"No Indicator", "Machining Required", "Machining Prohibited"};
constexpr const char* kRemovalPictures[] = {"finish_any", "finish_machined", "finish_unmachined"};
constexpr const char* kLays[] = {"None",   "Parallel",         "Perpendicular", "Circular",
                                 "Radial", "Multidirectional", "Angular"};
constexpr const char* kLayPictures[] = {"",           "lay_parallel", "lay_perpendic", "lay_circular",
                                        "lay_radial", "lay_multi",    "lay_angular"};
constexpr const char* kScopes[] = {"This surface", "All around", "All other surfaces"};
constexpr const char* kScopePictures[] = {"finish_any", "finish_all_around", "finish_general"};
constexpr int kTextLimit = 127;

constexpr Field<SurfaceFinishRecord> kFields[] = {
    {.member = &SurfaceFinishRecord::roughness,
     .place = 4,
     .label = "Roughness",
     .tip = "Surface finish roughness value in micrometers",
     .limit = kTextLimit},
    {.member = &SurfaceFinishRecord::cutoff,
     .place = 5,
     .label = "Cutoff",
     .tip = "Roughness width cutoff or sampling length",
     .limit = kTextLimit},
    {.member = &SurfaceFinishRecord::allowance,
     .place = 6,
     .label = "Allowance",
     .tip = "Machining allowance (minimum material removal required in mm)",
     .limit = kTextLimit},
    {.member = &SurfaceFinishRecord::note,
     .place = 7,
     .label = "Note",
     .tip = "Text note callout (can be used to specify production method, treatment/coating, waviness etc) ",
     .limit = kTextLimit},
    {.member = choice<&SurfaceFinishRecord::lay>(kLays),
     .place = 3,
     .label = "Lay",
     .tip = "Symbol for direction of lay",
     .pictures = kLayPictures},
    {.member = choice<&SurfaceFinishRecord::removal>(kRemovals),
     .place = 2,
     .label = "Material Removal",
     .tip = "Specify whether machining is required or prohibited",
     .caption = "Material Removal:",
     .pictures = kRemovalPictures},
    {.member = choice<&SurfaceFinishRecord::scope>(kScopes),
     .place = 8,
     .label = "Holds for",
     .tip = "The surfaces for which the finish holds: the one marked, all around its outline, or all without a mark",
     .pictures = kScopePictures,
     .optional = true},
};

}  // namespace

}  // namespace surfaceFinish

Fields<SurfaceFinishRecord> surfaceFinishFields() { return surfaceFinish::kFields; }

void drawSurfaceFinish(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  const DefinitionStore& store = toolset.configuration().store();
  warnOfMissingLayer(store, kSurfaceFinishAnnotation, toolset.services().mainFrame);
  SurfaceFinishDrawer drawer(toolset.view(), store);
  AnnotationDialog<SurfaceFinishRecord, SurfaceFinishDrawer> dialog(toolset, "SURFACE_FINISH", surfaceFinishFields(),
                                                                    drawer);
  if (!dialog.run()) { return; }
  toolset.view().SetFocus();
  drawer.draw();
  endPart(toolset.view());
}

}  // namespace ardenix::mech

#pragma once

#include "arch/roof_line_drawer.h"
#include "arch/style_fields.h"
#include "frame/services.h"

namespace ardenix::arch {

// Edits how roof lines are drawn.
class RoofLineDialog {
 public:
  RoofLineDialog(const Services& services, ArchSpecStore& store, RoofLineDrawer& drawer);
  RoofLineDialog(const RoofLineDialog&) = delete;
  RoofLineDialog& operator=(const RoofLineDialog&) = delete;

  // True when it was closed with OK; the settings are then saved.
  bool run();

 private:
  void open();
  bool confirm();

  const Services& services_;
  RoofLineDrawer& drawer_;
  dialog::Dialog dialog_{"Roof Line Setup"};
  LayerFields layer_;
  StyleFields style_;
  CFloatEdit overhang_;
  dialog::CheckHandle ridges_;
};

}  // namespace ardenix::arch

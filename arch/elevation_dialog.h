#pragma once

#include "arch/elevation_drawer.h"
#include "arch/style_fields.h"
#include "frame/services.h"

namespace ardenix::arch {

// Edits how elevations are drawn.
class ElevationDialog {
 public:
  ElevationDialog(const Services& services, ArchSpecStore& store, ElevationDrawer& drawer);
  ElevationDialog(const ElevationDialog&) = delete;
  ElevationDialog& operator=(const ElevationDialog&) = delete;

  // True when it was closed with OK; the settings are then saved.
  bool run();

 private:
  void describeOptions();
  void open();
  [[nodiscard]] bool mayBeSaved();
  bool confirm();

  const Services& services_;
  ElevationDrawer& drawer_;
  dialog::Dialog dialog_{"Elevation Setup"};
  LayerFields layers_;
  StyleFields style_;
  CFloatEdit eavesHeight_;
  CFloatEdit headHeight_;
  CFloatEdit groundBeyond_;
  dialog::CheckHandle names_;
  dialog::CheckHandle levels_;
  dialog::CheckHandle wholeFaces_;
  dialog::CheckHandle replaces_;
};

}  // namespace ardenix::arch

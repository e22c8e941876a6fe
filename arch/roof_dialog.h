#pragma once

#include "arch/roof_drawer.h"
#include "arch/style_fields.h"
#include "frame/services.h"

namespace ardenix::arch {

// Edits how roofs are drawn.
class RoofDialog {
 public:
  RoofDialog(const Services& services, ArchSpecStore& store, RoofDrawer& drawer);
  RoofDialog(const RoofDialog&) = delete;
  RoofDialog& operator=(const RoofDialog&) = delete;

  // True when it was closed with OK; the settings are then saved.
  bool run();

 private:
  void open();
  [[nodiscard]] double pitch() const;
  bool confirm();

  const Services& services_;
  RoofDrawer& drawer_;
  dialog::Dialog dialog_{"Roof Setup"};
  LayerFields layers_;
  StyleFields style_;
  CFloatEdit pitch_;
  dialog::CheckHandle fromPlan_;
  double typedPitch_ = 0.0;  // with the minutes and seconds that the field does not show
};

}  // namespace ardenix::arch

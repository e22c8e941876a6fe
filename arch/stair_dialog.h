#pragma once

#include "arch/building_standard.h"
#include "arch/stair_drawer.h"
#include "arch/stair_page.h"
#include "arch/style_fields.h"
#include "frame/host/dialog.h"
#include "frame/services.h"

namespace ardenix::arch {

// The Stairs Setup sheet: how stairs are drawn, the library of treads and the library of railings. OK saves all of what
// is shown.
class StairDialog {
 public:
  StairDialog(const Services& services, ArchSpecStore& store, StairDrawer& drawer);
  bool run();

 private:
  void describeGeneral();
  void describeStyles(int group);
  void describeTreads();
  void describeRailings();
  void describePreviews();
  void open();
  void showRest();
  void showResults();
  void followHeight();
  void enableFlags();
  bool confirm();
  bool refuse(const StairFault& fault);
  void takeSettings();
  [[nodiscard]] Stair stair() const { return {treads_.record(), railings_.record()}; }

  const Services& services_;
  ArchSpecStore& store_;
  StairDrawer& drawer_;
  BuildingStandard standard_;
  dialog::Dialog dialog_{"Stairs Setup"};
  int tabs_ = 0;
  dialog::RadioHandle type_;
  CColourButton solidPen_;
  CLineTypeCombo solidLinetype_;
  CColourButton hiddenPen_;
  CLineTypeCombo hiddenLinetype_;
  CColourButton arrowPen_;
  CFloatEdit arrowLength_;
  CFloatEdit arrowWidth_;
  LayerFields layers_;
  StairPage<TreadRecord> treads_;
  StairPage<RailingRecord> railings_;
  CFloatEdit height_;
  dialog::ReadOnlyHandle length_;
  dialog::ReadOnlyHandle pitch_;
  dialog::LabelHandle treadLimits_;
  dialog::LabelHandle gapLimit_;
};

}  // namespace ardenix::arch

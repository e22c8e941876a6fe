#pragma once

#include <array>
#include <iterator>

#include "arch/building_standard.h"
#include "arch/record_chooser.h"
#include "arch/spec_store.h"
#include "frame/host/dialog.h"
#include "frame/services.h"

namespace ardenix::arch {

// The dialog of the building standards: a list with Add and Delete, which act on the file at once, and the
// limits of the one that is current. OK saves the current one.
class BuildingStandardDialog {
 public:
  BuildingStandardDialog(const Services& services, ArchSpecStore& store, BuildingStandard& standard);
  bool run(CWnd* parent);

 private:
  void describe();
  void show(int number);
  void takeLimits();
  bool confirm();

  const Services& services_;
  BuildingStandard& standard_;
  dialog::Dialog dialog_{"Building Standards Setup"};
  RecordChooser chooser_;
  std::array<CFloatEdit, std::size(kStairLimitRows)> limits_;
};

}  // namespace ardenix::arch

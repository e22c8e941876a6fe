#pragma once

#include <array>
#include <string>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "mech/configuration.h"

namespace ardenix::mech {

// The Mechanical Setup dialog: which configuration file is used, and its three line styles. A file picked
// with "..." is loaded at once and stays loaded when the dialog is cancelled.
class SetupDialog {
 public:
  SetupDialog(const Services& services, Configuration& configuration);
  bool run();

 private:
  struct StyleControls {
    CLineTypeCombo linetype;
    CColourButton pen;
    CFloatEdit width;
  };

  StyleControls addStyleRow(size_t row);
  void open();
  void showLinetypesAndPens();
  void showWidths();
  void browse();
  void pickUp(const std::string& path);
  bool confirm();
  void writeStyles();
  void writeThreadGap(TINIFile& file) const;

  const Services& services_;
  Configuration& configuration_;
  dialog::Dialog dialog_{"Mechanical Ardenix - Setup"};
  dialog::TextHandle file_;
  CFloatEdit threadGap_;
  std::array<StyleControls, 3> styles_;
};

}  // namespace ardenix::mech

#pragma once

#include <string>

#include "arch/arch_toolset.h"
#include "frame/host/dialog.h"

namespace ardenix::arch {

// The Architectural Setup dialog: which specification file and which symbol folder are used, and the way to
// the building standards. Works on the toolset's store, or opens the file that the host remembers, or the
// default one; without any it still lets the user choose.
class ArchSetupDialog {
 public:
  explicit ArchSetupDialog(ArchToolset& toolset);
  bool run();

 private:
  void describe();
  void openStore();
  bool openReadable(const std::string& path);
  void showPaths();
  void browseFile();
  void browseFolder();
  void setStandards();
  bool confirm();
  void writeSymbolFolder();

  ArchToolset& toolset_;
  dialog::Dialog dialog_{"Architectural Setup"};
  dialog::TextHandle file_;
  dialog::TextHandle symbols_;
};

}  // namespace ardenix::arch

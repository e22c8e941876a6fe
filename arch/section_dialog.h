#pragma once

#include <array>
#include <vector>

#include "arch/section_drawer.h"
#include "arch/style_fields.h"
#include "frame/host/dialog.h"
#include "frame/services.h"

namespace ardenix::arch {

// The Cross Section Setup dialog. OK saves all of it.
class SectionDialog {
 public:
  SectionDialog(const Services& services, ArchSpecStore& store, SectionDrawer& drawer);
  bool run();

 private:
  void describeNumbers();
  void describeStyles(int group);
  void open();
  bool mayBeSaved();
  bool confirm();
  bool refuse(const dialog::Handle& field, std::string_view why);
  [[nodiscard]] std::string label() const;

  const Services& services_;
  ArchSpecStore& store_;
  SectionDrawer& drawer_;
  dialog::Dialog dialog_{"Cross Section Setup"};
  std::vector<CFloatEdit> numbers_;  // one for each of sectionNumbers()
  StyleFields section_;
  StyleFields line_;
  LayerFields layers_;
  dialog::TextHandle label_;
  dialog::CheckHandle counts_;
  std::vector<dialog::CheckHandle> options_;  // one for each of sectionOptions()
};

}  // namespace ardenix::arch

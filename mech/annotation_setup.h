#pragma once

#include <array>
#include <utility>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "mech/annotation_preview.h"
#include "mech/configuration.h"

namespace ardenix::mech {

// The Annotation Setup dialog: the weld symbol file, and for welds, tolerances and surface finishes the layer and the
// sizes. OK writes them to the section "Setup" of the configuration.
class AnnotationSetupDialog {
 public:
  AnnotationSetupDialog(const Services& services, Configuration& configuration);
  // Before the given window. Where no configuration is loaded it only says so.
  void run(CWnd* owner);

 private:
  // What tolerances and surface finishes have in common.
  struct PlainControls {
    dialog::TextHandle layer;
    CFloatEdit scale;
    CFloatEdit textSize;
  };
  // What the fields of one kind of annotation are called in this dialog, and their tips.
  struct PlainTexts {
    std::string_view layer;
    std::string_view layerTip;
    std::string_view scaleTip;
    double mostScale;
    std::string_view textTip;
  };

  void describeFile(int group);
  void describeWelds();
  void describeTolerances();
  void describeFinishes();
  void describePreview();
  PlainControls describePlain(const PlainTexts& texts, int group);
  [[nodiscard]] int addBox(std::string_view caption, int row);
  void open();
  void showWelds(const TINIFile& file) const;
  static void showPlain(const TINIFile& file, const PlainControls& controls, std::string_view word,
                        std::string_view layer);
  void browse();
  bool confirm();
  [[nodiscard]] std::string weldSettings() const;
  [[nodiscard]] AnnotationSamples samples() const;
  // What can be asked for besides, and the key of each.
  using Options = std::array<std::pair<dialog::CheckHandle, std::string_view>, 2>;
  [[nodiscard]] Options options() const;

  const Services& services_;
  Configuration& configuration_;
  dialog::Dialog dialog_{"Mechanical Ardenix - Annotation Setup"};
  int settings_;  // the group of all settings, beside which they are shown
  dialog::TextHandle symbols_;
  PlainControls welds_;
  CColourButton colour1_;
  CColourButton colour2_;
  CFloatEdit headLength_;
  CFloatEdit headWidth_;
  PlainControls tolerances_;
  dialog::CheckHandle leaders_;
  dialog::CheckHandle stacks_;
  PlainControls finishes_;
};

}  // namespace ardenix::mech

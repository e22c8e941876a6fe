#pragma once

#include "frame/host/dialog.h"
#include "frame/services.h"
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
  // What one kind of annotation is called in this dialog, and the texts of its tips.
  struct PlainTexts {
    std::string_view box;
    std::string_view layer;
    std::string_view layerTip;
    std::string_view scaleTip;
    double mostScale;
    std::string_view textTip;
  };

  void describeFile(int group);
  void describeWelds();
  PlainControls describePlain(const PlainTexts& texts, int group);
  PlainControls describeBox(const PlainTexts& texts, int row);
  void open();
  void showWelds(const TINIFile& file) const;
  static void showPlain(const TINIFile& file, const PlainControls& controls, std::string_view word,
                        std::string_view layer);
  void browse();
  bool confirm();
  [[nodiscard]] std::string weldSettings() const;

  const Services& services_;
  Configuration& configuration_;
  dialog::Dialog dialog_{"Mechanical Ardenix - Annotation Setup"};
  dialog::TextHandle symbols_;
  PlainControls welds_;
  CColourButton colour1_;
  CColourButton colour2_;
  CFloatEdit headLength_;
  CFloatEdit headWidth_;
  PlainControls tolerances_;
  PlainControls finishes_;
};

}  // namespace ardenix::mech

#pragma once

#include <string_view>

#include "frame/host/dialog.h"
#include "mech/definition_store.h"
#include "mech/fastener.h"
#include "mech/style_choice.h"

namespace ardenix::mech {

// What differs between the kinds in the option controls.
struct FastenerOptionTexts {
  std::string_view word;  // "bolt"
  std::string_view sideViewCaption;
  std::string_view planViewCaption;
  std::string_view headStyleCaption;   // stored as "HeadLT"
  std::string_view shaftStyleCaption;  // stored as "ShaftLT"
  std::string_view headPart;           // what tool tips call it
  std::string_view shaftPart;
  std::string_view repeatKey;
  std::string_view polarTip;
  bool alignable = true;
  bool stylesOfViews = false;  // the "head" style is the plan's, the "shaft" style the side view's
};

// The controls of a fastener dialog that do not belong to a definition: views, line styles, alignment and
// repeat, kept in section "Defaults". All kinds but for the repeat share what was chosen last.
class FastenerOptions {
 public:
  // Lays them out in the dialog's grid from a row on.
  FastenerOptions(dialog::Dialog& dialog, const FastenerOptionTexts& texts, int row);
  FastenerOptions(const FastenerOptions&) = delete;  // its controls refer back to it
  FastenerOptions& operator=(const FastenerOptions&) = delete;

  void read(const DefinitionStore& store);
  void write(DefinitionStore& store) const;
  void applyTo(Fastener& fastener) const;

  [[nodiscard]] bool viewChosen() const { return sideView_.checked() || planView_.checked(); }
  [[nodiscard]] ViewMode viewMode() const;
  [[nodiscard]] Repeat repeat() const;
  [[nodiscard]] const dialog::CheckHandle& firstView() const { return sideView_; }
  [[nodiscard]] const CFloatEdit& repeatValue() const { return value_; }

 private:
  void addViews(dialog::Dialog& dialog, int row);
  void addStyles(dialog::Dialog& dialog, int row);
  void addRepeat(dialog::Dialog& dialog, int row);
  void showRepeat(const Repeat& repeat);
  void enablePolarValue() { polarValue_.enable(pattern_.chosen() == kPolar); }

  enum Pattern { kLinearRow, kPolar };
  enum PolarValue { kSpacing, kPitchCircle };

  const FastenerOptionTexts& texts_;
  dialog::CheckHandle sideView_;
  dialog::CheckHandle planView_;
  dialog::CheckHandle align_;
  StyleChoice headStyle_;
  StyleChoice shaftStyle_;
  dialog::RadioHandle pattern_;
  CIntEdit number_;
  CFloatEdit value_;
  dialog::RadioHandle polarValue_;
};

// A repeat as the configuration file keeps it: value, number of items, kind; an empty text is a single part.
Repeat readRepeat(std::string_view text);
std::string repeatText(const Repeat& repeat);

}  // namespace ardenix::mech

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "frame/host/dialog.h"
#include "frame/host/ini.h"
#include "survey/job_options.h"

// Controls of the option dialogs that show one option each, and those that several dialogs have.
namespace ardenix::survey {

double offered(const TINIFile& file, const NumberOption& row);
std::string offered(const TINIFile& file, const LayerOption& row);

// With three decimals, as options that are measures are kept.
void writeMeasure(TINIFile& file, const NumberOption& row, double value);
void writeInteger(TINIFile& file, const NumberOption& row, int value);

// A flag of its own line.
class FlagField {
 public:
  FlagField() = default;
  FlagField(dialog::Dialog& dialog, const NumberOption& row, dialog::Setting setting)
      : row_(&row), check_(addCheck(dialog, std::move(setting))) {}
  void load(const TINIFile& file) const { check_.setChecked(offered(file, *row_) != 0.0); }
  void save(TINIFile& file) const { writeInteger(file, *row_, check_.checked() ? 1 : 0); }

 private:
  const NumberOption* row_ = nullptr;
  dialog::CheckHandle check_;
};

// A length in millimetres on paper.
class DiameterField {
 public:
  DiameterField() = default;
  DiameterField(dialog::Dialog& dialog, const NumberOption& row, dialog::Setting setting)
      : row_(&row), edit_(addFloat(dialog, std::move(setting), row.minimum, row.maximum, "%.1f")) {}
  void load(const TINIFile& file) const { edit_.SetValue(offered(file, *row_)); }
  void save(TINIFile& file) const { writeMeasure(file, *row_, edit_.GetValue()); }

 private:
  const NumberOption* row_ = nullptr;
  CFloatEdit edit_;
};

class LayerField {
 public:
  LayerField() = default;
  LayerField(dialog::Dialog& dialog, const LayerOption& row, dialog::Setting setting)
      : row_(&row), edit_(addText(dialog, std::move(setting), static_cast<int>(kLayerNameLimit))) {}
  void load(const TINIFile& file) const { edit_.setText(offered(file, *row_)); }
  void save(TINIFile& file) const { file.WriteString(kOptionSection, row_->key, edit_.text()); }

 private:
  const LayerOption* row_ = nullptr;
  dialog::TextHandle edit_;
};

// The three separators in a group of their own, with the rounding of bearings below.
class NumberFields {
 public:
  NumberFields(dialog::Dialog& dialog, dialog::Place place);
  void load(const TINIFile& file) const;
  void save(TINIFile& file) const;

 private:
  std::array<dialog::DropDownHandle, 3> separators_;
  FlagField roundBearing_;
};

}  // namespace ardenix::survey

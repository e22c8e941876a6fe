#include "survey/option_dialogs.h"

#include <algorithm>
#include <array>
#include <optional>
#include <variant>
#include <vector>

#include "frame/host/core_services.h"
#include "survey/job_options.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr int kOkRow = 5;

struct DialogTexts {
  std::string_view title;
  std::string_view helpTopic;
};
// By mode.
constexpr DialogTexts kDialogs[] = {{"Diagram options", "Survey setup"},
                                    {"General Plan Options", "General Plan Options"},
                                    {"Sectional Title Options", "Sectional Plans options"}};

// ---- Controls ---------------------------------------------------------------------------------------------------

// Each control shows a number in its own way.
void show(const dialog::CheckHandle& check, double value) { check.setChecked(value != 0.0); }
void show(const dialog::RadioHandle& radio, double value) { radio.choose(value != 0.0 ? 0 : 1); }
void show(const dialog::DropDownHandle& list, double value) { list.select(static_cast<int>(value)); }
void show(const CIntEdit& edit, double value) { edit.SetValue(static_cast<int>(value)); }
void show(const CFloatEdit& edit, double value) { edit.SetValue(value); }
void show(const CLineTypeCombo& list, double value) { list.SetCurSel(static_cast<int>(value) - 1); }
void show(const CColourButton& button, double value) { button.SetPen(static_cast<int>(value)); }

double shown(const dialog::CheckHandle& check) { return check.checked() ? 1 : 0; }
double shown(const dialog::RadioHandle& radio) { return radio.chosen() == 0 ? 1 : 0; }
double shown(const dialog::DropDownHandle& list) { return list.selected(); }
double shown(const CIntEdit& edit) { return edit.GetValue(); }
double shown(const CFloatEdit& edit) { return edit.GetValue(); }
double shown(const CLineTypeCombo& list) { return list.GetCurSel() + 1; }
double shown(const CColourButton& button) { return button.GetPen(); }

struct NumberField {
  const OptionRow* row;
  std::variant<dialog::CheckHandle, dialog::RadioHandle, dialog::DropDownHandle, CIntEdit, CFloatEdit, CLineTypeCombo,
               CColourButton>
      control;

  [[nodiscard]] double value() const {
    return std::visit([](const auto& handle) { return shown(handle); }, control);
  }
  void enable(bool enabled) const {
    std::visit([enabled](const auto& handle) { handle.enable(enabled); }, control);
  }
  void load(const TINIFile& file) const {
    const double value = file.ReadDouble(kOptionSection, row->key, row->offered);
    std::visit([value](const auto& handle) { show(handle, value); }, control);
  }
  // Measures are kept with three decimals; a list without a choice leaves the file as it is.
  void save(TINIFile& file) const {
    const bool list = row->kind == OptionKind::kList;
    if (list && value() < 0.0) { return; }
    if (list || row->kind == OptionKind::kMeasure || row->kind == OptionKind::kFactor) {
      file.WriteDouble(kOptionSection, row->key, value(), 3);
    } else {
      file.WriteInt(kOptionSection, row->key, static_cast<int>(value()));
    }
  }
};

struct LayerField {
  const OptionRow* row;
  dialog::TextHandle edit;

  void load(const TINIFile& file) const {
    edit.setText(file.ReadString(kOptionSection, row->key, row->offeredText).substr(0, kLayerNameLimit));
  }
  void save(TINIFile& file) const { file.WriteString(kOptionSection, row->key, edit.text()); }
};

struct SeparatorField {
  const OptionRow* row;
  dialog::DropDownHandle list;

  // Nothing for a letter that is missing or not offered.
  [[nodiscard]] std::optional<int> stored(const TINIFile& file) const {
    const std::string letter = file.ReadString(kOptionSection, row->key, "");
    const size_t choice = letter.empty() ? std::string_view::npos : kSeparatorLetters.find(letter.front());
    return choice < static_cast<size_t>(list.count()) ? std::optional(static_cast<int>(choice)) : std::nullopt;
  }
  void save(TINIFile& file) const {
    const int chosen = std::max(list.selected(), 0);
    file.WriteString(kOptionSection, row->key, kSeparatorLetters.substr(static_cast<size_t>(chosen), 1));
  }
};

// Bearings may bear their signs or a hyphen as well.
std::vector<std::string> separatorItems(const OptionRow& row) {
  std::vector<std::string> items = {".", ",", "Space", "None"};
  if (row.member == OptionMember(&JobOptions::bearing)) {
    items.insert(items.end(), {std::string{kDegreeSign} + " '  \"", "-"});
  }
  return items;
}

// ---- Dialog -----------------------------------------------------------------------------------------------------

class OptionDialog {
 public:
  OptionDialog(SurveyMode mode, TINIFile& file, const Services& services)
      : mode_(mode), services_(services), file_(file), dialog_(std::string(kDialogs[static_cast<size_t>(mode)].title)) {
    equip(dialog_, services_, helpTopic(kDialogs[static_cast<size_t>(mode)].helpTopic));
    for (const OptionRow& row : optionRows()) {
      if (row.isOf(mode_)) { add(row); }
    }
    addOkCancel(dialog_, kOkRow);
    dialog_.onOpen = [this] { load(); };
    dialog_.onOk = [this] { return confirm(); };
  }
  OptionDialog(const OptionDialog&) = delete;
  OptionDialog& operator=(const OptionDialog&) = delete;

  bool run(CWnd* owner) { return services_.mainFrame->RunDialog(dialog_, owner); }

 private:
  struct Box {
    int group = -1;
    int rows = 0;
  };

  Box& boxOf(const OptionRow& row);
  dialog::Setting settingOf(const OptionRow& row);
  void add(const OptionRow& row);
  void addClipping(const OptionRow& row);
  void enableChosen() const;
  void load();
  bool confirm();

  SurveyMode mode_;
  const Services& services_;
  TINIFile& file_;
  dialog::Dialog dialog_;
  std::array<Box, 4> boxes_;
  std::vector<NumberField> numbers_;
  std::vector<LayerField> layers_;
  std::vector<SeparatorField> separators_;
};

// Clipping, where a mode has it, stands across the top; below it the separators beside the style, then the flags.
OptionDialog::Box& OptionDialog::boxOf(const OptionRow& row) {
  Box& box = boxes_.at(static_cast<size_t>(row.box));
  if (box.group >= 0) { return box; }
  const int top = mode_ == SurveyMode::kDiagram ? 1 : 0;
  switch (row.box) {
    case OptionBox::kSeparators: box.group = dialog_.addGroup({.caption = "Separators", .place = {.row = top}}); break;
    case OptionBox::kSnip:
      box.group = dialog_.addGroup({.caption = "Snip surrounding data", .place = {.columnSpan = 2}});
      break;
    case OptionBox::kStyle: box.group = dialog_.addGroup({.place = {.row = top, .column = 1}}); break;
    case OptionBox::kFlags: box.group = dialog_.addGroup({.place = {.row = top + 1, .columnSpan = 2}}); break;
  }
  return box;
}

dialog::Setting OptionDialog::settingOf(const OptionRow& row) {
  Box& box = boxOf(row);
  const bool wideFlag = row.kind == OptionKind::kFlag && row.box != OptionBox::kFlags;
  return {.caption = std::string(row.caption),
          .toolTip = std::string(row.toolTip),
          .group = box.group,
          .place = {.row = box.rows++, .columnSpan = wideFlag ? 2 : 1}};
}

// The two ways, each with its field beside it.
void OptionDialog::addClipping(const OptionRow& row) {
  Box& box = boxOf(row);
  dialog::Setting setting{.toolTip = std::string(row.toolTip), .group = box.group, .name = std::string(row.caption)};
  if (row.kind == OptionKind::kWayOfClipping) {
    setting.place.rowSpan = 2;
    const auto ways =
        addRadio(dialog_, setting,
                 {{"Offset to a bounding box", "Clip to a rectangle round the figure"},
                  {"Multiplication factor to a polygon ", "Clip to the figure, scaled about its centre"}});
    ways.onEdit([this] { enableChosen(); });
    numbers_.push_back({&row, ways});
    return;
  }
  setting.place = {.row = box.rows++, .column = 1};
  if (row.kind == OptionKind::kFactor) {
    numbers_.push_back({&row, addFloat(dialog_, setting, 0.0, row.maximum, "%.3f")});
  } else {
    numbers_.push_back(
        {&row, addInteger(dialog_, setting, static_cast<int>(row.minimum), static_cast<int>(row.maximum))});
  }
}

void OptionDialog::add(const OptionRow& row) {
  switch (row.kind) {
    case OptionKind::kWayOfClipping:
    case OptionKind::kWhole:
    case OptionKind::kFactor: addClipping(row); break;
    case OptionKind::kFlag: numbers_.push_back({&row, addCheck(dialog_, settingOf(row))}); break;
    case OptionKind::kMeasure:
      numbers_.push_back({&row, addFloat(dialog_, settingOf(row), row.minimum, row.maximum, "%.1f")});
      break;
    case OptionKind::kList:
      numbers_.push_back(
          {&row, addDropDown(dialog_, settingOf(row), {"Bearing + Distance", "Distance Only", "Bearing Only"})});
      break;
    case OptionKind::kLineType: numbers_.push_back({&row, addLineType(dialog_, settingOf(row))}); break;
    case OptionKind::kPen: numbers_.push_back({&row, addPen(dialog_, settingOf(row))}); break;
    case OptionKind::kLayer:
      layers_.push_back({&row, addText(dialog_, settingOf(row), static_cast<int>(kLayerNameLimit))});
      break;
    case OptionKind::kSeparator:
      separators_.push_back({&row, addDropDown(dialog_, settingOf(row), separatorItems(row))});
      break;
  }
}

// The field of the way that is chosen.
void OptionDialog::enableChosen() const {
  const auto ways = std::ranges::find(numbers_, OptionKind::kWayOfClipping, [](const auto& f) { return f.row->kind; });
  if (ways == numbers_.end()) { return; }
  const bool offset = ways->value() != 0.0;
  for (const NumberField& field : numbers_) {
    if (field.row->kind == OptionKind::kWhole) { field.enable(offset); }
    if (field.row->kind == OptionKind::kFactor) { field.enable(!offset); }
  }
}

// A separator's letter that is not known sets all three boxes at that point; those read later still take their own.
void OptionDialog::load() {
  for (const SeparatorField& read : separators_) {
    if (const auto choice = read.stored(file_)) {
      read.list.select(*choice);
      continue;
    }
    for (const SeparatorField& field : separators_) { field.list.select(static_cast<int>(field.row->offered)); }
  }
  for (const NumberField& field : numbers_) { field.load(file_); }
  for (const LayerField& field : layers_) { field.load(file_); }
  enableChosen();
}

bool OptionDialog::confirm() {
  for (const NumberField& field : numbers_) {
    const CFloatEdit* const edit = std::get_if<CFloatEdit>(&field.control);
    if (field.row->kind != OptionKind::kFactor || edit->GetValue() > field.row->minimum) { continue; }
    coreMessageBox(&dialog_, "Error: Multiplication factor must be greater than 1.", "Factor", BoxIcon::kError,
                   BoxButtons::kOk);
    edit->focus();
    return false;
  }
  for (const NumberField& field : numbers_) { field.save(file_); }
  for (const LayerField& field : layers_) { field.save(file_); }
  for (const SeparatorField& field : separators_) { field.save(file_); }
  return true;
}

}  // namespace

bool runOptions(SurveyMode mode, TINIFile& file, const Services& services, CWnd* owner) {
  return OptionDialog(mode, file, services).run(owner);
}

void copyOptions(const TINIFile& from, TINIFile& to) {
  for (const OptionRow& row : optionRows()) {
    const auto value = storedValue(from, kOptionSection, row.key);
    if (value && value != storedValue(to, kOptionSection, row.key)) { to.WriteString(kOptionSection, row.key, *value); }
  }
}

}  // namespace ardenix::survey

#include "survey/plan/numbering_settings.h"

#include <utility>

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

// An option of the dialog: its key, and what its check box says.
struct NumberingOption {
  std::string_view key;
  bool NumberingSettings::*member;
  std::string_view caption;
  std::string_view toolTip;
  bool always = false;  // stands in the file whatever it is; others once they were chosen
};
constexpr NumberingOption kNumberingOptions[] = {
    {"DrawAreaTable", &NumberingSettings::table, "Draw an Area Table",
     "Compile an erf areas table while indicating erven", true},
    {"WriteArea", &NumberingSettings::writeArea, "Write the Area in the erf",
     "Write the square metreage below the erf number", true},
    {"ByStroke", &NumberingSettings::byStroke, "Number by strokes",
     "Each stroke numbers the erven that it crosses, in their order"},
    {"Totals", &NumberingSettings::totals, "Total below the areas", "A last row counts the erven and sums their areas"},
    {"CheckFigure", &NumberingSettings::check, "Check the sum of the areas",
     "Tell how the sum of the areas stands to the outside figure, when either is done"},
};

constexpr std::string_view kRowsKey = "RowsAColumn";
constexpr int kMostRows = 10'000;

void writeOption(TINIFile& file, std::string_view key, int value, bool always) {
  if (always || value != 0 || storedValue(file, kNumberingSection, key)) {
    file.WriteInt(kNumberingSection, key, value);
  }
}

// ---- Dialog -----------------------------------------------------------------------------------------------------

class NumberingDialog {
 public:
  NumberingDialog(NumberingSettings& settings, const Services& services) : settings_(settings), services_(services) {
    equip(dialog_, services_, helpTopic("Area table"));
    layer_ =
        addText(dialog_, {.caption = "Layer name for erf numbers:", .toolTip = "Layer on which to draw the erf number"},
                kLongestName);
    int row = 1;
    for (const NumberingOption& option : kNumberingOptions) {
      checks_.push_back(addCheck(dialog_, {.caption = std::string(option.caption),
                                           .toolTip = std::string(option.toolTip),
                                           .place = {.row = row++, .columnSpan = 2}}));
    }
    rows_ = addInteger(dialog_,
                       {.caption = "Rows until the table goes on beside",
                        .toolTip = "Rows of a column of the area table; 0 lists all erven in one",
                        .place = {.row = row++}},
                       0, kMostRows);
    addOkCancel(dialog_, row);
    dialog_.onOpen = [this] { show(); };
    dialog_.onOk = [this] { return confirm(); };
  }
  NumberingDialog(const NumberingDialog&) = delete;
  NumberingDialog& operator=(const NumberingDialog&) = delete;

  bool run(CWnd& owner) { return services_.mainFrame->RunDialog(dialog_, &owner); }

 private:
  static constexpr int kLongestName = 255;

  void show() const {
    layer_.setText(settings_.layer);
    for (size_t n = 0; n < checks_.size(); ++n) { checks_[n].setChecked(settings_.*kNumberingOptions[n].member); }
    rows_.SetValue(settings_.rowsAColumn);
  }
  bool confirm() {
    std::string layer = layer_.text();
    coreTrimStr(layer);
    if (layer.empty()) {
      warn(&dialog_, "A layer is needed for the erf numbers.");
      layer_.focus();
      return false;
    }
    settings_.layer = std::move(layer);
    for (size_t n = 0; n < checks_.size(); ++n) { settings_.*kNumberingOptions[n].member = checks_[n].checked(); }
    settings_.rowsAColumn = rows_.GetValue();
    return true;
  }

  NumberingSettings& settings_;
  const Services& services_;
  dialog::Dialog dialog_{"Erf Numbering Settings"};
  dialog::TextHandle layer_;
  std::vector<dialog::CheckHandle> checks_;
  CIntEdit rows_;
};

}  // namespace

NumberingSettings readNumberingSettings(const TINIFile& file) {
  NumberingSettings settings;
  settings.layer = file.ReadString(kNumberingSection, kNumberLayerKey, settings.layer);
  for (const NumberingOption& option : kNumberingOptions) {
    settings.*option.member = file.ReadBool(kNumberingSection, option.key, settings.*option.member);
  }
  settings.rowsAColumn = file.ReadInt(kNumberingSection, kRowsKey, settings.rowsAColumn);
  return settings;
}

void write(const NumberingSettings& settings, TINIFile& file) {
  file.WriteString(kNumberingSection, kNumberLayerKey, settings.layer);
  for (const NumberingOption& option : kNumberingOptions) {
    writeOption(file, option.key, settings.*option.member ? 1 : 0, option.always);
  }
  writeOption(file, kRowsKey, settings.rowsAColumn, false);
}

bool editNumberingSettings(NumberingSettings& settings, const Services& services, CWnd& owner) {
  return NumberingDialog(settings, services).run(owner);
}

}  // namespace ardenix::survey

#include "survey/plan/numbering_settings.h"

#include "frame/messages.h"

namespace ardenix::survey {

namespace {

// An option of the dialog: its key, and what its check box says.
struct NumberingOption {
  std::string_view key;
  bool NumberingSettings::*member;
  std::string_view caption;
  std::string_view toolTip;
};
constexpr NumberingOption kNumberingOptions[] = {
    {"DrawAreaTable", &NumberingSettings::table, "Draw an Area Table",
     "Compile an erf areas table while indicating erven"},
    {"WriteArea", &NumberingSettings::writeArea, "Write the Area in the erf",
     "Write the square metreage below the erf number"},
};

}  // namespace

NumberingSettings readNumberingSettings(const TINIFile& file) {
  NumberingSettings settings;
  settings.layer = file.ReadString(kNumberingSection, kNumberLayerKey, settings.layer);
  for (const NumberingOption& row : kNumberingOptions) {
    settings.*row.member = file.ReadBool(kNumberingSection, row.key, settings.*row.member);
  }
  return settings;
}

void write(const NumberingSettings& settings, TINIFile& file) {
  file.WriteString(kNumberingSection, kNumberLayerKey, settings.layer);
  for (const NumberingOption& row : kNumberingOptions) {
    file.WriteInt(kNumberingSection, row.key, settings.*row.member ? 1 : 0);
  }
}

bool editNumberingSettings(NumberingSettings& settings, const Services& services, CWnd& owner) {
  constexpr int kLongestName = 255;
  dialog::Dialog dialog("Erf Numbering Settings");
  equip(dialog, services, helpTopic("Area table"));
  const auto layer = addText(dialog,
                             {.caption = "Layer name for erf numbers:",
                              .toolTip = "Layer on which to draw the erf number",
                              .place = {.row = 0}},
                             kLongestName);
  layer.setText(settings.layer);
  std::vector<dialog::CheckHandle> checks;
  checks.reserve(std::size(kNumberingOptions));
  for (const NumberingOption& row : kNumberingOptions) {
    checks.push_back(addCheck(dialog, {.caption = std::string(row.caption),
                                       .toolTip = std::string(row.toolTip),
                                       .place = {.row = static_cast<int>(checks.size()) + 1, .columnSpan = 2}}));
    checks.back().setChecked(settings.*row.member);
  }
  addOkCancel(dialog, static_cast<int>(checks.size()) + 1);
  dialog.onOk = [&] {
    if (!layer.text().empty()) { return true; }
    warn(&dialog, "A layer is needed for the erf numbers.");
    layer.focus();
    return false;
  };
  if (!services.mainFrame->RunDialog(dialog, &owner)) { return false; }
  settings.layer = layer.text();
  for (size_t row = 0; row < checks.size(); ++row) { settings.*kNumberingOptions[row].member = checks[row].checked(); }
  return true;
}

}  // namespace ardenix::survey

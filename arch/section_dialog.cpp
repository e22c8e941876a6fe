#include "arch/section_dialog.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"

namespace ardenix::arch {

SectionDialog::SectionDialog(const Services& services, ArchSpecStore& store, SectionDrawer& drawer)
    : services_(services), store_(store), drawer_(drawer), layers_(store, kCrossSections) {
  equip(dialog_, services_, helpTopic("Cross Section Setup"));
  describeNumbers();
  const int group = dialog_.addGroup({.place = {.column = 1}});
  describeStyles(group);
  layers_.describe(dialog_,
                   {{"Vertical cross section", "VertXSect", "The layer of sections that run up the sheet"},
                    {"Horizontal cross section", "HorizXSect", "The layer of sections that run across the sheet"}},
                   {.row = 1, .column = 1});
  addOkCancel(dialog_, 2);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void SectionDialog::describeNumbers() {
  const int group = dialog_.addGroup({.place = {.rowSpan = 2}});
  numbers_.reserve(sectionNumbers().size());
  for (const SectionNumber& row : sectionNumbers()) {
    const NumberRow number{row.caption, row.toolTip};
    numbers_.push_back(addNumber(dialog_, number, group, {.row = static_cast<int>(numbers_.size())}));
  }
}

void SectionDialog::describeStyles(int group) {
  section_.describe(dialog_, "Cross section", group, {.row = 0});
  line_.describe(dialog_, "Section line", group, {.row = 2});
  const int label = dialog_.addGroup({.caption = "Label:", .parent = group, .place = {.row = 4, .columnSpan = 2}});
  label_ =
      addText(dialog_, {.caption = "Label name", .toolTip = "The letter that the next section bears", .group = label});
  counts_ = addCheck(dialog_, {.caption = "Increment label",
                               .toolTip = "Each section bears the letter after that of the one before",
                               .group = label,
                               .place = {.row = 1}});
  const int finish = dialog_.addGroup({.caption = "Finish", .parent = group, .place = {.row = 5, .columnSpan = 2}});
  for (const SectionOption& row : sectionOptions()) {
    options_.push_back(addCheck(dialog_, {.caption = std::string(row.caption),
                                          .toolTip = std::string(row.toolTip),
                                          .group = finish,
                                          .place = {.row = static_cast<int>(options_.size())}}));
  }
}

bool SectionDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void SectionDialog::open() {
  const SectionSettings& settings = drawer_.settings;
  for (size_t i = 0; i < numbers_.size(); ++i) { numbers_[i].SetValue(settings.*sectionNumbers()[i].member); }
  section_.show(settings.section);
  line_.show(settings.line);
  layers_.show();
  label_.setText(settings.label);
  counts_.setChecked(settings.countsLabels);
  for (size_t i = 0; i < options_.size(); ++i) { options_[i].setChecked(settings.*sectionOptions()[i].member); }
}

std::string SectionDialog::label() const {
  std::string text = label_.text();
  coreTrimStr(text);
  return text;
}

bool SectionDialog::refuse(const dialog::Handle& field, std::string_view why) {
  warn(&dialog_, "%s", why);
  field.focus();
  return false;
}

bool SectionDialog::mayBeSaved() {
  constexpr size_t kLongLabel = 8;
  for (size_t i = 0; i < numbers_.size(); ++i) {
    const SectionNumber& row = sectionNumbers()[i];
    const double value = numbers_[i].GetValue();
    if (value < 0.0 || (value == 0.0 && !row.mayBeZero)) {
      return refuse(numbers_[i],
                    numberText::format("%s takes %s", row.caption, row.mayBeZero ? "0 or more" : "more than 0"));
    }
  }
  if (numbers_.front().GetValue() > headHeight(store_)) {
    return refuse(numbers_.front(),
                  "The window frames reach below the floor: they are higher than the heads of windows");
  }
  if (label().empty()) { return refuse(label_, "Label name takes a letter or a digit"); }
  if (label().size() > kLongLabel) { warn(&dialog_, "The label \"%s\" is long for a section line", label()); }
  return layers_.mayBeSaved();
}

bool SectionDialog::confirm() {
  if (!mayBeSaved()) { return false; }
  SectionSettings& settings = drawer_.settings;
  for (size_t i = 0; i < numbers_.size(); ++i) { settings.*sectionNumbers()[i].member = numbers_[i].GetValue(); }
  section_.take(settings.section);
  line_.take(settings.line);
  std::array<std::string, 2> layers;
  layers_.take(layers);
  settings.verticalLayer = layers[0];
  settings.horizontalLayer = layers[1];
  settings.label = label();
  settings.countsLabels = counts_.checked();
  for (size_t i = 0; i < options_.size(); ++i) { settings.*sectionOptions()[i].member = options_[i].checked(); }
  saveSectionSettings(store_, settings);
  return true;
}

}  // namespace ardenix::arch

#include "arch/building_standard_dialog.h"

namespace ardenix::arch {

namespace {

constexpr double kLargestLimit = 999.0;

constexpr RecordWords kStandardWords = {.section = kBuildingStandards,
                                        .caption = "Building standard",
                                        .word = "building standard",
                                        .namePrompt = "Building standard name",
                                        .listTip = "The building standard against which stairs are checked",
                                        .addTip = "Add the values shown as a new building standard",
                                        .deleteTip = "Delete the building standard shown"};

}  // namespace

BuildingStandardDialog::BuildingStandardDialog(const Services& services, ArchSpecStore& store,
                                               BuildingStandard& standard)
    : services_(services), standard_(standard), chooser_(services, store, dialog_, kStandardWords) {
  equip(dialog_, services_, helpTopic("Building Standards Setup"));
  describe();
  dialog_.onOpen = [this] { chooser_.open(standard_.number()); };
  dialog_.onOk = [this] { return confirm(); };
}

void BuildingStandardDialog::describe() {
  chooser_.describe(dialog_.addGroup({.place = {.row = 0}}), {.show = [this](int number) { show(number); },
                                                              .mayBeSaved = [] { return true; },
                                                              .record =
                                                                  [this](const std::string& name) {
                                                                    takeLimits();
                                                                    return standard_.recordNamed(name);
                                                                  }});
  const int limits = dialog_.addGroup({.caption = "Limits", .place = {.row = 1}});
  for (size_t row = 0; row < limits_.size(); ++row) {
    limits_[row] = addFloat(dialog_,
                            {.caption = std::string(kStairLimitRows[row].label),
                             .toolTip = std::string(kStairLimitRows[row].toolTip),
                             .group = limits,
                             .place = {.row = static_cast<int>(row)}},
                            0.0, kLargestLimit, "%.2f");
  }
  addOkCancel(dialog_, 2);
}

bool BuildingStandardDialog::run(CWnd* parent) { return services_.mainFrame->RunDialog(dialog_, parent); }

void BuildingStandardDialog::show(int number) {
  standard_.select(number);
  for (size_t row = 0; row < limits_.size(); ++row) {
    limits_[row].SetValue(standard_.limits().*kStairLimitRows[row].value);
  }
}

void BuildingStandardDialog::takeLimits() {
  StairLimits limits;
  for (size_t row = 0; row < limits_.size(); ++row) { limits.*kStairLimitRows[row].value = limits_[row].GetValue(); }
  standard_.setLimits(limits);
}

bool BuildingStandardDialog::confirm() {
  auto name = chooser_.nameToSave();
  if (!name) { return false; }
  standard_.setName(*std::move(name));
  takeLimits();
  standard_.save();
  return true;
}

}  // namespace ardenix::arch

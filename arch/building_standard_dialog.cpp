#include "arch/building_standard_dialog.h"

#include "arch/item_name.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr double kLargestLimit = 999.0;

}  // namespace

BuildingStandardDialog::BuildingStandardDialog(const Services& services, ArchSpecStore& store,
                                               BuildingStandard& standard)
    : services_(services), store_(store), standard_(standard) {
  equip(dialog_, services_, helpTopic("Building Standards Setup"));
  describe();
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void BuildingStandardDialog::describe() {
  const int chooser = dialog_.addGroup({.place = {.row = 0}});
  list_ = addDropDown(dialog_, {.caption = "Building standard",
                                .toolTip = "The building standard against which stairs are checked",
                                .group = chooser});
  list_.onEdit([this] { showSelected(); });
  addButton(dialog_, {.caption = "Add",
                      .toolTip = "Add the values shown as a new building standard",
                      .group = chooser,
                      .place = {.column = 1}})
      .onPress([this] { add(); });
  addButton(
      dialog_,
      {.caption = "Delete", .toolTip = "Delete the building standard shown", .group = chooser, .place = {.column = 2}})
      .onPress([this] { remove(); });
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

void BuildingStandardDialog::open() {
  store_.loadNames(list_, kBuildingStandards);
  list_.select(standard_.number() - 1);
  if (list_.selected() < 0) { standard_.select(0); }  // a number beyond the list names no standard
  showLimits();
}

void BuildingStandardDialog::showSelected() {
  standard_.select(list_.selected() + 1);
  showLimits();
}

void BuildingStandardDialog::showLimits() {
  for (size_t row = 0; row < limits_.size(); ++row) {
    limits_[row].SetValue(standard_.limits().*kStairLimitRows[row].value);
  }
}

void BuildingStandardDialog::takeLimits() {
  StairLimits limits;
  for (size_t row = 0; row < limits_.size(); ++row) { limits.*kStairLimitRows[row].value = limits_[row].GetValue(); }
  standard_.setLimits(limits);
}

void BuildingStandardDialog::add() {
  const auto name = askNewName(services_, &dialog_, "Building standard name");
  if (!name) { return; }
  takeLimits();
  store_.addRecord(standard_.recordNamed(*name), list_, kBuildingStandards);
  showSelected();
}

void BuildingStandardDialog::remove() {
  if (list_.selected() < 0) { return; }
  store_.removeRecord(list_.selected(), list_, kBuildingStandards);
  showSelected();
}

bool BuildingStandardDialog::confirm() {
  std::string name = list_.text();
  coreTrimStr(name);
  standard_.setName(std::move(name));
  takeLimits();
  standard_.save();
  return true;
}

}  // namespace ardenix::arch

#include "arch/building_standard.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "frame/records.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kStandardSection = "BLDG_STD";
constexpr std::string_view kQuestionTitle = "Check Building Standard";

}  // namespace

BuildingStandard::BuildingStandard(ArchSpecStore& store, CWnd* owner) : store_(store), owner_(owner) {
  select(store_.readInt(kStandardSection, "Current"));
}

void BuildingStandard::select(int number) {
  number_ = number;
  const auto record = store_.readRecord(kBuildingStandards, number);
  if (!record) { return; }
  name_ = recordName(*record);
  const StairLimits usual;
  int field = 2;
  for (const StairLimitRow& row : kStairLimitRows) {
    limits_.*row.value = coreGetFieldDouble(*record, usual.*row.value, field++, kFieldSeparator);
  }
}

void BuildingStandard::save() {
  store_.writeInt(kStandardSection, "Current", number_);
  store_.writeRecord(number_, recordNamed(name_), kBuildingStandards);
  store_.flush();
}

std::string BuildingStandard::recordNamed(std::string_view name) const {
  std::string record(name);
  for (const StairLimitRow& row : kStairLimitRows) { record += numberText::format(",%.2f", limits_.*row.value); }
  return record;
}

double BuildingStandard::checkMinimum(double value, double standard, std::string_view label) const {
  if (value >= standard) { return value; }
  const std::string question = numberText::format(
      "%s of %.2f is less than %s, replace  with minimum standard value %.2f ?", label, value, name_, standard);
  return ask(owner_, question, kQuestionTitle) ? standard : value;
}

double BuildingStandard::checkMaximum(double value, double standard, std::string_view label) const {
  if (value <= standard) { return value; }
  const std::string question = numberText::format("%s of %.2f exceeds %s, replace with maximum standard value %.2f ?",
                                                  label, value, name_, standard);
  return ask(owner_, question, kQuestionTitle) ? standard : value;
}

}  // namespace ardenix::arch

#include "survey/sectional/exclusive_area.h"

#include <utility>

#include "frame/host/core_services.h"
#include "frame/host/dialog.h"
#include "survey/label_sequences.h"

namespace ardenix::survey {

namespace {

constexpr int kLongestLetters = 9;

// A, B, ...; of letters with a number the next number.
std::string offeredLetters(const SectionalPlanJob& job) {
  if (job.exclusiveAreas.empty()) { return "A"; }
  const std::string& last = job.exclusiveAreas.back().letters;
  const bool numbered = !last.empty() && last.back() >= '0' && last.back() <= '9';
  return numbered ? nextPrefixAndNumber(last) : nextLettersThenDigits(last);
}

// Shows what is offered and takes what is entered. False where the user gives it up.
bool askFor(const SectionalPlanJob& job, ExclusiveArea& area) {
  dialog::Dialog dialog("Exclusive use area");
  equip(dialog, job.services(), helpTopic("Insert section"));
  const dialog::TextHandle letters =
      addText(dialog, {.caption = "Letters", .toolTip = "What the area is called on floor plans"}, kLongestLetters);
  const dialog::DropDownHandle floor = addDropDown(dialog, {.caption = "Floor", .place = {.row = 1}}, job.floorNames());
  addReadOnly(dialog, {.caption = "Area", .place = {.row = 2}}).setText(std::to_string(area.area) + " m\xB2");
  addOkCancel(dialog, 3);
  letters.setText(area.letters);
  floor.select(area.floor);
  dialog.onOk = [&] {
    if (floor.selected() >= 0) { return true; }
    ErrorMessage("The 'Floor' field is necessary to continue.", &dialog);
    floor.focus();
    return false;
  };
  if (!job.services().mainFrame->RunDialog(dialog, job.services().mainFrame)) { return false; }
  area.letters = letters.text();
  coreTrimStr(area.letters);
  area.floor = floor.selected();
  return true;
}

}  // namespace

void addExclusiveArea(SectionalPlanJob& job, ExclusiveArea area) {
  area.letters = offeredLetters(job);
  area.floor = job.defaults.floor;
  if (!askFor(job, area)) { return; }
  std::erase_if(job.exclusiveAreas, [&](const ExclusiveArea& each) { return each.letters == area.letters; });
  job.defaults.floor = area.floor;
  job.exclusiveAreas.push_back(std::move(area));
}

}  // namespace ardenix::survey

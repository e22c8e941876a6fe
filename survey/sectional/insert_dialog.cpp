#include "survey/sectional/insert_dialog.h"

#include <algorithm>
#include <utility>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"

namespace ardenix::survey {

namespace {

constexpr int kPartOf = 1;  // of the two types

// What is asked where the number is there already, by what it is and what the new one is to be.
struct Duplicate {
  bool newPart;
  bool existingPart;
  std::string_view question;
};
constexpr Duplicate kDuplicates[] = {
    {false, false,
     "Section %d has already been defined.\nDo you want to convert both to 'Part of Section %d' and continue?\n"
     "Clicking No will abort."},
    {false, true,
     "A part of Section %d has already been defined.\nDo you want to convert the new area also to 'Part of Section %d' "
     "and continue?\nClicking No will abort."},
    {true, false,
     "Section %d has already been defined.\nDo you want to convert that area to 'Part of Section %d' and continue?\n"
     "Clicking No will abort."},
};

}  // namespace

InsertDialog::InsertDialog(SectionalPlanJob& job) : job_(job) {
  equip(dialog_, job.services(), helpTopic("Insert section"));
  number_ = addInteger(dialog_, {.caption = "Section number"}, 1, kLargestNumber);
  area_ = addInteger(dialog_, {.caption = "Floor area", .place = {.row = 1}}, 1, kLargestFloorArea);
  dialog_.state<dialog::NumberEdit>(area_.index()).unit = "square metres";
  building_ = addOptionalInteger(dialog_, {.caption = "Building number *", .place = {.row = 2}}, 1, kLargestNumber);
  unit_ = addText(dialog_, {.caption = "Unit number **", .place = {.row = 3}}, kLongestUnit);
  floor_ = addDropDown(dialog_, {.caption = "Floor", .place = {.row = 4}}, job.floorNames());
  type_ = addRadio(dialog_, {.caption = "Type", .place = {.row = 5}}, {{"Whole", "", true}, {"Part of", "", true}});
  const auto note = [this](std::string text, int row) {
    addLabel(dialog_, {.place = {.row = row, .columnSpan = 2}}, std::move(text));
  };
  note("* Optional, but useful for Sheet 1.", 6);
  note("** Optional.", 7);
  addOkCancel(dialog_, 8);
  dialog_.onOpen = [this] { show(shown_); };
  dialog_.onOk = [this] { return confirm(); };
}

bool InsertDialog::run(CWnd* owner, const Section& shown) {
  shown_ = shown;
  taken_.reset();
  return job_.services().mainFrame->RunDialog(dialog_, owner) && taken_.has_value();
}

std::optional<long long> InsertDialog::insert(CWnd* owner, int area) {
  const InsertDefaults& defaults = job_.defaults;
  const int number = std::min(defaults.number, kLargestNumber);
  if (!run(owner, {.number = defaults.part ? -number : number,
                   .floor = defaults.floor,
                   .building = defaults.building,
                   .area = area})) {
    return std::nullopt;
  }
  remember();
  return job_.sections.add(*taken_);
}

bool InsertDialog::edit(CWnd* owner, const Section& section) {
  if (!run(owner, section)) { return false; }
  job_.sections.replace(*taken_);
  return true;
}

void InsertDialog::show(const Section& section) {
  number_.SetValue(section.plainNumber());
  area_.SetValue(section.area);
  if (section.building == 0) {
    building_.Clear();
  } else {
    building_.SetValue(section.building);
  }
  unit_.setText(section.unit);
  floor_.select(section.floor);
  type_.choose(section.isPart() ? kPartOf : 0);
}

Section InsertDialog::entered() const {
  Section section = shown_;  // with its id and its fixed quota
  section.number = type_.chosen() == kPartOf ? -number_.GetValue() : number_.GetValue();
  section.area = area_.GetValue();
  section.building = building_.IsEmpty() ? 0 : building_.GetValue();
  section.unit = unit_.text();
  std::ranges::replace(section.unit, ',', ' ');  // files keep the fields apart by commas
  coreTrimStr(section.unit);
  section.floor = floor_.selected();
  return section;
}

bool InsertDialog::checkFields() {
  if (floor_.selected() < 0) {
    ErrorMessage("The 'Floor' field is necessary to continue.", &dialog_);
    floor_.focus();
    return false;
  }
  if (area_.GetValue() < 1 || area_.GetValue() > kLargestFloorArea) {
    ErrorMessage(numberText::format("The floor area is 1 to %d square metres.", kLargestFloorArea), &dialog_);
    area_.focus();
    return false;
  }
  return true;
}

bool InsertDialog::keepsItsNumber() const { return shown_.id != 0 && shown_.number == taken_->number; }

bool InsertDialog::confirm() {
  if (!checkFields()) { return false; }
  taken_ = entered();
  if (keepsItsNumber()) { return true; }
  const auto alike = job_.sections.numbered(taken_->plainNumber());
  const auto existing = std::ranges::find_if(alike, [this](const Section& each) { return each.id != taken_->id; });
  if (existing != alike.end() && !becomeParts(*existing)) { taken_.reset(); }
  return true;
}

bool InsertDialog::becomeParts(const Section& existing) {
  const Duplicate* const row = std::ranges::find_if(kDuplicates, [&](const Duplicate& each) {
    return each.newPart == taken_->isPart() && each.existingPart == existing.isPart();
  });
  if (row == std::end(kDuplicates)) { return true; }
  const int number = existing.plainNumber();
  if (!ask(&dialog_, numberText::format(row->question, number, number), "Duplicate section found")) { return false; }
  Section part = existing;
  part.number = taken_->number = -number;
  job_.sections.replace(part);
  return true;
}

void InsertDialog::remember() {
  job_.defaults = {.number = taken_->plainNumber() + 1,
                   .building = taken_->building,
                   .floor = taken_->floor,
                   .part = type_.chosen() == kPartOf};  // as it was chosen, also where the section became a part
}

}  // namespace ardenix::survey

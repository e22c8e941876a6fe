#include "survey/sectional/section_manager.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "survey/sectional/insert_dialog.h"
#include "survey/sectional/quota_dialog.h"
#include "survey/sectional/section_file.h"

namespace ardenix::survey {

namespace {

using numberText::format;

constexpr std::string_view kFilter = "Comma delimited ASCII file (*.csv)|*.csv||";
constexpr size_t kFewestRows = 300;  // empty below the last section
enum Column : size_t { kNumberColumn, kBuildingColumn, kUnitColumn, kAreaColumn, kQuotaColumn, kColumns };

void inform(CWnd* owner, std::string_view text, std::string_view caption) {
  coreMessageBox(owner, text, caption, BoxIcon::kInformation, BoxButtons::kOk);
}

std::vector<dialog::Cell> emptyRow() { return {kColumns, dialog::Cell{.readOnly = true}}; }

std::vector<dialog::Cell> cellsOf(const SectionRow& row, PartView view) {
  std::vector<dialog::Cell> cells = emptyRow();
  const Section& first = row.first();
  cells[kNumberColumn].text = shownNumber(row, view);
  cells[kBuildingColumn].text = first.building == 0 ? "" : std::to_string(first.building);
  cells[kUnitColumn].text = first.unit;
  cells[kAreaColumn].text = std::to_string(row.area);
  cells[kQuotaColumn].text = shownQuota(row.quota);
  return cells;
}

}  // namespace

SectionManager::SectionManager(SectionalPlanJob& job) : job_(job) {
  equip(dialog_, job.services(), helpTopic("Section Manager"));
  addList();
  addButtons();
  addTotals();
  addOkCancel(dialog_, 4);
  dialog_.onOpen = [this] { fill(); };
}

void SectionManager::addList() {
  view_ = addDropDown(
      dialog_, {.toolTip = "Option of seeing either the individual parts or the section as a whole", .name = "View"},
      {"'Parts of sections' collapsed.", "'Parts of sections' expanded."});
  view_.select(0);
  view_.onEdit([this] { fill(); });
  dialog::Grid grid;
  grid.columns = {{.title = "Section No.", .width = 100},
                  {.title = "Building No.", .width = 90},
                  {.title = "Unit No.", .width = 90},
                  {.title = "Floor area", .width = 90},
                  {.title = "PQ", .width = 90}};
  grid.onCellRightClick = [this](int row, int) { showMenu(row); };
  grid_ = addGrid(dialog_, {.place = {.row = 1}, .name = "Sections"}, std::move(grid));
}

void SectionManager::addButtons() {
  const int group = dialog_.addGroup({.place = {.row = 2}});
  const auto add = [&](std::string caption, std::string toolTip, int column, void (SectionManager::*press)()) {
    const dialog::ButtonHandle button = addButton(
        dialog_,
        {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.column = column}});
    button.onPress([this, press] { (this->*press)(); });
    return button;
  };
  add("Load", "Load PQ data from a file", 0, &SectionManager::load);
  add("Save", "Save the listed data to file", 1, &SectionManager::save);
  add("Insert", "Insert a new row", 2, &SectionManager::insert);
  add("Delete All", "Clear all data", 3, &SectionManager::deleteAll);
  add("Adjust PQ's", "Attempt an appropriate adjustment to bring 'Total PQ' to 100.0000", 4, &SectionManager::adjust);
  byRemainder_ = add("Largest remainder",
                     "Give or take 0.0001 where rounding cut or raised the quotas most, since no floor area is unique",
                     5, &SectionManager::adjustByRemainder);
  byRemainder_.enable(false);
}

void SectionManager::addTotals() {
  const std::string toolTip = "Read-only display for information purposes";
  const int group = dialog_.addGroup({.place = {.row = 3}});
  totalArea_ = addReadOnly(dialog_, {.caption = "Total floor area:", .toolTip = toolTip, .group = group});
  totalQuota_ =
      addReadOnly(dialog_, {.caption = "Total PQ:", .toolTip = toolTip, .group = group, .place = {.column = 1}});
  message_ = addLabel(dialog_, {.group = group, .place = {.row = 1, .columnSpan = 2}, .name = "Message"}, "");
}

// ---- Showing ----------------------------------------------------------------------------------------------------

void SectionManager::fill() {
  const Quotas quotas(job_.sections.sections());
  rows_ = sectionRows(job_.sections, view(), quotas);
  total_ = quotas.total();
  dialog::Grid& grid = grid_.grid();
  const size_t count = std::max(rows_.size(), kFewestRows);
  grid.rows.clear();
  grid.rows.reserve(count);
  for (const SectionRow& row : rows_) { grid.rows.push_back(cellsOf(row, view())); }
  grid.rows.resize(count, emptyRow());
  for (size_t row = grid.rowHeadings.size(); row < count; ++row) {
    grid.rowHeadings.push_back(std::to_string(row + 1));
  }
  grid.rowHeadings.resize(count);
  grid_.update();
  totalArea_.setText(std::to_string(quotas.totalArea()));
  totalQuota_.setText(writtenQuota(total_));
  byRemainder_.enable(false);
}

void SectionManager::say(std::string text) { message_.setText(std::move(text)); }

void SectionManager::hintAtFixedQuotas() {
  const auto fixed = std::ranges::count_if(job_.sections.sections(), &Section::hasFixedQuota);
  say(fixed == 0
          ? ""
          : format("%d of the quotas are fixed and do not follow the total floor area, which has changed.", fixed));
}

// ---- Sections ---------------------------------------------------------------------------------------------------

void SectionManager::insert() {
  if (!InsertDialog(job_).insert(&dialog_)) { return fill(); }
  fill();
  hintAtFixedQuotas();
}

void SectionManager::deleteAll() {
  if (!ask(
          &dialog_,
          "Deleting all will cause the list of sections to be cleared.\nThis is an irreversible change. Do you want to "
          "continue?",
          "Delete All?")) {
    return;
  }
  job_.sections.clear();
  fill();
  say("");
}

void SectionManager::showMenu(int row) {
  if (row < 0 || static_cast<size_t>(row) >= rows_.size()) { return; }
  constexpr void (SectionManager::*kActions[])(const SectionRow&) = {
      &SectionManager::deleteRow, &SectionManager::editRow, &SectionManager::setQuota};
  const int chosen = corePopupMenu(&dialog_, "Delete,Edit,Manual adjust");
  if (chosen < 1) { return; }
  (this->*kActions[chosen - 1])(rows_[static_cast<size_t>(row)]);
}

void SectionManager::deleteRow(const SectionRow& row) {
  const size_t parts = row.sections.size();
  if (parts > 1 &&
      !ask(&dialog_, format("Section %d has %d parts. Do you want to delete all of them?", row.number(), parts),
           "Delete")) {
    return;
  }
  std::vector<long long> ids;
  ids.reserve(parts);
  for (const Section& section : row.sections) { ids.push_back(section.id); }
  job_.sections.remove(std::move(ids));
  fill();
  hintAtFixedQuotas();
}

bool SectionManager::isOne(const SectionRow& row, std::string_view what) {
  if (row.sections.size() == 1) { return true; }
  InfoMessage(format("Section %d has %d parts. Choose \"'Parts of sections' expanded.\" to %s one of them.",
                     row.number(), row.sections.size(), what),
              &dialog_);
  return false;
}

void SectionManager::editRow(const SectionRow& row) {
  if (!isOne(row, "edit")) { return; }
  const bool changed = InsertDialog(job_).edit(&dialog_, row.first());
  fill();
  if (changed) { hintAtFixedQuotas(); }
}

void SectionManager::setQuota(const SectionRow& row) {
  if (!isOne(row, "adjust")) { return; }
  Section section = row.first();
  const Quotas quotas(job_.sections.sections());
  const auto entered = askQuota(job_.services(), &dialog_, quotas.of(section));
  if (!entered) { return; }
  section.fixedQuota = *entered;
  job_.sections.replace(section);
  fill();
}

// ---- Files ------------------------------------------------------------------------------------------------------

void SectionManager::load() {
  BoxAnswer answer = BoxAnswer::kNo;
  if (!job_.sections.empty()) {
    answer =
        coreMessageBox(&dialog_,
                       "Do you want to overwrite the current section list and start afresh?\nYou will then lose all "
                       "coordinated sections.\nClicking 'No' will append the incoming data to the current section "
                       "list.",
                       "Overwrite data", BoxIcon::kQuestion, BoxButtons::kYesNoCancel);
  }
  std::string path;
  if (answer == BoxAnswer::kCancel || coreChooseFile(&dialog_, true, kFilter, "csv", "", path) == 0) { return; }
  try {
    const size_t present = answer == BoxAnswer::kYes ? 0 : job_.sections.sections().size();
    LoadedSections loaded = loadSections(path, present);
    if (answer == BoxAnswer::kYes) { job_.sections.clear(); }  // not before the file is known to be one
    const size_t kept = loaded.sections.size();
    job_.sections.add(std::move(loaded.sections));
    fill();
    say(format("%d lines kept, %d skipped.", kept, loaded.skipped));
  } catch (const HostFailure& failure) { ErrorMessage(failure.what(), &dialog_); }
}

void SectionManager::tellOfLostParts() {
  if (view() == PartView::kExpanded) { return; }
  std::vector<int> numbers;
  for (const SectionRow& row : rows_) {
    if (row.first().isPart()) { numbers.push_back(row.number()); }
  }
  if (numbers.empty()) { return; }
  const std::string_view form = numbers.size() == 1 ? "The parts of section %s are saved as a whole section"
                                                    : "The parts of sections %s are saved as whole sections";
  InfoMessage(format(form, std::string_view(listed(numbers))), &dialog_);
}

void SectionManager::save() {
  tellOfLostParts();
  std::string path;
  if (coreChooseFile(&dialog_, false, kFilter, "csv", "", path) == 0) { return; }
  if (coreFileExist(path) != 0 &&
      !ask(&dialog_, "The file already exists. Do you want to overwrite it?", "Overwrite file")) {
    return;
  }
  try {
    saveSections(path, rows_, view());
    say(format("%d lines saved.", rows_.size()));
  } catch (const HostFailure& failure) { ErrorMessage(failure.what(), &dialog_); }
}

// ---- Quotas -----------------------------------------------------------------------------------------------------

void SectionManager::take(const std::vector<Section>& adjusted) {
  for (const Section& section : adjusted) { job_.sections.replace(section); }
  fill();
}

void SectionManager::noteRule(std::string text) { job_.adjustmentRule = {std::move(text), job_.sections.revision()}; }

void SectionManager::adjust() {
  if (total_ == kWholeQuota) {
    return inform(&dialog_, "The PQ's already total 100.0000 exactly. There is no need to adjust them.",
                  "No adjustment required");
  }
  const auto adjustment = adjustedByUniqueArea(job_.sections);
  if (!adjustment) {
    coreMessageBox(
        &dialog_,
        "There is no simple method of automatically adjusting these pq's due to\nthere being no section with "
        "a unique floor area. You will need to\nmanually adjust values.",
        "Adjustment failed", BoxIcon::kWarning, BoxButtons::kOk);
    return byRemainder_.enable(!job_.sections.empty());
  }
  take(adjustment->adjusted);
  const Section& section = adjustment->adjusted.front();
  inform(&dialog_,
         format("An adjustment of %s was applied to the single occurence\nof the section with the floor area of %d.",
                std::string_view(writtenQuota(adjustment->correction)), section.area),
         "Adjustment succeeded");
  noteRule(format("The quota of section %d, whose floor area is unique, was adjusted by %s.", section.plainNumber(),
                  std::string_view(writtenQuota(adjustment->correction))));
}

void SectionManager::adjustByRemainder() {
  const auto adjustment = adjustedByLargestRemainder(job_.sections);
  if (!adjustment) {
    coreMessageBox(&dialog_,
                   format("The quotas are %s away from 100.0000, more than 0.0001 for each that is not fixed.",
                          std::string_view(writtenQuota(std::llabs(kWholeQuota - total_)))),
                   "Adjustment failed", BoxIcon::kWarning, BoxButtons::kOk);
    return;
  }
  std::vector<int> numbers;
  numbers.reserve(adjustment->adjusted.size());
  for (const Section& section : adjustment->adjusted) { numbers.push_back(section.plainNumber()); }
  std::ranges::sort(numbers);
  take(adjustment->adjusted);
  const bool added = adjustment->correction > 0;
  noteRule(format("0.0001 was %s the quota of %s %s, which rounding had %s most.", added ? "added to" : "taken from",
                  numbers.size() == 1 ? "section" : "each of sections", std::string_view(listed(numbers)),
                  added ? "cut" : "raised"));
  inform(&dialog_, job_.adjustmentRule.text, "Adjustment succeeded");
}

}  // namespace ardenix::survey

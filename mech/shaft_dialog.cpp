#include <algorithm>
#include <memory>

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "frame/records.h"
#include "mech/definition_dialog.h"
#include "mech/part_commands.h"
#include "mech/placed_dialog.h"
#include "mech/shaft_drawer.h"
#include "mech/style_choice.h"

namespace ardenix::mech {

namespace shaft {

namespace {

constexpr size_t kRowsOffered = 19;
constexpr std::string_view kStyleKey = "ShaftLT";
constexpr std::string_view kLeftOpenKey = "ShaftLeftOpen";
constexpr std::string_view kRightOpenKey = "ShaftRightOpen";
constexpr std::string_view kChamfer = "Chamfer";
constexpr std::string_view kFillet = "Fillet";

// ---- The columns of the grid ----------------------------------------------------------------------------------

enum Column { kLeftKind, kLeftTrim, kDiameter, kLength, kRightKind, kRightTrim };

struct ColumnRow {
  const char* title;
  const char* name;     // where the title stands twice
  const char* warning;  // of a negative number; null for a list
};
constexpr const char* kTrimWarning = "Warning: The chamfer/fillet trim value should be greater than 0 (zero)!";
constexpr ColumnRow kColumns[] = {
    {"L.Trim", "", nullptr},
    {"Trim Val", "L.Trim Val", kTrimWarning},
    {"Diameter", "", "Warning: The diameter of shaft sections should be greater than 0 (zero)!"},
    {"Length", "", "Warning: The length of shaft sections should be greater than 0 (zero)!"},
    {"R.Trim", "", nullptr},
    {"Trim Val", "R.Trim Val", kTrimWarning}};

using Row = std::vector<dialog::Cell>;

Row emptyRow() {
  constexpr double kLargest = 10000.0;
  Row row;
  for (const ColumnRow& column : kColumns) {
    if (column.warning == nullptr) {
      row.push_back({.kind = dialog::CellKind::kList, .items = {std::string(kChamfer), std::string(kFillet)}});
    } else {
      row.push_back({.kind = dialog::CellKind::kNumber,
                     .mayBeEmpty = true,
                     .minimum = -kLargest,
                     .maximum = kLargest,
                     .format = "%.3f"});
    }
  }
  return row;
}

Row rowOf(const ShaftSection& section) {
  Row row = emptyRow();
  const auto showTrim = [&row](const Trim& trim, Column kind, Column size) {
    row[kind].text = trim.kind == TrimKind::kFillet ? kFillet : kChamfer;
    row[size].text = numberText::fixed(trim.size, 3);
  };
  showTrim(section.left, kLeftKind, kLeftTrim);
  row[kDiameter].text = numberText::fixed(section.diameter, 3);
  row[kLength].text = numberText::fixed(section.length, 3);
  showTrim(section.right, kRightKind, kRightTrim);
  return row;
}

double numberOf(const dialog::Cell& cell) { return numberText::parseTyped(cell.text).value_or(0.0); }

ShaftSection sectionOf(const Row& row) {
  const auto trim = [&row](Column kind, Column size) {
    return Trim{row[kind].text == kFillet ? TrimKind::kFillet : TrimKind::kChamfer, numberOf(row[size])};
  };
  return {.left = trim(kLeftKind, kLeftTrim),
          .diameter = numberOf(row[kDiameter]),
          .length = numberOf(row[kLength]),
          .right = trim(kRightKind, kRightTrim)};
}

// ---- The dialog -----------------------------------------------------------------------------------------------

class ShaftDialog : public DefinitionDialog {
 public:
  ShaftDialog(const Services& services, DefinitionStore& store, ShaftDrawer& drawer);

 protected:
  void readOptions() override;
  void writeOptions() override;
  bool drawable() override;
  bool mayBeSaved() override;
  bool nameFree(std::string_view name) override;
  void storing(std::string_view name) override;
  void removing(std::string_view name) override;
  void accept() override;
  void fieldsChanged() override;
  void showRecord(std::string_view text) override;
  [[nodiscard]] std::string recordText(std::string_view name) const override { return std::string(name); }

 private:
  void describeGrid();
  void describePictures();
  void cellEdited(int row, int column);
  void offerRowMenu(int row);
  void removeRow(int row);
  void insertRow(int row);
  void resizeRows(int count);
  void numberRows() const;
  bool refuseShaft(std::string_view message);
  [[nodiscard]] bool isSectionOfFile(std::string_view name) const;

  [[nodiscard]] std::vector<ShaftSection> sections() const;
  [[nodiscard]] Shaft shaft() const;
  [[nodiscard]] bool rowsFollow() const;

  ShaftDrawer& drawer_;
  int body_;
  StyleChoice style_;
  dialog::CheckHandle leftOpen_;
  dialog::CheckHandle rightOpen_;
  dialog::GridHandle grid_;
  dialog::LabelHandle total_;
  bool longerThanShown_ = false;  // the file holds more sections than the grid
};

ShaftDialog::ShaftDialog(const Services& services, DefinitionStore& store, ShaftDrawer& drawer)
    : DefinitionDialog(services, store, definitionKind("SHAFTS")),
      drawer_(drawer),
      body_(box().addGroup({.place = {.row = 1}})),
      style_(box(), {.caption = "Draw as", .group = body_}, "shaft"),
      leftOpen_(addCheck(box(), {.caption = "Open End",
                                 .toolTip = "Check this to leave the left end of the shaft 'open'",
                                 .group = body_,
                                 .place = {.column = 1},
                                 .name = "Left open end"})),
      rightOpen_(addCheck(box(), {.caption = "Open end",
                                  .toolTip = "Check this to leave the right end of the shaft 'open'",
                                  .group = body_,
                                  .place = {.column = 3},
                                  .name = "Right open end"})) {
  describePictures();
  describeGrid();
  total_ = addLabel(box(), {.place = {.row = 3}, .name = "Total length"}, "");
}

void ShaftDialog::describePictures() {
  constexpr int kPreviewWidth = 240;
  constexpr int kPreviewHeight = 50;
  addPicture(box(), {.group = body_, .place = {.column = 2}, .name = "Shaft"}, {.name = "shaft_stepped"});
  const auto draw = [this](CCadWindow& view) {
    if (faultySection(shaft())) { return; }
    ShaftDrawer part(view, store());
    part.drawHidden(style_.hidden());
    part.take(shaft());
    part.sketch();
  };
  const int preview = box().addGroup({.caption = "Preview", .place = {.row = 4}});
  addControl(box(), dialog::Preview{kPreviewWidth, kPreviewHeight, draw}, {.group = preview});
}

void ShaftDialog::describeGrid() {
  dialog::Grid grid;
  for (const ColumnRow& column : kColumns) { grid.columns.push_back({.title = column.title, .name = column.name}); }
  grid.onCellEdit = [this](int row, int column) { cellEdited(row, column); };
  grid.onCellRightClick = [this](int row, int) { offerRowMenu(row); };
  grid.onInsertRow = [this](int row) { insertRow(row); };
  grid.onRowCount = [this](int rows) { resizeRows(rows); };
  grid_ = addGrid(
      box(), {.toolTip = "Enter the details for each shaft section in here", .place = {.row = 2}, .name = "Sections"},
      std::move(grid));
  grid_.grid().rows.assign(kRowsOffered, emptyRow());
  numberRows();
}

// ---- Rows -----------------------------------------------------------------------------------------------------

void ShaftDialog::cellEdited(int row, int column) {
  const char* warning = kColumns[static_cast<size_t>(column)].warning;
  if (warning != nullptr && numberOf(grid_.cell(row, column)) < 0.0) { warn(&box(), warning); }
  noteEdit();
}

void ShaftDialog::offerRowMenu(int row) {
  enum { kNothing, kDelete, kInsert };
  switch (corePopupMenu(&box(), "Delete this section,Insert a section")) {
    case kDelete: return removeRow(row);
    case kInsert: return insertRow(row);
    default: return;
  }
}

void ShaftDialog::removeRow(int row) {
  if (!ask(&box(), "Sure to delete this section?", "Delete Shaft Section?")) { return; }
  auto& rows = grid_.grid().rows;
  rows.erase(rows.begin() + row);
  if (rows.empty()) { rows.push_back(emptyRow()); }
  grid_.grid().currentRow = std::min(row, static_cast<int>(rows.size()) - 1);
  numberRows();
  noteEdit();
}

void ShaftDialog::insertRow(int row) {
  auto& rows = grid_.grid().rows;
  if (rows.size() >= kMostShaftSections) {
    return warn(&box(), "A shaft has %d sections at most.", static_cast<int>(kMostShaftSections));
  }
  if (!ask(&box(), "Sure to insert a section?", "Insert Shaft Section?")) { return; }
  rows.insert(rows.begin() + row, emptyRow());
  numberRows();
  noteEdit();
}

void ShaftDialog::resizeRows(int count) {
  auto& rows = grid_.grid().rows;
  rows.resize(std::min(static_cast<size_t>(count), kMostShaftSections), emptyRow());
  grid_.grid().currentRow = std::min(grid_.grid().currentRow, static_cast<int>(rows.size()) - 1);
  numberRows();
  noteEdit();
}

void ShaftDialog::numberRows() const {
  dialog::Grid& grid = grid_.grid();
  grid.rowHeadings.clear();
  for (size_t row = 1; row <= grid.rows.size(); ++row) {
    grid.rowHeadings.push_back(numberText::format("Sec %d", static_cast<int>(row)));
  }
  grid_.update();
}

std::vector<ShaftSection> ShaftDialog::sections() const {
  std::vector<ShaftSection> sections;
  for (const Row& row : grid_.grid().rows) {
    const ShaftSection section = sectionOf(row);
    if (endsShaft(section)) { break; }
    sections.push_back(section);
  }
  return sections;
}

bool ShaftDialog::rowsFollow() const {
  const auto& rows = grid_.grid().rows;
  const auto used = [](const Row& row) { return !endsShaft(sectionOf(row)); };
  return std::any_of(rows.begin() + static_cast<std::ptrdiff_t>(sections().size()), rows.end(), used);
}

Shaft ShaftDialog::shaft() const {
  return {.sections = sections(), .leftOpen = leftOpen_.checked(), .rightOpen = rightOpen_.checked()};
}

void ShaftDialog::fieldsChanged() { total_.setText(numberText::format("Total length %.3f", shaft().length())); }

// ---- The library ----------------------------------------------------------------------------------------------

void ShaftDialog::showRecord(std::string_view text) {
  const std::vector<ShaftSection> kept = readShaft(store().file(), recordName(text), kMostShaftSections + 1);
  auto& rows = grid_.grid().rows;
  rows.assign(std::clamp(kept.size(), kRowsOffered, kMostShaftSections), emptyRow());
  for (size_t row = 0; row < std::min(kept.size(), rows.size()); ++row) { rows[row] = rowOf(kept[row]); }
  numberRows();
  longerThanShown_ = kept.size() > kMostShaftSections;
  if (longerThanShown_) { InfoMessage("Only the first 20 sections are shown.", &box()); }
}

// Sections match without regard to case.
bool sameSection(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

// Whether a section of the file is kept for something else than a shaft.
bool isReserved(std::string_view name) {
  constexpr std::string_view kOthers[] = {"Setup", "Defaults", "DUCT"};
  const auto same = [name](std::string_view other) { return sameSection(name, other); };
  return std::ranges::any_of(kOthers, same) || std::ranges::any_of(definitionKinds(), same, &DefinitionKind::section);
}

bool ShaftDialog::nameFree(std::string_view name) {
  const auto taken = [name](std::string_view other) { return sameSection(name, other); };
  if (name.empty() || name.front() == ';' || name.find_first_of("[]") != std::string_view::npos) {
    warn(&box(), "A shaft's name must not be empty, begin with \";\" or hold \"[\" or \"]\".");
    return false;
  }
  if (!isReserved(name) && !isSectionOfFile(name) && !std::ranges::any_of(store().names("SHAFTS"), taken)) {
    return true;
  }
  warn(&box(), "'%s' is a section of the configuration file already. Please enter a different name.", name);
  return false;
}

bool ShaftDialog::isSectionOfFile(std::string_view name) const {
  const INI_LIST file(store().file().FileName());
  INI_LINE* first = nullptr;
  INI_LINE* last = nullptr;
  file.GetSectionLimits(name, first, last);
  return first != nullptr;
}

// A library made by hand may call a shaft like a section of another kind, which is then left alone.
bool ShaftDialog::mayBeSaved() {
  return !longerThanShown_ ||
         ask(&box(), "Only the first 20 sections are shown. Save the shaft without the others?", "Save Shaft");
}

void ShaftDialog::storing(std::string_view name) {
  if (!isReserved(name)) { writeShaft(store().file(), name, sections()); }
}

void ShaftDialog::removing(std::string_view name) {
  if (!isReserved(name)) { store().file().EraseSection(name); }
}

// ---- OK -------------------------------------------------------------------------------------------------------

bool ShaftDialog::refuseShaft(std::string_view message) {
  ErrorMessage(message, &box());
  grid_.focus();
  return false;
}

bool ShaftDialog::drawable() {
  const Shaft drawn = shaft();
  if (drawn.sections.empty()) { return refuseShaft("The shaft has no sections."); }
  if (const auto faulty = faultySection(drawn)) {
    return refuseShaft(
        numberText::format("The trims of section %d are larger than the section.", static_cast<int>(*faulty)));
  }
  if (rowsFollow()) {
    InfoMessage(numberText::format("Rows after section %d are ignored.", static_cast<int>(drawn.sections.size())),
                &box());
  }
  return true;
}

void ShaftDialog::accept() {
  drawer_.setName(shownName());
  drawer_.drawHidden(style_.hidden());
  drawer_.take(shaft());
}

void ShaftDialog::readOptions() {
  style_.read(store(), kStyleKey);
  leftOpen_.setChecked(store().file().ReadInt(kDefaultsSection, kLeftOpenKey, 0) != 0);
  rightOpen_.setChecked(store().file().ReadInt(kDefaultsSection, kRightOpenKey, 0) != 0);
}

void ShaftDialog::writeOptions() {
  store().file().WriteInt(kDefaultsSection, "DrawElev", 1);
  style_.write(store(), kStyleKey);
  store().file().WriteInt(kDefaultsSection, kLeftOpenKey, leftOpen_.checked() ? 1 : 0);
  store().file().WriteInt(kDefaultsSection, kRightOpenKey, rightOpen_.checked() ? 1 : 0);
}

}  // namespace

}  // namespace shaft

void drawShafts(MechToolset& toolset) {
  runPlacedCommand<ShaftDrawer>(toolset, [&](DefinitionStore& store, ShaftDrawer& drawer) {
    return shaft::ShaftDialog(toolset.services(), store, drawer).run();
  });
}

}  // namespace ardenix::mech

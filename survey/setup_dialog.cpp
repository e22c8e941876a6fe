#include "survey/setup_dialog.h"

#include "frame/file_paths.h"
#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "frame/messages.h"
#include "survey/control_dialog.h"
#include "survey/job_settings.h"
#include "survey/option_dialogs.h"

namespace ardenix::survey {

namespace {

constexpr int kShownPath = 48;
constexpr std::string_view kSettingsFilter = "(*.ini)|*.ini||";
constexpr std::string_view kDrawingFilter = "Brevan drawing (*.drg)|*.drg||";
constexpr std::string_view kModeSection = "INIFILE";
constexpr std::string_view kModeKey = "Mode";

constexpr std::string_view kDefaultsTopics[] = {"Diagram Defaults", "General Plan Defaults", "Sectional Defaults"};

// What a file holds that no sheet shows and that may have been changed since it was read.
void carryOver(const TINIFile& from, TINIFile& to) {
  copyOptions(from, to);
  const auto store = storedValue(from, kControlSection, kControlStoreKey);
  if (store && store != storedValue(to, kControlSection, kControlStoreKey)) {
    to.WriteString(kControlSection, kControlStoreKey, *store);
  }
}

std::string shortened(std::string_view path) { return coreAbbreviateFileName(path, kShownPath); }

}  // namespace

SetupDialog::SetupDialog(SurveyMode mode, CCadWindow& view, const Services& services)
    : mode_(mode), view_(view), services_(services), templatePaths_(templateRows(mode).size()) {
  equip(dialog_, services_, helpTopic(kDefaultsTopics[static_cast<size_t>(mode)]));
  for (SheetForm& form : sheetForms(mode)) { sheets_.emplace_back(std::move(form)); }
  showTitle();
  addTemplates();
  addSheets();
  addButtons();
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

bool SetupDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void SetupDialog::addTemplates() {
  constexpr int kPathWidth = 420;
  const int group = dialog_.addGroup({.caption = "Template drawing files:"});
  dialog::Grid grid;
  grid.columns = {{.title = "Path", .hint = "Double-click to choose a drawing", .width = kPathWidth}};
  for (const KeyRow& row : templateRows(mode_)) {
    grid.rowHeadings.emplace_back(row.label);
    grid.rows.push_back({{.kind = dialog::CellKind::kBrowse}});
  }
  grid.onCellEdit = [this](int row, int) { templateTyped(row); };
  grid.onCellPress = [this](int row, int) { browseTemplate(row); };
  templates_ = addControl(dialog_, std::move(grid), {.group = group, .name = "Template drawing files"});
}

void SetupDialog::addSheets() {
  const int group = dialog_.addGroup({.caption = "Settings:", .place = {.row = 1}});
  dialog::Tabs tabs;
  for (const SettingsSheet& sheet : sheets_) { tabs.pages.emplace_back(sheet.form().caption); }
  tabs_ = addControl(dialog_, std::move(tabs), {.group = group, .name = "Sheet"});
  dialog_.control(tabs_).onEdit = [this] { showSheet(dialog_.state<dialog::Tabs>(tabs_).current); };
  grid_ = addControl(dialog_, dialog::Grid(), {.group = group, .place = {.row = 1}, .name = "Settings"});
  auto& grid = dialog_.state<dialog::Grid>(grid_);
  grid.onCellEdit = [this](int row, int column) { cellEdited(row, column); };
  grid.onCellClick = [this](int row, int column) { cellClicked(row, column); };
  grid.onCellPress = [this](int row, int column) { choosePen(row, column); };
  showSheet(0);
}

void SetupDialog::addButtons() {
  const int group = dialog_.addGroup({.place = {.row = 2}});
  const auto add = [&](std::string caption, std::string toolTip, int column, void (SetupDialog::*press)()) {
    const dialog::ButtonHandle button = addButton(
        dialog_,
        {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.column = column}});
    button.onPress([this, press] { (this->*press)(); });
    return button;
  };
  add("Options", "Various option settings", 0, &SetupDialog::showOptions);
  add("Control coords", "Set data to be drawn for the control coordinates", 1, &SetupDialog::showControlPoints)
      .show(mode_ != SurveyMode::kSectionalPlan);
  add("Save As", "Save the current settings to another *.ini file", 2, &SetupDialog::saveAs);
  add("Load", "Load settings from *.ini file", 3, &SetupDialog::chooseFile);
  ok_ = addButton(dialog_, {.caption = "OK", .group = group, .place = {.column = 4}}, dialog::ButtonRole::kOk);
  addButton(dialog_, {.caption = "Cancel", .group = group, .place = {.column = 5}}, dialog::ButtonRole::kCancel);
}

// ---- The file ---------------------------------------------------------------------------------------------------

void SetupDialog::open() {
  ok_.enable(false);
  const std::string path = rememberedFile(mode_);
  showTitle();
  load(path);
}

void SetupDialog::showTitle() {
  const std::string path = file_ ? file_->FileName() : rememberedFile(mode_);
  dialog_.setTitle(std::string(modeRow(mode_).name) + " setup: " + shortened(path));
}

void SetupDialog::load(const std::string& path) {
  if (coreFileExist(path) == 0) { return; }
  try {
    auto file = std::make_unique<TINIFile>(path);
    if (mayTake(*file, path)) { take(std::move(file)); }
  } catch (const HostFailure& failure) { ErrorMessage(failure.what(), &dialog_); }
}

// A file of another mode is taken only if the user says so; one without a mode suits every mode.
bool SetupDialog::mayTake(const TINIFile& file, const std::string& path) {
  const auto marked = modeOf(file.ReadInt(kModeSection, kModeKey, -1));
  if (!marked || *marked == mode_) { return true; }
  const std::string_view name = modeRow(mode_).name;
  return ConfirmMessage(numberText::format("The file being loaded,\n%s\nis marked for %s setup.\nContinuing will cause "
                                           "this file to be marked for %s setup.\nContinue?",
                                           path, modeRow(*marked).name, name),
                        &dialog_, 0) != 0;
}

void SetupDialog::take(std::unique_ptr<TINIFile> file) {
  file_ = std::move(file);
  ok_.enable(true);
  const auto rows = templateRows(mode_);
  for (size_t i = 0; i < rows.size(); ++i) {
    templatePaths_[i] = file_->ReadString(templateSection(mode_), rows[i].key, "");
  }
  for (SettingsSheet& sheet : sheets_) { sheet.load(*file_); }
  for (size_t i = 0; i < controlPoints_.size(); ++i) {
    controlPoints_[i] = controlPointOf(file_->ReadString(kControlSection, kControlKeys[i], ""));
  }
  showTemplates();
  dialog_.state<dialog::Tabs>(tabs_).current = 0;
  dialog_.changed(tabs_);
  showSheet(0);
  showTitle();
}

void SetupDialog::writeInto(TINIFile& file) const {
  const auto write = [&file](std::string_view section, std::string_view key, const std::string& value) {
    const auto stored = storedValue(file, section, key);
    if (stored.value_or("") != value) { file.WriteString(section, key, value); }
  };
  write(kModeSection, kModeKey, std::to_string(static_cast<int>(mode_)));
  const auto rows = templateRows(mode_);
  for (size_t i = 0; i < rows.size(); ++i) { write(templateSection(mode_), rows[i].key, templatePaths_[i]); }
  for (const SettingsSheet& sheet : sheets_) { sheet.save(file); }
  if (mode_ == SurveyMode::kSectionalPlan) { return; }
  for (size_t i = 0; i < controlPoints_.size(); ++i) {
    const std::string stored = file.ReadString(kControlSection, kControlKeys[i], "");
    // A damaged record that nobody mended keeps its bytes, so that nothing is drawn in its place.
    if (!isControlPoint(stored) && controlPointOf(stored) == controlPoints_[i]) { continue; }
    write(kControlSection, kControlKeys[i], controlPointText(controlPoints_[i]));
  }
}

bool SetupDialog::save() {
  try {
    writeInto(*file_);
    file_->UpdateFile();
    return true;
  } catch (const HostFailure& failure) {
    ErrorMessage(failure.what(), &dialog_);
    return false;
  }
}

void SetupDialog::chooseFile() {
  std::string path;
  const std::string current = file_ ? file_->FileName() : "";
  if (coreChooseFile(&dialog_, true, kSettingsFilter, "ini", current, path) != 0) { load(path); }
}

bool SetupDialog::startCopy(const std::string& path) {
  if (file_ && coreFileExist(file_->FileName()) != 0) {
    if (coreFileCopy(file_->FileName(), path) != 0) { return true; }
    ErrorMessage(numberText::format("%s could not be written.", path), &dialog_);
    return false;
  }
  const int empty = coreFileOpen(path, "w");
  if (empty == 0) {
    ErrorMessage(numberText::format("%s could not be written.", path), &dialog_);
    return false;
  }
  coreFileClose(empty);
  return true;
}

// The new file gets what the old one holds on disk, then what was changed since.
void SetupDialog::saveAs() {
  std::string path;
  const std::string current = file_ ? file_->FileName() : "";
  if (coreChooseFile(&dialog_, false, kSettingsFilter, "ini", current, path) == 0) { return; }
  if (coreFileExist(path) != 0 &&
      ConfirmMessage(numberText::format("The file %s already exists\nDo you want to overwrite it?", path), &dialog_,
                     0) == 0) {
    return;
  }
  if (file_ && path == file_->FileName()) {
    save();
    return;
  }
  try {
    if (!startCopy(path)) { return; }
    auto file = std::make_unique<TINIFile>(path);
    if (file_) { carryOver(*file_, *file); }
    writeInto(*file);
    file->UpdateFile();
    take(std::move(file));
  } catch (const HostFailure& failure) { ErrorMessage(failure.what(), &dialog_); }
}

bool SetupDialog::confirm() {
  if (!file_ || !save()) { return false; }
  rememberFile(mode_, file_->FileName());
  return true;
}

TINIFile* SetupDialog::loadedFile() {
  if (!file_) { ErrorMessage("First load an *.ini file in the Setup dialog.", &dialog_); }
  return file_.get();
}

void SetupDialog::showControlPoints() {
  TINIFile* file = loadedFile();
  if (file == nullptr) { return; }
  const std::string store = file->ReadString(kControlSection, kControlStoreKey, "");
  ControlDialog control(controlPoints_, pathNamedIn(file->FileName(), store), services_);
  if (!control.run(&dialog_) || control.storePath() == pathNamedIn(file->FileName(), store)) { return; }
  file->WriteString(kControlSection, kControlStoreKey, control.storePath());
}

void SetupDialog::showOptions() {
  if (TINIFile* file = loadedFile()) { runOptions(mode_, *file, services_, &dialog_); }
}

// ---- Templates --------------------------------------------------------------------------------------------------

void SetupDialog::showTemplates() {
  auto& rows = dialog_.state<dialog::Grid>(templates_).rows;
  for (size_t i = 0; i < rows.size(); ++i) {
    rows[i][0].text = shortened(templatePaths_[i]);
    rows[i][0].whole = templatePaths_[i];
  }
  dialog_.changed(templates_);
}

void SetupDialog::templateTyped(int row) {
  const auto place = static_cast<size_t>(row);
  templatePaths_[place] = dialog_.state<dialog::Grid>(templates_).rows[place][0].text;
  showTemplates();
}

void SetupDialog::browseTemplate(int row) {
  std::string& path = templatePaths_[static_cast<size_t>(row)];
  std::string chosen;
  if (coreChooseFile(&dialog_, true, kDrawingFilter, "drg", path, chosen) == 0) { return; }
  path = chosen;
  showTemplates();
}

// ---- Sheets -----------------------------------------------------------------------------------------------------

Entry SetupDialog::entry(int column) const { return sheet().form().columns[static_cast<size_t>(column)].entry; }

dialog::Cell SetupDialog::cellOf(int row, int column) const {
  dialog::Cell cell{.text = sheet().rows()[static_cast<size_t>(row)][static_cast<size_t>(column)], .mayBeEmpty = true};
  switch (entry(column)) {
    case Entry::kPen: {
      cell.kind = dialog::CellKind::kPen;
      const auto pen = numberText::parseInteger(cell.text);
      if (pen && limits::kPens.contains(static_cast<double>(*pen))) {
        cell.ground = view_.gsGetPenColor(static_cast<int>(*pen));
      }
      break;
    }
    case Entry::kLinetype: cell.kind = dialog::CellKind::kLineType; break;
    case Entry::kFont: cell.kind = dialog::CellKind::kFont; break;
    case Entry::kFlag: cell.kind = dialog::CellKind::kCheck; break;
    case Entry::kText:
    case Entry::kName:
    case Entry::kMillimetres:
    case Entry::kSize:
    case Entry::kJustification: break;
  }
  return cell;
}

void SetupDialog::showSheet(int shown) {
  shownSheet_ = shown;
  auto& grid = dialog_.state<dialog::Grid>(grid_);
  grid.columns.clear();
  for (const SheetColumn& column : sheet().form().columns) {
    grid.columns.push_back({.title = std::string(column.title), .width = column.width});
  }
  grid.rowHeadings.clear();
  grid.rows.clear();
  const int columns = static_cast<int>(grid.columns.size());
  for (int row = 0; row < static_cast<int>(sheet().rows().size()); ++row) {
    grid.rowHeadings.push_back(sheet().heading(row));
    auto& cells = grid.rows.emplace_back();
    for (int column = 0; column < columns; ++column) { cells.push_back(cellOf(row, column)); }
  }
  grid.currentRow = grid.currentColumn = -1;
  dialog_.changed(grid_);
}

void SetupDialog::showCell(int row, int column) {
  auto& cells = dialog_.state<dialog::Grid>(grid_).rows[static_cast<size_t>(row)];
  cells[static_cast<size_t>(column)] = cellOf(row, column);
}

void SetupDialog::cellEdited(int row, int column) {
  const auto& cells = dialog_.state<dialog::Grid>(grid_).rows[static_cast<size_t>(row)];
  std::string text = cells[static_cast<size_t>(column)].text;
  if (const auto refusal = sheet().refusal(column, text)) {
    warn(&dialog_, "%s", *refusal);
  } else {
    sheet().set(row, column, std::move(text));
  }
  for (int shown = 0; shown < static_cast<int>(cells.size()); ++shown) { showCell(row, shown); }
  dialog_.changed(grid_);
}

void SetupDialog::cellClicked(int row, int column) {
  if (column < 0) { return; }
  if (entry(column) == Entry::kPen) { return choosePen(row, column); }
  if (!sheet().removable(row) || sheet().rows()[static_cast<size_t>(row)].front().empty()) { return; }
  if (ask(&dialog_, "Delete this row?", "Deletion")) { removeRow(row); }
}

void SetupDialog::choosePen(int row, int column) {
  if (column < 0 || entry(column) != Entry::kPen) { return; }
  const std::string& shown = sheet().rows()[static_cast<size_t>(row)][static_cast<size_t>(column)];
  int pen = static_cast<int>(numberText::parseInteger(shown).value_or(1));
  if (view_.gsSetupPenDialog("Select pen", pen) == 0) { return; }
  sheet().set(row, column, std::to_string(pen));
  showCell(row, column);
  dialog_.changed(grid_);
}

void SetupDialog::removeRow(int row) {
  sheet().remove(row);
  const int columns = static_cast<int>(sheet().form().columns.size());
  for (int below = row; below < static_cast<int>(sheet().rows().size()); ++below) {
    for (int column = 0; column < columns; ++column) { showCell(below, column); }
  }
  dialog_.changed(grid_);
}

}  // namespace ardenix::survey

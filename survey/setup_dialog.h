#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "frame/host/cad_window.h"
#include "frame/host/dialog.h"
#include "frame/services.h"
#include "survey/control_point.h"
#include "survey/settings_sheet.h"
#include "survey/survey_mode.h"

namespace ardenix::survey {

// The setup dialog of a mode: which settings file its commands use, and what stands in it. OK and Save As write the
// file; until then every change, that of the options included, is kept in memory.
class SetupDialog {
 public:
  SetupDialog(SurveyMode mode, CCadWindow& view, const Services& services);
  // Whether it was closed with OK: the file is then saved and remembered.
  bool run();

 private:
  void addTemplates();
  void addSheets();
  void addButtons();

  // ---- Templates and sheets
  void showTemplates();
  void browseTemplate(int row);
  void templateTyped(int row);
  void showSheet(int sheet);
  [[nodiscard]] dialog::Cell cellOf(int row, int column) const;
  void showCell(int row, int column);
  void cellEdited(int row, int column);
  void cellClicked(int row, int column);
  void choosePen(int row, int column);
  void removeRow(int row);
  SettingsSheet& sheet() { return sheets_[static_cast<size_t>(shownSheet_)]; }
  [[nodiscard]] const SettingsSheet& sheet() const { return sheets_[static_cast<size_t>(shownSheet_)]; }
  [[nodiscard]] Entry entry(int column) const;

  // ---- The file
  void open();
  void load(const std::string& path);
  [[nodiscard]] bool mayTake(const TINIFile& file, const std::string& path);
  void take(std::unique_ptr<TINIFile> file);
  void writeInto(TINIFile& file) const;
  // False, with a message, where the file cannot be written.
  bool save();
  void showTitle();
  void chooseFile();
  void saveAs();
  bool startCopy(const std::string& path);
  bool confirm();
  // The file to work on; null, with a message, while none is loaded.
  TINIFile* loadedFile();
  void showOptions();
  void showControlPoints();

  SurveyMode mode_;
  CCadWindow& view_;
  const Services& services_;
  dialog::Dialog dialog_{""};
  int templates_ = -1;
  int grid_ = -1;
  int tabs_ = -1;
  dialog::ButtonHandle ok_;
  std::vector<std::string> templatePaths_;
  std::vector<SettingsSheet> sheets_;
  int shownSheet_ = 0;
  std::array<ControlPoint, 2> controlPoints_;
  std::unique_ptr<TINIFile> file_;  // null until a file is loaded
};

}  // namespace ardenix::survey

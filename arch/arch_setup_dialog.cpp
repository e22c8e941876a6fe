#include "arch/arch_setup_dialog.h"

#include "arch/arch_commands.h"
#include "arch/building_standard_dialog.h"
#include "arch/spec_file.h"
#include "arch/symbol_folder.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr int kSetupPathLimit = 259;

// What a chooser starts at.
std::string startOf(const std::string& shown) { return shown == kNoPath ? std::string() : shown; }

}  // namespace

ArchSetupDialog::ArchSetupDialog(ArchToolset& toolset) : toolset_(toolset) {
  if (!toolset_.isOpen()) { openStore(); }
  equip(dialog_, toolset_.services(), helpTopic("Architectural Setup"));
  describe();
  dialog_.onOpen = [this] { showPaths(); };
  dialog_.onOk = [this] { return confirm(); };
}

void ArchSetupDialog::describe() {
  const int paths = dialog_.addGroup({.place = {.row = 0}});
  const auto browse = [&](std::string name, std::string toolTip, int row) {
    return addButton(dialog_, {.caption = "...",
                               .toolTip = std::move(toolTip),
                               .group = paths,
                               .place = {.row = row, .column = 1},
                               .name = std::move(name)});
  };
  file_ = addText(dialog_,
                  {.caption = "Initialization file path",
                   .toolTip = "The file that holds the settings and libraries of the architectural commands",
                   .group = paths},
                  kSetupPathLimit);
  browse("Browse file", "Browse for an architectural specification file", 0).onPress([this] { browseFile(); });
  symbols_ = addText(dialog_,
                     {.caption = "Symbol file path",
                      .toolTip = "The folder of the window, door and other symbols",
                      .group = paths,
                      .place = {.row = 1}},
                     kSetupPathLimit);
  browse("Browse folder", "Browse for the folder of the symbols", 1).onPress([this] { browseFolder(); });
  const int standards = dialog_.addGroup({.place = {.row = 1}});
  addLabel(dialog_, {.group = standards}, "Set building standards");
  addButton(dialog_, {.caption = "&Set",
                      .toolTip = "Choose and edit the building standards",
                      .group = standards,
                      .place = {.column = 1}})
      .onPress([this] { setStandards(); });
  addOkCancel(dialog_, 2);
}

bool ArchSetupDialog::run() { return toolset_.services().mainFrame->RunDialog(dialog_, toolset_.services().mainFrame); }

void ArchSetupDialog::openStore() {
  const std::string remembered = rememberedSpecFile();
  if (remembered != kNoPath && coreFileExist(remembered) != 0) {
    openReadable(remembered);
  } else if (coreFileExist(defaultSpecFile()) != 0) {
    openReadable(defaultSpecFile());
  }
}

// A file that cannot be read must not keep the user from choosing another.
bool ArchSetupDialog::openReadable(const std::string& path) {
  try {
    toolset_.open(path);
  } catch (const HostFailure& failure) {
    ErrorMessage(failure.what(), toolset_.services().mainFrame);
    return false;
  }
  return true;
}

void ArchSetupDialog::showPaths() {
  const std::string file = rememberedSpecFile();
  file_.setText(isSpecFile(file) ? file : std::string(kNoPath));
  const std::string folder = toolset_.isOpen() ? rememberedSymbolFolder(toolset_.store()) : std::string(kNoPath);
  symbols_.setText(folderExists(folder) ? folder : std::string(kNoPath));
}

void ArchSetupDialog::browseFile() {
  std::string path;
  if (coreChooseFile(&dialog_, true, "Architectural Specs (*.ini)|*.ini||", "ini", startOf(file_.text()), path) != 0) {
    file_.setText(path);
  }
}

void ArchSetupDialog::browseFolder() {
  std::string folder;
  if (coreGetFolder(&dialog_, "Select Symbol Folder", startOf(symbols_.text()), folder) != 0) {
    symbols_.setText(folder);
  }
}

void ArchSetupDialog::setStandards() {
  const auto path = resolveSpecFile(&dialog_);
  if (!path || (!toolset_.isOpen() && !openReadable(*path))) { return; }
  BuildingStandard standard(toolset_.store(), &dialog_);
  BuildingStandardDialog(toolset_.services(), toolset_.store(), standard).run(&dialog_);
}

bool ArchSetupDialog::confirm() {
  rememberSpecFile(file_.text());
  if (!toolset_.isOpen() && isSpecFile(file_.text()) && !openReadable(file_.text())) { return false; }
  if (toolset_.isOpen()) { writeSymbolFolder(); }
  return true;
}

// A folder that was out of reach when the dialog opened is not forgotten for that.
void ArchSetupDialog::writeSymbolFolder() {
  if (symbols_.text() == kNoPath) { return; }
  rememberSymbolFolder(toolset_.store(), symbols_.text());
}

void displayArchSetup(ArchToolset& toolset) {
  if (ArchSetupDialog(toolset).run()) { placeSymbols(toolset); }
}

}  // namespace ardenix::arch

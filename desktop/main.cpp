#include <QCommandLineParser>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>
#include <filesystem>

#include "desktop/application.h"
#include "desktop/main_window.h"
#include "desktop/texts.h"
#include "frame/host/ini.h"
#include "host/core/standard_streams.h"
#include "host/window/module.h"

namespace {

using namespace brevan;

// What a first start finds: the libraries and settings that ship.
void writeFirstSettings(const std::string& file, const std::string& module) {
  if (std::filesystem::exists(file)) { return; }
  INI_LIST settings(settingsPath(file));
  addFirstSettings(Module(module).commands(), settings);
  settings.Save();
}

DesktopParts partsOf(const QCommandLineParser& line) {
  DesktopParts parts;
  parts.places = findPlaces(line.value("data").toStdString());
  parts.settingsFile =
      line.isSet("settings") ? QFileInfo(line.value("settings")).absoluteFilePath().toStdString() : userSettingsFile();
  const std::string beside = std::filesystem::path(parts.settingsFile).parent_path().string();
  std::filesystem::create_directories(beside);
  writeFirstSettings(parts.settingsFile, parts.places.module);
  parts.recoveryFolder = beside + "/recovery";
  parts.helpFolder = parts.places.dataFolder + "/Help";  // as it ships, not as it was when a copy was made
  if (!line.isSet("data")) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/brevan";
    parts.places.dataFolder = ownData(parts.places.dataFolder, folder.toStdString());
  }
  return parts;
}

}  // namespace

int main(int argc, char** argv) {
  fillClosedStreams();
  // Answers that need no display.
  for (int word = 1; word < argc; ++word) {
    const QString option = argv[word];
    if (option == "--version" || option == "-v" || option == "--help" || option == "-h") {
      qputenv("QT_QPA_PLATFORM", "offscreen");
    }
  }
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  Application application(argc, argv);
  QApplication::setApplicationName("brevan");
  QApplication::setApplicationDisplayName("Brevan");
  QApplication::setApplicationVersion(BREVAN_VERSION);
  QApplication::setDesktopFileName("brevan");
  QCommandLineParser line;
  line.setApplicationDescription(QCoreApplication::translate("brevan", "Draws with parametric drafting commands."));
  line.addHelpOption();
  line.addVersionOption();
  line.addOption(
      {"data", QCoreApplication::translate("brevan", "The folder of libraries, symbols and templates."), "folder"});
  line.addOption(
      {"settings", QCoreApplication::translate("brevan", "The settings file, in place of your own."), "file"});
  line.addPositionalArgument("drawings", QCoreApplication::translate("brevan", "Drawings to open."), "[drawings...]");
  line.process(application);
  try {
    MainWindow window(partsOf(line));
    window.show();
    window.offerRecovery();
    for (const QString& path : line.positionalArguments()) { window.openFile(path); }
    return QApplication::exec();
  } catch (const std::exception& failure) {
    QMessageBox::critical(nullptr, "Brevan", shown(failure.what()));
    return 1;
  }
}

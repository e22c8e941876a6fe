#include "batch/script_runs.h"

#include <filesystem>
#include <iostream>
#include <memory>

#include "batch/exit_codes.h"
#include "batch/signals.h"
#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/scripts/script_player.h"
#include "render/exporters.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

constexpr size_t kMostScriptBytes = size_t{64} << 20;
constexpr size_t kMostSettingsBytes = size_t{16} << 20;

std::string readInput(const std::string& path, size_t limit) {
  try {
    return readWhole(path, limit);
  } catch (const HostFailure& failure) { throw InputUnread(failure.what()); }
}

// Without a file a run starts from built-in settings and keeps none.
std::unique_ptr<INI_LIST> settingsFor(const RunOptions& options) {
  if (options.settings.empty()) { return std::make_unique<INI_LIST>(""); }
  readInput(options.settings, kMostSettingsBytes);  // a missing one is the user's mistake, not an empty one
  const auto name = toWindows1252(fs::absolute(options.settings).string());
  if (!name) { throw InputUnread("the settings file's path holds a character that Windows-1252 lacks"); }
  return std::make_unique<INI_LIST>(*name);
}

void playScript(const std::string& path, const RunOptions& options, const Places& places, Transcript* transcript) {
  const Script script = readScript(path, readInput(path, kMostScriptBytes));
  FileServices::Confinement confinement{
      options.outputFolder, [](const std::string& line) { std::cerr << line << '\n'; }, options.readFolders};
  FileServices files(fs::absolute(path).parent_path().string(), places.dataFolder, std::move(confinement));
  const auto settings = settingsFor(options);
  const std::string title = fs::path(path).stem().string();
  PlayerParts parts{files,
                    *settings,
                    exporters(title),
                    places.module,
                    places.helpFile,
                    transcript,
                    [&path](const std::string& text) { std::cerr << path << ": " << text << '\n'; },
                    stopIfInterrupted};
  ScriptPlayer(script, parts).play();
}

void saveTranscript(const RunOptions& options, const Transcript& transcript) {
  if (options.transcript.empty()) { return; }
  try {
    saveWhole(options.transcript, transcript.lines());
  } catch (const HostFailure& failure) { throw OutputUnwritten(failure.what()); }
}

}  // namespace

void runScripts(const RunOptions& options, const Places& places) {
  std::error_code failed;
  fs::create_directories(options.outputFolder, failed);
  if (failed) { throw OutputUnwritten("the folder \"" + options.outputFolder + "\": " + failed.message()); }
  Transcript transcript;
  try {
    for (const std::string& script : options.scripts) {
      playScript(script, options, places, options.transcript.empty() ? nullptr : &transcript);
    }
  } catch (...) {
    saveTranscript(options, transcript);
    throw;
  }
  saveTranscript(options, transcript);
}

}  // namespace brevan

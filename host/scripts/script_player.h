#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/core/file_services.h"
#include "host/files/export_options.h"
#include "host/scripts/script_user.h"
#include "host/scripts/transcript.h"
#include "host/window/host.h"

namespace brevan {

// Writes a drawing in one format; `dpi` counts for pictures only.
using Exporter = std::function<std::string(const Drawing& drawing, const ExportOptions& options)>;

// What a script is played with.
struct PlayerParts {
  FileServices& files;  // confined to the output folder, based on the script's folder
  INI_LIST& settings;
  std::map<std::string, Exporter, std::less<>> exporters;  // by ending: "dxf", ...
  std::string modulePath;                                  // empty: no commands
  std::string helpFile;
  Transcript* transcript = nullptr;
  std::function<void(const std::string& text)> report;  // messages and statuses in passing, UTF-8
  std::function<void()> checkStop;
  uint64_t mostDrawn = kMostDrawn;

  // Primitives that a script may draw, change and load, in all its windows together; more would fill the memory.
  static constexpr uint64_t kMostDrawn = 10'000'000;
};

// Plays a script from its first statement to its last. A statement that fails throws ScriptFailure with
// file and line; nothing after it is played or written.
class ScriptPlayer {
 public:
  ScriptPlayer(const Script& script, const PlayerParts& parts);

  void play();
  [[nodiscard]] Host& host() { return host_; }

 private:
  struct StatementRow;
  static const std::vector<StatementRow>& rows();
  void playOne(const Statement& statement);
  void checkBudget();

  void setSetting(const Statement& statement);
  void forgetSettings(const Statement& statement);
  void setParameter(const Statement& statement);
  void setTextStyle(const Statement& statement);
  void setDimensionStyle(const Statement& statement);
  void openNew(const Statement& statement);
  void openFile(const Statement& statement);
  void refuseTakenName(const Statement& statement, const std::string& name);
  void goToWindow(const Statement& statement);
  void closeWindow(const Statement& statement);
  void setSheet(const Statement& statement);
  void setView(const Statement& statement);
  void setLayer(const Statement& statement);
  void setLayerState(const Statement& statement);
  void setStyle(const Statement& statement);
  void draw(const Statement& statement);
  void setSelection(const Statement& statement);
  void runMacro(const Statement& statement);
  void readVariable(const Statement& statement);
  void runTool(const Statement& statement);
  void runCommand(const Statement& statement);
  void browse(const Statement& statement);
  void undo(const Statement& statement);
  void redo(const Statement& statement);
  void save(const Statement& statement);
  void exportDrawing(const Statement& statement);

  void write(const Statement& statement, const std::string& path, const std::string& bytes);

  ScriptCursor cursor_;
  ScriptUser user_;
  PlayerParts parts_;
  std::map<std::string, std::string> written_;  // what this script wrote: the path it gave, the file
  Host host_;
};

}  // namespace brevan

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "fuzz/every_control.h"
#include "fuzz/json_check.h"
#include "fuzz/laws.h"
#include "host/core/file_services.h"
#include "host/scripts/script_player.h"

// The first byte chooses: a whole script is played, or the rest answers a command's prompts and a dialog with every
// kind of control. Whatever the script says, it ends well or with a failure that names file and line, and every
// line of the transcript is JSON.
namespace {

using fuzzing::require;
using namespace brevan;

void checkFailure(const ScriptFailure& failure) { require(std::string_view(failure.what()).starts_with("fuzz.scr:")); }

void checkTranscript(const Transcript& transcript) {
  for (std::string_view lines = transcript.lines(); !lines.empty();) {
    const size_t end = lines.find('\n');
    require(JsonCheck::valid(lines.substr(0, end)));
    lines.remove_prefix(end + 1);
  }
}

// Playing stops after so many questions and statements: repeated copies grow without end.
std::function<void()> budget() {
  return [left = 60]() mutable {
    if (--left == 0) { throw HostFailure("enough"); }
  };
}

bool repeatsTooOften(const Script& script) {
  for (const Statement& statement : script.statements) {
    if (statement.rest.find("epeat") != std::string::npos || statement.rest.find("EPEAT") != std::string::npos) {
      return true;
    }
  }
  return false;
}

void playWhole(const Script& script, FileServices& files, Transcript& transcript) {
  INI_LIST settings("");
  ScriptPlayer player(script, PlayerParts{files, settings, {}, "", "", &transcript, {}, budget()});
  player.play();
}

void answer(const Script& script, FileServices& files, Transcript& transcript) {
  INI_LIST settings("");
  ScriptCursor cursor(script);
  ScriptUser user(cursor, &transcript);
  Host host({user, files, settings, &transcript, ""});
  EveryControl every;
  host.window().beginCommand("fuzz");
  double x = 0.0;
  double y = 0.0;
  std::string text = "default";
  host.mainFrame().RunDialog(every.dialog, nullptr);
  host.window().gsGetPointFromUser("Where", x, y);
  host.window().gsGetTextFromPromptBar("What", text, 0);
  host.window().gsSubMenu("&One,Two");
  InfoMessage("Done.", nullptr);
  host.window().gsReply("Again?");
  coreChooseFile(nullptr, true, "All|*.*||", "", "", text);
  host.window().endCommand(true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) { return 0; }
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  Transcript transcript;
  FileServices files("/nonexistent", "/nonexistent");
  try {
    const Script script = readScript("fuzz.scr", text);
    if (repeatsTooOften(script)) { return 0; }
    (data[0] % 2 == 0 ? playWhole : answer)(script, files, transcript);
  } catch (const ScriptFailure& failure) {
    checkFailure(failure);
  } catch (const HostFailure&) { /* the budget, or a path that leads nowhere */
  }
  checkTranscript(transcript);
  return 0;
}

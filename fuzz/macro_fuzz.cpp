#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "frame/host/macro_quote.h"
#include "fuzz/laws.h"
#include "host/core/file_services.h"
#include "host/files/json_writer.h"
#include "host/macros/command.h"
#include "host/scripts/script_user.h"
#include "host/window/host.h"

// Each line is a macro command for a small drawing. A command that fails must leave the drawing byte for byte, and
// undoing everything must bring the first drawing back and doing it again the last one; any line must survive its own
// quoting.
namespace {

using fuzzing::require;

constexpr double kMostCopies = 20.0;  // more proves nothing and takes the fuzzer's time

bool tooLong(std::string_view line) {
  try {
    const brevan::MacroLine command = brevan::readMacroLine(line);
    return command.word == "REPEAT" && !command.arguments.empty() && command.arguments[0].number > kMostCopies &&
           command.arguments[0].number < 1e8;
  } catch (const brevan::MacroError&) { return false; }
}

void surviveQuoting(std::string_view text) {
  const brevan::MacroLine line = brevan::readMacroLine("SELECTNAME " + quotedForMacro(text));
  require(line.arguments.size() == 1 && line.arguments[0].text == text);
}

void drawStart(brevan::Host& host) {
  host.variables().setNumber("Q1", 45.0);
  host.variables().setText("N$", "BOLTS M10");
  brevan::executeMacro(host.window(), host.variables(), "PARENT \"BOLTS\"");
  brevan::executeMacro(host.window(), host.variables(), "BEGINGROUP \"M10\"");
  brevan::executeMacro(host.window(), host.variables(), "SELECTNEW 1");
  host.window().addDrawn({.geometry = brevan::Line{{0, 0}, {10, 0}}});
  host.window().addDrawn({.geometry = brevan::Arc{{10, 0}, {5, 0}, {0, 0}}});
  host.window().addDrawn({.geometry = brevan::Text{{3, 4}, "M10"}});
}

void execute(brevan::Host& host, std::string_view line) {
  const std::string before = drawingJson(host.window().drawing());
  try {
    brevan::executeMacro(host.window(), host.variables(), line);
  } catch (const brevan::MacroError& error) {
    require(error.column() >= 1 && error.column() <= line.size() + 1);
    require(drawingJson(host.window().drawing()) == before);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostLines = 30;
  constexpr size_t kMostPrimitives = 2000;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  brevan::FileServices files("/nonexistent", "/nonexistent");
  INI_LIST settings("");
  const brevan::Script nothing = brevan::readScript("none", "");
  brevan::ScriptCursor cursor(nothing);
  brevan::ScriptUser user(cursor, nullptr);
  brevan::Host host({user, files, settings, nullptr, ""});
  const std::string empty = drawingJson(host.window().drawing());
  drawStart(host);
  for (size_t line = 0; line < kMostLines && !text.empty(); ++line) {
    const std::string_view command = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(command.size() + 1, text.size()));
    surviveQuoting(command);
    if (tooLong(command) || host.window().drawing().count() > kMostPrimitives) { continue; }
    execute(host, command);
  }
  host.window().setUndoBracket(false);
  const std::string drawn = drawingJson(host.window().drawing());
  while (host.window().drawing().undo()) {}
  require(drawingJson(host.window().drawing()) == empty);
  while (host.window().drawing().redo()) {}
  require(drawingJson(host.window().drawing()) == drawn);
  return 0;
}

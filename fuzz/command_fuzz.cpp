#include <string>
#include <string_view>
#include <vector>

#include "frame/entry/module_state.h"
#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/byte_user.h"
#include "fuzz/laws.h"
#include "fuzz/scratch_folder.h"
#include "host/core/file_services.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"
#include "host/files/symbol_text.h"
#include "host/window/host.h"

// Commands run on the files that ship, answered by the input's bytes: points, texts, menus, whatever a dialog takes.
// A command ends well or with a failure after which the drawing is as before; what it draws is finite; undoing brings
// the first drawing back.
namespace {

using namespace fuzzing;

std::string fileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Without the records after the third of a list, which take time and prove nothing more.
std::string shortened(const std::string& library) {
  std::string kept;
  for (size_t at = 0; at < library.size();) {
    const size_t end = std::min(library.find('\n', at), library.size() - 1) + 1;
    const std::string_view line = std::string_view(library).substr(at, end - at);
    const std::string_view key = line.substr(0, line.find('='));
    const size_t digits = key.find_last_not_of("0123456789") + 1;
    const bool numbered = digits > 0 && digits < key.size() && key.size() < line.size();
    if (!numbered || key.substr(digits) <= "3") { kept += line; }
    at = end;
  }
  return kept;
}

// What commands read; made once.
class Shelf {
 public:
  Shelf() {
    const std::string data(SOURCE_DATA);
    const auto library = [this, &data](const std::string& name) {
      if (std::filesystem::exists(path() + '/' + name)) { return; }
      write(name, shortened(fileText(data + '/' + name)));
    };
    for (const CommandRow& command : brevan::Module("").commands()) {
      for (const FirstSetting& setting : command.settings) { library(setting.value); }
    }
    library("Control Points.ini");
    brevan::Drawing title;
    title.add({.geometry = brevan::Line{{-95, -138.5}, {95, 138.5}}});
    title.add({.geometry = brevan::Text{{-90, 130}, "SIDES", "Arial", 25.0}});
    for (const char* name : {"Survey/SG Diagram Title.drg", "Survey/General Plan Title.drg"}) {
      write(name, brevan::drawingDrg(title));
    }
    write("Symbols/SurveySymbols.drg", brevan::drawingDrg(brevan::openSymbolText(data + "/symbols/SurveySymbols.sym")));
  }
  void write(const std::string& name, std::string_view bytes) { names_.push_back(folder_.write(name, bytes)); }
  [[nodiscard]] const std::vector<std::string>& names() const { return names_; }
  [[nodiscard]] const std::string& path() const { return folder_.path(); }

 private:
  ScratchFolder folder_;
  std::vector<std::string> names_;
};

// A figure to trace and to draw walls along; of a survey, in metres at 1:500.
void drawStart(brevan::Drawing& drawing, bool survey) {
  if (survey) {
    brevan::Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(0);
    parameters.setOrientation(1);
    drawing.setParameters(parameters);
  }
  const brevan::Point corners[] = {{0, 0}, {50, 0}, {50, 30}, {0, 30}};
  for (size_t n = 0; n < 4; ++n) { drawing.add({.geometry = brevan::Line{corners[n], corners[(n + 1) % 4]}}); }
  drawing.add({.geometry = brevan::Arc{{100, 0}, {90, 0}, {90, 10}}});
}

void run(brevan::Host& host, const CommandRow& command) {
  brevan::DrawingWindow& window = host.window();
  const std::string before = drawingJson(window.drawing());
  try {
    host.runCommand(command.name);
  } catch (const HostFailure&) { require(drawingJson(window.drawing()) == before); }
  for (const std::string& name : host.windowNames()) {
    host.goToWindow(name);
    requireSound(host.window().drawing());
  }
  host.goToWindow(window.name());
}

void play(ByteChoices& choices, const Shelf& shelf, const std::string& output) {
  constexpr int kMostCommands = 3;
  INI_LIST settings("");
  brevan::FileServices files(shelf.path(), shelf.path(), brevan::FileServices::Confinement{output, nullptr});
  ByteUser user(choices, shelf.names());
  brevan::Host host({user, files, settings, nullptr, ""});
  host.loadModule("");  // this program
  brevan::addFirstSettings(host.module()->commands(), settings);
  const auto commands = host.module()->commands();
  const CommandRow* command = &commands[choices.below(commands.size())];
  drawStart(host.window().drawing(), command->family == CommandFamily::kSurvey);
  const std::string start = drawingJson(host.window().drawing());
  for (int n = 0; n < kMostCommands && (n == 0 || !choices.done()); ++n) {
    run(host, *command);
    command = &commands[choices.below(commands.size())];
  }
  ardenix::moduleState().unload();
  bool restored = drawingJson(host.window().drawing()) == start;
  while (!restored && host.window().drawing().undo()) { restored = drawingJson(host.window().drawing()) == start; }
  require(restored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Shelf shelf;
  static const ScratchFolder output;
  ByteChoices choices(data, size);
  play(choices, shelf, output.path());
  output.empty();
  return 0;
}

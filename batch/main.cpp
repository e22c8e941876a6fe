#include <CLI/CLI.hpp>
#include <array>
#include <cerrno>
#include <iostream>

#include "batch/conversion.h"
#include "batch/descriptions.h"
#include "batch/exit_codes.h"
#include "batch/outlines.h"
#include "batch/script_runs.h"
#include "batch/signals.h"
#include "frame/host/core_services.h"
#include "host/core/installation.h"
#include "host/core/standard_streams.h"
#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"
#include "host/files/drawing_files.h"
#include "host/scripts/script_syntax.h"

namespace {

struct CommandLine {
  CLI::App app{"Plays drawing scripts without a window; lists and describes the commands."};
  CLI::App* run = nullptr;
  CLI::App* commands = nullptr;
  CLI::App* describe = nullptr;
  CLI::App* convert = nullptr;
  CLI::App* outline = nullptr;
  brevan::CutRequest cut;
  std::string from;
  std::string to;
  brevan::RunOptions runOptions;
  std::string dataFolder;
  std::string command;
  bool userSettings = false;

  brevan::ExportOptions exportOptions;

  void addExportOptions() {
    for (const brevan::ExportOptionText& row : brevan::exportOptionTexts()) {
      const auto set = [this, row](const std::string& value) {
        try {
          brevan::setExportOption(exportOptions, row.name, value);
        } catch (const HostFailure& failure) { throw CLI::ValidationError(brevan::toUtf8(failure.what())); }
      };
      convert->add_option_function<std::string>("--" + std::string(row.name), set, std::string(row.help))
          ->option_text(std::string(row.value));
    }
  }

  void addOutline() {
    outline = app.add_subcommand("outline", "Writes the closed outlines of parts alone, as a machine cuts them");
    outline->add_option("FILE", cut.from, "A .drg or .dxf file")->required()->check(brevan::checkConvertibleFrom);
    CLI::Option* groups =
        outline->add_option("--group", cut.groups, "A part by the name of its group (default: every part)");
    groups->option_text("NAME")->allow_extra_args(false);
    outline
        ->add_option_function<std::pair<double, double>>(
            "--at",
            [this](const auto& at) {
              cut.at = {at.first, at.second};
            },
            "The outer outline of the figure at a point, instead of parts")
        ->option_text("X Y")
        ->excludes(groups);
    outline->add_option("-o", cut.to, "The .dxf file to write")
        ->required()
        ->option_text("FILE")
        ->check([](const std::string& path) {
          return brevan::fileEnding(path) == "dxf" ? "" : "outline writes .dxf files, got \"" + path + "\"";
        });
  }

  CommandLine() {
    app.set_version_flag("--version", "brevan-batch " BREVAN_VERSION);
    app.add_option("--data", dataFolder, "The folder of libraries, symbols and templates");
    app.require_subcommand(1);
    run = app.add_subcommand("run", "Plays scripts, one after another");
    run->add_option("SCRIPT", runOptions.scripts, "Script files")->required();
    run->add_option("-o", runOptions.outputFolder, "Where everything is written below (default: the current folder)")
        ->option_text("DIR");
    run->add_option("--transcript", runOptions.transcript, "Writes down what happens, JSON lines")->option_text("FILE");
    run->add_option("--settings", runOptions.settings, "Host settings to start from")->option_text("FILE");
    run->add_flag("--user-settings", userSettings, "Start from your own settings, those of the desktop")
        ->excludes(run->get_option("--settings"));
    run->add_option("--allow-read", runOptions.readFolders,
                    "A folder besides its own from which a script may open files")
        ->option_text("DIR")
        ->check(CLI::ExistingDirectory)
        ->allow_extra_args(false);
    convert = app.add_subcommand("convert", "Converts a drawing by the endings of the files");
    convert->add_option("IN", from, "A .drg or .dxf file, or symbols as text (.sym)")
        ->required()
        ->check(brevan::checkConvertibleFrom);
    convert->add_option("OUT", to, "A .drg, .dxf, .svg, .pdf, .png or .json file")
        ->required()
        ->check(brevan::checkConvertibleTo);
    addExportOptions();
    addOutline();
    commands = app.add_subcommand("commands", "Lists every command of the module");
    describe = app.add_subcommand("describe", "Describes the dialogs of a command");
    describe->add_option("COMMAND", command, "The command's name")->required();
  }
};

// What the program cannot begin without.
template <class Function>
auto inputs(const Function& find) {
  try {
    return find();
  } catch (const HostFailure& failure) { throw brevan::InputUnread(failure.what()); }
}

// A full disk or a closed stream is no success.
void finishPrinting() {
  if (!std::cout.flush()) {
    throw brevan::OutputUnwritten("cannot write to the standard output: " + brevan::systemReason(errno));
  }
}

void print(const std::string& text) {
  std::cout << text;
  finishPrinting();
}

void execute(const CommandLine& line) {
  if (line.convert->parsed() || line.outline->parsed() || line.run->parsed()) {
    brevan::outliveClosedPipes();
    brevan::endSoonAtSignals();
  }
  if (line.convert->parsed()) {
    brevan::convertDrawing(line.from, line.to, line.exportOptions);
    return;
  }
  if (line.outline->parsed()) { return brevan::writeOutlines(line.cut); }
  const brevan::Places places = inputs([&line] { return brevan::findPlaces(line.dataFolder); });
  if (line.run->parsed()) {
    brevan::RunOptions options = line.runOptions;
    if (line.userSettings) {
      options.settings = inputs([] { return brevan::userSettingsFile(); });
    }
    brevan::runScripts(options, places);
  }
  if (line.commands->parsed()) { print(brevan::commandList(places)); }
  if (line.describe->parsed()) { print(brevan::commandDescription(line.command, places)); }
}

int report(std::string_view what, int code) {
  std::cerr << what << '\n';
  return code;
}

int runProgram(int argc, char** argv) {
  using namespace brevan;
  CommandLine line;
  try {
    try {
      line.app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      const int code = line.app.exit(error);
      finishPrinting();
      return code == 0 ? kDone : kWrongUsage;
    }
    catchSignals();
    execute(line);
    return kDone;
  } catch (const Interrupted& interrupted) {
    std::cerr << kStopped;
    return kSignalBase + interrupted.signal;
  } catch (const InputUnread& failure) {
    return report(failure.what(), kInputUnread);
  } catch (const OutputUnwritten& failure) {
    return report(failure.what(), kOutputUnwritten);
  } catch (const brevan::ScriptOutputFailure& failure) {
    return report(failure.what(), kOutputUnwritten);
  } catch (const std::bad_alloc&) {
    return report("there is not enough memory", kFailed);
  } catch (const std::exception& failure) { return report(failure.what(), kFailed); }
}

}  // namespace

int main(int argc, char** argv) {
  brevan::fillClosedStreams();
  try {
    return runProgram(argc, argv);
  } catch (...) {
    return brevan::kFailed;  // not even a message could be written
  }
}

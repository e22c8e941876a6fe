#include "host/scripts/script_player.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/ini_file.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/files/drawing_files.h"
#include "host/files/drg_writer.h"
#include "host/macros/lexer.h"
#include "host/macros/macro_drawing.h"
#include "host/scripts/item_ranges.h"
#include "host/scripts/plain_primitives.h"
#include "host/tools/drawing_tools.h"
#include "host/window/dialog_operations.h"

namespace brevan {

namespace fs = std::filesystem;

struct ScriptPlayer::StatementRow {
  std::string_view name;
  size_t least;  // words, the name included
  size_t most;
  void (ScriptPlayer::*play)(const Statement&);
};

const std::vector<ScriptPlayer::StatementRow>& ScriptPlayer::rows() {
  static const std::vector<StatementRow> kRows = {
      {"setting", 4, 4, &ScriptPlayer::setSetting},
      {"settings", 2, 2, &ScriptPlayer::forgetSettings},
      {"parameter", 3, 3, &ScriptPlayer::setParameter},
      {"textstyle", 6, 6, &ScriptPlayer::setTextStyle},
      {"dimstyle", 2, 2, &ScriptPlayer::setDimensionStyle},
      {"new", 1, 2, &ScriptPlayer::openNew},
      {"open", 2, 3, &ScriptPlayer::openFile},
      {"window", 2, 2, &ScriptPlayer::goToWindow},
      {"closewindow", 2, 2, &ScriptPlayer::closeWindow},
      {"sheet", 3, 5, &ScriptPlayer::setSheet},
      {"view", 3, 3, &ScriptPlayer::setView},
      {"layer", 2, 2, &ScriptPlayer::setLayer},
      {"layerstate", 4, 4, &ScriptPlayer::setLayerState},
      {"style", 4, 4, &ScriptPlayer::setStyle},
      {"draw", 2, 12, &ScriptPlayer::draw},
      {"selection", 1, kAnyNumberOfWords, &ScriptPlayer::setSelection},
      {"macro", 1, 2, &ScriptPlayer::runMacro},
      {"tool", 2, 2, &ScriptPlayer::runTool},
      {"read", 2, 2, &ScriptPlayer::readVariable},
      {"run", 2, 2, &ScriptPlayer::runCommand},
      {"browse", 2, 2, &ScriptPlayer::browse},
      {"undo", 1, 1, &ScriptPlayer::undo},
      {"redo", 1, 1, &ScriptPlayer::redo},
      {"save", 2, 2, &ScriptPlayer::save},
      {"export", 2, 16, &ScriptPlayer::exportDrawing},
  };
  return kRows;
}

namespace {

constexpr std::array<std::string_view, 13> kPlainAnswers = {
    "point", "space", "escape", "key", "back", "text", "accept", "menu", "reply", "file", "cancel", "pen", "dialog"};

bool isAnswer(std::string_view name) {
  return operationNamed(name) != nullptr ||
         std::find(kPlainAnswers.begin(), kPlainAnswers.end(), name) != kPlainAnswers.end();
}

}  // namespace

ScriptPlayer::ScriptPlayer(const Script& script, const PlayerParts& parts)
    : cursor_(script),
      user_(cursor_, parts.transcript),
      parts_(parts),
      host_(HostParts{user_, parts.files, parts.settings, parts.transcript, parts.helpFile}) {
  user_.report = parts_.report;
  user_.checkStop = [this] {
    if (parts_.checkStop) { parts_.checkStop(); }
    checkBudget();
  };
  if (!parts_.modulePath.empty()) { host_.loadModule(parts_.modulePath); }
}

void ScriptPlayer::play() {
  while (cursor_.peek() != nullptr) {
    if (parts_.checkStop) { parts_.checkStop(); }
    const Statement& statement = cursor_.take();
    try {
      playOne(statement);
      checkBudget();
    } catch (const ScriptFailure&) { throw; } catch (const HostFailure& failure) {
      cursor_.fail(statement, messageText(toUtf8(failure.what())));
    } catch (const MacroError& error) {
      cursor_.fail(statement, "column " + std::to_string(error.column()) + ": " + toUtf8(error.what()));
    } catch (const RefusedChange& refused) {
      cursor_.fail(statement, toUtf8(refused.what()));
    } catch (const std::bad_alloc&) {
      cursor_.fail(statement, "there is not enough memory");
    } catch (const std::exception& failure) { cursor_.fail(statement, toUtf8(failure.what())); }
  }
  user_.noteProgress();
}

void ScriptPlayer::checkBudget() {
  if (host_.taken() > parts_.mostDrawn) {
    throw HostFailure("a script draws and changes at most " + std::to_string(parts_.mostDrawn) + " primitives");
  }
}

void ScriptPlayer::playOne(const Statement& statement) {
  if (statement.name() == "expect") {
    user_.expectNow(statement, nullptr, nullptr);
    return;
  }
  user_.noteProgress();
  for (const StatementRow& row : rows()) {
    if (row.name != statement.name()) { continue; }
    cursor_.expectWords(statement, row.least, row.most);
    (this->*row.play)(statement);
    return;
  }
  if (isAnswer(statement.name())) {
    cursor_.fail(statement, "no command waits for an answer, the script gave: " + statement.shown());
  }
  cursor_.fail(statement, "there is no statement \"" + toUtf8(statement.name()) + '"');
}

// ---- Settings and windows ----------------------------------------------------------------------------------

void ScriptPlayer::setSetting(const Statement& statement) {
  parts_.settings.SetString(cursor_.string(statement, 1), cursor_.string(statement, 2), cursor_.string(statement, 3));
}

void ScriptPlayer::forgetSettings(const Statement& statement) {
  const std::string& which = cursor_.string(statement, 1);
  if (which != "none") { cursor_.fail(statement, "settings expects none, got \"" + toUtf8(which) + '"'); }
  std::vector<std::string> sections;
  for (const INI_LINE* line = parts_.settings.First(); line != nullptr; line = line->Next()) {
    if (const auto heading = headingName(line->Text())) { sections.emplace_back(*heading); }
  }
  for (const std::string& section : sections) { parts_.settings.EraseSection(section); }
}

void ScriptPlayer::setParameter(const Statement& statement) {
  const std::string& name = cursor_.string(statement, 1);
  const double value = cursor_.number(statement, 2);
  Parameters parameters = host_.window().drawing().parameters();
  const auto oneOf = [&](std::initializer_list<double> allowed) {
    if (std::find(allowed.begin(), allowed.end(), value) == allowed.end()) {
      cursor_.fail(statement, name + " does not take " + numberText::shortest(value));
    }
    return static_cast<int>(value);
  };
  const auto positive = [&] {
    if (value <= 0.0) { cursor_.fail(statement, name + " takes a number above 0"); }
    return value;
  };
  if (name == "scale") {
    parameters.setScale(positive());
  } else if (name == "unit") {
    parameters.setUnit(positive());
  } else if (name == "coordinateSystem") {
    parameters.setCoordinateSystem(oneOf({0, 1}));
  } else if (name == "orientation") {
    parameters.setOrientation(oneOf({0, 1}));
  } else if (name == "areaUnit") {
    parameters.setAreaUnit(cursor_.integer(statement, 2));
  } else {
    cursor_.fail(statement, "there is no parameter \"" + toUtf8(name) + '"');
  }
  host_.window().drawing().setParameters(parameters);
}

void ScriptPlayer::setTextStyle(const Statement& statement) {
  TextDefaults& defaults = host_.window().textDefaults();
  const Text checked = textOfStyle(cursor_, statement);
  defaults.font = checked.font;
  defaults.height = checked.height;
  defaults.width = checked.widthFactor;
  defaults.justification = checked.justification;
  defaults.pen = checked.pen;
}

void ScriptPlayer::setDimensionStyle(const Statement& statement) {
  host_.window().gsSetDimDefStyle(cursor_.integer(statement, 1));
}

void ScriptPlayer::openNew(const Statement& statement) {
  const std::string name = statement.words.size() > 1 ? cursor_.string(statement, 1) : host_.freeWindowName();
  refuseTakenName(statement, name);
  host_.openWindow(name);
}

void ScriptPlayer::refuseTakenName(const Statement& statement, const std::string& name) {
  const std::vector<std::string> taken = host_.windowNames();
  if (std::find(taken.begin(), taken.end(), name) != taken.end()) {
    cursor_.fail(statement, "there is a window \"" + toUtf8(name) + "\" already");
  }
}

void ScriptPlayer::openFile(const Statement& statement) {
  const std::string asked = toUtf8(cursor_.string(statement, 1));
  const auto own = written_.find(asked);
  const FileServices::NamedByScript named(parts_.files);
  const std::string path = own != written_.end() ? own->second : parts_.files.resolveForReading(asked);
  const auto name =
      statement.words.size() > 2 ? cursor_.string(statement, 2) : toWindows1252(fs::path(path).stem().string());
  if (!name) { cursor_.fail(statement, "the file's name holds a character that Windows-1252 lacks"); }
  refuseTakenName(statement, *name);
  ReadDrawing read = readDrawing(path);
  if (!read.notRead.empty() && parts_.report) { parts_.report("not read from \"" + path + "\": " + read.notRead); }
  host_.openWindow(*name).setDrawing(std::move(read.drawing));
}

void ScriptPlayer::goToWindow(const Statement& statement) {
  if (host_.goToWindow(cursor_.string(statement, 1)) == nullptr) {
    cursor_.fail(statement, "there is no window \"" + toUtf8(statement.words[1].text) + '"');
  }
}

void ScriptPlayer::closeWindow(const Statement& statement) {
  const std::string current = host_.window().name();
  goToWindow(statement);
  const std::string closed = host_.window().name();
  host_.goToWindow(current);
  host_.closeWindow(closed);
}

void ScriptPlayer::setSheet(const Statement& statement) {
  const std::string& lie = cursor_.string(statement, 2);
  if (lie != "portrait" && lie != "landscape") {
    cursor_.fail(statement, "sheet expects portrait or landscape, got \"" + toUtf8(lie) + '"');
  }
  auto sheet = isoSheet(cursor_.string(statement, 1), lie == "portrait");
  if (!sheet) { cursor_.fail(statement, "sheet expects A0 to A4, got \"" + toUtf8(statement.words[1].text) + '"'); }
  if (statement.words.size() == 4) { cursor_.fail(statement, "sheet expects both coordinates of its corner"); }
  if (statement.words.size() == 5) { sheet->corner = cursor_.point(statement, 3); }
  host_.window().drawing().setSheet(std::move(sheet));
}

void ScriptPlayer::setView(const Statement& statement) { host_.window().setSeen(cursor_.point(statement, 1)); }

// ---- Drawing -----------------------------------------------------------------------------------------------

void ScriptPlayer::setLayer(const Statement& statement) {
  Drawing& drawing = host_.window().drawing();
  drawing.beginStep("Layer");
  Layer layer;
  layer.name = cursor_.string(statement, 1);
  drawing.setCurrentLayer(drawing.addLayer(std::move(layer)));
  drawing.endStep();
}

void ScriptPlayer::setLayerState(const Statement& statement) {
  Drawing& drawing = host_.window().drawing();
  const int index = drawing.layerNamed(cursor_.string(statement, 1));
  if (index < 0) { cursor_.fail(statement, "there is no layer \"" + toUtf8(statement.words[1].text) + '"'); }
  const auto either = [&](size_t word, std::string_view yes, std::string_view no) {
    const std::string& text = statement.words[word].text;
    if (text != yes && text != no) {
      cursor_.fail(statement,
                   "layerstate takes " + std::string(yes) + " or " + std::string(no) + ", got \"" + toUtf8(text) + '"');
    }
    return text == yes;
  };
  Layer layer = *drawing.layer(index);
  layer.visible = either(2, "shown", "hidden");
  layer.locked = either(3, "locked", "unlocked");
  drawing.changeLayer(index, std::move(layer));
}

void ScriptPlayer::setStyle(const Statement& statement) {
  const DrawingStyle style = styleOf(cursor_, statement);
  host_.window().style() = style;
}

void ScriptPlayer::draw(const Statement& statement) {
  DrawingWindow& window = host_.window();
  Geometry geometry = plainGeometry(cursor_, statement, window);
  const auto* symbol = std::get_if<Symbol>(&geometry);
  const std::string name = symbol == nullptr ? "" : symbol->name;
  window.drawing().beginStep("Draw");
  window.addPlain(std::move(geometry));
  if (!name.empty()) { takeSymbol(window, name); }
  window.drawing().endStep();
}

void ScriptPlayer::setSelection(const Statement& statement) {
  Drawing& drawing = host_.window().drawing();
  const std::vector<PrimitiveId> items = itemsOf(cursor_, statement, drawing);
  drawing.clearSelection();
  for (const PrimitiveId id : items) { drawing.select(id); }
}

void ScriptPlayer::runMacro(const Statement& statement) {
  const FileServices::NamedByScript named(parts_.files);
  host_.runMacro(statement.rest);
}

void ScriptPlayer::readVariable(const Statement& statement) {
  const std::string& name = cursor_.string(statement, 1);
  const auto number = host_.variables().number(name);
  if (parts_.transcript != nullptr) {
    parts_.transcript->variableRead(name, number ? &*number : nullptr, host_.variables().text(name));
  }
}

void ScriptPlayer::runCommand(const Statement& statement) { host_.runCommand(cursor_.string(statement, 1)); }

void ScriptPlayer::runTool(const Statement& statement) {
  const std::string& name = cursor_.string(statement, 1);
  const DrawingTool* tool = drawingTool(name);
  if (tool == nullptr) { cursor_.fail(statement, "there is no tool \"" + toUtf8(name) + '"'); }
  host_.runTool(tool->name, tool->run);
}

void ScriptPlayer::browse(const Statement& statement) { host_.browse(toUtf8(cursor_.string(statement, 1))); }

void ScriptPlayer::undo(const Statement& statement) {
  if (!host_.window().drawing().undo()) { cursor_.fail(statement, "there is nothing to undo"); }
}

void ScriptPlayer::redo(const Statement& statement) {
  if (!host_.window().drawing().redo()) { cursor_.fail(statement, "there is nothing to redo"); }
}

// ---- Writing -----------------------------------------------------------------------------------------------

void ScriptPlayer::save(const Statement& statement) {
  const std::string path = toUtf8(cursor_.string(statement, 1));
  if (fileEnding(path) != "drg") {
    cursor_.fail(statement, "save writes files ending in .drg, got \"" + path + "\"; export writes the others");
  }
  write(statement, path, drawingDrg(host_.window().drawing()));
}

void ScriptPlayer::write(const Statement& statement, const std::string& path, const std::string& bytes) {
  const std::string target = parts_.files.resolveForWriting(path);
  std::error_code ignored;
  if (fs::equivalent(target, cursor_.script().file, ignored)) {
    cursor_.fail(statement, "a script does not write over itself");
  }
  fs::create_directories(fs::path(target).parent_path(), ignored);
  try {
    saveWhole(target, bytes);
  } catch (const HostFailure& failure) {
    throw ScriptOutputFailure(cursor_.script().file, statement.line, messageText(toUtf8(failure.what())));
  }
  written_[path] = target;
}

void ScriptPlayer::exportDrawing(const Statement& statement) {
  const std::string path = toUtf8(cursor_.string(statement, 1));
  const auto exporter = parts_.exporters.find(fileEnding(path));
  if (exporter == parts_.exporters.end()) {
    cursor_.fail(statement, "export writes files ending in .dxf, .svg, .pdf, .png or .json, got \"" + path + '"');
  }
  ExportOptions options;
  options.tell = [&](const std::string& text) {
    if (parts_.report) { parts_.report("\"" + path + "\": " + toUtf8(text)); }
  };
  if (statement.words.size() % 2 != 0) {
    cursor_.fail(statement, "export takes options as pairs of a name and a value");
  }
  for (size_t word = 2; word < statement.words.size(); word += 2) {
    setExportOption(options, toUtf8(statement.words[word].text), toUtf8(statement.words[word + 1].text));
  }
  write(statement, path, exporter->second(host_.window().drawing(), options));
}

}  // namespace brevan

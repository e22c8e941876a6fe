#include "desktop/recorder.h"

#include <QFileInfo>

#include "desktop/texts.h"
#include "frame/host/number_text.h"
#include "host/core/settings_entries.h"
#include "host/scripts/dialog_statements.h"
#include "host/window/control_kinds.h"
#include "host/window/drawing_window.h"

namespace brevan {

namespace {

constexpr std::string_view kOwnSection = "Desktop";

QString openStatement(const QString& path, const QString& name) {
  return "open " + scriptString(path) + ' ' + scriptString(name);
}

// From the folder, where the file lies in it or below.
std::optional<QString> pathBelow(const QString& folder, const QString& path) {
  if (folder.isEmpty()) { return std::nullopt; }
  const QString inside = QFileInfo(folder).canonicalFilePath() + '/';
  const QString whole = QFileInfo(path).canonicalFilePath();
  return whole.startsWith(inside) ? std::optional(whole.mid(inside.size())) : std::nullopt;
}

// Hidden and disabled ones hold nothing that counts; those on another page do.
bool counts(dialog::Dialog& dialog, const dialog::Control& control) {
  bool visible = control.visible && control.enabled;
  for (int group = control.group; group > 0;) {
    const dialog::Group& around = dialog.groups()[static_cast<size_t>(group)];
    visible = visible && around.visible;
    group = around.parent;
  }
  return visible;
}

QString written(dialog::Dialog& dialog, const DialogOperation& operation) {
  return "      " + QString::fromStdString(statementOf(operation, dialog));
}

// Each row by its cells that can be edited: what a library put into the others the replay's own put there, too.
void appendCells(QStringList& lines, dialog::Dialog& dialog, int control, const dialog::Grid& grid) {
  const int rows = static_cast<int>(grid.rows.size());
  if (grid.onRowCount) { lines.append(written(dialog, {Verb::kHaveRows, control, rows})); }
  for (int row = 0; row < rows; ++row) {
    DialogOperation operation{Verb::kHaveRow, control, row + 1};
    const std::vector<dialog::Cell>& cells = grid.rows[static_cast<size_t>(row)];
    for (size_t column = 0; column < cells.size(); ++column) {
      if (cells[column].readOnly) { continue; }
      operation.texts.push_back(addressOf(grid.columns[column]));
      operation.texts.push_back(valueOf(cells[column]));
    }
    if (!operation.texts.empty()) { lines.append(written(dialog, operation)); }
  }
}

void appendValue(QStringList& lines, dialog::Dialog& dialog, int control) {
  const dialog::Control& described = dialog.control(control);
  if (!counts(dialog, described)) { return; }
  if (const auto* grid = std::get_if<dialog::Grid>(&described.state)) {
    return appendCells(lines, dialog, control, *grid);
  }
  auto operation = operationThatSets(control, described.state);
  if (!operation || operation->control < 0) { return; }
  operation->verb = Verb::kHave;
  lines.append(written(dialog, *operation));
}

// Where a rule fills a grid anew as the user turns to a page, all pages are turned to.
void appendPages(QStringList& lines, dialog::Dialog& dialog, int tabs) {
  auto& state = dialog.state<dialog::Tabs>(tabs);
  const auto turnTo = [&](int page) {
    state.current = page;
    dialog.control(tabs).onEdit();
  };
  const int shown = state.current;
  for (int page = 0; page < static_cast<int>(state.pages.size()); ++page) {
    if (page == shown) { continue; }
    turnTo(page);
    lines.append(written(dialog, {Verb::kTab, -1, {}, {state.pages[static_cast<size_t>(page)]}}));
    for (int control = tabs + 1; control < static_cast<int>(dialog.controls().size()); ++control) {
      const auto* grid = std::get_if<dialog::Grid>(&dialog.control(control).state);
      if (grid != nullptr) { appendCells(lines, dialog, control, *grid); }
    }
  }
  turnTo(shown);
  lines.append(written(dialog, {Verb::kTab, -1, {}, {state.pages[static_cast<size_t>(shown)]}}));
}

}  // namespace

void Recorder::startFrom(const INI_LIST& settings) {
  lines_.append("settings none");
  for (const SettingEntry& entry : entriesOf(settings)) {
    if (entry.section == kOwnSection) { continue; }
    lines_.append("setting " + scriptString(shown(entry.section)) + ' ' + scriptString(shown(entry.key)) + ' ' +
                  scriptString(shown(entry.value)));
  }
}

QStringList Recorder::values(dialog::Dialog& dialog) {
  QStringList lines;
  for (int control = 0; control < static_cast<int>(dialog.controls().size()); ++control) {
    const dialog::Control& described = dialog.control(control);
    const bool filledByPage = std::holds_alternative<dialog::Tabs>(described.state) && described.onEdit != nullptr;
    if (filledByPage) { appendPages(lines, dialog, control); }
    appendValue(lines, dialog, control);
  }
  return lines;
}

void Recorder::insert(qsizetype place, const QStringList& values) {
  for (const QString& line : values) { lines_.insert(place++, line); }
}

void Recorder::opened(const QString& path, const QString& name) {
  lines_.append(openStatement(path, name));
  opened_.insert(lines_.last(), {path, name});
}

QString Recorder::script(const QString& folder) const {
  QString text;
  QStringList elsewhere;
  for (const QString& line : lines_) {
    const auto file = opened_.find(line);
    const auto below = file == opened_.end() ? std::nullopt : pathBelow(folder, file->path);
    text += (below ? openStatement(*below, file->name) : line) + '\n';
    if (file != opened_.end() && !below) { elsewhere.append(QFileInfo(file->path).absolutePath()); }
  }
  elsewhere.removeDuplicates();
  for (const QString& other : elsewhere) { text += "# It opens files of " + other + ": play it with --allow-read\n"; }
  return text;
}

void Recorder::statement(const QString& line) { lines_.append(line); }

void Recorder::dialogOpened(const QString& title) { answer("dialog " + scriptString(title)); }

void Recorder::operated(dialog::Dialog& dialog, const DialogOperation& operation) {
  if (!operation.recorded) { return; }
  const QString line = written(dialog, operation);
  const bool keyed = operation.verb == Verb::kKeyed || operation.verb == Verb::kKeyedLines;
  const bool typedOn =
      keyed && typedLine_ == lines_.size() && typed_.verb == operation.verb && typed_.control == operation.control;
  if (typedOn) {
    lines_.last() = line;
  } else {
    lines_.append(line);
  }
  typed_ = operation;
  typedLine_ = lines_.size();
}

void Recorder::refused(const std::string& why) { lines_.append("      expect message " + scriptString(shown(why))); }

void Recorder::dropDialog() {
  while (lines_.size() > 1 && !lines_.last().startsWith("    dialog ")) { lines_.removeLast(); }
  if (lines_.size() > 1) { lines_.removeLast(); }
  typedLine_ = 0;
}

void Recorder::pointPrompted(std::string_view, PromptEnd end, Point at) {
  if (end == PromptEnd::kGiven) {
    answer(QString("point %1 %2")
               .arg(QString::fromStdString(numberText::shortest(at.x)),
                    QString::fromStdString(numberText::shortest(at.y))));
  } else {
    answer(shown(promptEndWord(end)));
  }
}

void Recorder::textPrompted(std::string_view, const TextAnswer& given) {
  if (given.end != PromptEnd::kGiven) {
    answer(shown(promptEndWord(given.end)));
  } else {
    answer(given.acceptedDefault ? QString("accept") : "text " + scriptString(shown(given.text)));
  }
}

void Recorder::messageShown(const MessageBox& box, BoxAnswer given) {
  if (box.buttons == BoxButtons::kOk) { return; }
  if (const std::string_view name = nameOf(given, box); !name.empty()) {
    return answer("reply " + scriptString(shown(name)));
  }
  answer(given == BoxAnswer::kYes ? "reply yes" : given == BoxAnswer::kNo ? "reply no" : "reply cancel");
}

// Before the command that went home to where the user looked.
void Recorder::called(std::string_view name, std::initializer_list<CallArgument> arguments) {
  if (name != kSeenCall) { return; }
  qsizetype command = lines_.size() - 1;
  while (command > 1 && lines_[command].startsWith(' ')) { --command; }
  const auto coordinate = [&](size_t index) {
    return QString::fromStdString(numberText::shortest(std::get<double>(arguments.begin()[index])));
  };
  lines_.insert(command, QString("view %1 %2").arg(coordinate(0), coordinate(1)));
}

void Recorder::menuChosen(const std::vector<std::string>&, std::string_view choice) {
  answer(choice.empty() ? QString("cancel") : "menu " + scriptString(shown(choice)));
}

void Recorder::chooserAnswered(std::string_view kind, std::string_view given, std::string_view filter) {
  if (given == "cancel") {
    answer("cancel");
  } else if (kind == "pen") {
    answer("pen " + shown(given));
  } else {
    answer("file " + scriptString(shown(given)) + (filter.empty() ? "" : " as " + scriptString(shown(filter))));
  }
}

}  // namespace brevan

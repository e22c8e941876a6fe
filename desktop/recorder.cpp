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
    auto operation = operationThatSets(control, described.state);
    if (!operation || operation->control < 0 || !counts(dialog, described)) { continue; }
    operation->verb = Verb::kHave;
    lines.append("      " + QString::fromStdString(statementOf(*operation, dialog)));
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
  const QString line = "      " + QString::fromStdString(statementOf(operation, dialog));
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

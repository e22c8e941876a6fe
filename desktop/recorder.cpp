#include "desktop/recorder.h"

#include "desktop/texts.h"
#include "frame/host/number_text.h"
#include "host/scripts/dialog_statements.h"

namespace brevan {

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
  answer(given == BoxAnswer::kYes ? "reply yes" : given == BoxAnswer::kNo ? "reply no" : "reply cancel");
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

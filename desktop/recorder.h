#pragma once

#include <QString>
#include <QStringList>

#include "frame/host/dialog_description.h"
#include "host/window/dialog_operations.h"
#include "host/window/events.h"

namespace brevan {

// Writes down what the user does as the statements of a script that does it again.
class Recorder : public EventSink {
 public:
  // A statement outside of any question: a command, a tool, an undo.
  void statement(const QString& line);
  void dialogOpened(const QString& title);
  // Within a dialog. Keys typed into one field become one statement.
  void operated(dialog::Dialog& dialog, const DialogOperation& operation);
  // Takes back what the dialog opened last noted: another statement stands for it.
  void dropDialog();
  [[nodiscard]] QString script() const { return lines_.join('\n') + '\n'; }
  [[nodiscard]] const QStringList& lines() const { return lines_; }

  void macroSent(std::string_view) override {}
  void primitiveAdded(const Drawing&, PrimitiveId) override {}
  void pointPrompted(std::string_view prompt, PromptEnd end, Point at) override;
  void textPrompted(std::string_view prompt, const TextAnswer& answer) override;
  void messageShown(const MessageBox& box, BoxAnswer answer) override;
  void dialogClosed(std::string_view, bool) override {}
  void menuChosen(const std::vector<std::string>& items, std::string_view choice) override;
  void chooserAnswered(std::string_view kind, std::string_view answer, std::string_view filter) override;
  void focusMoved(std::string_view) override {}
  void called(std::string_view, std::initializer_list<CallArgument>) override {}
  void statusShown(std::string_view) override {}
  void windowOpened(std::string_view) override {}

 private:
  void answer(const QString& line) { lines_.append("    " + line); }
  QStringList lines_{"# Recorded by Brevan"};
  DialogOperation typed_;    // the one last noted,
  qsizetype typedLine_ = 0;  // and after which line
};

}  // namespace brevan

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include "frame/host/dialog_description.h"
#include "frame/host/ini.h"
#include "host/window/dialog_operations.h"
#include "host/window/events.h"

namespace brevan {

// Writes down what the user does as the statements of a script that does it again.
class Recorder : public EventSink {
 public:
  // The settings that the session starts from; only the program's own section is left out, which no command reads.
  void startFrom(const INI_LIST& settings);
  // A statement outside of any question: a command, a tool, an undo.
  void statement(const QString& line);
  void dialogOpened(const QString& title);
  // Within a dialog. Keys typed into one field become one statement.
  void operated(dialog::Dialog& dialog, const DialogOperation& operation);
  // The dialog did not take what was noted last.
  void refused(const std::string& why);
  // What every control of the dialog that can be operated holds, as statements that see to it. They are taken before OK
  // is pressed and noted there when it has closed the dialog.
  [[nodiscard]] static QStringList values(dialog::Dialog& dialog);
  void insert(qsizetype place, const QStringList& values);
  // A drawing file was opened in a window of this name.
  void opened(const QString& path, const QString& name);
  // Takes back what the dialog opened last noted: another statement stands for it.
  void dropDialog();
  // As it plays from a folder: files that were opened below it are named from there. Without a folder, and for files
  // that lie elsewhere, their whole paths stand, and the script says which folders it has to be allowed to read.
  [[nodiscard]] QString script(const QString& folder = {}) const;
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
  void called(std::string_view name, std::initializer_list<CallArgument> arguments) override;
  void statusShown(std::string_view) override {}
  void windowOpened(std::string_view) override {}

 private:
  void answer(const QString& line) { lines_.append("    " + line); }
  struct OpenedFile {
    QString path;
    QString name;
  };
  QMap<QString, OpenedFile> opened_;  // by the line that opens it
  QStringList lines_{"# Recorded by Brevan"};
  DialogOperation typed_;    // the one last noted,
  qsizetype typedLine_ = 0;  // and after which line
};

}  // namespace brevan

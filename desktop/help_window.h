#pragma once

#include <QDialog>
#include <span>
#include <string>

#include "frame/host/commands.h"

namespace dialog {
class Dialog;
}

class QListWidget;
class QTextBrowser;

namespace brevan {

// The manual: its pages on the left, the chosen one on the right. Help asked for in a dialog shows what each of its
// fields takes, above the way to the chapter about its command.
class HelpWindow : public QDialog {
  Q_OBJECT
 public:
  HelpWindow(const QString& folder, QWidget* parent);
  // A page of the folder; one that is not there is said so in its place.
  void showPage(const QString& file);
  // Puts the chapters about commands into the contents, after the page about the desktop.
  void addChapters(std::span<const CommandRow> commands);
  // The page of the dialog that is open, leading on to a chapter unless that is null; false where none is open.
  bool showTopic(const std::string& topic, const ManualChapter* chapter);
  [[nodiscard]] QString text() const;
  [[nodiscard]] const std::string& topic() const { return topic_; }  // shown last

 private:
  void come();
  QString folder_;
  std::string topic_;
  QStringList files_;  // of the pages, as the contents list them
  QListWidget* pages_;
  QTextBrowser* page_;
};

// Title, fields, what they take and what they are for, as HTML.
QString helpOn(dialog::Dialog& dialog);

}  // namespace brevan

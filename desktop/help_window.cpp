#include "desktop/help_window.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QTextBrowser>

#include "desktop/dialog_window.h"
#include "desktop/texts.h"
#include "host/window/dialog_fields.h"

namespace brevan {

namespace {

struct PageRow {
  const char* file;
  const char* title;
};
constexpr PageRow kPages[] = {
    {"desktop.md", QT_TRANSLATE_NOOP("HelpWindow", "The desktop")},
    {"scripts.md", QT_TRANSLATE_NOOP("HelpWindow", "Scripts")},
    {"macros.md", QT_TRANSLATE_NOOP("HelpWindow", "Macro commands")},
    {"drawing-files.md", QT_TRANSLATE_NOOP("HelpWindow", "Drawing files")},
};

std::string takenBy(const FieldLine& line) {
  return std::string(line.kind) + (line.takes.empty() ? "" : ": ") + line.takes;
}

QString row(const std::string& name, const std::string& takes, const std::string& use) {
  const auto cell = [](const std::string& text) { return "<td>" + shown(text).toHtmlEscaped() + "</td>"; };
  return "<tr>" + cell(name) + cell(takes) + cell(use) + "</tr>";
}

}  // namespace

QString helpOn(dialog::Dialog& dialog) {
  QString rows;
  for (const FieldLine& line : fieldLines(dialog)) {
    if (!isShown(dialog, line.control)) { continue; }
    rows += row(line.name, takenBy(line), line.toolTip);
  }
  return "<h2>" + shown(dialog.title()).toHtmlEscaped() +
         "</h2><table cellpadding=4 border=1 style=\"border-collapse: collapse\">" + "<tr><th>" +
         HelpWindow::tr("Field") + "</th><th>" + HelpWindow::tr("Takes") + "</th><th>" +
         HelpWindow::tr("What it is for") + "</th></tr>" + rows + "</table>";
}

HelpWindow::HelpWindow(const QString& folder, QWidget* parent)
    : QDialog(parent, Qt::Window), folder_(folder), pages_(new QListWidget(this)), page_(new QTextBrowser(this)) {
  setWindowTitle(tr("Brevan Manual"));
  constexpr int kWidth = 960;
  constexpr int kHeight = 680;
  constexpr int kListWidth = 200;
  resize(kWidth, kHeight);
  pages_->setMaximumWidth(kListWidth);
  page_->setOpenExternalLinks(true);
  page_->setSearchPaths({folder_});
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(pages_);
  layout->addWidget(page_, 1);
  for (const PageRow& row : kPages) {
    pages_->addItem(tr(row.title));
    files_.append(row.file);
  }
  // Not when a row merely becomes the current one: the list's first does as the focus comes to it.
  const auto choose = [this](QListWidgetItem* item) { showPage(files_.at(pages_->row(item))); };
  connect(pages_, &QListWidget::itemClicked, this, choose);
  connect(pages_, &QListWidget::itemActivated, this, choose);
}

void HelpWindow::addChapters(std::span<const CommandRow> commands) {
  int place = 1;
  for (const CommandRow& command : commands) {
    const QString file = command.chapter.file;
    if (file.isEmpty() || files_.contains(file)) { continue; }
    files_.insert(place, file);
    pages_->insertItem(place++, shown(command.chapter.title));
  }
}

void HelpWindow::come() {
  // Over the dialog that asked: a modal one would keep the keys of any other window.
  setWindowModality(QApplication::activeModalWidget() != nullptr ? Qt::ApplicationModal : Qt::NonModal);
  show();
  raise();
  activateWindow();
  page_->setFocus();
}

void HelpWindow::showPage(const QString& file) {
  const QString path = folder_ + '/' + file;
  if (QFile::exists(path)) {
    page_->setSource(QUrl::fromLocalFile(path));
  } else {
    page_->setPlainText(tr("This page is not installed: %1").arg(path));
  }
  come();
}

bool HelpWindow::showTopic(const std::string& topic, const ManualChapter* chapter) {
  auto* asking = qobject_cast<DialogWindow*>(QApplication::activeModalWidget());
  if (asking == nullptr) { return false; }
  topic_ = topic;
  QString html = helpOn(asking->description());
  if (chapter != nullptr && *chapter->file != '\0') {
    html += "<p><a href=\"" + QUrl::fromLocalFile(folder_ + '/' + chapter->file).toString() + "\">" +
            tr("More about these commands") + "</a></p>";
  }
  pages_->setCurrentRow(-1);
  page_->setHtml(html);
  come();
  return true;
}

QString HelpWindow::text() const { return page_->toPlainText(); }

}  // namespace brevan

#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>

#include "desktop/main_window.h"
#include "desktop/texts.h"
#include "host/core/safe_file.h"
#include "host/files/drawing_files.h"
#include "host/files/drg_writer.h"
#include "render/drawing_painter.h"
#include "render/exporters.h"
#include "render/render_session.h"

// New, open, save, export, print, and what asks before work is lost.
namespace brevan {

namespace {

constexpr int kMostRecent = 9;

QString plain(const QString& path) { return path.section('/', -1).section('.', 0, -2); }

}  // namespace

void MainWindow::newDrawing() {
  runner_.run(tr("New"), [this] {
    const DrawingWindow& window = host_->openWindow(host_->freeWindowName());
    recorder_.statement("new " + scriptString(shown(window.name())));
  });
}

void MainWindow::askOpen() {
  const QString path =
      QFileDialog::getOpenFileName(this, tr("Open"), {}, tr("Drawings (*.drg *.dxf *.sym *.DRG *.DXF);;All files (*)"));
  if (!path.isEmpty()) { openFile(path); }
}

void MainWindow::openFile(const QString& path) {
  runner_.run(tr("Open"), [this, path] {
    ReadDrawing read = readDrawing(path.toStdString());
    std::string name = hostText(plain(path)).value_or("Drawing");
    const std::vector<std::string> taken = host_->windowNames();
    if (std::find(taken.begin(), taken.end(), name) != taken.end()) { name = host_->freeWindowName(); }
    host_->openWindow(name).setDrawing(std::move(read.drawing));
    recorder_.opened(path, shown(name));
    followHost();
    if (isUntouched(first_)) { closeDrawing(first_); }
    const bool own = path.endsWith(".drg", Qt::CaseInsensitive);
    document().path = own ? path : QString();
    document().savedRevision = host_->window().drawing().revision();
    if (own) { recovery_.begin(name, host_->window().drawing(), path.toStdString()); }
    view().zoomAll();
    noteRecent(path);
    if (!read.notRead.empty()) {
      QMessageBox::warning(this, tr("Open"), tr("Not all of the file could be read: %1").arg(shown(read.notRead)));
    }
  });
}

bool MainWindow::saveTo(const QString& path) {
  try {
    saveWhole(path.toStdString(), drawingDrg(host_->window().drawing()));
  } catch (const std::exception& failure) {
    QMessageBox::critical(this, tr("Save"), shown(failure.what()));
    return false;
  }
  document().path = path;
  document().savedRevision = host_->window().drawing().revision();
  recovery_.begin(host_->window().name(), host_->window().drawing(), path.toStdString());
  recorder_.statement("save " + scriptString(path.section('/', -1)));
  noteRecent(path);
  showChanges();
  statusBar()->showMessage(tr("Saved %1").arg(path));
  return true;
}

bool MainWindow::save() { return document().path.isEmpty() ? saveAs() : saveTo(document().path); }

bool MainWindow::saveAs() {
  QFileDialog chooser(this, tr("Save As"), {}, tr("Drawings (*.drg)"));
  chooser.setAcceptMode(QFileDialog::AcceptSave);
  chooser.setDefaultSuffix("drg");
  chooser.selectFile(shown(host_->window().name()) + ".drg");
  return chooser.exec() == QDialog::Accepted && saveTo(chooser.selectedFiles().front());
}

void MainWindow::exportAs() {
  const QString path =
      QFileDialog::getSaveFileName(this, tr("Export"), shown(host_->window().name()) + ".pdf",
                                   tr("PDF (*.pdf);;DXF (*.dxf);;SVG (*.svg);;PNG (*.png);;JSON (*.json)"));
  if (path.isEmpty()) { return; }
  runner_.run(tr("Export"), [this, path] {
    const auto all = exporters(plain(path).toStdString());
    const auto exporter = all.find(fileEnding(path.toStdString()));
    if (exporter == all.end()) { throw HostFailure("exports end in .pdf, .dxf, .svg, .png or .json"); }
    ExportOptions options;
    QString told;
    options.tell = [&told](const std::string& text) { told = ": " + shown(text); };
    saveWhole(path.toStdString(), exporter->second(host_->window().drawing(), options));
    recorder_.statement("export " + scriptString(path.section('/', -1)));
    statusBar()->showMessage(tr("Exported %1").arg(path) + told);
  });
}

void MainWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  const Drawing& drawing = host_->window().drawing();
  const ExportOptions options;
  Page page;
  try {
    page = pageOf(drawing, options.page);
  } catch (const HostFailure& failure) {
    QMessageBox::critical(this, tr("Print"), shown(failure.what()));
    return;
  }
  const Sheet& sheet = page.sheet;
  if (!page.told.empty()) { statusBar()->showMessage(shown(page.told)); }
  printer.setPageSize(QPageSize(QSizeF(std::min(sheet.width, sheet.height), std::max(sheet.width, sheet.height)),
                                QPageSize::Millimeter));
  printer.setPageOrientation(sheet.width > sheet.height ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setFullPage(true);
  QPrintDialog chooser(&printer, this);
  if (chooser.exec() != QDialog::Accepted) { return; }
  QPainter painter;
  if (!painter.begin(&printer)) {
    const QString file = printer.outputFileName();
    const QString target = file.isEmpty() ? printer.printerName() : file;
    QMessageBox::critical(this, tr("Print"), tr("Nothing can be printed to \"%1\".").arg(target));
    return;
  }
  constexpr double kMillimetresAnInch = 25.4;
  const double scale = printer.resolution() / kMillimetresAnInch;
  paint(painter, drawing, pageToDevice(page, drawing.parameters(), scale), pageOptions(page, options));
}

void MainWindow::saveRecording() {
  const QString path =
      QFileDialog::getSaveFileName(this, tr("Save Recorded Script"), "recorded.scr", tr("Scripts (*.scr)"));
  if (path.isEmpty()) { return; }
  try {
    saveWhole(path.toStdString(), recorder_.script(QFileInfo(path).absolutePath()).toStdString());
    statusBar()->showMessage(tr("Saved %1").arg(path));
  } catch (const std::exception& failure) {
    QMessageBox::critical(this, tr("Save Recorded Script"), shown(failure.what()));
  }
}

// ---- Recent files ------------------------------------------------------------------------------------------

void MainWindow::noteRecent(const QString& path) {
  QStringList recent{QDir(path).absolutePath()};
  for (int number = 1; number <= kMostRecent; ++number) {
    const QString entry = shown(setting("Recent" + std::to_string(number)));
    if (!entry.isEmpty() && !recent.contains(entry)) { recent.append(entry); }
  }
  for (int number = 1; number <= kMostRecent; ++number) {
    const auto entry = number <= recent.size() ? hostText(recent[number - 1]) : std::nullopt;
    setSetting("Recent" + std::to_string(number), entry.value_or(""));
  }
}

void MainWindow::showRecent() {
  recent_->clear();
  for (int number = 1; number <= kMostRecent; ++number) {
    const QString path = shown(setting("Recent" + std::to_string(number)));
    if (path.isEmpty()) { continue; }
    connect(recent_->addAction(QString("&%1  %2").arg(number).arg(path)), &QAction::triggered, this,
            [this, path] { openFile(path); });
  }
  if (recent_->isEmpty()) { recent_->addAction(tr("(none yet)"))->setEnabled(false); }
}

// ---- Nothing lost ------------------------------------------------------------------------------------------

bool MainWindow::mayClose(const std::string& name) {
  if (!isModified(name)) { return true; }
  host_->goToWindow(name);
  followHost();
  const auto answer =
      QMessageBox::question(this, "Brevan", tr("Save the changes to %1?").arg(shown(name)),
                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

bool MainWindow::offerRecovery() {
  const std::vector<Recovery::Kept> left = recovery_.left();
  if (left.empty()) { return false; }
  QStringList names;
  for (const Recovery::Kept& kept : left) { names.append(shown(kept.name)); }
  const auto answer = QMessageBox::question(
      this, "Brevan",
      tr("The last session did not end well. Its drawings were kept: %1.\nOpen them?").arg(names.join(", ")),
      QMessageBox::Open | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Open);
  for (const Recovery::Kept& kept : left) {
    if (answer == QMessageBox::Discard) { Recovery::remove(kept.file); }
    if (answer != QMessageBox::Open) { continue; }
    runner_.run(tr("Recover"), [this, kept] {
      Drawing drawing = Recovery::read(kept.file);
      const std::vector<std::string> taken = host_->windowNames();
      const bool free = std::find(taken.begin(), taken.end(), kept.name) == taken.end();
      host_->openWindow(free ? kept.name : host_->freeWindowName()).setDrawing(std::move(drawing));
      followHost();
      document().savedRevision = 0;  // not saved until the user does
      view().zoomAll();
      const std::string why = recovery_.keep(host_->window().name(), host_->window().drawing());
      if (why.empty()) { Recovery::remove(kept.file); }
    });
  }
  return true;
}

}  // namespace brevan

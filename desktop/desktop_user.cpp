#include "desktop/desktop_user.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "desktop/dialog_window.h"
#include "desktop/pen_widgets.h"
#include "desktop/prompt_bar.h"
#include "desktop/recorder.h"
#include "desktop/texts.h"
#include "host/window/file_filters.h"

namespace brevan {

namespace {

// A command that goes on asking after Escape is ended by force.
constexpr int kMostRefusals = 100;
constexpr int kPumpMilliseconds = 50;

// As Qt writes them, in the request's order.
QStringList qtFilters(const std::string& text) {
  QStringList filters;
  for (const FileFilter& filter : fileFilters(text)) {
    QStringList patterns;
    for (const std::string& pattern : filter.patterns) { patterns.append(shown(pattern)); }
    const QString name = shown(filter.name());
    filters.append((name.isEmpty() ? DesktopUser::tr("Files") : name) + " (" + patterns.join(' ') + ')');
  }
  return filters;
}

}  // namespace

DesktopUser::DesktopUser(PromptBar& promptBar, Recorder& recorder, QString pictureFolder, QWidget* window)
    : QObject(window),
      promptBar_(promptBar),
      recorder_(recorder),
      pictureFolder_(std::move(pictureFolder)),
      window_(window) {
  connect(&promptBar, &PromptBar::pointTyped, this, &DesktopUser::givePoint);
  connect(&promptBar, &PromptBar::spacePressed, this, &DesktopUser::giveSpace);
  connect(&promptBar, &PromptBar::escapePressed, this, &DesktopUser::giveEscape);
  connect(&promptBar, &PromptBar::keyPressed, this, &DesktopUser::giveKey);
  connect(&promptBar, &PromptBar::backPressed, this, &DesktopUser::giveBack);
  connect(&promptBar, &PromptBar::textTyped, this, [this](const QString& typed, bool acceptedDefault) {
    if (wants_ != Wants::kText) { return; }
    const auto text = hostText(typed);
    if (!text) {
      emit statusChanged(tr("The text holds a character that drawings cannot hold: %1").arg(typed));
      return;
    }
    text_ = {PromptEnd::kGiven, *text, acceptedDefault};
    answered();
  });
}

QWidget* DesktopUser::topWindow() const {
  QWidget* active = QApplication::activeModalWidget();
  return active != nullptr ? active : window_;
}

void DesktopUser::begin() {
  cancelled_ = false;
  refusals_ = 0;
  sincePumped_.start();
}

void DesktopUser::countRefusal() {
  if (++refusals_ > kMostRefusals) { throw CommandCancelled{}; }
}

void DesktopUser::cancel() {
  cancelled_ = true;
  if (modal_ != nullptr) { modal_->close(); }
  giveEscape();
}

void DesktopUser::wait(Wants wants) {
  wants_ = wants;
  emit asking();
  emit pointWanted(wants == Wants::kPoint);
  QEventLoop loop;
  QEventLoop* const outer = std::exchange(loop_, &loop);
  loop.exec();
  loop_ = outer;
  wants_ = Wants::kNothing;
  emit pointWanted(false);
  promptBar_.showPrompt({});
}

// What arrives before the loop has ended answers nothing.
void DesktopUser::answered() {
  wants_ = Wants::kNothing;
  if (loop_ != nullptr) { loop_->quit(); }
}

void DesktopUser::givePoint(Point at) {
  if (wants_ != Wants::kPoint) { return; }
  point_ = {PromptEnd::kGiven, at};
  answered();
}

void DesktopUser::giveSpace() {
  if (wants_ != Wants::kPoint) { return; }
  point_ = {PromptEnd::kSpace, {}};
  answered();
}

void DesktopUser::allowBack(bool allowed) { promptBar_.allowBack(allowed); }

void DesktopUser::allowKeys(const std::vector<std::string>& keys) {
  keys_.clear();
  for (const std::string& key : keys) { keys_.append(shown(key)); }
  promptBar_.allowKeys(keys_);
}

void DesktopUser::giveKey(const QString& key) {
  if (wants_ != Wants::kPoint) { return; }
  point_ = {PromptEnd::kKey, {}, key.toStdString()};
  answered();
}

void DesktopUser::giveBack() {
  if (wants_ != Wants::kText) { return; }
  text_ = {PromptEnd::kBack, {}, false};
  answered();
}

void DesktopUser::giveEscape() {
  if (wants_ == Wants::kNothing) {
    if (showsProgress_) { cancelled_ = true; }
    return;
  }
  point_ = {PromptEnd::kEscape, {}};
  text_ = {PromptEnd::kEscape, {}, false};
  answered();
}

PointAnswer DesktopUser::askPoint(const std::string& prompt) {
  if (cancelled_) {
    countRefusal();
    return {};
  }
  promptBar_.askPoint(shown(prompt));
  wait(Wants::kPoint);
  if (point_.end == PromptEnd::kGiven) { emit pointGiven(point_.at); }
  return point_;
}

TextAnswer DesktopUser::askText(const std::string& prompt, const std::string& fallback) {
  if (cancelled_) {
    countRefusal();
    return {};
  }
  promptBar_.askText(shown(prompt), shown(fallback));
  wait(Wants::kText);
  return text_;
}

BoxAnswer DesktopUser::showMessage(const MessageBox& box) {
  if (cancelled_) { countRefusal(); }
  emit asking();
  const std::pair<BoxIcon, QMessageBox::Icon> icons[] = {{BoxIcon::kInformation, QMessageBox::Information},
                                                         {BoxIcon::kWarning, QMessageBox::Warning},
                                                         {BoxIcon::kError, QMessageBox::Critical},
                                                         {BoxIcon::kQuestion, QMessageBox::Question}};
  QMessageBox shownBox(topWindow());
  shownBox.setWindowTitle(box.caption.empty() ? QString("Brevan") : shown(box.caption));
  shownBox.setTextFormat(Qt::PlainText);
  shownBox.setText(shown(box.text));
  for (const auto& [icon, look] : icons) {
    if (icon == box.icon) { shownBox.setIcon(look); }
  }
  if (box.buttons == BoxButtons::kOk) {
    shownBox.setStandardButtons(QMessageBox::Ok);
  } else if (box.buttons == BoxButtons::kYesNo) {
    shownBox.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    shownBox.setEscapeButton(QMessageBox::No);
  } else {
    shownBox.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  }
  for (const auto& [answer, button] :
       {std::pair(BoxAnswer::kYes, QMessageBox::Yes), std::pair(BoxAnswer::kNo, QMessageBox::No)}) {
    if (const std::string_view name = nameOf(answer, box); !name.empty()) {
      shownBox.button(button)->setText('&' + shown(name));
    }
  }
  modal_ = &shownBox;
  const int pressed = shownBox.exec();
  if (box.buttons == BoxButtons::kOk) { return BoxAnswer::kOk; }
  if (pressed == QMessageBox::Yes) { return BoxAnswer::kYes; }
  return pressed == QMessageBox::Cancel ? BoxAnswer::kCancel : BoxAnswer::kNo;
}

std::optional<size_t> DesktopUser::chooseFromMenu(const std::vector<std::string>& items) {
  if (cancelled_) { return std::nullopt; }
  emit asking();
  QMenu menu(topWindow());
  menu.setObjectName("commandMenu");
  for (size_t item = 0; item < items.size(); ++item) {
    QString caption = shown(items[item]);
    caption.replace('&', "&&");
    constexpr size_t kDigits = 9;
    menu.addAction(item < kDigits ? QString("&%1  %2").arg(item + 1).arg(caption) : caption)
        ->setData(QVariant::fromValue(item));
  }
  if (!menu.actions().isEmpty()) { menu.setActiveAction(menu.actions().front()); }
  modal_ = &menu;
  const QRect inside = window_->geometry();
  const QPoint at = inside.contains(QCursor::pos()) ? QCursor::pos() : inside.center();
  const QAction* chosen = menu.exec(at);
  return chosen == nullptr ? std::nullopt : std::optional<size_t>(chosen->data().value<size_t>());
}

std::optional<ChosenFile> DesktopUser::chooseFile(const FileRequest& request) {
  if (cancelled_) { return std::nullopt; }
  emit asking();
  QFileDialog chooser(topWindow(), shown(request.title));
  chooser.setFileMode(request.folder ? QFileDialog::Directory
                      : request.open ? QFileDialog::ExistingFile
                                     : QFileDialog::AnyFile);
  chooser.setAcceptMode(request.open || request.folder ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  const QStringList filters = qtFilters(request.filter);
  if (!filters.isEmpty()) { chooser.setNameFilters(filters); }
  chooser.setDefaultSuffix(shown(request.defaultExtension));
  // A name without a path is that of a library.
  QDir data(pictureFolder_);
  data.cdUp();
  const QString initial = shown(request.initialName);
  if (!initial.isEmpty() && QDir::isRelativePath(initial) && data.exists(initial)) {
    chooser.setDirectory(data.absolutePath());
  }
  if (!initial.isEmpty()) { chooser.selectFile(initial); }
  modal_ = &chooser;
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) { return std::nullopt; }
  auto path = hostText(chooser.selectedFiles().front());
  if (!path) {
    emit statusChanged(tr("The path holds a character that Windows-1252 lacks."));
    return std::nullopt;
  }
  return ChosenFile{*path, static_cast<size_t>(std::max<qsizetype>(filters.indexOf(chooser.selectedNameFilter()), 0))};
}

std::optional<int> DesktopUser::choosePen(const std::string& title, int pen) {
  if (cancelled_) { return std::nullopt; }
  emit asking();
  return choosePenFrom(topWindow(), shown(title), pen);
}

bool DesktopUser::runDialog(dialog::Dialog& dialog) {
  if (cancelled_) {
    countRefusal();
    return false;
  }
  emit asking();
  DialogWindow shownDialog(dialog, *this, recorder_, pictureFolder_, topWindow());
  modal_ = &shownDialog;
  return shownDialog.run();
}

void DesktopUser::showStatus(const std::string& text) { emit statusChanged(shown(text)); }

void DesktopUser::showPrompt(const std::string& text) { promptBar_.showPrompt(shown(text)); }

void DesktopUser::showProgress(int done, int total, const std::string& text) {
  if (stopsAtProgress(done, total, text)) { throw CommandCancelled{}; }
}

bool DesktopUser::stopsAtProgress(int done, int total, const std::string& text) {
  if (sincePumped_.elapsed() < kPumpMilliseconds && done < total) { return false; }
  emit progressed(done, total, shown(text));
  showsProgress_ = true;
  QApplication::processEvents();
  showsProgress_ = false;
  sincePumped_.restart();
  return cancelled_;
}

}  // namespace brevan

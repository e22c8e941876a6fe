#include "desktop/main_window.h"
#include "desktop/help_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <array>

#include "desktop/icons.h"
#include "desktop/panels.h"
#include "desktop/pen_widgets.h"
#include "desktop/prompt_bar.h"
#include "desktop/shortcut_bar.h"
#include "desktop/texts.h"
#include "desktop/type_ahead.h"
#include "frame/host/number_text.h"
#include "host/tools/drawing_tools.h"
#include "host/window/module.h"

// The window itself: drawings in tabs, what follows a command. What the user runs and selects is in main_commands.cpp,
// menus in main_menus.cpp, files in main_files.cpp.
namespace brevan {

namespace {

// The window at the first start, and what its title bar and edges take of the screen.
constexpr int kStartWidth = 1280;
constexpr int kStartHeight = 820;
constexpr QSize kFrame(16, 40);
constexpr const char* kGeometryKey = "Window";
constexpr const char* kPanelsKey = "Panels";
constexpr const char* kFavouritesKey = "FavouriteSymbols";
constexpr std::string_view kSection = "Desktop";

}  // namespace

std::string settingsPath(const std::string& native) {
  const auto text = hostText(QString::fromStdString(native));
  return text ? *text : native;
}

MainWindow::MainWindow(const DesktopParts& parts)
    : parts_(parts),
      files_(".", parts.places.dataFolder),
      settings_(settingsPath(parts.settingsFile)),
      recovery_(parts.recoveryFolder),
      runner_(this),
      promptBar_(new PromptBar(this)),
      user_(
          new DesktopUser(*promptBar_, recorder_, QString::fromStdString(parts.places.dataFolder) + "/pictures", this)),
      shortcutBar_(new ShortcutBar(files_, this)),
      tabs_(new QTabWidget(this)),
      coordinates_(new QLabel(this)),
      unitLabel_(new QLabel(this)),
      progress_(new QProgressBar(this)),
      help_(new HelpWindow(QString::fromStdString(parts.helpFolder), this)) {
  setWindowIcon(programIcon());
  recorder_.startFrom(settings_);
  host_ = std::make_unique<Host>(HostParts{*user_, files_, settings_, &recorder_, parts.places.helpFile, nullptr,
                                           shortcutBar_, [this](const std::string& topic) { return showHelp(topic); }});
  first_ = host_->window().name();
  host_->loadModule(parts.places.module);
  help_->addChapters(host_->module()->commands());
  build();
  connectUser();
  followHost();
  showChanges();
  restoreLayout();
}

MainWindow::~MainWindow() {
  tabs_->disconnect(this);
  while (tabs_->count() > 0) { delete tabs_->widget(0); }  // the views before the windows that they show
}

bool MainWindow::showHelp(const std::string& topic) {
  const CommandRow* const command = host_->runningCommand();
  return help_->showTopic(topic, command == nullptr ? nullptr : &command->chapter);
}

void MainWindow::build() {
  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  tabs_->setDocumentMode(true);
  tabs_->setTabsClosable(true);
  tabs_->setMovable(true);
  column->addWidget(tabs_, 1);
  column->addWidget(promptBar_);
  setCentralWidget(centre);
  connect(tabs_, &QTabWidget::currentChanged, this, &MainWindow::tabChosen);
  connect(tabs_, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
  buildDocks();
  buildMenus();
  coordinates_->setMinimumWidth(260);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(coordinates_);
  statusBar()->addPermanentWidget(unitLabel_);
  progress_->setMaximumWidth(220);
  progress_->hide();
  QStringList names;
  for (const CommandRow& command : host_->module()->commands()) { names.append(command.name); }
  for (const DrawingTool& tool : drawingTools()) { names.append(shown(tool.name)); }
  promptBar_->setCommands(names);
}

void MainWindow::connectUser() {
  connect(promptBar_, &PromptBar::commandTyped, this, &MainWindow::runTyped);
  connect(promptBar_, &PromptBar::repeatAsked, this, [this] {
    if (!last_.isEmpty()) { runTyped(last_); }
  });
  connect(promptBar_, &PromptBar::mistyped, this, [this](const QString& what) { statusBar()->showMessage(what); });
  connect(promptBar_, &PromptBar::escapePressed, this, [this] {
    if (runner_.busy()) { return; }
    host_->window().drawing().clearSelection();
    view().update();
  });
  connect(shortcutBar_, &ShortcutBar::picked, this, &MainWindow::browse);
  shortcutBar_->setFavourites(QString::fromStdString(setting(kFavouritesKey)).split('|', Qt::SkipEmptyParts));
  connect(shortcutBar_, &ShortcutBar::favouritesChanged, this,
          [this](const QStringList& files) { setSetting(kFavouritesKey, files.join('|').toStdString()); });
  connect(user_, &DesktopUser::sideBarShown, this,
          [this](bool shown) { findChild<QWidget*>("shortcutDock")->setVisible(shown); });
  auto* typeAhead = new TypeAhead(
      [this](const QKeyEvent& key) {
        return runner_.busy() && !user_->wantsAnything() && QApplication::activeModalWidget() == nullptr &&
               QApplication::activePopupWidget() == nullptr && !(user_->showsProgress() && key.key() == Qt::Key_Escape);
      },
      this);
  connect(user_, &DesktopUser::asking, typeAhead, &TypeAhead::release);
  connect(&runner_, &CommandRunner::finished, typeAhead, &TypeAhead::release);
  connect(user_, &DesktopUser::asking, this, [this] {
    followHost();
    for (auto& [name, document] : documents_) { document.view->refreshIfChanged(); }
    view().update();
    keepAll();
  });
  connect(user_, &DesktopUser::pointWanted, this, [this](bool wanted) {
    for (auto& [name, document] : documents_) {
      document.view->setPicking(wanted);
      document.view->setTakesTab(wanted && user_->wantsTab());
    }
    promptBar_->setOrigin(host_->window().cursor().held() ? host_->window().cursor().heldAt()
                                                          : host_->window().cursor().lastGiven());
    if (wanted) { view().setFocus(); }
  });
  connect(user_, &DesktopUser::pointGiven, this, [this](Point at) { document().given.push_back(at); });
  connect(user_, &DesktopUser::statusChanged, this, [this](const QString& text) { statusBar()->showMessage(text); });
  connect(user_, &DesktopUser::progressed, this, [this](int done, int total, const QString& text) {
    progress_->setVisible(done < total);
    progress_->setRange(0, total);
    progress_->setValue(done);
    statusBar()->showMessage(text + tr(" (Escape stops it)"));
  });
  connect(&runner_, &CommandRunner::started, this, [this](const QString& name) {
    user_->begin();
    statusBar()->clearMessage();
    promptBar_->showPrompt(name);
  });
  connect(&runner_, &CommandRunner::cancelAsked, user_, &DesktopUser::cancel);
  connect(&runner_, &CommandRunner::failed, this, [this](const QString& what) {
    statusBar()->showMessage(what);
    QMessageBox::critical(this, "Brevan", what);
  });
  connect(&runner_, &CommandRunner::finished, this, [this] {
    progress_->hide();
    promptBar_->askCommand();
    followHost();
    showChanges();
    for (auto& [name, document] : documents_) { document.given.clear(); }
    keepAll();
    view().setFocus();
  });
}

// Costs what changed since the last time. Points from which the running command has drawn nothing yet make a drawing
// worth keeping, too.
void MainWindow::keepAll() {
  for (auto& [name, document] : documents_) {
    Drawing& drawing = document.view->window().drawing();
    if (std::exchange(document.taken, drawing.taken()) != drawing.taken()) { document.given.clear(); }
    if (!isModified(name) && document.given.empty()) {
      if (recovery_.keeps(name)) { recovery_.drop(name); }
      continue;
    }
    const std::string why = recovery_.keep(name, drawing, document.given);
    if (!why.empty()) {
      statusBar()->showMessage(tr("The drawing could not be kept for recovery: %1").arg(shown(why)));
    }
  }
}

// ---- Drawings and their tabs -------------------------------------------------------------------------------------

DrawingView& MainWindow::view() { return *document().view; }

MainWindow::Document& MainWindow::document() { return documents_.at(host_->window().name()); }

bool MainWindow::isModified(const std::string& name) const {
  const Document& document = documents_.at(name);
  return document.view->window().drawing().revision() != document.savedRevision;
}

// Nothing was ever drawn in it, and it bears no file's name.
bool MainWindow::isUntouched(const std::string& name) const {
  const auto document = documents_.find(name);
  return document != documents_.end() && document->second.path.isEmpty() && !isModified(name) &&
         document->second.view->window().drawing().count() == 0;
}

void MainWindow::addView(DrawingWindow& window) {
  auto* view = new DrawingView(window, style_, this);
  Document& document = documents_[window.name()];
  document.view = view;
  document.savedRevision = Drawing().revision();  // what the command that opened it has drawn is not saved
  connect(view, &DrawingView::pointPicked, user_, &DesktopUser::givePoint);
  connect(view, &DrawingView::spaceAsked, user_, &DesktopUser::giveSpace);
  connect(view, &DrawingView::keyTyped, this, [this](QKeyEvent* event) { promptBar_->takeKey(event); });
  connect(view, &DrawingView::picked, this, &MainWindow::select);
  connect(view, &DrawingView::windowPicked, this, &MainWindow::selectWindow);
  connect(view, &DrawingView::contextAsked, this, [this](const QPoint&) {
    if (!last_.isEmpty()) { runTyped(last_); }
  });
  connect(view, &DrawingView::cursorMoved, this, [this](Point at, const QString& snap) {
    coordinates_->setText(
        QString("%1, %2%3").arg(at.x, 0, 'f', 3).arg(at.y, 0, 'f', 3).arg(snap.isEmpty() ? "" : "  " + snap));
  });
  tabs_->addTab(view, shown(window.name()));
}

// Brings tabs in line with the host's windows, which commands open, too.
void MainWindow::followHost() {
  following_ = true;
  const std::string current = host_->window().name();
  const std::vector<std::string> names = host_->windowNames();
  for (const std::string& name : names) {
    if (!documents_.contains(name)) { addView(*host_->goToWindow(name)); }
  }
  for (auto document = documents_.begin(); document != documents_.end();) {
    if (std::find(names.begin(), names.end(), document->first) != names.end()) {
      ++document;
      continue;
    }
    recovery_.drop(document->first);
    delete document->second.view;
    document = documents_.erase(document);
  }
  host_->goToWindow(current);
  tabs_->setCurrentWidget(&view());
  following_ = false;
}

void MainWindow::tabChosen(int tab) {
  auto* view = qobject_cast<DrawingView*>(tabs_->widget(tab));
  if (view == nullptr || following_) { return; }
  if (runner_.busy()) {  // a command stays with its own drawing
    following_ = true;
    tabs_->setCurrentWidget(&this->view());
    following_ = false;
    statusBar()->showMessage(tr("A command is working on this drawing; Escape ends it."));
    return;
  }
  host_->goToWindow(view->window().name());
  recorder_.statement("window " + scriptString(shown(view->window().name())));
  showChanges();
}

void MainWindow::closeTab(int tab) {
  auto* view = qobject_cast<DrawingView*>(tabs_->widget(tab));
  if (view == nullptr || runner_.busy()) { return; }
  const std::string name = view->window().name();
  if (!mayClose(name)) { return; }
  closeDrawing(name);
  showChanges();
}

void MainWindow::closeDrawing(const std::string& name) {
  recovery_.drop(name);
  following_ = true;
  delete documents_.at(name).view;
  documents_.erase(name);
  following_ = false;
  recorder_.statement("closewindow " + scriptString(shown(name)));
  host_->closeWindow(name);
  followHost();
}

void MainWindow::showChanges() {
  for (auto& [name, document] : documents_) {
    document.view->refreshIfChanged();
    document.view->update();
    const QString title = document.path.isEmpty() ? shown(name) : document.path.section('/', -1);
    tabs_->setTabText(tabs_->indexOf(document.view), isModified(name) ? title + " *" : title);
  }
  const Drawing& drawing = host_->window().drawing();
  layers_->show(drawing);
  groups_->show(drawing);
  showStyle();
  const std::string* undoName = drawing.undoName();
  const std::string* redoName = drawing.redoName();
  undo_->setEnabled(undoName != nullptr);
  redo_->setEnabled(redoName != nullptr);
  undo_->setText(undoName == nullptr || undoName->empty() ? tr("&Undo") : tr("&Undo %1").arg(shown(*undoName)));
  redo_->setText(redoName == nullptr || redoName->empty() ? tr("&Redo") : tr("&Redo %1").arg(shown(*redoName)));
  unitLabel_->setText(tr("1 : %1   unit %2 mm")
                          .arg(QString::fromStdString(numberText::shortest(drawing.parameters().scale())),
                               QString::fromStdString(numberText::shortest(drawing.parameters().unit()))));
  setWindowTitle(tabs_->tabText(tabs_->currentIndex()) + " - Brevan");
}

// ---- Settings ----------------------------------------------------------------------------------------------

std::string MainWindow::setting(const std::string& key) const {
  std::array<char, 4096> text{};
  settings_.GetString(kSection, key, "", text.data(), static_cast<int>(text.size()));
  return text.data();
}

int MainWindow::setting(const std::string& key, int fallback) const {
  return static_cast<int>(numberText::parseInteger(setting(key)).value_or(fallback));
}

void MainWindow::setSetting(const std::string& key, const std::string& value) {
  settings_.SetString(kSection, key, value);
}

// ---- Size, place, panels ----------------------------------------------------------------------------------------

// As the last session left them; at the first start as large as the screen lets it be.
void MainWindow::restoreLayout() {
  const QSize room = screen()->availableSize() - kFrame;
  resize(QSize(kStartWidth, kStartHeight).boundedTo(room));
  const auto kept = [this](const char* key) { return QByteArray::fromBase64(setting(key).c_str()); };
  restoreGeometry(kept(kGeometryKey));
  restoreState(kept(kPanelsKey));
}

void MainWindow::keepLayout() {
  setSetting(kGeometryKey, saveGeometry().toBase64().toStdString());
  setSetting(kPanelsKey, saveState().toBase64().toStdString());
}

// ---- The program's end ---------------------------------------------------------------------------------------------

void MainWindow::closeEvent(QCloseEvent* event) {
  if (runner_.busy()) {
    // The command ends first; its own loop must be gone before the window is.
    event->ignore();
    runner_.run(tr("Quit"), [this] { QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection); });
    return;
  }
  const std::vector<std::string> names = host_->windowNames();
  for (const std::string& name : names) {
    if (!mayClose(name)) {
      event->ignore();
      return;
    }
  }
  for (const std::string& name : names) { recovery_.drop(name); }
  keepLayout();
  settings_.Save();
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) { refreshIcons(); }
  QMainWindow::changeEvent(event);
}

}  // namespace brevan

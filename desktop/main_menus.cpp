#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolBar>
#include <algorithm>
#include <span>
#include <utility>

#include "desktop/help_window.h"
#include "desktop/icons.h"
#include "desktop/main_window.h"
#include "desktop/panels.h"
#include "desktop/pen_widgets.h"
#include "desktop/prompt_bar.h"
#include "desktop/shortcut_bar.h"
#include "desktop/texts.h"
#include "frame/host/dialog.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/tools/drawing_tools.h"
#include "host/window/module.h"

// Menus, tool bars and panels of the main window.
namespace brevan {

namespace {

struct SnapRow {
  SnapKind kind;
  const char* caption;
};
constexpr SnapRow kSnaps[] = {{SnapKind::kEnd, "&Ends"},
                              {SnapKind::kMiddle, "&Middles"},
                              {SnapKind::kCentre, "&Centres"},
                              {SnapKind::kOrigin, "&Origins"},
                              {SnapKind::kIntersection, "&Intersections"},
                              {SnapKind::kPerpendicular, "&Perpendiculars"},
                              {SnapKind::kNearest, "&Nearest"}};

struct FamilyRow {
  CommandFamily family;
  const char* caption;
};
constexpr FamilyRow kFamilies[] = {{CommandFamily::kMechanical, "Me&chanical"},
                                   {CommandFamily::kArchitectural, "&Architectural"},
                                   {CommandFamily::kSurvey, "&Survey"}};

}  // namespace

QAction* MainWindow::action(QMenu& menu, const char* icon, const QString& caption, const QKeySequence& keys,
                            const std::function<void()>& work) {
  auto* made = new QAction(caption, this);
  made->setShortcut(keys);
  if (*icon != '\0') { icons_.emplace_back(made, icon); }
  connect(made, &QAction::triggered, this, work);
  menu.addAction(made);
  return made;
}

void MainWindow::refreshIcons() {
  // Starting up changes the palette several times to the same.
  const IconLook look{palette().color(QPalette::WindowText), palette().color(QPalette::Base), devicePixelRatioF(),
                      icons_.size(), penChoice_ != nullptr};
  if (std::exchange(iconLook_, look) == look) { return; }
  const QString folder = QString::fromStdString(parts_.places.dataFolder) + "/icons";
  for (const auto& [action, icon] : icons_) { action->setIcon(toolIcon(icon, folder, *this)); }
  if (penChoice_ == nullptr) { return; }
  for (int pen = 0; pen < penChoice_->count(); ++pen) { penChoice_->setItemIcon(pen, penIcon(pen + 1, *this)); }
  for (int type = 0; type < lineTypeChoice_->count(); ++type) {
    lineTypeChoice_->setItemIcon(type, lineTypeIcon(type + 1, *this));
  }
}

void MainWindow::buildMenus() {
  toolBar_ = addToolBar(tr("Tools"));
  toolBar_->setObjectName("toolBar");
  toolBar_->setMovable(false);
  toolBar_->setIconSize({22, 22});
  buildFileMenu();
  buildEditMenu();
  buildViewMenu();
  buildToolMenus();
  buildStyleBar();
  buildCommandMenus();
  buildHelpMenu();
  setTheme(setting("DarkTheme", 0) != 0);
}

void MainWindow::buildFileMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&File"));
  toolBar_->addAction(action(menu, "new", tr("&New"), QKeySequence::New, [this] { newDrawing(); }));
  toolBar_->addAction(action(menu, "open", tr("&Open or Import..."), QKeySequence::Open, [this] { askOpen(); }));
  recent_ = menu.addMenu(tr("Open &Recent"));
  connect(recent_, &QMenu::aboutToShow, this, &MainWindow::showRecent);
  menu.addSeparator();
  toolBar_->addAction(action(menu, "save", tr("&Save"), QKeySequence::Save, [this] { save(); }));
  action(menu, "", tr("Save &As..."), QKeySequence("Ctrl+Shift+S"), [this] { saveAs(); });
  action(menu, "", tr("&Export..."), QKeySequence("Ctrl+E"), [this] { exportAs(); });
  action(menu, "", tr("Save Recorded S&cript..."), {}, [this] { saveRecording(); });
  menu.addSeparator();
  toolBar_->addAction(action(menu, "print", tr("&Print..."), QKeySequence::Print, [this] { print(); }));
  menu.addSeparator();
  action(menu, "", tr("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::buildEditMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
  toolBar_->addSeparator();
  undo_ = action(menu, "undo", tr("&Undo"), QKeySequence::Undo, [this] { undo(); });
  redo_ = action(menu, "redo", tr("&Redo"), QKeySequence("Ctrl+Shift+Z"), [this] { redo(); });
  toolBar_->addAction(undo_);
  toolBar_->addAction(redo_);
  menu.addSeparator();
  action(menu, "", tr("Select &All"), QKeySequence::SelectAll, [this] {
    Drawing& drawing = host_->window().drawing();
    drawing.forEach([&drawing](PrimitiveId id, const Primitive& primitive) {
      const Layer* layer = drawing.layer(primitive.layer);
      if (layer->visible && !layer->locked) { drawing.select(id); }
    });
    view().update();
  });
  action(menu, "erase", tr("&Delete"), QKeySequence::Delete, [this] { runTool("erase"); });
  menu.addSeparator();
  action(menu, "", tr("Drawing &Settings..."), QKeySequence("Ctrl+,"), [this] { editSettings(); });
}

void MainWindow::buildViewMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&View"));
  toolBar_->addSeparator();
  toolBar_->addAction(action(menu, "zoom-all", tr("Zoom &All"), QKeySequence("Ctrl+0"), [this] { view().zoomAll(); }));
  toolBar_->addAction(
      action(menu, "zoom-window", tr("Zoom &Window"), QKeySequence("Ctrl+W"), [this] { view().beginZoomWindow(); }));
  constexpr double kStep = 1.5;
  toolBar_->addAction(action(menu, "zoom-in", tr("Zoom &In"), QKeySequence::ZoomIn, [this] { view().zoomBy(kStep); }));
  toolBar_->addAction(
      action(menu, "zoom-out", tr("Zoom &Out"), QKeySequence::ZoomOut, [this] { view().zoomBy(1.0 / kStep); }));
  menu.addSeparator();
  const auto toggle = [this, &menu](const QString& caption, const QKeySequence& keys, const char* key, bool before,
                                    const std::function<void(bool)>& change) {
    QAction* made = action(menu, "", caption, keys, [] {});
    made->setCheckable(true);
    const bool on = setting(key, before ? 1 : 0) != 0;
    made->setChecked(on);
    change(on);
    connect(made, &QAction::toggled, this, [this, key, change](bool checked) {
      setSetting(key, checked ? "1" : "0");
      change(checked);
      for (auto& [name, document] : documents_) { document.view->refresh(); }
    });
  };
  toggle(tr("&Grid"), QKeySequence("F7"), "Grid", false, [this](bool on) { style_.grid = on; });
  toggle(tr("&Line Widths"), QKeySequence("F8"), "LineWidths", false, [this](bool on) { style_.lineWidths = on; });
  toggle(tr("&Dark Ground"), QKeySequence("F9"), "DarkGround", false,
         [this](bool on) { style_.ground = on ? Ground::kDark : Ground::kPaper; });
  toggle(tr("Dark &Theme"), {}, "DarkTheme", false, [this](bool on) { setTheme(on); });
  QMenu& snaps = *menu.addMenu(tr("&Snap to"));
  for (const SnapRow& row : kSnaps) {
    QAction* made = action(snaps, "", tr(row.caption), {}, [] {});
    made->setCheckable(true);
    made->setChecked(style_.snaps.contains(row.kind));
    connect(made, &QAction::toggled, this, [this, kind = row.kind](bool on) {
      if (on) {
        style_.snaps.insert(kind);
      } else {
        style_.snaps.erase(kind);
      }
    });
  }
  menu.addSeparator();
  for (QDockWidget* dock : findChildren<QDockWidget*>()) { menu.addAction(dock->toggleViewAction()); }
}

void MainWindow::buildToolMenus() {
  QMenu& draw = *menuBar()->addMenu(tr("&Draw"));
  QMenu& change = *menuBar()->addMenu(tr("&Modify"));
  auto* bar = new QToolBar(tr("Draw"), this);
  bar->setObjectName("drawBar");
  bar->setIconSize({18, 18});
  addToolBar(Qt::LeftToolBarArea, bar);
  for (const DrawingTool& tool : drawingTools()) {
    const QString name = shown(tool.name);
    const bool draws = !tool.changesSelection && tool.name != "trim";
    QAction* made =
        action(draws ? draw : change, "", tr(std::string(tool.caption).c_str()), {}, [this, name] { runTool(name); });
    icons_.emplace_back(made, name);
    made->setToolTip(tr(std::string(tool.hint).c_str()));
    bar->addAction(made);
  }
}

// A menu and a tool bar for each family that has commands. Bars go on in a row of their own where the one before would
// run beyond the edge of a small screen.
void MainWindow::buildCommandMenus() {
  constexpr std::ptrdiff_t kMostInARow = 38;
  const std::span<const CommandRow> commands = host_->module()->commands();
  std::ptrdiff_t inRow = kMostInARow;
  for (const FamilyRow& row : kFamilies) {
    const auto count = std::ranges::count(commands, row.family, &CommandRow::family);
    inRow += count;
    if (inRow > kMostInARow) {
      addToolBarBreak();
      inRow = count;
    }
    QMenu* menu = nullptr;
    QToolBar* bar = nullptr;
    for (const CommandRow& command : commands) {
      if (command.family != row.family) { continue; }
      if (menu == nullptr) {
        menu = menuBar()->addMenu(tr(row.caption));
        bar = addToolBar(tr(row.caption).remove('&'));
        bar->setObjectName(menu->title().remove('&') + "Bar");
        bar->setIconSize(toolBar_->iconSize());
      }
      const QString name = command.name;
      QAction* made = action(*menu, "", shown(command.caption), {}, [this, name] { runCommand(name); });
      made->setObjectName(name);
      made->setToolTip(shown(dialog::plainCaption(command.caption)));
      icons_.emplace_back(made, command.icon);
      bar->addAction(made);
    }
  }
}

void MainWindow::buildHelpMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Help"));
  action(menu, "", tr("&Manual"), QKeySequence::HelpContents, [this] { help_->showPage("desktop.md"); });
  action(menu, "", tr("&Commands of the Prompt and Scripts"), {}, [this] { help_->showPage("scripts.md"); });
  menu.addSeparator();
  action(menu, "", tr("&About Brevan"), {}, [this] {
    QMessageBox::about(this, tr("About Brevan"),
                       tr("Brevan %1\nDrawing host\n\nArdenix %2\nParametric drafting commands")
                           .arg(BREVAN_VERSION, shown(host_->module()->version())));
  });
}

// ---- Current layer, pen and line type ------------------------------------------------------------------------------

void MainWindow::buildStyleBar() {
  QToolBar* bar = addToolBar(tr("Style"));
  bar->setObjectName("styleBar");
  bar->setMovable(false);
  const auto add = [bar](const QString& caption, QComboBox* choice) {
    auto* label = new QLabel(caption + ' ', bar);
    label->setBuddy(choice);
    bar->addWidget(label);
    bar->addWidget(choice);
    bar->addSeparator();
  };
  layerChoice_ = new QComboBox(bar);
  layerChoice_->setEditable(true);
  layerChoice_->setInsertPolicy(QComboBox::NoInsert);
  layerChoice_->setMinimumContentsLength(14);
  layerChoice_->setToolTip(tr("The current layer; a new name makes a layer"));
  penChoice_ = new QComboBox(bar);
  lineTypeChoice_ = new QComboBox(bar);
  lineTypeChoice_->setIconSize(lineTypeIconSize());
  for (int pen = 1; pen <= limits::kPens.most; ++pen) { penChoice_->addItem(QString::number(pen)); }
  for (int type = 1; type <= limits::kListedLineTypes.most; ++type) { lineTypeChoice_->addItem(QString::number(type)); }
  add(tr("&Layer"), layerChoice_);
  add(tr("&Pen"), penChoice_);
  add(tr("Line &type"), lineTypeChoice_);
  layerChoice_->setCompleter(nullptr);  // a name is taken as it is typed
  connect(layerChoice_, &QComboBox::textActivated, this, &MainWindow::setStyle);
  connect(layerChoice_->lineEdit(), &QLineEdit::returnPressed, this, &MainWindow::setStyle);
  connect(penChoice_, &QComboBox::activated, this, &MainWindow::setStyle);
  connect(lineTypeChoice_, &QComboBox::activated, this, &MainWindow::setStyle);
  refreshIcons();
}

void MainWindow::showStyle() {
  const Drawing& drawing = host_->window().drawing();
  const QSignalBlocker silent(layerChoice_);
  layerChoice_->clear();
  for (int index = 0; index < drawing.layerCount(); ++index) {
    if (const Layer* layer = drawing.layer(index)) { layerChoice_->addItem(shown(layer->name)); }
  }
  layerChoice_->setCurrentText(shown(drawing.layer(drawing.currentLayer())->name));
  penChoice_->setCurrentIndex(host_->window().style().pen - 1);
  lineTypeChoice_->setCurrentIndex(host_->window().style().linetype - 1);
}

void MainWindow::setStyle() {
  const auto name = hostText(layerChoice_->currentText().trimmed());
  const int pen = penChoice_->currentIndex() + 1;
  const int lineType = lineTypeChoice_->currentIndex() + 1;
  runner_.run(tr("Style"), [this, name, pen, lineType] {
    DrawingWindow& window = host_->window();
    DrawingStyle& style = window.style();
    if (style.pen != pen || style.linetype != lineType) {
      style.pen = pen;
      style.linetype = lineType;
      recorder_.statement(QString("style %1 %2 %3").arg(pen).arg(lineType).arg(style.width));
    }
    Drawing& drawing = window.drawing();
    if (!name || name->empty() || drawing.layer(drawing.currentLayer())->name == *name) { return; }
    drawing.setCurrentLayer(drawing.addLayer(Layer{*name}));
    recorder_.statement("layer " + scriptString(shown(*name)));
  });
}

// ---- Panels ------------------------------------------------------------------------------------------------

void MainWindow::buildDocks() {
  const auto dock = [this](const QString& title, const char* name, QWidget* panel) {
    auto* made = new QDockWidget(title, this);
    made->setObjectName(name);
    made->setWidget(panel);
    addDockWidget(Qt::RightDockWidgetArea, made);
  };
  layers_ = new LayersPanel(this);
  groups_ = new GroupsPanel(this);
  dock(tr("Layers"), "layersDock", layers_);
  dock(tr("Groups"), "groupsDock", groups_);
  dock(tr("Shortcut Bar"), "shortcutDock", shortcutBar_);
  // Without a group in it the bar is but a frame.
  findChild<QDockWidget*>("shortcutDock")->setVisible(shortcutBar_->count() > 0);
  connect(groups_, &GroupsPanel::groupPicked, this, &MainWindow::selectGroup);
  connect(layers_, &LayersPanel::layerChanged, this, [this](int index, const Layer& layer) {
    runner_.run(tr("Layer"), [this, index, layer] {
      host_->window().drawing().changeLayer(index, layer);
      recorder_.statement("layerstate " + scriptString(shown(layer.name)) + (layer.visible ? " shown" : " hidden") +
                          (layer.locked ? " locked" : " unlocked"));
    });
  });
  connect(layers_, &LayersPanel::currentAsked, this, [this](int index) {
    runner_.run(tr("Layer"), [this, index] {
      host_->window().drawing().setCurrentLayer(index);
      recorder_.statement("layer " + scriptString(shown(host_->window().drawing().layer(index)->name)));
    });
  });
}

// ---- Settings of the drawing and of the program ---------------------------------------------------------------------

void MainWindow::editSettings() {
  runner_.run(tr("Drawing Settings"), [this] {
    using namespace dialog;
    Drawing& drawing = host_->window().drawing();
    Parameters parameters = drawing.parameters();
    Dialog dialog("Drawing Settings");
    const CFloatEdit scale = addFloat(dialog, {"&Scale 1:", "", 0, {0, 0}}, 0.0001, 1e9, "%.4f");
    const CFloatEdit unit = addFloat(dialog, {"Millimetres per &unit:", "", 0, {1, 0}}, 1e-6, 1e9, "%.6f");
    const RadioHandle system = addRadio(dialog, {"Coordinate system", "", 0, {2, 0, 1, 1}},
                                        {{"Su&rvey", ""}, {"&Cartesian", ""}}, parameters.coordinateSystem());
    const CheckHandle orientation = addCheck(dialog, {"South &up (survey sheets)", "", 0, {3, 0}});
    const int buttons = dialog.addGroup({"", 0, {4, 0}});
    addButton(dialog, {"OK", "", buttons, {0, 0}}, ButtonRole::kOk);
    addButton(dialog, {"Cancel", "", buttons, {0, 1}}, ButtonRole::kCancel);
    scale.SetValue(parameters.scale());
    unit.SetValue(parameters.unit());
    orientation.setChecked(parameters.orientation() == 1);
    dialog.onHelp = [this](int) { help_->showTopic("", nullptr); };
    if (!user_->runDialog(dialog)) { return; }
    const auto set = [this](const char* name, double before, double now) {
      if (before == now) { return; }
      recorder_.statement(QString("parameter %1 %2").arg(name, QString::fromStdString(numberText::shortest(now))));
    };
    const Parameters before = parameters;
    parameters.setScale(scale.GetValue());
    parameters.setUnit(unit.GetValue());
    parameters.setCoordinateSystem(system.chosen());
    parameters.setOrientation(orientation.checked() ? 1 : 0);
    drawing.setParameters(parameters);
    recorder_.dropDialog();
    set("scale", before.scale(), parameters.scale());
    set("unit", before.unit(), parameters.unit());
    set("coordinateSystem", before.coordinateSystem(), parameters.coordinateSystem());
    set("orientation", before.orientation(), parameters.orientation());
  });
}

void MainWindow::setTheme(bool dark) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QPalette palette = QApplication::style()->standardPalette();
  if (dark) {
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor text(0xdf, 0xe1, 0xe5);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, QColor(0x3a, 0x3d, 0x42));  // lighter: boxes without a tick show
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Button, QColor(0x45, 0x49, 0x4f));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x41));
    palette.setColor(QPalette::Mid, QColor(0x55, 0x58, 0x5c));
    palette.setColor(QPalette::Dark, QColor(0x1a, 0x1b, 0x1d));
    palette.setColor(QPalette::Light, QColor(0x50, 0x53, 0x57));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7a, 0xc0));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::HighlightedText}) {
      palette.setColor(role, text);
      palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x83, 0x87));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x93, 0x97));
  } else {
    palette.setColor(QPalette::Highlight, QColor(0x1f, 0x6f, 0xc5));
  }
  QApplication::setPalette(palette);
  refreshIcons();
}

}  // namespace brevan

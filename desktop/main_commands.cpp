#include <QStatusBar>

#include "desktop/main_window.h"
#include "desktop/texts.h"
#include "host/drawing/part_selection.h"
#include "host/macros/macro_drawing.h"
#include "host/scripts/item_ranges.h"
#include "host/tools/drawing_tools.h"
#include "host/window/module.h"

// What the user runs and selects.
namespace brevan {

// ---- Commands ----------------------------------------------------------------------------------------------

void MainWindow::runTyped(const QString& text) {
  last_ = text;
  const std::string name = text.toStdString();
  if (host_->module()->command(name) != nullptr) {
    runCommand(text);
  } else if (drawingTool(name) != nullptr) {
    runTool(text);
  } else if (const auto macro = hostText(text)) {
    perform(text, "macro " + text, [this, macro] { host_->runMacro(*macro); });
  }
}

void MainWindow::runCommand(const QString& name) {
  last_ = name;
  perform(name, "run " + name, [this, name] { host_->runCommand(name.toStdString()); });
}

void MainWindow::runTool(const QString& name) {
  last_ = name;
  const DrawingTool* tool = drawingTool(name.toStdString());
  perform(name, "tool " + shown(tool->name), [this, tool] { host_->runTool(tool->name, tool->run); });
}

void MainWindow::perform(const QString& name, const QString& statement, const std::function<void()>& task) {
  runner_.run(name, [this, statement, task] {
    recordSelection();
    recorder_.statement(statement);
    task();
    document().selection = host_->window().drawing().selection();
  });
}

// What was selected by hand since something ran.
void MainWindow::recordSelection() {
  std::vector<PrimitiveId> selection = host_->window().drawing().selection();
  if (selection == document().selection) { return; }
  recorder_.statement("selection" + QString::fromStdString(itemRanges(selection)));
  document().selection = std::move(selection);
}

void MainWindow::browse(const QString& file) {
  runner_.run(tr("Place Symbols"), [this, file] {
    recorder_.statement("browse " + scriptString(file));
    host_->browse(file.toStdString());
  });
}

void MainWindow::undo() { step(tr("Undo"), "undo", &Drawing::undo); }

void MainWindow::redo() { step(tr("Redo"), "redo", &Drawing::redo); }

void MainWindow::step(const QString& name, const QString& statement, bool (Drawing::*step)()) {
  runner_.run(name, [this, statement, step] {
    Drawing& drawing = host_->window().drawing();
    recordSelection();
    if ((drawing.*step)()) { recorder_.statement(statement); }
    document().selection = drawing.selection();
  });
}

// ---- Selecting ---------------------------------------------------------------------------------------------

void MainWindow::select(PrimitiveId id, bool more) {
  if (runner_.busy()) { return; }
  Drawing& drawing = host_->window().drawing();
  if (!more) { drawing.clearSelection(); }
  if (id != 0) {
    togglePart(drawing, id);
    const GroupId group = drawing.find(id)->group;
    const Primitive& primitive = *drawing.find(id);
    statusBar()->showMessage(
        tr("%1 on layer %2").arg(shown(kindName(primitive.geometry)), shown(drawing.layer(primitive.layer)->name)) +
        (group == 0 ? QString() : "   " + shown(drawing.group(group).parent) + " " + shown(drawing.group(group).name)));
  }
  view().update();
}

void MainWindow::selectWindow(const Box& box, WindowTakes takes, bool more) {
  if (runner_.busy()) { return; }
  Drawing& drawing = host_->window().drawing();
  if (!more) { drawing.clearSelection(); }
  selectParts(drawing, box, takes);
  view().update();
}

void MainWindow::selectGroup(GroupId group) {
  if (runner_.busy()) { return; }
  Drawing& drawing = host_->window().drawing();
  drawing.clearSelection();
  Box box;
  for (const PrimitiveId id : drawing.membersOf(group)) {
    if (isChangeable(drawing, id)) { drawing.select(id); }
    box.add(drawing.bounds(*drawing.find(id)));
  }
  const Point low = view().toDrawing(QPointF(0, view().height()));
  const Point high = view().toDrawing(QPointF(view().width(), 0));
  Box seen;
  seen.add(low);
  seen.add(high);
  if (!box.empty() && !seen.holds(box)) { view().zoomTo(box.grownBy(std::max(box.width(), box.height()))); }
  view().update();
}

}  // namespace brevan

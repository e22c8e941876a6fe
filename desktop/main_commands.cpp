#include <QStatusBar>

#include "desktop/main_window.h"
#include "desktop/texts.h"
#include "frame/host/number_text.h"
#include "host/drawing/part_selection.h"
#include "host/macros/macro_drawing.h"
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
  } else {
    const auto macro = hostText(text);
    if (!macro) { return; }
    runner_.run(text, [this, text, macro] {
      recorder_.statement("macro " + text);
      host_->runMacro(*macro);
    });
  }
}

void MainWindow::runCommand(const QString& name) {
  last_ = name;
  runner_.run(name, [this, name] {
    recorder_.statement("run " + name);
    host_->runCommand(name.toStdString());
  });
}

void MainWindow::runTool(const QString& name) {
  last_ = name;
  const DrawingTool* tool = drawingTool(name.toStdString());
  runner_.run(name, [this, tool] {
    if (tool->changesSelection) { recordSelection(); }
    recorder_.statement("tool " + shown(tool->name));
    host_->runTool(tool->name, tool->run);
  });
}

// What is selected here was clicked together; a script selects it item by item.
void MainWindow::recordSelection() {
  const Drawing& drawing = host_->window().drawing();
  for (const PrimitiveId id : drawing.selection()) {
    const Primitive& primitive = *drawing.find(id);
    constexpr double kSomewhere = 0.37;  // where neighbours seldom meet it
    const auto curve = curveOf(primitive);
    Point at;
    if (curve) {
      at = pointAt(*curve, kSomewhere);
    } else {
      forEachPoint(primitive.geometry, [&at](Point p) { at = p; });
    }
    recorder_.statement(QString("macro #SELECT [%1,%2]")
                            .arg(QString::fromStdString(numberText::shortest(at.x)),
                                 QString::fromStdString(numberText::shortest(at.y))));
  }
}

void MainWindow::undo() {
  runner_.run(tr("Undo"), [this] {
    if (host_->window().drawing().undo()) { recorder_.statement("undo"); }
  });
}

void MainWindow::redo() {
  runner_.run(tr("Redo"), [this] {
    if (host_->window().drawing().redo()) { recorder_.statement("redo"); }
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

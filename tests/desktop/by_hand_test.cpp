#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include "host/scripts/plain_primitives.h"
#include "host/window/dialog_fields.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

bool isOneOf(const Statement& statement, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), statement.name()) != names.end();
}

// Plays a script with a person's hands: every command, prompt, menu, message and control of a dialog by keys or mouse
// in the real windows. What draws without a question is done past the windows, and written down as it stands.
class ByHand : public DesktopSession, public ::testing::WithParamInterface<const char*> {
 protected:
  // The script of what was done: the recorder's lines of the commands, and the statements between them.
  std::string play(const Script& script) {
    ScriptCursor cursor(script);
    std::string done;
    while (cursor.peek() != nullptr) {
      const Statement& statement = cursor.take();
      if (isOneOf(statement, {"expect", "export"})) { continue; }
      if (statement.name() != "run") {
        prepare(cursor, statement);
        done += statement.shown() + '\n';
        continue;
      }
      const qsizetype before = window_->recorder().lines().size();
      while (cursor.peek() != nullptr && isAnswer(*cursor.peek())) { queue(cursor, cursor.take()); }
      act([&] { type(word(statement, 1)); });
      done += window_->recorder().lines().mid(before).join('\n').toStdString() + '\n';
    }
    return done;
  }

 private:
  static bool isAnswer(const Statement& statement) {
    return isOneOf(statement, {"dialog", "pick", "set", "check", "uncheck", "rightclick", "press", "point", "space",
                               "escape", "text", "accept", "menu", "reply", "expect", "file", "width"});
  }
  static QString word(const Statement& statement, size_t index) {
    return QString::fromLatin1(statement.words.at(index).text.c_str());
  }

  void prepare(const ScriptCursor& cursor, const Statement& statement) {
    DrawingWindow& window = window_->host().window();
    if (statement.name() == "setting") {
      window_->host().paths().settings->SetString(cursor.string(statement, 1), cursor.string(statement, 2),
                                                  cursor.string(statement, 3));
    } else if (statement.name() == "parameter") {
      setParameter(cursor.string(statement, 1), cursor.number(statement, 2));
    } else if (statement.name() == "sheet") {
      drawing().setSheet(isoSheet(cursor.string(statement, 1), cursor.string(statement, 2) == "portrait"));
    } else if (statement.name() == "layer") {
      drawing().setCurrentLayer(drawing().addLayer({cursor.string(statement, 1)}));
    } else if (statement.name() == "style") {
      window.style() = styleOf(cursor, statement);
    } else if (statement.name() == "textstyle") {
      const Text style = textOfStyle(cursor, statement);
      TextDefaults& defaults = window.textDefaults();
      defaults.font = style.font, defaults.height = style.height, defaults.width = style.widthFactor;
      defaults.justification = style.justification, defaults.pen = style.pen;
    } else if (statement.name() == "draw") {
      window.addPlain(plainGeometry(cursor, statement, window));
    } else if (statement.name() == "macro") {
      window_->host().runMacro(statement.rest);
    } else {
      ADD_FAILURE() << "no hand for " << statement.shown();
    }
  }
  void setParameter(const std::string& name, double value) {
    Parameters parameters = drawing().parameters();
    if (name == "scale") { parameters.setScale(value); }
    if (name == "unit") { parameters.setUnit(value); }
    if (name == "coordinateSystem") { parameters.setCoordinateSystem(static_cast<int>(value)); }
    if (name == "orientation") { parameters.setOrientation(static_cast<int>(value)); }
    if (name == "areaUnit") { parameters.setAreaUnit(static_cast<int>(value)); }
    drawing().setParameters(parameters);
  }

  void queue(const ScriptCursor& cursor, const Statement& statement) {
    if (isOneOf(statement, {"point", "space", "escape", "text", "accept"})) {
      when([this] { return user().wantsAnything() && QApplication::activeModalWidget() == nullptr; },
           [this, &statement] { answer(statement); });
    } else if (statement.name() == "menu" && word(statement, 1).contains('/')) {
      whenDialog([&statement](DialogWindow& dialog) {
        QTimer::singleShot(0, &dialog, [&dialog, &statement] { chooseFromBar(dialog, word(statement, 1)); });
      });
    } else if (statement.name() == "menu") {
      when([] { return QApplication::activePopupWidget() != nullptr; },
           [&statement] { choose(*qobject_cast<QMenu*>(QApplication::activePopupWidget()), word(statement, 1)); });
    } else if (statement.name() == "reply") {
      whenAsked(word(statement, 1) == "no" ? QMessageBox::No : QMessageBox::Yes);
    } else if (statement.name() == "file") {
      chooses(root_ + '/' + word(statement, 1));
    } else if (statement.name() == "expect") {
      if (statement.words[1].text != "message" || cursor.nextIs("reply")) { return; }
      when([] { return boxShown() != nullptr; }, [] { QTest::keyClick(boxShown(), Qt::Key_Return); });
    } else if (statement.name() == "dialog") {
      const QString title = word(statement, 1);
      when([title] { return dialogShown() != nullptr && dialogShown()->windowTitle() == title; }, [] {});
    } else {
      // On its own, since what it opens waits in an event loop of its own.
      whenDialog([this, &statement](DialogWindow& dialog) {
        QTimer::singleShot(0, &dialog, [this, &dialog, &statement] { operate(dialog, statement); });
      });
      when([this] { return operated_; }, [this] { operated_ = false; });
    }
  }

  static void chooseFromBar(DialogWindow& dialog, const QString& path) {
    const QString item = path.section('/', 1);
    for (const QAction* menu : dialog.findChild<QMenuBar*>()->actions()) {
      for (QAction* action : menu->menu()->actions()) {
        if (action->text().remove('&') == item) { return action->trigger(); }
      }
    }
    ADD_FAILURE() << "no entry " << path.toStdString();
  }
  void answer(const Statement& statement) {
    if (statement.name() == "space") { return key(Qt::Key_Space); }
    if (statement.name() == "escape") { return key(Qt::Key_Escape); }
    if (statement.name() == "point") { return type(word(statement, 1) + ',' + word(statement, 2)); }
    if (statement.name() == "text") {
      edit().clear();
      return type(word(statement, 1));
    }
    key(Qt::Key_Return);
  }
  static void choose(QMenu& menu, const QString& item) {
    for (QAction* action : menu.actions()) {
      if (!action->text().remove('&').endsWith(item)) { continue; }
      menu.setActiveAction(action);
      return QTest::keyClick(&menu, Qt::Key_Return);
    }
    ADD_FAILURE() << "no entry " << item.toStdString();
  }

  void operate(DialogWindow& dialog, const Statement& statement) {
    operated_ = true;
    if (statement.name() == "press") { return press(dialog, word(statement, 1)); }
    const int control = controlAt(dialog.description(), statement.words.at(1).text);
    QWidget* widget = nullptr;
    for (QWidget* found : dialog.findChildren<QWidget*>()) {
      if (found->property("control") == control) { widget = found; }
    }
    ASSERT_NE(widget, nullptr) << statement.shown();
    if (statement.name() == "set") {
      widget->setFocus();
      QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
      QTest::keyClicks(widget, word(statement, 2));
      QTest::keyClick(widget, Qt::Key_Tab);
    } else if (statement.name() == "pick") {
      pick(dialog, *widget, word(statement, 2));
    } else if (statement.name() == "width") {
      drag(*widget, word(statement, 2), word(statement, 3).toInt());
    } else if (statement.name() == "rightclick") {
      auto& grid = dynamic_cast<QTableWidget&>(*widget);
      int column = 0;
      while (grid.horizontalHeaderItem(column)->text() != word(statement, 3)) { ++column; }
      QTableWidgetItem* cell = grid.item(word(statement, 2).toInt() - 1, column);
      emit grid.customContextMenuRequested(grid.visualItemRect(cell).center());
    } else {
      auto& box = dynamic_cast<QAbstractButton&>(*widget);
      if (box.isChecked() != (statement.name() == "check")) { box.click(); }
    }
  }
  static void drag(QWidget& list, const QString& column, int pixels) {
    QHeaderView* header = list.findChild<QHeaderView*>();
    for (int place = 0; place < header->count(); ++place) {
      if (header->model()->headerData(place, Qt::Horizontal).toString() == column) {
        return header->resizeSection(place, pixels);
      }
    }
    ADD_FAILURE() << "no column " << column.toStdString();
  }
  static void pick(DialogWindow& dialog, QWidget& widget, const QString& item) {
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
      combo->setCurrentIndex(combo->findText(item));  // the text of an editable list would be a new name
      emit combo->activated(combo->currentIndex());
      return;
    }
    for (QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
      if (button->isVisible() && button->text().remove('&') == item) { return button->click(); }
    }
    ADD_FAILURE() << "nothing to pick: " << item.toStdString();
  }

  bool operated_ = false;
};

// Each example done by hand is what its script draws, and so is what was recorded of it.
TEST_P(ByHand, AnExampleIsDrawnAndRecordedAsItsScriptDraws) {
  const std::filesystem::path folder = std::filesystem::path(SOURCE_ROOT "/examples") / GetParam();
  for (const char* place : {"", "/data"}) {  // the settings file of a job lies beside its script
    std::filesystem::copy(folder, root_.toStdString() + place);
  }
  std::stringstream text;
  text << std::ifstream(folder / (GetParam() + std::string(".scr"))).rdbuf();
  const Script script = readScript("example.scr", text.str());
  const std::string recorded = play(script);
  const std::string byHand = json();
  window_.reset();  // the module keeps the libraries that it has read until its host goes
  std::string plain;
  for (const Statement& statement : script.statements) {
    if (statement.name() != "export") { plain += statement.shown() + '\n'; }
  }
  EXPECT_TRUE(byHand == replay(plain)) << recorded;
  EXPECT_TRUE(byHand == replay(recorded)) << recorded;
}

INSTANTIATE_TEST_SUITE_P(Examples, ByHand,
                         ::testing::Values("bearing_cover", "clamp_strip", "duct", "erf_diagram", "flange_plate",
                                           "gear_shaft", "house_plan", "own_bolts", "pump_drive", "sloping_cover"));

}  // namespace

#include <QRadioButton>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTextBrowser>
#include <set>

#include "desktop/help_window.h"
#include "host/window/module.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// A dialog behind a button or a choice of another, and the page of help that is its own.
struct InnerRow {
  const char* press;
  const char* title;  // its beginning
  const char* page;   // the end of the topic
};

constexpr InnerRow kInnerRows[] = {
    {"Set", "Building Standards Setup", "/Architectural_Setup_Dialog.htm#Building_Standards_Setup"},
    {"Internal", "Wall Setup", "/Wall_Setup_Dialog.htm#Internal_Wall_Setup_Dialog"},
    {"External", "Wall Setup", "/Wall_Setup_Dialog.htm#External_Wall_Setup_Dialog"},
    {"Options", "Diagram options", "/SG_Diagram_Options.htm"},
    {"Options", "General Plan Options", "/GP_Options_Dialog.htm"},
    {"Options", "Sectional Title Options", "/Sectional_Plans_Options_Dialog.htm"},
    {"Control coords", "Control Coordinates", "/National_coordinate_system_connections.htm"},
};

class DialogHelp : public DesktopSession {
 protected:
  static HelpWindow* helpShown() { return qobject_cast<HelpWindow*>(QApplication::activeModalWidget()); }
  static QAbstractButton* button(const DialogWindow& dialog, const QString& caption) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->text().remove('&').remove('.') == caption) { return button; }
    }
    return nullptr;
  }
  // Asks for help in the dialog that is open, and leaves both.
  void askAndClose() {
    whenDialog([this](DialogWindow& dialog) {
      title_ = dialog.windowTitle();
      for (const InnerRow& row : kInnerRows) {
        if (button(dialog, row.press) != nullptr) { offered_.insert(row.press); }
      }
      QTest::keyClick(&dialog, Qt::Key_F1);
    });
    when([] { return helpShown() != nullptr; },
         [this] {
           topic_ = QString::fromStdString(helpShown()->topic());
           text_ = helpShown()->text();
           html_ = helpShown()->findChild<QTextBrowser*>()->toHtml();
           QTest::keyClick(helpShown(), Qt::Key_Escape);
         });
    whenDialog([](DialogWindow& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  }
  void askBehind(const std::string& press) {
    whenDialog([this, press](DialogWindow& dialog) {
      title_ = dialog.windowTitle();
      // On its own, since a dialog that it opens waits in an event loop of its own.
      QTimer::singleShot(0, button(dialog, press.c_str()),
                         [pressed = button(dialog, press.c_str())] { pressed->click(); });
    });
    const bool choice = press == "Internal" || press == "External";
    if (!choice) {
      when([this] { return dialogShown() != nullptr && dialogShown()->windowTitle() != title_; }, [] {});
    }
    askAndClose();
    if (!choice) {
      whenDialog([](DialogWindow& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    }
  }
  // The chapter that the page leads on to; "" where it leads to none.
  std::string chapter() {
    const auto link = QRegularExpression("href=\"([^\"]*)\"").match(html_);
    if (!link.hasMatch()) { return ""; }
    std::ifstream in(QUrl(link.captured(1)).toLocalFile().toStdString());
    EXPECT_TRUE(in) << link.captured(1).toStdString();
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // In a survey drawing: survey commands ask nothing in another.
  void run(const CommandRow& command) {
    Parameters parameters = window_->host().window().drawing().parameters();
    parameters.setCoordinateSystem(0);
    window_->host().window().drawing().setParameters(parameters);
    act([&] { window_->runCommand(command.name); });
  }
  QString title_;  // of the dialog in which help was asked for, what the page was and said
  QString topic_;
  QString text_;
  QString html_;
  std::set<std::string> offered_;  // what there is to press for an inner dialog
};

TEST_F(DialogHelp, OfACommandIsThatOfItsRowAndLeadsToItsChapter) {
  for (const CommandRow& command : window_->host().module()->commands()) {
    SCOPED_TRACE(command.name);
    const bool asks = std::string(command.caption).ends_with("...");
    EXPECT_EQ(asks, *command.help != '\0');
    if (!asks) { continue; }
    askAndClose();
    topic_.clear();
    run(command);
    EXPECT_EQ(topic_.section('#', 0, 0), QString(command.help).section('#', 0, 0));
    EXPECT_TRUE(text_.startsWith(title_)) << text_.left(60).toStdString();
    if (command.name == std::string_view("MechDrawBolts")) { EXPECT_TRUE(text_.contains("number: 0 to 10000")); }
    EXPECT_EQ(*command.chapter.file != '\0', chapter().find(command.name) != std::string::npos);
  }
}

TEST_F(DialogHelp, OfAnInnerDialogIsItsOwn) {
  std::set<const InnerRow*> found;
  for (const CommandRow& command : window_->host().module()->commands()) {
    if (*command.help == '\0') { continue; }
    offered_.clear();
    askAndClose();
    run(command);
    for (const std::string& press : std::set(offered_)) {
      SCOPED_TRACE(std::string(command.name) + ' ' + press);
      askBehind(press);
      run(command);
      const auto* row = std::ranges::find_if(
          kInnerRows, [&](const InnerRow& inner) { return press == inner.press && title_.startsWith(inner.title); });
      ASSERT_NE(row, std::end(kInnerRows)) << title_.toStdString();
      EXPECT_TRUE(topic_.endsWith(row->page)) << topic_.toStdString();
      EXPECT_TRUE(text_.startsWith(title_)) << text_.left(60).toStdString();
      found.insert(row);
    }
  }
  EXPECT_EQ(found.size(), std::size(kInnerRows));
}

// What a command's row names is there.
TEST_F(DialogHelp, EveryRowNamesFilesThatShip) {
  const QString data = QString::fromStdString(BREVAN_DATA);
  std::set<std::string> icons;
  for (const CommandRow& command : window_->host().module()->commands()) {
    SCOPED_TRACE(command.name);
    EXPECT_TRUE(QSvgRenderer(data + "/icons/" + command.icon + ".svg").isValid());
    EXPECT_TRUE(icons.insert(command.icon).second) << "two commands of one icon";
    if (*command.chapter.file != '\0') { EXPECT_TRUE(QFile::exists(data + "/Help/" + command.chapter.file)); }
    EXPECT_FALSE(command.settings.empty());
    for (const FirstSetting& setting : command.settings) {
      EXPECT_TRUE(QFile::exists(data + '/' + setting.value)) << setting.value;
    }
  }
}

}  // namespace

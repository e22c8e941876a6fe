#include <QRadioButton>
#include <QRegularExpression>
#include <QTextBrowser>

#include "desktop/help_window.h"
#include "host/window/module.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// The dialog of a command, or one behind its buttons, and the page of help that is its own.
struct HelpRow {
  const char* command;
  const char* press;  // in the command's dialog: a button or a choice; "" for none
  const char* title;  // of the dialog that help is asked for in, its beginning
  const char* page;   // the end of the topic
};

constexpr HelpRow kHelpRows[] = {
    {"DisplayMechSetup", "", "Mechanical Ardenix - Setup", "/Mechanical_Setup_Dialog.htm"},
    {"MechDrawBolts", "", "Mechanical Ardenix - Hex Bolts", "/Bolt_Setup_Dialog.htm"},
    {"MechDrawScrews", "", "Mechanical Ardenix - Socket Screws", "/Screw_Setup_Dialog.htm"},
    {"MechDrawNuts", "", "Mechanical Ardenix - Nuts", "/Nut_Setup_Dialog.htm"},
    {"MechDrawHoles", "", "Mechanical Ardenix - Drilled Holes", "/Hole_Setup_Dialog.htm"},
    {"MechDrawRivets", "", "Mechanical Ardenix - Rivets", "/Rivet_Setup_Dialog.htm"},
    {"DisplayArchSetup", "", "Architectural Setup", "/Architectural_Setup_Dialog.htm"},
    {"DisplayArchSetup", "Set", "Building Standards Setup", "/Architectural_Setup_Dialog.htm#Building_Standards_Setup"},
    {"ArchSetWalls", "Internal", "Wall Setup", "/Wall_Setup_Dialog.htm#Internal_Wall_Setup_Dialog"},
    {"ArchSetWalls", "External", "Wall Setup", "/Wall_Setup_Dialog.htm#External_Wall_Setup_Dialog"},
    {"ArchDrawWalls", "Internal", "Wall Setup", "/Wall_Setup_Dialog.htm#Internal_Wall_Setup_Dialog"},
    {"ArchDrawWalls", "External", "Wall Setup", "/Wall_Setup_Dialog.htm#External_Wall_Setup_Dialog"},
    {"SG_DiagramEditor", "", "SG Diagram setup", "/SG_DIaram_Generation.htm"},
    {"SG_DiagramEditor", "Options", "Diagram options", "/SG_Diagram_Options.htm"},
    {"SG_DiagramEditor", "Control coords", "Control Coordinates", "/National_coordinate_system_connections.htm"},
    {"SG_GenplanEditor", "", "General Plan setup", "/General_Plan_Generation.htm"},
    {"SG_GenplanEditor", "Options", "General Plan Options", "/GP_Options_Dialog.htm"},
    {"SG_GenplanEditor", "Control coords", "Control Coordinates", "/National_coordinate_system_connections.htm"},
    {"SG_SectionEditor", "", "Sectional Plan setup", "/Sectional_Plans/Default_Settings.htm"},
    {"SG_SectionEditor", "Options", "Sectional Title Options", "/Sectional_Plans_Options_Dialog.htm"},
};

class DialogHelp : public DesktopSession {
 protected:
  void SetUp() override {
    std::ofstream(root_.toStdString() + "/settings.ini")
        << "[MechanicalTools]\r\nSpecFile=ISO Mechspecs.ini\r\n[ArchitecturalTools]\r\nSpecFile=ArchSpecs.ini\r\n"
           "[SG_DEFAULTS]\r\nSG_DiaramFile=SG Diagram.ini\r\nSG_GenPlanFile=General Plan.ini\r\n"
           "SG_SectionalFile=Sectional Plan.ini\r\n";
    DesktopSession::SetUp();
  }
  static HelpWindow* helpShown() { return qobject_cast<HelpWindow*>(QApplication::activeModalWidget()); }
  // On its own, since a dialog that it opens waits in an event loop of its own.
  static void choose(const DialogWindow& dialog, const QString& caption) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || button->text().remove('&').remove('.') != caption) { continue; }
      return QTimer::singleShot(0, button, [button] { button->click(); });
    }
    ADD_FAILURE() << "no button " << caption.toStdString();
  }
  void askAndClose(const HelpRow& row) {
    when([row] { return dialogShown() != nullptr && dialogShown()->windowTitle().startsWith(row.title); },
         [] { QTest::keyClick(dialogShown(), Qt::Key_F1); });
    when([] { return helpShown() != nullptr; },
         [this, row] {
           topic_ = QString::fromStdString(helpShown()->topic());
           text_ = helpShown()->text();
           html_ = helpShown()->findChild<QTextBrowser*>()->toHtml();
           QTest::keyClick(helpShown(), Qt::Key_Escape);
         });
    whenDialog([](DialogWindow& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  }
  // The chapter that the page leads on to; "" where it leads to none.
  std::string chapter() {
    const auto link = QRegularExpression("href=\"([^\"]*)\"").match(html_);
    if (!link.hasMatch()) { return ""; }
    std::ifstream in(QUrl(link.captured(1)).toLocalFile().toStdString());
    EXPECT_TRUE(in) << link.captured(1).toStdString();
    return {std::istreambuf_iterator<char>(in), {}};
  }
  QString topic_;
  QString text_;
  QString html_;
};

TEST_F(DialogHelp, IsThatOfTheDialogAndLeadsToItsCommand) {
  std::set<std::string> visited;
  for (const HelpRow& row : kHelpRows) {
    SCOPED_TRACE(std::string(row.command) + ' ' + row.press);
    visited.insert(row.command);
    const bool pressed = *row.press != '\0';
    if (pressed) {
      whenDialog([row](DialogWindow& dialog) { choose(dialog, row.press); });
    }
    askAndClose(row);
    const bool inner = pressed && !QString(row.title).startsWith("Wall");
    if (inner) {
      whenDialog([](DialogWindow& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    }
    topic_.clear();
    act([&] { window_->runCommand(row.command); });
    EXPECT_TRUE(topic_.endsWith(row.page)) << topic_.toStdString();
    EXPECT_TRUE(text_.startsWith(row.title)) << text_.left(60).toStdString();
    const bool hasChapter = !topic_.startsWith("Ardenix/Mechanical");
    EXPECT_EQ(hasChapter, chapter().find(row.command) != std::string::npos);
  }
  for (const CommandRow& command : window_->host().module()->commands()) {
    if (std::string(command.caption).ends_with("...")) { EXPECT_TRUE(visited.contains(command.name)) << command.name; }
  }
}

}  // namespace

#pragma once

#include <QColor>
#include <QMainWindow>
#include <QTabWidget>
#include <map>
#include <memory>

#include "desktop/command_runner.h"
#include "desktop/desktop_user.h"
#include "desktop/drawing_view.h"
#include "desktop/recorder.h"
#include "desktop/recovery.h"
#include "host/core/file_services.h"
#include "host/core/installation.h"
#include "host/window/host.h"

class QComboBox;
class QLabel;
class QProgressBar;
class QSpinBox;

namespace brevan {

class GroupsPanel;
class HelpWindow;
class LayersPanel;
class PromptBar;
class ShortcutBar;

// What the program is started with.
struct DesktopParts {
  Places places;
  std::string settingsFile;    // native path
  std::string recoveryFolder;  // native path
  std::string helpFolder{};    // of the manual's pages, native path
};

// The settings file's path as the host takes it.
std::string settingsPath(const std::string& native);

// The program's window: drawings in tabs, menus and tool bars for tools and commands, panels and the prompt bar.
class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(const DesktopParts& parts);
  ~MainWindow() override;

  // Opens drawings named on the command line.
  void openFile(const QString& path);
  // Offers back what a session that did not end well had kept; false where there is nothing.
  bool offerRecovery();

  [[nodiscard]] Host& host() { return *host_; }
  [[nodiscard]] CommandRunner& runner() { return runner_; }
  [[nodiscard]] Recorder& recorder() { return recorder_; }
  [[nodiscard]] PromptBar& promptBar() { return *promptBar_; }
  [[nodiscard]] DrawingView& view();
  // Runs what was typed at the prompt: a command's or a tool's name, or a macro.
  void runTyped(const QString& text);
  void runCommand(const QString& name);
  void runTool(const QString& name);
  // Picks a file of the symbol library.
  void browse(const QString& file);
  void undo();
  void redo();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // What the desktop knows of a drawing window beside the host.
  struct Document {
    DrawingView* view = nullptr;
    QString path;  // "" before the first save
    uint64_t savedRevision = 0;
    uint64_t taken = 0;                    // into the drawing when it was kept last
    std::vector<Point> given;              // to the running command since it drew last
    std::vector<PrimitiveId> selection{};  // as a replay of the recording has it
  };

  // The help of the running command's dialog; false where none is open.
  bool showHelp(const std::string& topic);
  void build();
  void connectUser();
  void buildMenus();
  void buildFileMenu();
  void buildEditMenu();
  void buildViewMenu();
  void buildToolMenus();
  void buildCommandMenus();
  void buildHelpMenu();
  void buildStyleBar();
  void buildDocks();
  QAction* action(QMenu& menu, const char* icon, const QString& caption, const QKeySequence& keys,
                  const std::function<void()>& work);

  void perform(const QString& name, const QString& statement, const std::function<void()>& task);
  void step(const QString& name, const QString& statement, bool (Drawing::*step)());
  void recordSelection();
  void followHost();
  void showChanges();
  void keepAll();
  void restoreLayout();
  void keepLayout();
  void showStyle();
  void setStyle();
  void addView(DrawingWindow& window);
  void tabChosen(int tab);
  void closeTab(int tab);
  void closeDrawing(const std::string& name);
  [[nodiscard]] Document& document();
  [[nodiscard]] bool isModified(const std::string& name) const;
  [[nodiscard]] bool isUntouched(const std::string& name) const;
  void select(PrimitiveId id, bool more);
  void selectWindow(const Box& box, WindowTakes takes, bool more);
  void selectGroup(GroupId group);
  void editSettings();
  // The program's own settings.
  [[nodiscard]] std::string setting(const std::string& key) const;
  [[nodiscard]] int setting(const std::string& key, int fallback) const;
  void setSetting(const std::string& key, const std::string& value);
  void setTheme(bool dark);
  void refreshIcons();

  // main_files.cpp
  void newDrawing();
  void askOpen();
  bool save();
  bool saveAs();
  bool saveTo(const QString& path);
  void exportAs();
  void print();
  void saveRecording();
  void noteRecent(const QString& path);
  void showRecent();
  bool mayClose(const std::string& name);

  DesktopParts parts_;
  FileServices files_;
  INI_LIST settings_;
  ViewStyle style_;
  Recorder recorder_;
  Recovery recovery_;
  CommandRunner runner_;
  PromptBar* promptBar_;
  DesktopUser* user_;
  ShortcutBar* shortcutBar_;
  std::unique_ptr<Host> host_;
  QTabWidget* tabs_;
  std::map<std::string, Document> documents_;  // by the window's name
  std::string first_;                          // the name of the window that is there from the start
  LayersPanel* layers_ = nullptr;
  GroupsPanel* groups_ = nullptr;
  QToolBar* toolBar_ = nullptr;
  QComboBox* layerChoice_ = nullptr;
  QComboBox* penChoice_ = nullptr;
  QComboBox* lineTypeChoice_ = nullptr;
  QLabel* coordinates_;
  QLabel* unitLabel_;
  QProgressBar* progress_;
  HelpWindow* help_;
  QMenu* recent_ = nullptr;
  std::vector<std::pair<QAction*, QString>> icons_;
  struct IconLook {
    QColor ink;
    QColor ground;
    double ratio = 0.0;
    size_t tools = 0;
    bool hasPens = false;
    friend bool operator==(const IconLook&, const IconLook&) = default;
  };
  IconLook iconLook_;  // of the icons as they are
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  QString last_;  // what space repeats
  bool following_ = false;
};

}  // namespace brevan

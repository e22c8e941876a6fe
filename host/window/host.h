#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/ini.h"
#include "frame/host/main_frame.h"
#include "host/core/core_context.h"
#include "host/core/file_services.h"
#include "host/files/drawing_files.h"
#include "host/macros/variables.h"
#include "host/window/drawing_window.h"
#include "host/window/module.h"
#include "host/window/side_bar.h"

namespace brevan {

// The host's main window as the module sees it.
class MainFrame : public CMDIFrameWnd {
 public:
  explicit MainFrame(class Host& host) : host_(host) {}
  bool RunDialog(dialog::Dialog& dialog, CWnd* parent) override;
  CCadWindow* SendUserMessage(unsigned message) override;
  void closeDrawingView(CCadWindow& view) override;
  std::unique_ptr<CCadWindow> makeUnseenView() override;
  void SetFocus() override {}

 private:
  Host& host_;
};

// What a host is built from; all of it outlives the host.
struct HostParts {
  User& user;
  FileServices& files;
  INI_LIST& settings;
  EventSink* events = nullptr;
  std::string helpFile;               // of the host, in Windows-1252
  DrawingSource* drawings = nullptr;  // where inserted drawings and symbol files come from; null: the files
  SideBar* shortcutBar = nullptr;     // null: one that nobody sees
  std::function<bool(const std::string& topic)> showHelp{};  // opens a page of help; null: there is no viewer
};

// Ties windows, settings, macro variables, user and module together, and runs commands. While it lives, the
// free functions of the seam answer for it (for the newest, where several live).
class Host {
 public:
  static constexpr size_t kMostWindows = 1000;

  explicit Host(const HostParts& parts);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // Loads a module and initialises it. Throws HostFailure with the loader's reason.
  void loadModule(const std::string& path);
  [[nodiscard]] const Module* module() const { return module_.get(); }

  // Runs one of the module's commands on the current window as one undo step. A command that throws leaves
  // the drawing as it was; the exception goes on. Throws HostFailure for a name that is no command.
  void runCommand(std::string_view name);
  // The one that runs; null where none does.
  [[nodiscard]] const CommandRow* runningCommand() const { return command_; }
  // Runs a tool of the host's own likewise; what is selected stays so for it.
  void runTool(std::string_view name, void (*work)(DrawingWindow& window));
  // Picks a file in the symbol browser, as one undo step; the file as FolderTree::find takes it. Throws HostFailure
  // where there is no such file, or no browser yet.
  void browse(const std::string& file);
  // Runs one macro command as typed by the user. Throws MacroError.
  void runMacro(std::string_view text);

  // Throws HostFailure where kMostWindows are open.
  DrawingWindow& openWindow(std::string name);
  [[nodiscard]] DrawingWindow& window() { return *windows_.at(current_); }
  // Closes the window of this name; in place of the last one a new empty one is opened.
  void closeWindow(std::string_view name);
  // Null for a name that no window bears.
  DrawingWindow* goToWindow(std::string_view name);
  [[nodiscard]] std::vector<std::string> windowNames() const;
  // The weight of all that came into the drawings, see Drawing::taken.
  [[nodiscard]] uint64_t taken() const;
  // "Drawing<n>" that no window bears yet.
  [[nodiscard]] std::string freeWindowName() const;

  [[nodiscard]] MacroVariables& variables() { return variables_; }
  [[nodiscard]] User& user() { return parts_.user; }
  [[nodiscard]] EventSink* events() { return parts_.events; }
  [[nodiscard]] AllPaths& paths() { return paths_; }
  [[nodiscard]] MainFrame& mainFrame() { return mainFrame_; }

 private:
  friend class MainFrame;
  [[nodiscard]] SideBar& sideBar() { return parts_.shortcutBar != nullptr ? *parts_.shortcutBar : shortcutBar_; }
  void runStep(std::string name, const std::function<void(DrawingWindow&)>& work);
  void dropWindow(const CCadWindow& view);
  void endCommand(size_t windowsBefore, DrawingWindow& window, bool well);
  HostParts parts_;
  AllPaths paths_;
  CoreContext context_;
  CoreContextBinding binding_;
  MacroVariables variables_;
  FileDrawings fileDrawings_;
  SymbolTable symbols_;  // of the symbol files loaded for every window
  MainFrame mainFrame_;
  SideBar shortcutBar_;
  std::vector<std::unique_ptr<DrawingWindow>> windows_;
  size_t current_ = 0;
  DrawingWindow* running_ = nullptr;     // where a command runs; the windows that it opens belong to its step
  const CommandRow* command_ = nullptr;  // the one that runs
  std::unique_ptr<Module> module_;
};

}  // namespace brevan

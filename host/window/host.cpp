#include "host/window/host.h"

#include <algorithm>
#include <utility>

#include "frame/host/core_services.h"
#include "frame/host/dialog_description.h"
#include "host/core/text_encoding.h"
#include "host/macros/command.h"
#include "host/window/unseen_window.h"

namespace brevan {

bool MainFrame::RunDialog(dialog::Dialog& dialog, CWnd*) {
  const bool accepted = host_.user().runDialog(dialog);
  if (host_.events() != nullptr) { host_.events()->dialogClosed(dialog.title(), accepted); }
  return accepted;
}

CCadWindow* MainFrame::SendUserMessage(unsigned message) {
  if (message != kNewDrawingView) { return nullptr; }
  return &host_.openWindow(host_.freeWindowName());
}

std::unique_ptr<CCadWindow> MainFrame::makeUnseenView() {
  return std::make_unique<UnseenWindow>(host_.window().services().drawings);
}

void MainFrame::closeDrawingView(CCadWindow& view) { host_.dropWindow(view); }

Host::Host(const HostParts& parts)
    : parts_(parts),
      paths_{&parts.settings},
      context_{parts.files, parts.settings, parts.helpFile, nullptr, parts.showHelp, {}, this},
      binding_(context_),
      fileDrawings_(parts.files),
      mainFrame_(*this),
      shortcutBar_(parts.files) {
  openWindow("Drawing1");
}

Host::~Host() = default;

void Host::loadModule(const std::string& path) {
  module_ = std::make_unique<Module>(path);
  module_->initialise(mainFrame_, sideBar());
}

DrawingWindow& Host::openWindow(std::string name) {
  if (windows_.size() == kMostWindows) {
    throw HostFailure("there are " + std::to_string(kMostWindows) + " windows open, and no more can be opened");
  }
  DrawingSource* const drawings = parts_.drawings != nullptr ? parts_.drawings : &fileDrawings_;
  windows_.push_back(std::make_unique<DrawingWindow>(
      std::move(name), WindowServices{parts_.user, variables_, parts_.events, drawings, &symbols_}));
  current_ = windows_.size() - 1;
  if (running_ != nullptr) { windows_.back()->beginCommand("New drawing"); }
  if (parts_.events != nullptr) { parts_.events->windowOpened(windows_.back()->name()); }
  return *windows_.back();
}

void Host::closeWindow(std::string_view name) {
  const std::string current = window().name();
  std::erase_if(windows_, [name](const auto& window) { return window->name() == name; });
  current_ = 0;
  if (windows_.empty()) {
    openWindow("Drawing1");
  } else {
    goToWindow(current);
  }
}

// Only windows that the running command opened are dropped; its own stays.
void Host::dropWindow(const CCadWindow& view) {
  if (running_ == nullptr || &view == running_) { return; }
  std::erase_if(windows_, [&view](const auto& window) { return window.get() == &view; });
  goToWindow(running_->name());
}

uint64_t Host::taken() const {
  uint64_t all = 0;
  for (const auto& window : windows_) { all += window->drawing().taken(); }
  return all;
}

DrawingWindow* Host::goToWindow(std::string_view name) {
  for (size_t index = 0; index < windows_.size(); ++index) {
    if (windows_[index]->name() != name) { continue; }
    current_ = index;
    return windows_[index].get();
  }
  return nullptr;
}

std::string Host::freeWindowName() const {
  const std::vector<std::string> taken = windowNames();
  size_t number = windows_.size() + 1;
  const auto name = [&number] { return "Drawing" + std::to_string(number); };
  while (std::find(taken.begin(), taken.end(), name()) != taken.end()) { ++number; }
  return name();
}

std::vector<std::string> Host::windowNames() const {
  std::vector<std::string> names;
  for (const auto& window : windows_) { names.push_back(window->name()); }
  return names;
}

// Closes the command's step in its own window and in those it opened; the latter go with a command that
// did not end well.
void Host::endCommand(size_t windowsBefore, DrawingWindow& window, bool well) {
  running_ = nullptr;
  command_ = nullptr;
  for (size_t opened = windowsBefore; opened < windows_.size(); ++opened) { windows_[opened]->endCommand(well); }
  window.endCommand(well);
  if (well) { return; }
  windows_.resize(windowsBefore);
  goToWindow(window.name());
}

namespace {

// Gives the user the pen, line type and width back that were current, whatever a command sets for its own drawing and
// however it ends.
class StyleOfUser {
 public:
  explicit StyleOfUser(DrawingStyle& style) : style_(style), kept_(style) {}
  StyleOfUser(const StyleOfUser&) = delete;
  StyleOfUser& operator=(const StyleOfUser&) = delete;
  ~StyleOfUser() { style_ = kept_; }

 private:
  DrawingStyle& style_;
  DrawingStyle kept_;
};

}  // namespace

void Host::runCommand(std::string_view name) {
  const CommandRow* const command = module_ != nullptr ? module_->command(name) : nullptr;
  if (command == nullptr) { throw HostFailure("There is no command \"" + std::string(name) + "\"."); }
  const StyleOfUser style(window().style());
  runStep(std::string(name), [&](DrawingWindow& window) {
    command_ = command;
    module_->call(*command, window);
  });
  parts_.settings.Save();  // what the command set outlasts the session
}

void Host::runTool(std::string_view name, void (*work)(DrawingWindow&)) {
  std::vector<PrimitiveId> selected = window().drawing().selection();
  runStep(std::string(name), [&](DrawingWindow& window) {
    for (const PrimitiveId id : selected) { window.drawing().select(id); }
    work(window);
    selected = window.drawing().selection();
  });
  for (const PrimitiveId id : selected) { window().drawing().select(id); }
}

void Host::runStep(std::string name, const std::function<void(DrawingWindow&)>& work) {
  DrawingWindow& window = this->window();
  const size_t windowsBefore = windows_.size();
  window.beginCommand(std::move(name));
  running_ = &window;
  try {
    work(window);
  } catch (...) {
    endCommand(windowsBefore, window, false);
    throw;
  }
  endCommand(windowsBefore, window, true);
}

void Host::browse(const std::string& item) {
  FolderTree* const tree = sideBar().tree();
  if (tree == nullptr) { throw HostFailure("There is no symbol browser yet, ArchPlaceSym puts it up."); }
  const auto found = tree->find(item);
  if (!found) {
    throw HostFailure("The symbol library \"" + tree->folder() + "\" has no file \"" + messageText(item) + "\".");
  }
  const StyleOfUser style(window().style());
  runStep("Place Symbols", [&](DrawingWindow&) { tree->pick(*found); });
}

void Host::runMacro(std::string_view text) {
  if (parts_.events != nullptr) { parts_.events->macroSent(text); }
  executeMacro(window(), variables_, text);
}

}  // namespace brevan

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frame/host/commands.h"

class CCadWindow;
class CMDIFrameWnd;
class COXShortcutBar;
class INI_LIST;

namespace brevan {

// An extension module loaded at run time. Unloading runs the module's own clean-up.
class Module {
 public:
  // Throws HostFailure with the loader's reason.
  explicit Module(const std::string& path);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  void initialise(CMDIFrameWnd& frame, COXShortcutBar& bar) const;
  [[nodiscard]] std::string version() const;
  [[nodiscard]] std::span<const CommandRow> commands() const;
  // Null for a name that is no command.
  [[nodiscard]] const CommandRow* command(std::string_view name) const;
  void call(const CommandRow& command, CCadWindow& view) const;

 private:
  template <class Function>
  [[nodiscard]] Function* exported(const char* name) const;

  void* library_ = nullptr;
};

// Gives settings what the commands are to find at a first start; keys that are there stay.
void addFirstSettings(std::span<const CommandRow> commands, INI_LIST& settings);

}  // namespace brevan

#include "host/window/module.h"

#include <dlfcn.h>

#include <array>

#include "frame/host/core_services.h"
#include "frame/host/ini.h"

namespace brevan {

Module::Module(const std::string& path) : library_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (library_ == nullptr) { throw HostFailure("The module cannot be loaded: " + std::string(dlerror())); }
}

Module::~Module() { dlclose(library_); }

template <class Function>
Function* Module::exported(const char* name) const {
  void* symbol = dlsym(library_, name);
  if (symbol == nullptr) { throw HostFailure("The module does not export \"" + std::string(name) + "\"."); }
  return reinterpret_cast<Function*>(symbol);
}

void Module::initialise(CMDIFrameWnd& frame, COXShortcutBar& bar) const {
  exported<void(CMDIFrameWnd*, COXShortcutBar*)>("InitArdenixAPI")(&frame, &bar);
}

std::string Module::version() const { return exported<const char*()>("ardenixGetAppVersion")(); }

std::span<const CommandRow> Module::commands() const {
  int count = 0;
  const CommandRow* rows = exported<const CommandRow*(int*)>("ardenixCommands")(&count);
  return {rows, static_cast<size_t>(count)};
}

const CommandRow* Module::command(std::string_view name) const {
  for (const CommandRow& row : commands()) {
    if (row.name == name) { return &row; }
  }
  return nullptr;
}

void Module::call(const CommandRow& command, CCadWindow& view) const {
  if (command.takesView) {
    exported<void(CCadWindow*)>(command.name)(&view);
  } else {
    exported<void()>(command.name)();
  }
}

void addFirstSettings(std::span<const CommandRow> commands, INI_LIST& settings) {
  for (const CommandRow& command : commands) {
    for (const FirstSetting& first : command.settings) {
      std::array<char, 2> there{};
      if (settings.GetString(first.section, first.key, "", there.data(), there.size()) > 0) { continue; }
      settings.SetString(first.section, first.key, first.value);
    }
  }
}

}  // namespace brevan

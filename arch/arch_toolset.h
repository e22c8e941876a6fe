#pragma once

#include <memory>

#include "arch/spec_store.h"
#include "arch/symbol_browser.h"
#include "frame/services.h"
#include "frame/toolset.h"

namespace ardenix::arch {

// What one architectural command runs in: the specification file, read afresh by every command.
class ArchToolset : public Toolset {
 public:
  ArchToolset(CCadWindow* view, const Services& services, SymbolBrowser* browser = nullptr)
      : Toolset(view), services_(services), browser_(browser) {}

  [[nodiscard]] const Services& services() const { return services_; }
  // Null where no side bar is there.
  [[nodiscard]] SymbolBrowser* browser() const { return browser_; }

  // Finds the specification file and opens it, in place of one that is open; false after telling that there
  // is none.
  bool openSpecification();
  void open(std::string_view path);
  [[nodiscard]] bool isOpen() const { return store_ != nullptr; }
  [[nodiscard]] ArchSpecStore& store() const { return *store_; }

 private:
  const Services& services_;
  SymbolBrowser* browser_;
  std::unique_ptr<ArchSpecStore> store_;
};

std::unique_ptr<ArchToolset> makeArchToolset(CCadWindow* view, const Services& services,
                                             SymbolBrowser* browser = nullptr);

}  // namespace ardenix::arch

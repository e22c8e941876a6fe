#include "arch/arch_toolset.h"

#include "arch/spec_file.h"

namespace ardenix::arch {

bool ArchToolset::openSpecification() {
  const auto path = resolveSpecFile(services_.mainFrame);
  if (!path) { return false; }
  open(*path);
  return true;
}

void ArchToolset::open(std::string_view path) {
  store_.reset();
  store_ = std::make_unique<ArchSpecStore>(path, view());
}

std::unique_ptr<ArchToolset> makeArchToolset(CCadWindow* view, const Services& services, SymbolBrowser* browser) {
  return std::make_unique<ArchToolset>(view, services, browser);
}

}  // namespace ardenix::arch

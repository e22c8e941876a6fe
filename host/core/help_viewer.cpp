#include "host/core/help_viewer.h"

#include <dlfcn.h>

#include "host/core/core_context.h"

namespace brevan {

namespace {

constexpr std::string_view kViewerKey = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr unsigned kDisplayTopic = 0;

}  // namespace

std::string helpViewerServer(std::string_view key) {
  Dl_info self{};
  if (key != kViewerKey || coreContext().showHelp == nullptr ||
      dladdr(reinterpret_cast<void*>(&HtmlHelpA), &self) == 0) {
    return "";
  }
  return self.dli_fname;
}

}  // namespace brevan

void* HtmlHelpA(void* /*window*/, const char* /*file*/, unsigned command, uintptr_t data) {
  if (command != brevan::kDisplayTopic || data == 0) { return nullptr; }
  brevan::CoreContext& context = brevan::coreContext();
  if (context.showHelp == nullptr || !context.showHelp(reinterpret_cast<const char*>(data))) { return nullptr; }
  return &context;
}

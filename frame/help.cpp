#include "frame/help.h"

#include <string>

#include "frame/host/core_services.h"

namespace ardenix {

namespace {

constexpr std::string_view kViewerKey = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr size_t kViewerPathLimit = 260;
constexpr const char* kViewerLibrary = "hhctrl.ocx";
constexpr int kViewerExport = 14;
constexpr unsigned kDisplayTopic = 0;

// The host's compiled help file bears the name of its help file.
std::string compiledHelpFile() {
  const std::string hostFile = coreHelpFilePath();
  const size_t start = hostFile.find_last_of("/\\") + 1;  // npos + 1 is 0
  const size_t dot = hostFile.find_last_of('.');
  const size_t end = dot == std::string::npos || dot < start ? hostFile.size() : dot;
  return coreChangeFileName(hostFile, hostFile.substr(start, end - start), ".chm");
}

}  // namespace

void Help::open(CWnd& dialog, const HelpTopic& topic) {
  if (!show(dialog, topic)) { ErrorMessage("Unable to open help file", &dialog); }
}

bool Help::show(CWnd& dialog, const HelpTopic& topic) {
  if (viewer_ == nullptr && !unavailable_) { bindViewer(); }
  if (viewer_ == nullptr) { return false; }
  const std::string path(topic.path);
  return viewer_(&dialog, compiledHelpFile().c_str(), kDisplayTopic, reinterpret_cast<uintptr_t>(path.c_str())) !=
         nullptr;
}

void Help::bindViewer() {
  const std::string server = platform_.registeredServer(kViewerKey);
  void* library = nullptr;
  if (!server.empty() && server.size() <= kViewerPathLimit) { library = platform_.loadLibrary(server); }
  if (library == nullptr) { library = platform_.loadLibrary(kViewerLibrary); }
  if (library != nullptr) { viewer_ = reinterpret_cast<Viewer>(platform_.exportNumber(library, kViewerExport)); }
  unavailable_ = viewer_ == nullptr;
}

}  // namespace ardenix

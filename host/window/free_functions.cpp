#include <stdexcept>

#include "frame/host/cad_window.h"
#include "frame/host/core_services.h"
#include "frame/host/ini.h"
#include "host/core/core_context.h"
#include "host/core/text_encoding.h"
#include "host/window/file_filters.h"
#include "host/window/host.h"

// The free functions of the seam that need a window or the user.

namespace {

brevan::Host& host() {
  brevan::Host* bound = brevan::coreContext().host;
  if (bound == nullptr) { throw std::logic_error("this function of the seam needs a running host"); }
  return *bound;
}

BoxAnswer show(std::string_view text, std::string_view caption, BoxIcon icon, BoxButtons buttons) {
  const brevan::MessageBox box{std::string(text), std::string(caption), icon, buttons};
  const BoxAnswer answer = host().user().showMessage(box);
  if (host().events() != nullptr) { host().events()->messageShown(box, answer); }
  return answer;
}

// The filter's description where the file's ending does not tell it.
std::string namedFilter(const brevan::FileRequest& request, const brevan::ChosenFile& chosen) {
  const auto filters = brevan::fileFilters(request.filter);
  if (chosen.filter >= filters.size() || chosen.filter == brevan::filterListing(filters, chosen.path)) { return {}; }
  return filters[chosen.filter].description;
}

// A file that is saved under a name without an ending gets the usual one.
std::string withEnding(const brevan::FileRequest& request, std::string path) {
  const size_t name = path.find_last_of("/\\") + 1;  // 0 where there is no folder
  const bool bare = path.find('.', name) == std::string::npos;
  if (!request.open && bare && !request.defaultExtension.empty()) { path += '.' + request.defaultExtension; }
  return path;
}

// Paths come from the user's side in the file system's encoding.
int chosenPath(const brevan::FileRequest& request, std::string_view kind, std::string& path, int* filter = nullptr) {
  const auto answer = host().user().chooseFile(request);
  if (host().events() != nullptr) {
    host().events()->chooserAnswered(kind, answer ? answer->path : "cancel",
                                     answer ? namedFilter(request, *answer) : "");
  }
  if (!answer) { return 0; }
  path = withEnding(request, answer->path);
  if (filter != nullptr) { *filter = static_cast<int>(answer->filter) + 1; }
  return 1;
}

}  // namespace

CCadWindow* cadGetCurrentView() { return &host().window(); }

void cadSetWaitCursor(bool on) { host().window().gsCursorWait(on ? 1 : 0); }

AllPaths* GetAllPaths() { return &host().paths(); }

int coreGetFolder(CWnd*, std::string_view title, std::string_view start, std::string& folder) {
  brevan::FileRequest request;
  request.folder = true;
  request.title = title;
  request.initialName = start;
  return chosenPath(request, "folder", folder);
}

int coreChooseFile(CWnd*, bool open, std::string_view filter, std::string_view defaultExtension,
                   std::string_view initialName, std::string& path, int* chosenFilter) {
  brevan::FileRequest request;
  request.open = open;
  request.filter = filter;
  request.defaultExtension = defaultExtension;
  request.initialName = initialName;
  return chosenPath(request, open ? "open" : "save", path, chosenFilter);
}

void ErrorMessage(std::string_view text, CWnd*) { show(text, "", BoxIcon::kError, BoxButtons::kOk); }

void InfoMessage(std::string_view text, CWnd*) { show(text, "", BoxIcon::kInformation, BoxButtons::kOk); }

int ConfirmMessage(std::string_view text, CWnd*, int) {
  return show(text, "", BoxIcon::kQuestion, BoxButtons::kYesNo) == BoxAnswer::kYes ? 1 : 0;
}

BoxAnswer coreMessageBox(CWnd*, std::string_view text, std::string_view caption, BoxIcon icon, BoxButtons buttons) {
  return show(text, caption, icon, buttons);
}

int corePopupMenu(CWnd*, std::string_view items) { return host().window().gsSubMenu(items); }

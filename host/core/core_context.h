#pragma once

#include <functional>
#include <string>

#include "frame/host/ini.h"
#include "host/core/file_services.h"
#include "host/core/text_files.h"

namespace brevan {

class Host;

// What to do with a file that another program changed or removed since it was read.
struct SaveConflictAnswer {
  enum class Choice {
    kFail,       // nobody can be asked: the save fails and the changes stay in memory
    kReload,     // drop the changes, take what the disk holds
    kOverwrite,  // save all the same
    kSaveAs,     // save to another path, and from then on there
  };
  Choice choice = Choice::kFail;
  std::string path;  // for kSaveAs, native
};

// What the seam's free functions and INI classes work on.
struct CoreContext {
  FileServices& files;
  INI_LIST& settings;
  std::string helpFile;  // native path of the host's own help file
  std::function<SaveConflictAnswer(const std::string& path)> conflict;
  // Opens a page of help, false where it cannot; null: there is no help viewer.
  std::function<bool(const std::string& topic)> showHelp{};
  TextFiles textFiles{};
  Host* host = nullptr;  // whose context it is, for the functions that need a window or the user
};

// The context that is bound. It is the one process-wide pointer of the host: the functions that the
// module calls are free functions whose signatures have no place for a host. Throws std::logic_error where
// none is bound.
CoreContext& coreContext();
bool hasCoreContext();

// Binds a context for its own lifetime; an inner binding hides an outer one.
class CoreContextBinding {
 public:
  explicit CoreContextBinding(CoreContext& context);
  CoreContextBinding(const CoreContextBinding&) = delete;
  CoreContextBinding& operator=(const CoreContextBinding&) = delete;
  ~CoreContextBinding();

 private:
  CoreContext* outer_;
};

}  // namespace brevan

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "frame/host/main_frame.h"

namespace ardenix::arch {

class ArchToolset;

// The symbol library in the host's side bar: the tree of the symbol folder. Picking a symbol file in it loads the file
// and lets the user place its symbols. It is made with the module and kept until the module goes.
class SymbolBrowser {
 public:
  explicit SymbolBrowser(COXShortcutBar& bar) : bar_(bar) {}
  SymbolBrowser(const SymbolBrowser&) = delete;
  SymbolBrowser& operator=(const SymbolBrowser&) = delete;
  ~SymbolBrowser();

  // Shows the symbol folder of the specification file; false where there is no file or no folder.
  bool setUp(ArchToolset& toolset);

 private:
  void makeTree();
  static void picked(const std::string& path, bool selected);

  COXShortcutBar& bar_;
  std::shared_ptr<COXShellFolderTree> tree_;  // which the bar holds, too
};

// Where the symbol folder of a picked file ends: just after its first "Symbols"; "" where the path has none.
std::string symbolFolderOf(std::string_view path);

}  // namespace ardenix::arch

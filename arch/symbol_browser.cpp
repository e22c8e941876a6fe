#include "arch/symbol_browser.h"

#include "arch/arch_commands.h"
#include "arch/arch_toolset.h"
#include "arch/spec_file.h"
#include "arch/symbol_folder.h"
#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr int kTreeId = 2134;
constexpr const char* kGroupCaption = "Q\\Symbol Libraries";
constexpr std::string_view kFileEnding = "DRG";

bool isSymbolFile(const std::string& path) {
  const bool named = path.find("DRG") != std::string::npos || path.find("drg") != std::string::npos;
  return named && coreFileExist(path) != 0;
}

// The folder of what was picked is where the other commands look from now on.
void rememberFolderOf(const std::string& path, CCadWindow& view) {
  const std::string folder = symbolFolderOf(path);
  const std::string file = rememberedSpecFile();
  if (folder.empty() || file == kNoPath || coreFileExist(file) == 0) { return; }
  ArchSpecStore store(file, view);
  if (rememberedSymbolFolder(store) != folder) { rememberSymbolFolder(store, folder); }
}

}  // namespace

std::string symbolFolderOf(std::string_view path) {
  constexpr std::string_view kWord = "Symbols";
  const size_t at = path.find(kWord);
  return at == std::string_view::npos ? "" : std::string(path.substr(0, at + kWord.size()));
}

// The bar may outlive the module.
SymbolBrowser::~SymbolBrowser() {
  if (tree_ != nullptr) { tree_->OnSelection(nullptr); }
}

bool SymbolBrowser::setUp(ArchToolset& toolset) {
  if (!toolset.openSpecification()) { return false; }
  toolset.view().gsShowLegendBar(1);
  const auto folder = resolveSymbolFolder(toolset);
  if (!folder) { return false; }
  const bool isNew = tree_ == nullptr;
  if (isNew) { makeTree(); }
  tree_->InitializeTree(*folder);
  tree_->OpenFolder(*folder);
  if (isNew) {
    const int group = bar_.InsertGroup(kGroupCaption, *tree_);
    bar_.SetGroupMargin(group, 0);
    bar_.ExpandGroup(group);
  }
  bar_.RedrawBar();
  return true;
}

void SymbolBrowser::makeTree() {
  tree_ = &bar_.CreateFolderTree(kTreeId);
  tree_->SetShowDesktopItem(false);
  tree_->SetShowFiles(true);
  tree_->SetFilter(kFileEnding);
  tree_->OnSelection(&SymbolBrowser::picked);
}

// A file that does not load must not start the placing of another's symbols.
void SymbolBrowser::picked(const std::string& path, bool selected) {
  CCadWindow* const view = cadGetCurrentView();
  if (view == nullptr || !selected || !isSymbolFile(path)) { return; }
  rememberFolderOf(path, *view);
  view->SetFocus();
  if (view->gsExecuteMacro(macroText::sharedSymbols(path)) != 0) { view->gsExecuteMacro(macroText::kPlaceSymbols); }
  view->SetFocus();
}

void placeSymbols(ArchToolset& toolset) {
  if (toolset.browser() != nullptr) { toolset.browser()->setUp(toolset); }
}

}  // namespace ardenix::arch

#include "arch/symbol_browser.h"

#include <memory>

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

// Nothing where no file is remembered.
std::unique_ptr<ArchSpecStore> rememberedStore(CCadWindow& view) {
  const std::string file = rememberedSpecFile();
  if (file == kNoPath || coreFileExist(file) == 0) { return nullptr; }
  return std::make_unique<ArchSpecStore>(file, view);
}

// The folder of what was picked is where the other commands look from now on.
void rememberFolderOf(const std::string& path, ArchSpecStore& store) {
  const std::string folder = symbolFolderOf(path);
  if (!folder.empty() && rememberedSymbolFolder(store) != folder) { rememberSymbolFolder(store, folder); }
}

// Without the settings symbols are placed freely, as ever.
void definePlacing(const ArchSpecStore& store, CCadWindow& view) {
  const macroText::SymbolPlacing placing{
      .snapsToWalls = store.readInt(kSymbolSection, "SnapToWalls") != 0,
      .cutsWalls = store.readInt(kSymbolSection, "CutWalls") != 0,
      .wallLayers = store.wallLayers(),
  };
  if (!placing.wallLayers.empty() && (placing.snapsToWalls || placing.cutsWalls)) {
    view.gsExecuteMacro(macroText::symbolPlacing(placing));
  }
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
  tree_ = bar_.CreateFolderTree(kTreeId);
  tree_->SetShowDesktopItem(false);
  tree_->SetShowFiles(true);
  tree_->SetFilter(kFileEnding);
  tree_->OnSelection(&SymbolBrowser::picked);
}

// A file that does not load must not start the placing of another's symbols.
void SymbolBrowser::picked(const std::string& path, bool selected) {
  CCadWindow* const view = cadGetCurrentView();
  if (view == nullptr || !selected || !isSymbolFile(path)) { return; }
  const std::unique_ptr<ArchSpecStore> store = rememberedStore(*view);
  if (store != nullptr) { rememberFolderOf(path, *store); }
  view->SetFocus();
  if (view->gsExecuteMacro(macroText::sharedSymbols(path)) != 0) {
    if (store != nullptr) { definePlacing(*store, *view); }
    view->gsExecuteMacro(macroText::kPlaceSymbols);
  }
  view->SetFocus();
}

void placeSymbols(ArchToolset& toolset) {
  if (toolset.browser() != nullptr) { toolset.browser()->setUp(toolset); }
}

}  // namespace ardenix::arch

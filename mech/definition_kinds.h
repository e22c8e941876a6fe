#pragma once

#include <memory>
#include <span>
#include <string_view>

class CCadWindow;

namespace ardenix::mech {

class DefinitionStore;
class PartDrawer;

// How a kind's dialog treats edits that were not saved and names that are new.
enum class DefinitionFamily {
  kChecked,  // three choices for unsaved edits; names must be given and be new
  kPlain,    // yes or no for unsaved edits; names are taken as given
};

// One kind of part or annotation that has a library of definitions: what its dialog shows and where its
// records stand. "%s" in a question stands for the definition's name. An empty title stands for the
// application's, an empty delete question deletes at once.
struct DefinitionKind {
  std::string_view section;
  std::string_view keyPrefix;  // record n has the key prefix + n
  DefinitionFamily family;
  std::string_view dialogTitle;
  std::string_view namePrompt;
  std::string_view word;  // in the message on names that are too long
  std::string_view deleteQuestion;
  std::string_view deleteTitle;
  std::string_view changedQuestion;
  std::string_view changedTitle;
  std::string_view placeholder;  // a definition of this name is never asked about
  bool checksEditsFirst;         // OK settles unsaved edits before it validates
  std::string_view listTip;
  std::string_view addTip;
  std::string_view deleteTip;
  bool keepsPlaceholder = false;  // it cannot be deleted either
  // Makes a drawer of the kind's parts; null where no command draws them.
  std::unique_ptr<PartDrawer> (*drawer)(CCadWindow& view, const DefinitionStore& store) = nullptr;
};

// All kinds, in the order in which their records are counted.
std::span<const DefinitionKind> definitionKinds();

// The kind of a section; asking for one that has none is a mistake of ours and stops the program.
const DefinitionKind& definitionKind(std::string_view section);

}  // namespace ardenix::mech

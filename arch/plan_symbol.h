#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

// The symbol of a window or door placed on plan: the file that it came from and its name.
struct PlanSymbol {
  std::string file;
  std::string name;
  bool mirrored = false;
};

// What the host's words for an element say of it: SYMBOL 'W1200 W1200P', and MIRRORED after it. Nothing for what is no
// symbol, nor for a file or a symbol with blanks in its name, which cannot be told apart there.
std::optional<PlanSymbol> symbolIn(std::string_view element);

// The symbol at a point; nothing where there is none, and never what an earlier query found.
std::optional<PlanSymbol> symbolAt(CCadWindow& view, Point at);

// The file of an opening below the symbol folder: the window's where there is one, else the door's.
struct OpeningFile {
  std::string path;
  bool isDoor = false;
  bool exists = false;
};
OpeningFile openingFile(std::string_view symbolFolder, std::string_view file);

}  // namespace ardenix::arch

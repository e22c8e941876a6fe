#include "arch/plan_symbol.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

std::optional<PlanSymbol> symbolIn(std::string_view element) {
  const size_t opening = element.find('\'');
  if (opening == std::string_view::npos) { return std::nullopt; }
  std::string_view named = element.substr(opening + 1);
  named = named.substr(0, named.find('\''));
  const size_t blank = named.find(' ');
  if (blank == 0 || blank == std::string_view::npos || blank != named.rfind(' ')) { return std::nullopt; }
  const size_t closing = element.find('\'', opening + 1);
  if (closing == std::string_view::npos || blank + 1 == named.size()) { return std::nullopt; }
  return PlanSymbol{.file = std::string(named.substr(0, blank)),
                    .name = std::string(named.substr(blank + 1)),
                    .mirrored = element.substr(closing).ends_with("MIRRORED")};
}

std::optional<PlanSymbol> symbolAt(CCadWindow& view, Point at) {
  if (view.gsExecuteMacro(macroText::queryElement(at)) == 0) { return std::nullopt; }
  return symbolIn(textVariable(view, "A$"));
}

OpeningFile openingFile(std::string_view symbolFolder, std::string_view file) {
  OpeningFile window{.path = numberText::format("%s\\Windows\\%s.DRG", symbolFolder, file)};
  window.exists = coreFileExist(window.path) != 0;
  if (window.exists) { return window; }
  OpeningFile door{.path = numberText::format("%s\\Doors\\%s.DRG", symbolFolder, file), .isDoor = true};
  door.exists = coreFileExist(door.path) != 0;
  return door;
}

}  // namespace ardenix::arch

#include "mech/fastener_dialog.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"

namespace ardenix {

FastenerDialog::FastenerDialog(const Services& services, DefinitionStore& store, std::string_view section,
                               std::span<const RecordField> fields, Fastener& fastener)
    : DefinitionDialog(services, store, definitionKind(section), fields), fastener_(fastener) {}

void FastenerDialog::addOptions(const FastenerOptionTexts& texts, int row) { options_.emplace(box(), texts, row); }

bool FastenerDialog::repeatClears(double width) const {
  const Repeat repeat = options_->repeat();
  return repeat.number <= 1 || width <= repeat.value;
}

bool FastenerDialog::optionsComplete() {
  if (options_->viewChosen()) { return true; }
  warn(&box(), "Please select which view to draw, or both.");
  options_->firstView().focus();
  return false;
}

// A part of an empty list keeps the name it was made with.
void FastenerDialog::accept() {
  std::string name = shownName();
  coreTrimStr(name);
  if (!name.empty()) { fastener_.name = name; }
  options_->applyTo(fastener_);
}

}  // namespace ardenix

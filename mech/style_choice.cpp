#include "mech/style_choice.h"

#include "frame/host/number_text.h"

namespace ardenix::mech {

namespace {

enum Style { kSolid, kHidden };

std::string styleTip(std::string_view part, std::string_view style) {
  return numberText::format("Check this to draw the %s using the Mechanical Ardenix's '%s' pen/linestyle", part, style);
}

}  // namespace

StyleChoice::StyleChoice(dialog::Dialog& dialog, dialog::Setting setting, std::string_view part)
    : radio_(addRadio(dialog, std::move(setting),
                      {{"Solid line", styleTip(part, "solid")}, {"Hidden line", styleTip(part, "hidden")}})) {}

void StyleChoice::read(const DefinitionStore& store, std::string_view key) const {
  radio_.choose(store.file().ReadInt(kDefaultsSection, key, 0) != 0 ? kHidden : kSolid);
}

void StyleChoice::write(DefinitionStore& store, std::string_view key) const {
  store.file().WriteInt(kDefaultsSection, key, hidden() ? 1 : 0);
}

bool StyleChoice::hidden() const { return radio_.chosen() == kHidden; }

}  // namespace ardenix::mech

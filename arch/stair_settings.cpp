#include "arch/stair_settings.h"

#include <algorithm>

namespace ardenix::arch {

namespace {

enum Section { kStraight = 1, kLanding = 2 };

}  // namespace

StairPlace placeOnElevation(int side) {
  return placeOf(*std::ranges::find(kElevationViews, side, &ElevationView::angle));
}

// Settings count millimetres, heads tenths of them.
ArrowHead StairSettings::arrowHead() const {
  constexpr double kTenths = 10.0;
  return {.length = arrowLength * kTenths, .width = arrowWidth * kTenths, .style3 = arrowPen};
}

StairSettings readStairSettings(const ArchSpecStore& store) {
  StairSettings settings;
  const auto whole = [&store](std::string_view key, int fallback) {
    return store.readInt(kStairSection, key, fallback);
  };
  settings.landing = whole("Section", kStraight) == kLanding;
  settings.solid = {.pen = whole("SolidPen", settings.solid.pen),
                    .linetype = whole("SolidLinetype", settings.solid.linetype)};
  settings.hidden = {.pen = whole("HiddenPen", settings.hidden.pen),
                     .linetype = whole("HiddenLinetype", settings.hidden.linetype)};
  settings.arrowPen = whole("ArrowPen", settings.arrowPen);
  settings.arrowLength = store.readDouble(kStairSection, "ArrowLength", settings.arrowLength);
  settings.arrowWidth = store.readDouble(kStairSection, "ArrowWidth", settings.arrowWidth);
  settings.parentName = store.readString(kStairSection, "ParentName", "");
  settings.currentTread = whole("CurrentTread", settings.currentTread);
  settings.currentRailing = whole("CurrentRailing", settings.currentRailing);
  return settings;
}

void writeStairSettings(ArchSpecStore& store, const StairSettings& settings) {
  const auto write = [&store](std::string_view key, int value) { store.writeInt(kStairSection, key, value); };
  write("Section", settings.landing ? kLanding : kStraight);
  write("SolidLinetype", settings.solid.linetype);
  write("HiddenLinetype", settings.hidden.linetype);
  write("SolidPen", settings.solid.pen);
  write("HiddenPen", settings.hidden.pen);
  write("ArrowPen", settings.arrowPen);
  store.writeDouble(kStairSection, "ArrowLength", settings.arrowLength);
  store.writeDouble(kStairSection, "ArrowWidth", settings.arrowWidth);
  store.writeString(kStairSection, "ParentName", settings.parentName);
  write("CurrentTread", settings.currentTread);
  write("CurrentRailing", settings.currentRailing);
}

}  // namespace ardenix::arch

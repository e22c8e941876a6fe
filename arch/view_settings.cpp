#include "arch/view_settings.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kParentKey = "ParentName";
constexpr std::string_view kPenKey = "Pen";
constexpr std::string_view kLineTypeKey = "Linetyp";

}  // namespace

void readStyle(const ArchSpecStore& store, std::string_view section, LineStyle& style) {
  style.pen = store.readInt(section, kPenKey, style.pen);
  style.linetype = store.readInt(section, kLineTypeKey, style.linetype);
}

void writeStyle(ArchSpecStore& store, std::string_view section, const LineStyle& style) {
  store.writeInt(section, kPenKey, style.pen);
  store.writeInt(section, kLineTypeKey, style.linetype);
}

void readViewSettings(const ArchSpecStore& store, std::string_view section, ViewSettings& settings) {
  settings.parentName = store.readString(section, kParentKey, "");
  readStyle(store, section, settings.style);
  for (size_t view = 0; view < kElevationViews.size(); ++view) {
    settings.layers[view] = store.readString(section, kElevationViews[view].layerKey(), "");
  }
}

void writeViewSettings(ArchSpecStore& store, std::string_view section, const ViewSettings& settings) {
  store.writeString(section, kParentKey, settings.parentName);
  writeStyle(store, section, settings.style);
  for (size_t view = 0; view < kElevationViews.size(); ++view) {
    store.writeString(section, kElevationViews[view].layerKey(), settings.layers[view]);
  }
}

}  // namespace ardenix::arch

#pragma once

#include <string>
#include <string_view>

#include "arch/elevation_view.h"
#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"

namespace ardenix::arch {

// What the settings of commands have in common that draw beside the plan: the parent of their groups, the style of
// their lines, and the layer of each view.
struct ViewSettings {
  std::string parentName;
  LineStyle style;
  ViewLayers layers;
};

void readViewSettings(const ArchSpecStore& store, std::string_view section, ViewSettings& settings);
void writeViewSettings(ArchSpecStore& store, std::string_view section, const ViewSettings& settings);

// A pen and a line type; what the section does not hold stays as it is.
void readStyle(const ArchSpecStore& store, std::string_view section, LineStyle& style);
void writeStyle(ArchSpecStore& store, std::string_view section, const LineStyle& style);

}  // namespace ardenix::arch

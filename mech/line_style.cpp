#include "mech/line_style.h"

#include <algorithm>

namespace ardenix::mech {

namespace {

constexpr LineStyleRow kStyleRows[] = {
    {"Solid", "Solid Line Style", "'solid' lines", 1, 1, 0.2},
    {"Hidden", "Hidden Line Style", "'hidden' lines", 21, 13, 0.0},
    {"Center", "Center Line Style", "'centrelines'", 4, 3, 0.1},
};

}  // namespace

std::span<const LineStyleRow> lineStyleRows() { return kStyleRows; }

LineStyle lineStyle(const DefinitionStore& store, LineKind kind) {
  const std::string prefix(kStyleRows[static_cast<size_t>(kind)].prefix);
  const TINIFile& file = store.file();
  return {file.ReadInt("Setup", prefix + "Pen", 1), file.ReadInt("Setup", prefix + "LT", 1),
          file.ReadDouble("Setup", prefix + "LW", 0.0) * 10.0};
}

LineStyles lineStyles(const DefinitionStore& store) {
  return {lineStyle(store, LineKind::kSolid), lineStyle(store, LineKind::kHidden), lineStyle(store, LineKind::kCentre)};
}

double threadGap(const DefinitionStore& store) {
  return std::clamp(store.file().ReadDouble("Setup", kThreadGapKey, 0.0), 0.0, kWidestThreadGap);
}

}  // namespace ardenix::mech

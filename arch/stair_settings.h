#pragma once

#include <string>
#include <string_view>

#include "arch/elevation_view.h"
#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"
#include "frame/drafting/pen.h"

namespace ardenix::arch {

inline constexpr std::string_view kStairSection = "STAIRS_GENERAL";

// Where the drawings of a view go.
struct StairPlace {
  std::string_view prefix;  // of the groups' names
  std::string layerKey;
};
inline StairPlace placeOnPlan() { return {"PLN", "PlanLayer"}; }
inline StairPlace placeOf(const ElevationView& view) { return {view.prefix, std::string(view.name).append("Layer")}; }
// On the elevation of a side, degrees clockwise from the north.
StairPlace placeOnElevation(int side);

// How stairs are drawn, whatever their treads and railings.
struct StairSettings {
  bool landing = false;  // else straight flights
  LineStyle solid;
  LineStyle hidden{.linetype = 2};  // the pen is for edges that are seen from nowhere
  int arrowPen = 14;
  double arrowLength = 2.0;  // millimetres on paper
  double arrowWidth = 1.0;
  std::string parentName;  // of the groups
  int currentTread = 1;
  int currentRailing = 1;

  [[nodiscard]] ArrowHead arrowHead() const;
};

StairSettings readStairSettings(const ArchSpecStore& store);
// All but the layers.
void writeStairSettings(ArchSpecStore& store, const StairSettings& settings);

}  // namespace ardenix::arch

#pragma once

#include <string>
#include <string_view>

#include "frame/point.h"
#include "mech/definition_store.h"
#include "mech/line_style.h"

namespace ardenix {

enum class RepeatKind : int {
  kPitchCircle = -1,  // round a pitch circle of the value's diameter
  kLinear = 0,        // in a row, the value apart
  kSpacing = 1,       // round a circle, neighbours the value apart
};

struct Repeat {
  double value = 0.0;
  int number = 1;
  RepeatKind kind = RepeatKind::kLinear;
};

enum class ViewMode { kSide, kPlan, kBoth };

// What the fasteners have in common while one command draws them: line styles, choices of the dialog, and the
// place of the part that was drawn last.
struct Fastener {
  LineStyle solid;
  LineStyle hidden;
  LineStyle centre;
  bool headHidden = false;
  bool shaftHidden = false;
  bool autoAlign = false;
  Repeat repeat;

  std::string name = "FASTENER";       // of the definition
  std::string category = "FASTENERS";  // parent of the groups
  std::string group;                   // of the view last drawn

  Point position;         // of the part being drawn
  Point axisEnd;          // far end of the side view last drawn; the origin until there is one
  double rotation = 0.0;  // degrees

  [[nodiscard]] const LineStyle& headStyle() const { return headHidden ? hidden : solid; }
  [[nodiscard]] const LineStyle& shaftStyle() const { return shaftHidden ? hidden : solid; }
  // Threads are as thin as hidden lines.
  [[nodiscard]] LineStyle threadStyle() const;
};

Fastener makeFastener(const DefinitionStore& store, std::string_view category);

}  // namespace ardenix

#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "mech/definition_store.h"
#include "mech/line_style.h"

namespace ardenix::mech {

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

// How a kind of fastener is named and placed. A base of group names that starts with "_" follows the
// definition's name, another stands alone.
struct FastenerTrade {
  std::string_view category;  // parent of the groups
  std::string_view word;      // in the prompts of the side view
  std::string_view planWord;  // in the prompts of the plan
  std::string_view sideGroup;
  std::string_view planGroup;
  bool turnsToPoint = false;     // its side view is turned to a second point, never aligned nor turned by the menu
  bool cutByMacros = false;      // what is drawn is selected for the cuts, and a part is one step of undo
  bool clearsSelection = false;  // when a view is finished
  bool returnsToRoot = true;     // likewise: what follows belongs to the root of the groups
};

// What the fasteners have in common while one command draws them: line styles, choices of the dialog, and the
// place of the part that was drawn last.
struct Fastener : LineStyles {
  bool headHidden = false;   // of nuts and holes: the plan
  bool shaftHidden = false;  // likewise: the side view
  bool autoAlign = false;
  Repeat repeat;
  double threadGap = 0.0;  // drawing units; threads are drawn no closer to their crest

  std::string name = "FASTENER";  // of the definition
  std::string group;              // of the view last drawn

  Point position;         // of the part being drawn
  Point axisEnd;          // far end of the side view last drawn; the origin until there is one
  double rotation = 0.0;  // degrees

  [[nodiscard]] const LineStyle& headStyle() const { return headHidden ? hidden : solid; }
  [[nodiscard]] const LineStyle& shaftStyle() const { return shaftHidden ? hidden : solid; }
  // Threads are drawn in their part's style, as thin as hidden lines.
  [[nodiscard]] LineStyle threadStyle(const LineStyle& part) const;
  // The radius at which the root of a thread is drawn, inside its crest on a shaft and outside on a bore.
  [[nodiscard]] double rootRadius(double root, double crest) const;
};

Fastener makeFastener(CCadWindow& view, const DefinitionStore& store);

}  // namespace ardenix::mech

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frame/drafting/line_style.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// The three line styles of mechanical drawings, as the configuration file keeps them in section "Setup":
// keys prefix + "LT", "Pen" and "LW" (millimetres). What the setup dialog offers for a missing key is
// not what a drawing uses for it.
struct LineStyleRow {
  std::string_view prefix;   // of the keys
  std::string_view caption;  // in the setup dialog
  std::string_view word;     // in its tool tips
  int offeredLinetype;
  int offeredPen;
  double offeredWidth;
};

enum class LineKind { kSolid, kHidden, kCentre };

std::span<const LineStyleRow> lineStyleRows();

// Key "ThreadGap" of section "Setup": millimetres on paper by which threads stand off their crest at least, so that the
// two lines do not run together at small scales; 0 draws them where they are.
inline constexpr std::string_view kThreadGapKey = "ThreadGap";
inline constexpr double kWidestThreadGap = 5.0;
double threadGap(const DefinitionStore& store);

// The style that drawings use: pen 1, line type 1, width 0 where keys are missing.
LineStyle lineStyle(const DefinitionStore& store, LineKind kind);

// The line styles that a part is drawn with.
struct LineStyles {
  LineStyle solid;
  LineStyle hidden;
  LineStyle centre;
};
LineStyles lineStyles(const DefinitionStore& store);

}  // namespace ardenix::mech

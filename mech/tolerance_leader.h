#pragma once

#include <optional>

#include "mech/annotation_part.h"

namespace ardenix::mech {

// What the setup asks for besides the frame or the datum itself; off until it is ticked there.
bool leadersWanted(const DefinitionStore& store);
bool stackingWanted(const DefinitionStore& store);
inline constexpr std::string_view kLeaderKey = "ToleranceLeader";
inline constexpr std::string_view kStackKey = "ToleranceStack";

// A leader from where it begins, by way of a bend, to the feature that a tolerance or a datum belongs to.
struct Leader {
  Point begin{};
  Point bend{};
  Point feature{};
  bool onOutline = false;  // an arrow ends it there, a dot within a surface
};

// The feature that the user points at: on the outline near the point, else within a surface. The bend is the caller's.
// Nothing where the user wants no leader.
std::optional<Leader> askLeader(CCadWindow& view);

void drawLeader(const AnnotationPen& pen, Leader leader);

}  // namespace ardenix::mech

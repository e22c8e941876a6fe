#pragma once

#include <span>
#include <vector>

#include "arch/plan_pick.h"

namespace ardenix::arch {

// A gable that faces the viewer: a triangle over its eaves.
struct FacingGable {
  PlanLine eaves;
  Point apex;
};

// A roof seen from its eaves: a band from them up to its ridge.
struct SideGable {
  PlanLine eaves;
  double up = 0.0;  // the direction of the ridge from the eaves, radians clockwise from the north
  double rise = 0.0;
};

// The strokes of an elevation's roof in their order. Bands that meet a facing gable end at its slope; of several facing
// gables the last decides. A single band whose ridge passes the slope ends on the gable's far side. What has no length,
// or is there already, is left out.
std::vector<PlanLine> roofStrokes(std::span<const FacingGable> facing, std::span<const SideGable> sides);

}  // namespace ardenix::arch

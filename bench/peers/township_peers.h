#pragma once

#include "bench/township.h"

namespace bench {

// The sum of the areas of the faces in which the township's points lie, worked out from its lines.
// Nodes them, builds polygons, finds each point's polygon in an index of them.
double parcelsByGeos(const Township& town);
// Builds an arrangement of exact segments and locates all points in it.
double parcelsByCgal(const Township& town);

}  // namespace bench

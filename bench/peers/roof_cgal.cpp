#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/create_straight_skeleton_2.h>

#include "bench/peers/roof_peers.h"

namespace bench {

size_t roofSeamsByCgal(const ardenix::arch::RoofOutline& outline) {
  using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
  std::vector<Kernel::Point_2> corners;
  corners.reserve(outline.count());
  for (const ardenix::Point corner : outline.corners) { corners.emplace_back(corner.x, corner.y); }
  const auto skeleton = CGAL::create_interior_straight_skeleton_2(corners.begin(), corners.end(), Kernel());
  size_t halves = 0;
  for (auto edge = skeleton->halfedges_begin(); edge != skeleton->halfedges_end(); ++edge) {
    halves += edge->is_bisector() ? 1 : 0;
  }
  return halves / 2;
}

}  // namespace bench

#include <CGAL/Arr_batched_point_location.h>
#include <CGAL/Arr_segment_traits_2.h>
#include <CGAL/Arrangement_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>

#include <iterator>

#include "bench/peers/township_peers.h"

namespace bench {

namespace {

using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;
using Traits = CGAL::Arr_segment_traits_2<Kernel>;
using Arrangement = CGAL::Arrangement_2<Traits>;
using Face = Arrangement::Face_const_handle;
using Located = CGAL::Arr_point_location_result<Arrangement>::Type;

double areaOf(const Face& face) {
  if (face->is_unbounded()) { return 0.0; }
  double twice = 0.0;
  const auto first = face->outer_ccb();
  auto edge = first;
  do {
    const auto& from = edge->source()->point();
    const auto& to = edge->target()->point();
    twice += CGAL::to_double(from.x()) * CGAL::to_double(to.y()) - CGAL::to_double(to.x()) * CGAL::to_double(from.y());
  } while (++edge != first);
  return 0.5 * std::abs(twice);
}

}  // namespace

double parcelsByCgal(const Township& town) {
  std::vector<Traits::X_monotone_curve_2> sides;
  for (const brevan::Segment& side : town.sides) {
    sides.emplace_back(Kernel::Point_2(side.a.x, side.a.y), Kernel::Point_2(side.b.x, side.b.y));
  }
  Arrangement arrangement;
  CGAL::insert(arrangement, sides.begin(), sides.end());
  std::vector<Kernel::Point_2> points;
  for (const brevan::Point inside : town.insides) { points.emplace_back(inside.x, inside.y); }
  std::vector<std::pair<Kernel::Point_2, Located>> located;
  CGAL::locate(arrangement, points.begin(), points.end(), std::back_inserter(located));
  double sum = 0.0;
  for (const auto& [point, place] : located) {
    if (const Face* face = boost::get<Face>(&place)) { sum += areaOf(*face); }
  }
  return sum;
}

}  // namespace bench

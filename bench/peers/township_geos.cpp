#include <geos_c.h>

#include <cstdarg>
#include <stdexcept>

#include "bench/peers/township_peers.h"

namespace bench {

namespace {

void silent(const char*, ...) {}

// The polygon that holds the point, among those whose bounds do.
struct Search {
  GEOSContextHandle_t geos;
  const GEOSGeometry* point;
  double area = 0.0;
};

void look(void* item, void* data) {
  auto& search = *static_cast<Search*>(data);
  const auto* polygon = static_cast<const GEOSGeometry*>(item);
  if (GEOSContains_r(search.geos, polygon, search.point) != 1) { return; }
  GEOSArea_r(search.geos, polygon, &search.area);
}

GEOSGeometry* linesOf(GEOSContextHandle_t geos, const Township& town) {
  std::vector<GEOSGeometry*> lines;
  for (const brevan::Segment& side : town.sides) {
    GEOSCoordSequence* ends = GEOSCoordSeq_create_r(geos, 2, 2);
    GEOSCoordSeq_setXY_r(geos, ends, 0, side.a.x, side.a.y);
    GEOSCoordSeq_setXY_r(geos, ends, 1, side.b.x, side.b.y);
    lines.push_back(GEOSGeom_createLineString_r(geos, ends));
  }
  return GEOSGeom_createCollection_r(geos, GEOS_MULTILINESTRING, lines.data(), static_cast<unsigned>(lines.size()));
}

}  // namespace

double parcelsByGeos(const Township& town) {
  GEOSContextHandle_t geos = GEOS_init_r();
  GEOSContext_setNoticeHandler_r(geos, silent);
  GEOSGeometry* lines = linesOf(geos, town);
  GEOSGeometry* noded = GEOSNode_r(geos, lines);
  const GEOSGeometry* const all[] = {noded};
  GEOSGeometry* polygons = GEOSPolygonize_r(geos, all, 1);
  if (polygons == nullptr) { throw std::runtime_error("the lines could not be made polygons"); }
  GEOSSTRtree* tree = GEOSSTRtree_create_r(geos, 10);
  for (int n = 0; n < GEOSGetNumGeometries_r(geos, polygons); ++n) {
    const GEOSGeometry* polygon = GEOSGetGeometryN_r(geos, polygons, n);
    GEOSSTRtree_insert_r(geos, tree, polygon, const_cast<GEOSGeometry*>(polygon));
  }
  double sum = 0.0;
  for (const brevan::Point inside : town.insides) {
    GEOSGeometry* point = GEOSGeom_createPointFromXY_r(geos, inside.x, inside.y);
    Search search{geos, point};
    GEOSSTRtree_query_r(geos, tree, point, look, &search);
    sum += search.area;
    GEOSGeom_destroy_r(geos, point);
  }
  GEOSSTRtree_destroy_r(geos, tree);
  for (GEOSGeometry* made : {polygons, noded, lines}) { GEOSGeom_destroy_r(geos, made); }
  GEOS_finish_r(geos);
  return sum;
}

}  // namespace bench

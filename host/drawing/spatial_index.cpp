#include "host/drawing/spatial_index.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>
#include <cmath>
#include <iterator>

namespace brevan {

namespace {

namespace bg = boost::geometry;
using TreePoint = bg::model::point<double, 2, bg::cs::cartesian>;
using TreeBox = bg::model::box<TreePoint>;
using TreeEntry = std::pair<TreeBox, PrimitiveId>;

TreeBox treeBox(const Box& box) { return {{box.low.x, box.low.y}, {box.high.x, box.high.y}}; }

}  // namespace

struct SpatialIndex::Tree {
  bg::index::rtree<TreeEntry, bg::index::quadratic<16>> entries;
  size_t inserted = 0;  // since it was packed
};

SpatialIndex::SpatialIndex() : tree_(std::make_unique<Tree>()) {}
SpatialIndex::~SpatialIndex() = default;
SpatialIndex::SpatialIndex(SpatialIndex&& other) noexcept = default;
SpatialIndex& SpatialIndex::operator=(SpatialIndex&& other) noexcept = default;

double SpatialIndex::spacing() const {
  if (tree_->entries.empty()) { return 0.0; }
  const TreeBox all = tree_->entries.bounds();
  const double count = static_cast<double>(tree_->entries.size());
  const double width = all.max_corner().get<0>() - all.min_corner().get<0>();
  const double height = all.max_corner().get<1>() - all.min_corner().get<1>();
  return std::max(std::sqrt(width) * std::sqrt(height / count), std::max(width, height) / count);
}

void SpatialIndex::rebuild(const std::vector<Entry>& entries) {
  std::vector<TreeEntry> packed;
  packed.reserve(entries.size());
  for (const Entry& entry : entries) { packed.emplace_back(treeBox(entry.first), entry.second); }
  tree_->entries = decltype(tree_->entries)(packed.begin(), packed.end());
  tree_->inserted = 0;
}

size_t SpatialIndex::insertedSincePacked() const { return tree_->inserted; }

void SpatialIndex::insert(const Box& box, PrimitiveId id) {
  tree_->entries.insert({treeBox(box), id});
  ++tree_->inserted;
}

void SpatialIndex::remove(const Box& box, PrimitiveId id) { tree_->entries.remove({treeBox(box), id}); }

void SpatialIndex::clear() { rebuild({}); }

void SpatialIndex::query(const Box& box, const std::function<void(PrimitiveId)>& found) const {
  tree_->entries.query(bg::index::intersects(treeBox(box)),
                       boost::make_function_output_iterator([&found](const TreeEntry& entry) { found(entry.second); }));
}

}  // namespace brevan

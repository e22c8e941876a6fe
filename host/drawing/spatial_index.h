#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/geometry/box.h"

namespace brevan {

// An R-tree over the bounds of primitives.
class SpatialIndex {
 public:
  using Entry = std::pair<Box, PrimitiveId>;

  SpatialIndex();
  ~SpatialIndex();
  SpatialIndex(const SpatialIndex&) = delete;
  SpatialIndex& operator=(const SpatialIndex&) = delete;
  SpatialIndex(SpatialIndex&& other) noexcept;
  SpatialIndex& operator=(SpatialIndex&& other) noexcept;

  // About how far the entries lie apart; 0 for an empty tree.
  [[nodiscard]] double spacing() const;
  // Builds the tree anew from all entries, which packs it well.
  void rebuild(const std::vector<Entry>& entries);
  // A tree that was put together entry by entry is slower to search than a packed one.
  [[nodiscard]] size_t insertedSincePacked() const;
  void insert(const Box& box, PrimitiveId id);
  void remove(const Box& box, PrimitiveId id);
  void clear();
  void query(const Box& box, const std::function<void(PrimitiveId)>& found) const;

 private:
  struct Tree;
  std::unique_ptr<Tree> tree_;
};

}  // namespace brevan

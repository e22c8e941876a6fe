#pragma once

#include <cmath>
#include <random>
#include <vector>

#include "host/geometry/segment.h"

namespace bench {

// A township of parcels whose corners wander: a line for every side, and a point in every parcel.
struct Township {
  std::vector<brevan::Segment> sides;
  std::vector<brevan::Point> insides;
};

inline Township township(int parcelsAlong) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> off(-6.0, 6.0);
  const auto printed = [](double value) { return std::round(value * 1000.0) / 1000.0; };
  const int corners = parcelsAlong + 1;
  std::vector<brevan::Point> grid;
  grid.reserve(static_cast<size_t>(corners) * static_cast<size_t>(corners));
  for (int up = 0; up < corners; ++up) {
    for (int across = 0; across < corners; ++across) {
      grid.push_back({printed(across * 20.0 + off(random)), printed(up * 30.0 + off(random))});
    }
  }
  Township town;
  for (int row = 0; row < corners; ++row) {
    for (int column = 0; column < corners; ++column) {
      const auto corner = [&](int right, int up) {
        return grid[static_cast<size_t>(row + up) * static_cast<size_t>(corners) + static_cast<size_t>(column + right)];
      };
      const bool across = column < parcelsAlong;
      const bool along = row < parcelsAlong;
      if (across) { town.sides.push_back({corner(0, 0), corner(1, 0)}); }
      if (along) { town.sides.push_back({corner(0, 0), corner(0, 1)}); }
      if (across && along) {
        town.insides.push_back((corner(0, 0) + corner(1, 0) + corner(0, 1) + corner(1, 1)) * 0.25);
      }
    }
  }
  return town;
}

}  // namespace bench

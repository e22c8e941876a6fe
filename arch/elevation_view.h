#pragma once

#include <array>
#include <string>
#include <string_view>

#include "frame/drafting/point.h"

namespace ardenix::arch {

// A direction in which a building is looked at from outside, as drawings and settings name it.
struct ElevationView {
  std::string_view name;    // "North": the keys of its layers are made of it, and what dialogs call it
  std::string_view prefix;  // of its groups' names
  int angle;                // degrees clockwise from the north to the side that it shows

  [[nodiscard]] std::string layerKey() const { return std::string(name).append("View"); }
  // By which symbols that stand upright in a south elevation are turned in this one.
  [[nodiscard]] double symbolRotation() const;
};

// In the order in which dialogs list them.
inline constexpr std::array<ElevationView, 4> kElevationViews = {{
    {.name = "North", .prefix = "NTH", .angle = 0},
    {.name = "South", .prefix = "STH", .angle = 180},
    {.name = "East", .prefix = "EST", .angle = 90},
    {.name = "West", .prefix = "WST", .angle = 270},
}};
// One layer's name for each of them.
using ViewLayers = std::array<std::string, kElevationViews.size()>;

// Where one is among them, of the side that lies in a direction (radians clockwise from the north). A quarter begins 5
// degrees early, by degrees and minutes: 84 degrees is north, 85 east.
size_t viewTowards(double direction);

// The direction from one point to another, radians clockwise from the north; the point that lies in a direction.
double directionOf(Point from, Point to);
Point moved(Point from, double direction, double distance);

}  // namespace ardenix::arch

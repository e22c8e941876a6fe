#pragma once

#include <array>
#include <map>
#include <vector>

#include "frame/host/cad_window.h"
#include "mech/line_style.h"

namespace ardenix::mech {

// The strokes of a part by their measures, which moving, turning and mirroring leave as they are.
class PartShape {
 public:
  // Takes in the current line or arc of a view; others do not tell parts apart. Whether it was one of the outline, and
  // no axis.
  bool add(CCadWindow& view, const LineStyle& axisStyle);

  // How many copies of one part the strokes can be. A part of its own has a stroke that no other of its strokes equals,
  // such as its axis.
  [[nodiscard]] int copies() const;
  // One of so many copies.
  [[nodiscard]] PartShape oneOf(int copies) const;
  // Whether a part may have these strokes among its own. Axes aside, which are drawn with it or not.
  [[nodiscard]] bool isPartOf(const PartShape& whole) const;
  [[nodiscard]] int strokes() const;

  friend bool operator==(const PartShape&, const PartShape&) = default;

 private:
  // Type, whether it is an axis, length or radius, sweep; in ten-thousandths.
  using Measure = std::array<long long, 4>;
  std::map<Measure, int> counts_;
};

}  // namespace ardenix::mech

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/drafting/point.h"

namespace ardenix::arch {

struct Stroke {
  Point from;
  Point to;
};

// The half of a truss with king post, struts and braces over a close wall's plate, which is its origin: x inwards to
// the middle and beyond, y upwards.
struct FacingTruss {
  double span;
  double slope;     // of the rafter: rise over run
  double overhang;  // of the eaves
  double depth;     // of rafters, king post, struts and braces
  double tieDepth;

  [[nodiscard]] double middle() const { return span / 2.0; }
  [[nodiscard]] double apex() const { return slope * middle(); }
  // How deep the rafter is where it is cut upright.
  [[nodiscard]] double uprightDepth() const;
  // How high side trusses beside it stand.
  [[nodiscard]] double height() const { return uprightDepth() + apex(); }
  // Why there is no such truss; "" where there is one.
  [[nodiscard]] std::string fault() const;
  // In the order in which they are drawn. What would lie outside the half is left out with what stands on it.
  [[nodiscard]] std::vector<Stroke> strokes() const;
};

// Trusses seen one behind the other, over the plates of both walls; places as above.
struct SideTruss {
  double span;    // between the plates
  double height;  // of its posts
  double slope;
  double overhang;
  double wallThickness;
  double postWidth;
  double clearSpacing;  // between posts, at least

  // How far the tops of the posts lie above the plates.
  [[nodiscard]] double top() const { return height - slope * overhang; }
  [[nodiscard]] std::string fault() const;
  [[nodiscard]] std::vector<Stroke> strokes() const;
  // Without what lies behind a facing truss, whose plate over the close wall is at `plate`.
  [[nodiscard]] std::vector<Stroke> strokesBeside(const FacingTruss& truss, double plate) const;

 private:
  struct Post {
    double middle;
    double bottom;
    double top;
  };
  [[nodiscard]] int bays() const;
  [[nodiscard]] std::vector<Post> posts() const;
  static void add(std::vector<Stroke>& strokes, const Post& post, double width);
};

}  // namespace ardenix::arch

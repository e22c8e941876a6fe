#pragma once

#include <span>

#include "mech/fastener_drawer.h"

namespace ardenix {

enum class RivetHeadType { kSnap, kPan, kMushroom, kFlat, kCountersunk };

// The fields of a rivet's record, in their order.
namespace rivetField {
enum : size_t { kDiameter, kLeftHeight, kLeftDiameter, kLeftType, kLength, kRightHeight, kRightDiameter, kRightType };
}  // namespace rivetField

struct RivetHead {
  RivetHeadType type = RivetHeadType::kSnap;
  double diameter = 0.0;
  double height = 0.0;
  // How much of the shank's length the head takes.
  [[nodiscard]] double sink() const { return type == RivetHeadType::kCountersunk ? height : 0.0; }
};

// A closed rivet as its definition gives it, in drawing units.
struct RivetRecord {
  double diameter = 0.0;  // of the shank
  double length = 0.0;    // between the faces of what is joined
  RivetHead left;
  RivetHead right;
};

RivetRecord rivetOf(std::span<const double> fields);

class Rivet : public FastenerDrawer {
 public:
  Rivet(CCadWindow& view, const DefinitionStore& store);

  void take(std::span<const double> fields) override { rivet_ = rivetOf(fields); }

 protected:
  // The left head stands on the position that the user gives, the right head hangs below the shank.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  [[nodiscard]] double shankTop() const { return -rivet_.left.sink(); }
  [[nodiscard]] double shankBottom() const { return rivet_.right.sink() - rivet_.length; }
  [[nodiscard]] double widestHead() const;

  RivetRecord rivet_;
};

}  // namespace ardenix

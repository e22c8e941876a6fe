#pragma once

#include "mech/fastener_drawer.h"

namespace ardenix::mech {

enum class RivetHeadType { kSnap, kPan, kMushroom, kFlat, kCountersunk };

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
  double leftDiameter = 0.0;
  double leftHeight = 0.0;
  RivetHeadType leftType = RivetHeadType::kSnap;
  double rightDiameter = 0.0;
  double rightHeight = 0.0;
  RivetHeadType rightType = RivetHeadType::kSnap;

  [[nodiscard]] RivetHead left() const { return {leftType, leftDiameter, leftHeight}; }
  [[nodiscard]] RivetHead right() const { return {rightType, rightDiameter, rightHeight}; }
};

// The table of its fields.
Fields<RivetRecord> rivetFields();

class RivetDrawer : public FastenerOf<RivetRecord> {
 public:
  RivetDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const RivetRecord& record) override { rivet_ = record; }
  // The left head stands on the position that the user gives, the right head hangs below the shank.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  [[nodiscard]] double shankTop() const { return -rivet_.left().sink(); }
  [[nodiscard]] double shankBottom() const { return rivet_.right().sink() - rivet_.length; }
  [[nodiscard]] double widestHead() const;

  RivetRecord rivet_;
};

}  // namespace ardenix::mech

#pragma once

#include "mech/fastener_drawer.h"
#include "mech/hexagon.h"

namespace ardenix::mech {

enum class NutType { kHexagon, kSlotted };
enum class NutShape { kRounded, kFlatBase, kFlat };  // chamfered at both ends, at the top, nowhere

// A nut as its definition gives it, in drawing units.
struct NutRecord {
  double headSize = 0.0;    // across the flats
  double headHeight = 0.0;  // above the washer
  double diameter = 0.0;    // nominal, of the thread
  double washerDiameter = 0.0;
  double minorDiameter = 0.0;
  double washerThickness = 0.0;  // 0: no washer
  double slotWidth = 0.0;
  double slotDepth = 0.0;
  NutType type = NutType::kHexagon;
  NutShape shape = NutShape::kRounded;
};

// The table of its fields.
Fields<NutRecord> nutFields();

// What the drawing measures from.
struct NutDimensions {
  Hexagon body;
  NutShape shape = NutShape::kRounded;
  bool slotted = false;
  double threadRadius = 0.0;
  double minorRadius = 0.0;
  bool washer = false;
  double washerRadius = 0.0;
  double foot = 0.0;  // height at which the body stands: that of the washer
  double slotWidth = 0.0;
  double slotDepth = 0.0;
};

NutDimensions nutDimensions(const NutRecord& record);

class NutDrawer : public FastenerOf<NutRecord> {
 public:
  NutDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const NutRecord& record) override { dimensions_ = nutDimensions(record); }
  // The nut stands on the position that the user gives.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  // The parts of the side view; `base` is the middle of the body's underside.
  void drawWasher(const DraftingPen& pen) const;
  void drawRoundedBody(const DraftingPen& pen, Point base) const;
  void drawFlatBasedBody(const DraftingPen& pen, Point base) const;
  void drawFlatBody(const DraftingPen& pen, Point base) const;
  void cutSlots(const DraftingPen& pen, Point base) const;
  void cutSlot(const DraftingPen& pen, Point base, double width) const;
  // Cuts the slots out of the plan.
  void drawSlotsOfPlan(const DraftingPen& pen) const;

  NutDimensions dimensions_;
};

}  // namespace ardenix::mech

#pragma once

#include "mech/fastener_drawer.h"

namespace ardenix::mech {

enum class ScrewHead { kCylindrical, kCountersunk, kRounded, kRoundedCountersunk, kSetScrew };
enum class ScrewKey { kHexagon, kSlot, kCross };

// A socket screw as its definition gives it, in drawing units.
struct ScrewRecord {
  double headDiameter = 0.0;
  double headHeight = 0.0;
  double diameter = 0.0;  // nominal, of the thread
  double length = 0.0;    // of the shaft, below a countersunk head
  double shankLength = 0.0;
  double minorDiameter = 0.0;
  double shoulderDiameter = 0.0;
  double keySize = 0.0;  // across the flats of a hexagon; width and depth of a slot
  ScrewHead head = ScrewHead::kCylindrical;
  ScrewKey key = ScrewKey::kHexagon;
};

// The table of its fields.
Fields<ScrewRecord> screwFields();

// What the drawing measures from. Depths count down from the position, heights up.
struct ScrewDimensions {
  ScrewHead head = ScrewHead::kCylindrical;
  ScrewKey key = ScrewKey::kHexagon;
  double headRadius = 0.0;
  double headHeight = 0.0;
  double radius = 0.0;
  double minorRadius = 0.0;
  double shoulderRadius = 0.0;
  double neckRadius = 0.0;  // at which the cone of a countersunk head ends
  double keySize = 0.0;
  double length = 0.0;
  double sink = 0.0;         // how far the head lies in the material; the shaft starts there
  double threadStart = 0.0;  // depth, of headed screws
  double chamfer = 0.0;      // difference of the thread's radii
  double tipChamfer = 0.0;   // of the shaft's end
  double tip = 0.0;          // depth of the shaft's end
  double domeRadius = 0.0;   // of rounded heads
  double axisTop = 0.0;      // height
  double axisBottom = 0.0;   // depth
};

ScrewDimensions screwDimensions(const ScrewRecord& record);

class ScrewDrawer : public FastenerOf<ScrewRecord> {
 public:
  ScrewDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const ScrewRecord& record) override { dimensions_ = screwDimensions(record); }
  // The screw hangs below the position that the user gives, which is the surface of the material.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  [[nodiscard]] bool headed() const { return dimensions_.head != ScrewHead::kSetScrew; }
  [[nodiscard]] bool slotted() const { return dimensions_.key == ScrewKey::kSlot; }
  // The parts of the side view.
  void drawCylindricalHead() const;
  void drawCountersunkHead() const;
  void drawRoundedHead() const;
  void drawRoundedCountersunkHead() const;
  void drawSetScrewTop() const;
  void drawDome(const DraftingPen& pen, Point foot, double rise) const;
  void drawLineAcrossSlot(const DraftingPen& pen, Point middle, double halfWidth) const;
  void drawSlot(const DraftingPen& pen, Point middle) const;
  void drawHeadedShaft() const;
  void drawSetScrewShaft() const;
  void drawChamferLine(const DraftingPen& pen, double depth) const;
  // The keys of the plan.
  void drawHexagonKey(const DraftingPen& pen) const;
  void drawSlotKey(const DraftingPen& pen) const;
  void drawCrossKey(const DraftingPen& pen) const;

  ScrewDimensions dimensions_;
};

}  // namespace ardenix::mech

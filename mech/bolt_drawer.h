#pragma once

#include "mech/fastener_drawer.h"
#include "mech/hexagon.h"

namespace ardenix::mech {

// A hexagon bolt as its definition gives it, in drawing units.
struct BoltRecord {
  double headSize = 0.0;  // across the flats
  double headHeight = 0.0;
  double diameter = 0.0;  // nominal, of the thread
  double length = 0.0;    // of the shaft under the head
  double threadLength = 0.0;
  double minorDiameter = 0.0;
};

// The table of its fields.
Fields<BoltRecord> boltFields();

// A bolt of usual proportions for a diameter and a length.
BoltRecord standardBolt(double diameter, double length);

// What the drawing measures from. Depths count down from the underside of the head.
struct BoltDimensions {
  Hexagon head;
  double radius = 0.0;
  double minorRadius = 0.0;
  double length = 0.0;
  double chamferStart = 0.0;  // depth at which the end chamfer begins
  double threadEnd = 0.0;     // depth at which the thread ends
  double overhang = 0.0;      // of the centre line at both ends
};

BoltDimensions boltDimensions(const BoltRecord& record);

class BoltDrawer : public FastenerOf<BoltRecord> {
 public:
  BoltDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const BoltRecord& record) override { dimensions_ = boltDimensions(record); }
  // The head stands above the position that the user gives, the shaft hangs below.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  void drawHead() const;
  void drawShaft() const;
  void drawThread() const;
  void drawAxis() const;

  BoltDimensions dimensions_;
};

}  // namespace ardenix::mech

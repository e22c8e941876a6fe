#pragma once

#include "mech/placed_drawer.h"
#include "mech/record_drawer.h"

namespace ardenix::mech {

// A flange as the library keeps it. Diameters, drawing units.
struct FlangeRecord {
  double outside = 0.0;  // of round and oval flanges
  double bore = 0.0;     // 0 for none
  double corner = 0.0;   // of the rounded ends of oval and triangular flanges
  double boltHole = 0.0;
  double pitchCircle = 0.0;  // on which the bolt holes lie
  int holes = 2;
};

enum class FlangeShape { kNone, kOval, kTriangular, kRound };
FlangeShape flangeShape(const FlangeRecord& flange);

Fields<FlangeRecord> flangeFields();

class FlangeDrawer : public RecordDrawer<PlacedDrawer, FlangeRecord> {
 public:
  FlangeDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const FlangeRecord& flange) override { flange_ = flange; }
  void stroke() override;
  [[nodiscard]] Point reference() const override;

 private:
  enum Extra : size_t { kPitchCircle };

  void strokeShape();
  void strokeRound() const;
  void strokeOval() const;
  void strokeTriangle();
  void roundCorner(Point corner, Point before, Point after);
  void strokeCentreLines() const;
  void strokeHole(Point centre) const;
  [[nodiscard]] double pitchRadius() const { return flange_.pitchCircle / 2.0; }

  FlangeRecord flange_;
};

}  // namespace ardenix::mech

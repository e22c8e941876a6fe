#pragma once

#include "mech/gear_tooth.h"
#include "mech/involute_flank.h"
#include "mech/placed_drawer.h"
#include "mech/record_drawer.h"

namespace ardenix::mech {

Fields<GearRecord> gearFields();

// Draws the plan of a spur gear: half a tooth space, mirrored, and round the gear; then the bore.
class GearDrawer : public RecordDrawer<PlacedDrawer, GearRecord> {
 public:
  GearDrawer(CCadWindow& view, const DefinitionStore& store);
  void sketch() override;

 protected:
  void measure(const GearRecord& gear) override;
  void placeAll() override;
  void drawPart(std::optional<Point> target) override;
  void stroke() override;
  [[nodiscard]] Point reference() const override { return position(); }

 private:
  enum Extra : size_t { kCentreLines, kTrueInvolute };

  void strokeTeeth();
  void strokeArcFlank();
  void strokeInvoluteFlank(const std::vector<FlankArc>& flank) const;
  [[nodiscard]] Point inSpace(Point p) const;
  void strokeBore() const;
  void strokeCentreLines() const;

  GearRecord gear_;
  std::optional<GearTooth> tooth_;
};

}  // namespace ardenix::mech

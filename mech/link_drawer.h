#pragma once

#include "mech/placed_drawer.h"
#include "mech/record_drawer.h"

namespace ardenix::mech {

enum class LinkType { kTaper, kFillet, kFlush };

// A link as the library keeps it: a boss with a hole at each end and what joins them. Drawing units; ends are the left
// and the right one as drawn.
struct LinkRecord {
  double leftBoss = 0.0;  // diameters
  double leftHole = 0.0;
  double distance = 0.0;  // between the centres
  double rightBoss = 0.0;
  double rightHole = 0.0;
  double leftShoulder = 0.0;  // widths of a taper
  double rightShoulder = 0.0;
  double radius = 0.0;      // of the curve of a fillet link
  double leftFillet = 0.0;  // radii where a taper meets the bosses
  double rightFillet = 0.0;
  LinkType type = LinkType::kTaper;
};

// The upper half of the outline, measured from the left centre: where it leaves the left boss and meets the right one,
// and the centre of the curve between them, if that is one.
struct LinkOutline {
  Point left;
  Point right;
  Point curve;
};
// Nothing where the bosses cannot be joined so.
std::optional<LinkOutline> linkOutline(const LinkRecord& link);

Fields<LinkRecord> linkFields();

class LinkDrawer : public RecordDrawer<PlacedDrawer, LinkRecord> {
 public:
  LinkDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const LinkRecord& link) override;
  void stroke() override;
  void strokeAxes() override;
  [[nodiscard]] Point reference() const override { return rightCentre(); }
  void selectDrawn() const override;
  void finished() const override;

 private:
  void strokeHoles() const;
  void strokeBosses() const;
  void strokeJoint();
  void strokeTaper();
  void roundLeft();
  void roundRight();
  void tellSharp(bool rounded, double shoulder, double boss);
  [[nodiscard]] Point rightCentre() const { return position() + Point{link_.distance, 0}; }

  LinkRecord link_;
  std::optional<LinkOutline> outline_;
};

}  // namespace ardenix::mech

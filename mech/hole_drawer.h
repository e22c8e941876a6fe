#pragma once

#include "mech/fastener_drawer.h"

namespace ardenix::mech {

enum class HoleType { kDrilled, kTapped, kDowel };
enum class HoleRange { kThrough, kBlind };

// A hole as its definition gives it, in drawing units.
struct HoleRecord {
  double diameter = 0.0;
  double threadDiameter = 0.0;
  double length = 0.0;            // from the surface, without the drill point
  double countersinkDepth = 0.0;  // or that of the counterbore; 0: neither
  HoleType type = HoleType::kTapped;
  HoleRange range = HoleRange::kBlind;
  double counterboreDiameter = 0.0;  // 0: a countersink
  double threadLength = 0.0;
};

// The table of its fields.
Fields<HoleRecord> holeFields();

// What the drawing measures from. Depths count down from the position.
struct HoleDimensions {
  HoleType type = HoleType::kTapped;
  bool blind = true;
  double radius = 0.0;
  double threadRadius = 0.0;  // 0: no thread
  double mouthRadius = 0.0;   // of the hole and its thread at the surface
  double length = 0.0;
  double threadLength = 0.0;
  bool sunk = false;  // it has a countersink or a counterbore
  double sinkDepth = 0.0;
  double sinkRadius = 0.0;  // at the surface
  bool counterbored = false;
  double bodyTop = 0.0;     // depth at which the walls begin
  double bottom = 0.0;      // depth at which they end
  double tip = 0.0;         // height of the drill point, 0 for a through hole
  bool threadEnds = false;  // above the end of the hole, which shows as a line
};

HoleDimensions holeDimensions(const HoleRecord& record);

class HoleDrawer : public FastenerOf<HoleRecord> {
 public:
  HoleDrawer(CCadWindow& view, const DefinitionStore& store);

 protected:
  void measure(const HoleRecord& record) override { dimensions_ = holeDimensions(record); }
  // The hole goes down from the position that the user gives, which is the surface of the material.
  void strokeSideView() override;
  void strokePlanView() override;
  [[nodiscard]] FastenerReach reach() const override;

 private:
  void drawCountersink(const DraftingPen& pen) const;
  void drawCounterbore(const DraftingPen& pen) const;
  [[nodiscard]] double drawnThreadRadius() const;
  void drawThread() const;
  void drawBody(const DraftingPen& pen) const;
  void drawAxis() const;
  void drawPlanCentreLines() const;
  void fillDowel() const;

  HoleDimensions dimensions_;
};

}  // namespace ardenix::mech

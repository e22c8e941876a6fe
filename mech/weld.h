#pragma once

#include <string>

#include "mech/annotation_part.h"
#include "mech/part_drawer.h"
#include "mech/record_fields.h"

namespace ardenix::mech {

// A weld as its definition gives it: what is said of either side of the joint, each a place in its list, 0 for none,
// and two sizes, the lower one of the cross-section.
struct WeldRecord {
  int otherSymbol = 0;
  int otherSurface = 0;
  int otherFinish = 0;
  int arrowSymbol = 0;
  int arrowSurface = 0;
  int arrowFinish = 0;
  std::string otherUpper;
  std::string otherLower;
  std::string arrowUpper;
  std::string arrowLower;
  double length = 0.0;  // of a run
  double pitch = 0.0;   // from the start of a run to the next
  bool site = false;
  bool allAround = false;
  std::string tail;
};

Fields<WeldRecord> weldFields();

// The weld where nobody is asked, with its knee at a point.
void sketchWeld(AnnotationPen& pen, const WeldRecord& weld, const ArrowHead& head, Point knee);

// Draws a weld annotation: the arrow to the joint, the reference line from its knee to the tail, and on it what is said
// of either side.
class WeldDrawer : public PartDrawer {
 public:
  WeldDrawer(CCadWindow& view, const DefinitionStore& store) : view_(view), store_(store) {}

  void take(const WeldRecord& record) { record_ = record; }
  void takeRecord(std::string_view text) override { take(readRecord(text, weldFields())); }
  [[nodiscard]] std::string recordText(std::string_view name) const override {
    return writeRecord(name, record_, weldFields());
  }
  void sketch() override;
  // Asks for the points of the annotation and draws it; what stands in the way is told.
  void draw() const;

 private:
  CCadWindow& view_;
  const DefinitionStore& store_;
  WeldRecord record_;
};

}  // namespace ardenix::mech

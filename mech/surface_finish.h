#pragma once

#include <string>

#include "mech/annotation_part.h"
#include "mech/part_drawer.h"
#include "mech/record_fields.h"

namespace ardenix::mech {

enum class MaterialRemoval : int { kAny, kRequired, kProhibited };

// The direction in which the tool's traces run.
enum class Lay : int { kNone, kParallel, kPerpendicular, kCircular, kRadial, kMulti, kAngular };

// The surfaces for which a finish holds: the one that the mark stands on, all round the outline that is seen, or all
// that have no mark of their own.
enum class FinishScope : int { kHere, kAllAround, kGeneral };

// A surface finish as its definition gives it.
struct SurfaceFinishRecord {
  MaterialRemoval removal = MaterialRemoval::kAny;
  Lay lay = Lay::kNone;
  std::string roughness;
  std::string cutoff;
  std::string allowance;
  std::string note;
  FinishScope scope = FinishScope::kHere;
};

Fields<SurfaceFinishRecord> surfaceFinishFields();

// The mark where nobody is asked, with its tip at a point.
void sketchFinish(AnnotationPen& pen, const SurfaceFinishRecord& finish, Point tip);

// Draws the mark of a surface finish with its tip where the user puts it.
class SurfaceFinishDrawer : public PartDrawer {
 public:
  SurfaceFinishDrawer(CCadWindow& view, const DefinitionStore& store) : view_(view), store_(store) {}

  void take(const SurfaceFinishRecord& record) { record_ = record; }
  void takeRecord(std::string_view text) override { take(readRecord(text, surfaceFinishFields())); }
  [[nodiscard]] std::string recordText(std::string_view name) const override {
    return writeRecord(name, record_, surfaceFinishFields());
  }
  void sketch() override;
  // Asks for the tip and draws the mark; what stands in the way is told.
  void draw() const;

 private:
  CCadWindow& view_;
  const DefinitionStore& store_;
  SurfaceFinishRecord record_;
};

}  // namespace ardenix::mech

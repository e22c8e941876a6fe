#pragma once

#include <string>

#include "mech/annotation_part.h"
#include "mech/part_drawer.h"
#include "mech/record_fields.h"

namespace ardenix::mech {

enum class MaterialRemoval : int { kAny, kRequired, kProhibited };

// The direction in which the tool's traces run.
enum class Lay : int { kNone, kParallel, kPerpendicular, kCircular, kRadial, kMulti, kAngular };

// A surface finish as its definition gives it.
struct SurfaceFinishRecord {
  MaterialRemoval removal = MaterialRemoval::kAny;
  Lay lay = Lay::kNone;
  std::string roughness;
  std::string cutoff;
  std::string allowance;
  std::string note;
};

Fields<SurfaceFinishRecord> surfaceFinishFields();

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

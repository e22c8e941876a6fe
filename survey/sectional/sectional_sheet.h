#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "survey/sectional/sectional_plan_job.h"
#include "survey/sheet/extents.h"
#include "survey/sheet/sheet_writer.h"

namespace ardenix::survey {

// The sheets of a sectional plan, in the order of their templates.
enum class SheetKind { kSheet1, kBlockPlan, kFloorPlan, kQuotas };

// A sheet of a sectional plan in a window of its own.
class SectionalSheet {
 public:
  // Where the template's middle comes to lie, and the denominator of the scale; the drawing's own where none is given.
  struct Setup {
    Point middle;
    std::optional<double> scale;
  };

  // Opens the window. Nothing, with a message, where the host opens none.
  static std::optional<SectionalSheet> open(SectionalPlanJob& job, SheetKind kind);

  [[nodiscard]] CCadWindow& view() const { return view_; }
  // The width of the template's lines, or of the paper, drawing units.
  [[nodiscard]] double width() const { return extents_.high.x - extents_.low.x; }

  // Inserts the template and gives the sheet its paper; before anything is written.
  void setUp(const Setup& setup);
  SheetWriter& writer() { return *writer_; }

  // Makes a layer current, by its name in the settings or else by this one.
  void useLayer(const std::string& named, std::string_view otherwise);
  void useFrameLayer();

  // Asks for the texts of the frame, all at once, and draws them; those of Sheet 1 are other rows than those of plans.
  void writeFrame();
  // Asks for the notes of the job and draws them.
  void writeNotes();

 private:
  SectionalSheet(SectionalPlanJob& job, SheetKind kind, CCadWindow& view) : job_(job), kind_(kind), view_(view) {}

  SectionalPlanJob& job_;
  SheetKind kind_;
  CCadWindow& view_;
  Extents extents_;
  std::optional<SheetWriter> writer_;
};

// Asks whether to go on where there are no sections to list.
bool mayListSections(const SectionalPlanJob& job);

}  // namespace ardenix::survey

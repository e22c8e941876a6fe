#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "survey/sectional/sectional_plan_job.h"
#include "survey/sheet/extents.h"
#include "survey/sheet/sheet_writer.h"

namespace ardenix::survey {

// The sheets of a sectional plan, in the order of their templates.
enum class SheetKind { kSheet1, kBlockPlan, kFloorPlan, kQuotas };

// What stands in a sheet's frame, a text for each of its rows.
using FrameTexts = std::vector<std::string>;
// Nothing until the user was asked; then nothing where the user left the texts out.
using FrameAnswer = std::optional<std::optional<FrameTexts>>;

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
  [[nodiscard]] bool isUpright() const { return width() <= extents_.high.y - extents_.low.y; }

  // Inserts the template and gives the sheet its paper; before anything is written.
  void setUp(const Setup& setup);
  SheetWriter& writer() { return *writer_; }

  // Makes a layer current, by its name in the settings or else by this one.
  void useLayer(const std::string& named, std::string_view otherwise);
  void useFrameLayer();

  // Asks for the texts of the frame, all at once, unless they are answered already, and draws them; those of Sheet 1
  // are other rows than those of plans. A title goes before that of the settings.
  void writeFrame(FrameAnswer& answer, std::string_view title = {});
  void writeFrame() {
    FrameAnswer unasked;
    writeFrame(unasked);
  }
  // Asks for the notes of the job. False where the user does not want them.
  bool askNotes();
  void writeNotes();

 private:
  void fitPaper(const Extents& held);
  [[nodiscard]] std::optional<FrameTexts> askFrame(std::string_view title) const;
  // What stands in the place of a row's text on this sheet; nothing where the text stays.
  [[nodiscard]] std::optional<std::string> given(size_t row, std::string_view title) const;

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

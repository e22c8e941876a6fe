#include <algorithm>
#include <cmath>

#include "frame/drafting/pen.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sectional_sheet.h"
#include "survey/sectional/text_dialogs.h"
#include "survey/settings_keys.h"
#include "survey/sheet/extents.h"
#include "survey/text_row.h"

// The traced outlines of sections on a sheet, each with its name.
namespace ardenix::survey {

namespace {

using Outlines = std::vector<const SectionOutline*>;

// Traced ones that the user chose; none, with a message, where there is nothing to draw.
Outlines chosenOutlines(const SectionalPlanJob& job) {
  CMDIFrameWnd* const frame = job.services().mainFrame;
  const auto& outlines = job.sections.outlines();
  if (outlines.empty()) {
    coreMessageBox(frame,
                   "There are no traced sections to plot. First use the Trace Section\nfunction to coordinate sections "
                   "for plotting.",
                   "No sections to plot", BoxIcon::kInformation, BoxButtons::kOk);
    return {};
  }
  std::vector<std::string> names;
  names.reserve(outlines.size());
  for (const SectionOutline& outline : outlines) {
    const Section& section = *job.sections.find(outline.section);
    names.push_back(numberText::format("%s %d", std::string_view(job.floorName(section.floor)), section.plainNumber()));
  }
  Outlines chosen;
  for (const size_t index : chooseSections(job.services(), std::move(names))) { chosen.push_back(&outlines[index]); }
  if (chosen.empty()) { InfoMessage("No sections selected.", frame); }
  return chosen;
}

Extents extentsOfAll(const Outlines& outlines) {
  Extents extents{outlines.front()->points.front(), outlines.front()->points.front()};
  for (const SectionOutline* outline : outlines) {
    for (const Point point : outline->points) { extents.add(point); }
  }
  return extents;
}

// The largest of the usual scales at which the outlines fit the sheet; nothing where none is small enough.
std::optional<double> fittingScale(const JobSettings& settings, const Extents& extents) {
  constexpr double kUsableWidth = 190.0;  // millimetres of an upright A4 sheet
  const std::string value = settings.value(kExtentSection, "FP");
  const double usableHeight =
      std::fabs(coreGetFieldDouble(value, 0.0, 2, ',') - coreGetFieldDouble(value, 0.0, 1, ','));
  const Point size = (extents.high - extents.low) * settings.unitFactor();
  for (const double scale : {50.0, 100.0, 200.0, 250.0, 500.0, 1000.0}) {
    if (size.x <= kUsableWidth * scale && size.y <= usableHeight * scale) { return scale; }
  }
  return std::nullopt;
}

// ---- Labels -----------------------------------------------------------------------------------------------------

// Where a level line crosses the outline, from left to right.
std::vector<double> crossings(const std::vector<Point>& points, double level) {
  std::vector<double> across;
  for (size_t n = 1; n < points.size(); ++n) {
    const Point a = points[n - 1];
    const Point b = points[n];
    if ((a.y > level) != (b.y > level)) { across.push_back(a.x + (b.x - a.x) * (level - a.y) / (b.y - a.y)); }
  }
  std::ranges::sort(across);
  return across;
}

// The mean of its corners; beside it in the middle of the widest part where that lies outside.
Point placeOfLabel(const std::vector<Point>& closed) {
  Point mean;
  for (size_t n = 1; n < closed.size(); ++n) { mean = mean + closed[n]; }
  mean = mean / static_cast<double>(closed.size() - 1);
  const std::vector<double> across = crossings(closed, mean.y);
  Point widest = mean;
  double width = 0.0;
  for (size_t n = 1; n < across.size(); n += 2) {
    if (across[n - 1] <= mean.x && mean.x <= across[n]) { return mean; }
    if (across[n] - across[n - 1] <= width) { continue; }
    width = across[n] - across[n - 1];
    widest = {(across[n] + across[n - 1]) / 2.0, mean.y};
  }
  return widest;
}

void drawOutline(const SectionalSheet& sheet, const JobSettings& settings, const Section& section,
                 const SectionOutline& outline) {
  const DraftingPen pen(sheet.view(), {.pen = settings.options().tracePen, .linetype = 1}, settings.layer());
  for (size_t n = 1; n < outline.points.size(); ++n) { pen.line(outline.points[n - 1], outline.points[n]); }
  TextStyle style = settings.textStyle();
  style.justification = kCentred;
  pen.text(placeOfLabel(outline.points),
           numberText::format(section.isPart() ? "PART OF SECTION %d" : "SECTION %d", section.plainNumber()), style);
}

}  // namespace

void makeFloorPlans(SectionalPlanJob& job) {
  if (!job.begin()) { return; }
  const Outlines outlines = chosenOutlines(job);
  if (outlines.empty()) { return; }
  auto sheet = SectionalSheet::open(job, SheetKind::kFloorPlan);
  if (!sheet) { return; }
  JobSettings& settings = job.settings();
  sheet->useLayer(settings.options().figureLayer, "ST_FIGURE");
  const Extents extents = extentsOfAll(outlines);
  sheet->setUp({extents.centre(), fittingScale(settings, extents)});
  for (const SectionOutline* outline : outlines) {
    drawOutline(*sheet, settings, *job.sections.find(outline->section), *outline);
  }
  sheet->writeFrame();
  sheet->writeNotes();
}

}  // namespace ardenix::survey

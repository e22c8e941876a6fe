#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/messages.h"
#include "survey/figure_arcs.h"
#include "survey/figure_report.h"
#include "survey/figure_tracing.h"
#include "survey/number_formats.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sheets.h"
#include "survey/sheet/extents.h"
#include "survey/sheet/ruled_table.h"
#include "survey/surroundings.h"
#include "survey/text_row.h"

// The outside figure of the land with what stands on it.
namespace ardenix::survey {

namespace {

constexpr int kRightAligned = 8;
constexpr double kSideWidths[] = {6.0, 6.0, 8.833};
constexpr HeadingCell kSideCells[] = {{"TRL", "SIDES"}, {"TR", "Metres"}, {"TR", "ANGLES OF\\nDIRECTION"},
                                      {"TRBL"},         {"TRB"},          {"TRB"}};
// Numbers end at their place: centred there, the widest would cross its ruling.
constexpr TableColumn kSideColumns[] = {{3.0, kCentred}, {10.8, kRightAligned}, {19.6, kRightAligned}};
constexpr TableForm kSideTable = {.kind = "A_TABLE0",
                                  .widths = kSideWidths,
                                  .cells = kSideCells,
                                  .columns = kSideColumns,
                                  .firstRow = 4.25,
                                  .lastRowLess = 4.25,
                                  .lastRowSteps = 1};

void drawTable(SectionalSheet& sheet, const JobSettings& settings, const Figure& figure) {
  Point origin;
  const bool placed = sheet.view().gsGetPointFromUser("Position top left corner of table ...", origin.x, origin.y) == 0;
  const TextRow row = settings.textRow("PLANS", "BpTable");
  if (!placed || row.size == 0) { return; }
  sheet.useLayer(settings.options().textLayer, "ST_TEXT");
  sheet.view().gsExecuteMacro(macroText::kAllLayersOff);
  RuledTable table(
      sheet.view(), kSideTable,
      {.tablePen = row.pen, .textPen = row.pen, .height = row.size, .layer = settings.layer(), .font = row.font},
      origin, settings.paperFactor());
  for (const Side& side : figure) {
    table.addRow({side.name(), formattedNumber(side.join.distance, settings.numbers()),
                  formattedBearing(side.join.direction, settings.numbers()).text});
  }
  table.draw();
}

}  // namespace

std::optional<Figure> traceLand(SectionalPlanJob& job) {
  CCadWindow& view = job.view();
  view.gsClearWorkSpace();
  view.gsExecuteMacro(macroText::plainLine(job.settings().options().tracePen));
  view.gsStartPat(macroText::kPolyline);
  view.gsExecuteMacro(macroText::kNoWidth);
  std::optional<TracedFigure> traced = traceFigure(view);
  if (!traced) { return std::nullopt; }
  takeArcs(view, traced->figure);
  if (!reportFigure(view, traced->figure, traced->misclosure)) { return std::nullopt; }
  return std::move(traced->figure);
}

bool drawBlockPlan(SectionalPlanJob& job, const Figure& figure, std::string_view title) {
  auto sheet = SectionalSheet::open(job, SheetKind::kBlockPlan);
  if (!sheet) { return false; }
  JobSettings& settings = job.settings();
  OpenedLayers layers(job.view(), sheet->view());
  copySurroundings(settings, job.view(), sheet->view(), figure);
  sheet->useLayer(settings.options().figureLayer, "ST_FIGURE");
  clipSurroundings(settings, sheet->view(), figure);
  sheet->setUp({extentsOf(figure).centre(), {}});
  FrameAnswer unasked;
  sheet->writeFrame(unasked, title);
  if (ask(job.services().mainFrame, "Do you want a table of sides and directions for the outside figure?", "Table")) {
    drawTable(*sheet, settings, figure);
  }
  if (sheet->askNotes()) { sheet->writeNotes(); }
  layers.close(settings.layer());
  return true;
}

void makeBlockPlan(SectionalPlanJob& job) {
  if (!job.begin()) { return; }
  if (const std::optional<Figure> figure = traceLand(job)) { drawBlockPlan(job, *figure); }
}

}  // namespace ardenix::survey

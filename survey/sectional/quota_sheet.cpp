#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

#include "frame/drafting/pen.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "survey/sectional/section_rows.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sheets.h"
#include "survey/sectional/text_dialogs.h"
#include "survey/settings_keys.h"
#include "survey/text_row.h"

// The schedule of a scheme's sections, floor areas and participation quotas.
namespace ardenix::survey {

namespace {

struct ScheduleLine {
  std::array<std::string, 3> texts;
  bool ruledOff = false;  // from the lines above it
};

// The part of a sheet's height that a schedule may take, millimetres above the sheet's origin.
struct VerticalExtent {
  double lower = 0.0;
  double upper = 0.0;
};

VerticalExtent extentOf(const JobSettings& settings, std::string_view key) {
  const std::string value = settings.value(kExtentSection, key);
  return {coreGetFieldDouble(value, 0.0, 1, ','), coreGetFieldDouble(value, 0.0, 2, ',')};
}

TextRow scheduleRow(const JobSettings& settings) { return settings.textRow("PLANS", "PqLists"); }

// From a line of the schedule to the next, millimetres.
double rowHeight(const TextRow& row) {
  constexpr double kRowHeight = 1.25;  // of the texts' height
  constexpr double kSizesAMillimetre = 10.0;
  return kRowHeight * row.size / kSizesAMillimetre;
}

// Lines of texts in three columns below each other, with a ruling line after some of them. Heights are rows down from
// the schedule's top.
class Schedule {
 public:
  Schedule(SectionalSheet& sheet, const TextRow& row, double top)
      : sheet_(sheet), row_(row), top_(top), step_(-writer().across(rowHeight(row))) {
    right_ = writer().axisSign() * sheet.width() / 3.0;
    left_ = writer().origin().x - writer().axisSign() * sheet.width();
    rule();
  }

  void add(const std::array<std::string, 3>& texts) {
    down_ += 1.0;
    for (size_t column = 0; column < texts.size(); ++column) {
      writer().write(row_, {left_ + right_ * (static_cast<double>(column) + 0.5), y()}, texts.at(column), kCentred);
    }
  }
  // Below the last line.
  void rule() {
    down_ += down_ == 0.0 ? 0.0 : kBelowLine;
    line({left_, y()}, {left_ + 3.0 * right_, y()});
    down_ -= 1.0 - kBelowLine;
  }
  void close() {
    rule();
    down_ += 1.0 - kBelowLine;
    for (const double column : {1.0, 2.0}) { line({left_ + column * right_, top_}, {left_ + column * right_, y()}); }
  }
  // Below the closed schedule, from its left edge, as many words a line as its width holds.
  void note(std::string_view text) {
    constexpr double kWidthOfLetter = 0.6;  // of the height, in most founts
    const double letters =
        std::max(1.0, 0.95 * sheet_.width() / (kWidthOfLetter / kRowHeightOfText * std::fabs(step_)));
    const double indent = writer().axisSign() * std::fabs(step_);
    down_ += 1.0 - kBelowLine;
    for (const std::string& words : brokenIntoLines(text, static_cast<size_t>(letters))) {
      constexpr int kLeft = 1;
      down_ += 1.0;
      writer().write(row_, {left_ + indent, y()}, words, kLeft);
    }
  }

 private:
  static constexpr double kBelowLine = 0.75;
  static constexpr double kRowHeightOfText = 1.25;

  [[nodiscard]] SheetWriter& writer() const { return sheet_.writer(); }
  [[nodiscard]] double y() const { return top_ + down_ * step_; }
  void line(Point from, Point to) const {
    DraftingPen(sheet_.view(), {.pen = row_.pen, .linetype = 1}, writer().job().layer()).line(from, to);
  }

  SectionalSheet& sheet_;
  const TextRow& row_;
  double top_;
  double step_;
  double left_ = 0.0;   // the schedule's left edge on paper
  double right_ = 0.0;  // from there over a column's width
  double down_ = 0.0;
};

// ---- What is listed ---------------------------------------------------------------------------------------------

struct Share {
  long long area = 0;
  Quota quota = 0;
};

ScheduleLine lineOf(std::string name, const Share& share) {
  return {{std::move(name), std::to_string(share.area), shownQuota(share.quota)}};
}

void addFloors(std::vector<ScheduleLine>& lines, const SectionalPlanJob& job, const Quotas& quotas) {
  std::map<int, Share> floors;
  for (const Section& section : job.sections.sections()) {
    Share& floor = floors[section.floor];
    floor.area += section.area;
    floor.quota += quotas.of(section);
  }
  bool first = true;
  for (const auto& [floor, share] : floors) {
    lines.push_back(lineOf(job.floorName(floor), share));
    lines.back().ruledOff = std::exchange(first, false);
  }
}

std::vector<ScheduleLine> scheduleOf(SectionalPlanJob& job, const Quotas& quotas) {
  std::vector<ScheduleLine> lines;
  for (const SectionRow& row : sectionRows(job.sections, PartView::kCollapsed, quotas)) {
    lines.push_back(lineOf(std::to_string(row.number()), {row.area, row.quota}));
  }
  if (job.settings().options().floorTotals) { addFloors(lines, job, quotas); }
  return lines;
}

// The lines that a sheet takes between its extents, besides heading, total and rulings; all where nothing is listed.
size_t linesASheet(const JobSettings& settings) {
  constexpr double kOther = 6.0;
  const TextRow row = scheduleRow(settings);
  if (row.size == 0) { return std::numeric_limits<size_t>::max(); }
  const VerticalExtent extent = extentOf(settings, "PQ");
  if (extent.upper == extent.lower) { return std::numeric_limits<size_t>::max(); }
  return static_cast<size_t>(
      std::max(1.0, std::floor(std::fabs((extent.upper - extent.lower) / rowHeight(row)) - kOther)));
}

void tellOfTotal(const SectionalPlanJob& job, const Quotas& quotas) {
  if (job.sections.empty() || quotas.total() == kWholeQuota) { return; }
  InfoMessage(numberText::format("The quotas total %s, not 100.0000.", std::string_view(writtenQuota(quotas.total()))),
              job.services().mainFrame);
}

// ---- Drawing ----------------------------------------------------------------------------------------------------

// One sheet with some of the lines; the last has the total.
void drawLines(CCadWindow& view, Schedule& schedule, std::span<const ScheduleLine> lines, const Quotas* total) {
  schedule.add({"SECTION", "AREA", "PARTICIPATION QUOTA"});
  schedule.add({"NUMBER", "(square metres)", "PERCENTAGE"});
  schedule.rule();
  int done = 0;
  for (const ScheduleLine& line : lines) {
    if (line.ruledOff && done > 0) { schedule.rule(); }
    schedule.add(line.texts);
    view.gsSetProgress(++done, static_cast<int>(lines.size()), "Listing sections");
  }
  if (total != nullptr) {
    schedule.rule();
    schedule.add(lineOf("TOTAL", {total->totalArea(), total->total()}).texts);
  }
  schedule.close();
}

void drawSchedule(SectionalPlanJob& job, SectionalSheet& sheet, std::span<const ScheduleLine> lines,
                  const Quotas* total) {
  const JobSettings& settings = job.settings();
  const TextRow row = scheduleRow(settings);
  if (row.size == 0) { return; }
  sheet.useFrameLayer();
  Schedule schedule(sheet, row, sheet.writer().at(0.0, extentOf(settings, "PQ").upper).y);
  drawLines(sheet.view(), schedule, lines, total);
  const AdjustmentRule& rule = job.adjustmentRule;
  if (total != nullptr && settings.options().adjustmentRule && rule.revision == job.sections.revision()) {
    schedule.note(rule.text);
  }
}

}  // namespace

size_t quotaSheets(SectionalPlanJob& job) {
  const size_t lines = scheduleOf(job, Quotas(job.sections.sections())).size();
  const size_t each = linesASheet(job.settings());
  return lines == 0 ? 1 : (lines - 1) / each + 1;
}

bool drawQuotaSheets(SectionalPlanJob& job, std::string_view title) {
  const Quotas quotas(job.sections.sections());
  tellOfTotal(job, quotas);
  const std::vector<ScheduleLine> lines = scheduleOf(job, quotas);
  std::span<const ScheduleLine> rest = lines;
  FrameAnswer frame;
  do {
    auto sheet = SectionalSheet::open(job, SheetKind::kQuotas);
    if (!sheet) { return false; }
    sheet->setUp({});
    const size_t taken = std::min(rest.size(), linesASheet(job.settings()));
    drawSchedule(job, *sheet, rest.first(taken), taken == rest.size() ? &quotas : nullptr);
    sheet->writeFrame(frame, title);
    ++job.sheet.number;
    rest = rest.subspan(taken);
  } while (!rest.empty());
  return true;
}

void makeQuotaSheet(SectionalPlanJob& job) {
  if (!job.begin() || !mayListSections(job)) { return; }
  drawQuotaSheets(job);
}

}  // namespace ardenix::survey

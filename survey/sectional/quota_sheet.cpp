#include <algorithm>
#include <array>
#include <cmath>

#include "frame/drafting/pen.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "survey/sectional/section_rows.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sectional_sheet.h"
#include "survey/settings_keys.h"
#include "survey/text_row.h"

// The schedule of a scheme's sections, floor areas and participation quotas.
namespace ardenix::survey {

namespace {

using ScheduleLine = std::array<std::string, 3>;

// The part of a sheet's height that a schedule may take, millimetres above the sheet's origin.
struct VerticalExtent {
  double lower = 0.0;
  double upper = 0.0;
};

VerticalExtent extentOf(const JobSettings& settings, std::string_view key) {
  const std::string value = settings.value(kExtentSection, key);
  return {coreGetFieldDouble(value, 0.0, 1, ','), coreGetFieldDouble(value, 0.0, 2, ',')};
}

// Lines of texts in three columns below each other, with a ruling line after some of them. Heights are rows down from
// the schedule's top.
class Schedule {
 public:
  Schedule(SectionalSheet& sheet, const TextRow& row, double top) : sheet_(sheet), row_(row), top_(top) {
    constexpr double kRowHeight = 1.25;  // of the texts' height
    constexpr double kSizesAMillimetre = 10.0;
    step_ = -writer().across(kRowHeight * row.size / kSizesAMillimetre);
    const double third = sheet.width() / 3.0;
    right_ = writer().axisSign() * third;
    left_ = writer().origin().x - writer().axisSign() * sheet.width();
    rule();
  }

  // The rows that stand between two heights, besides heading, total and rulings.
  static size_t rowsWithin(double height, double step) {
    constexpr double kOther = 6.0;
    return static_cast<size_t>(std::max(1.0, std::floor(std::fabs(height / step) - kOther)));
  }
  [[nodiscard]] double step() const { return step_; }

  void add(const ScheduleLine& line) {
    down_ += 1.0;
    for (size_t column = 0; column < line.size(); ++column) {
      writer().write(row_, {left_ + right_ * (static_cast<double>(column) + 0.5), y()}, line.at(column), kCentred);
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

 private:
  static constexpr double kBelowLine = 0.75;

  [[nodiscard]] SheetWriter& writer() const { return sheet_.writer(); }
  [[nodiscard]] double y() const { return top_ + down_ * step_; }
  void line(Point from, Point to) const {
    DraftingPen(sheet_.view(), {.pen = row_.pen, .linetype = 1}, writer().job().layer()).line(from, to);
  }

  SectionalSheet& sheet_;
  const TextRow& row_;
  double top_;
  double step_ = 0.0;
  double left_ = 0.0;   // the schedule's left edge on paper
  double right_ = 0.0;  // from there over a column's width
  double down_ = 0.0;
};

ScheduleLine lineOf(const SectionRow& row) {
  return {std::to_string(row.number()), std::to_string(row.area), shownQuota(row.quota)};
}

void tellOfTotal(const SectionalPlanJob& job, const Quotas& quotas) {
  if (job.sections.empty() || quotas.total() == kWholeQuota) { return; }
  InfoMessage(numberText::format("The quotas total %s, not 100.0000.", std::string_view(writtenQuota(quotas.total()))),
              job.services().mainFrame);
}

// One sheet with some of the rows; the last has the total.
void drawSchedule(SectionalSheet& sheet, Schedule& schedule, std::span<const SectionRow> rows, const Quotas* total) {
  schedule.add({"SECTION", "AREA", "PARTICIPATION QUOTA"});
  schedule.add({"NUMBER", "(square metres)", "PERCENTAGE"});
  schedule.rule();
  int done = 0;
  for (const SectionRow& row : rows) {
    schedule.add(lineOf(row));
    sheet.view().gsSetProgress(++done, static_cast<int>(rows.size()), "Listing sections");
  }
  if (total != nullptr) {
    schedule.rule();
    schedule.add({"TOTAL", std::to_string(total->totalArea()), shownQuota(total->total())});
  }
  schedule.close();
}

// Draws a sheet with as many rows as it holds; returns how many. 0 where no window opens.
size_t makeSheet(SectionalPlanJob& job, std::span<const SectionRow> rows, const Quotas& quotas) {
  JobSettings& settings = job.settings();
  const VerticalExtent extent = extentOf(settings, "PQ");
  auto sheet = SectionalSheet::open(job, SheetKind::kQuotas);
  if (!sheet) { return 0; }
  sheet->setUp({});
  const TextRow row = settings.textRow("PLANS", "PqLists");
  size_t taken = rows.size();
  if (row.size > 0) {
    sheet->useFrameLayer();
    Schedule schedule(*sheet, row, sheet->writer().at(0.0, extent.upper).y);
    const double height = (extent.upper - extent.lower) * settings.paperFactor();
    taken = std::min(rows.size(), Schedule::rowsWithin(height, schedule.step()));
    drawSchedule(*sheet, schedule, rows.first(taken), taken == rows.size() ? &quotas : nullptr);
  }
  sheet->writeFrame();
  return taken;
}

}  // namespace

void makeQuotaSheet(SectionalPlanJob& job) {
  if (!job.begin() || !mayListSections(job)) { return; }
  const Quotas quotas(job.sections.sections());
  tellOfTotal(job, quotas);
  const std::vector<SectionRow> rows = sectionRows(job.sections, PartView::kCollapsed, quotas);
  std::span<const SectionRow> rest = rows;
  do {
    const size_t taken = makeSheet(job, rest, quotas);
    if (taken == 0) { return; }
    rest = rest.subspan(taken);
  } while (!rest.empty());
}

}  // namespace ardenix::survey

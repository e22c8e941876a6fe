#include <map>

#include "survey/sectional/outline_report.h"
#include "survey/sectional/sheets.h"

// The sheets of a scheme in one go.
namespace ardenix::survey {

namespace {

std::map<int, Outlines> outlinesByFloor(const SectionalPlanJob& job) {
  std::map<int, Outlines> floors;
  for (const SectionOutline& outline : job.sections.outlines()) {
    floors[job.sections.find(outline.section)->floor].push_back(&outline);
  }
  return floors;
}

// Counts the sheets while they are drawn.
class Series {
 public:
  Series(SectionalPlanJob& job, size_t sheets) : job_(job) { job_.sheet = {0, sheets}; }
  Series(const Series&) = delete;
  Series& operator=(const Series&) = delete;
  ~Series() { job_.sheet = {}; }

  // Every sheet has drawing parameters of its own, the next one begins with those of the traced drawing again.
  [[nodiscard]] bool next() {
    ++job_.sheet.number;
    return job_.begin();
  }

 private:
  SectionalPlanJob& job_;
};

bool drawFloors(SectionalPlanJob& job, Series& series, const std::map<int, Outlines>& floors) {
  PlanAnswers answers;
  for (const auto& [floor, outlines] : floors) {
    if (!series.next() || !drawFloorPlan(job, outlines, answers, job.floorName(floor))) { return false; }
  }
  return true;
}

}  // namespace

void drawAllSheets(SectionalPlanJob& job) {
  const std::optional<Figure> land = traceLand(job);
  if (!land) { return; }
  const std::map<int, Outlines> floors = outlinesByFloor(job);
  if (job.settings().options().checkOutlines) { tellOfFaults(job, tracedOutlines(job)); }
  Series series(job, 2 + floors.size() + quotaSheets(job));
  if (!series.next() || !drawSheetOne(job)) { return; }
  if (!series.next() || !drawBlockPlan(job, *land, "Block plan")) { return; }
  if (drawFloors(job, series, floors) && series.next()) { drawQuotaSheets(job, "Participation quotas"); }
}

}  // namespace ardenix::survey

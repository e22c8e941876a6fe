#include "survey/sectional/outline_report.h"

#include <algorithm>
#include <map>
#include <string>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

using numberText::format;

std::string faultText(const SectionalPlanJob& job, const OutlineFault& fault) {
  constexpr double kMillimetresAMetre = 1000.0;
  const Section& one = *job.sections.find(fault.one);
  const int first = one.plainNumber();
  const int second = job.sections.find(fault.other)->plainNumber();
  const std::string text = format("%s: sections %d and %d ", std::string_view(job.floorName(one.floor)),
                                  std::min(first, second), std::max(first, second));
  if (fault.overlap) { return text + "overlap."; }
  return text + format("leave a gap of %.3f m.", fault.gap * job.unitFactor() / kMillimetresAMetre);
}

void tell(const SectionalPlanJob& job, const std::vector<OutlineFault>& faults) {
  constexpr size_t kMost = 12;  // lines that a box shows
  if (faults.empty()) { return; }
  std::string text;
  for (size_t n = 0; n < std::min(faults.size(), kMost); ++n) {
    if (n > 0) { text += '\n'; }
    text += faultText(job, faults[n]);
  }
  if (faults.size() > kMost) { text += format("\nand %d more.", faults.size() - kMost); }
  InfoMessage(text, job.services().mainFrame);
}

}  // namespace

Outlines tracedOutlines(const SectionalPlanJob& job) {
  Outlines outlines;
  outlines.reserve(job.sections.outlines().size());
  for (const SectionOutline& outline : job.sections.outlines()) { outlines.push_back(&outline); }
  return outlines;
}

void tellOfFaults(const SectionalPlanJob& job, const Outlines& outlines) {
  std::map<int, Outlines> byFloor;
  for (const SectionOutline* outline : outlines) {
    byFloor[job.sections.find(outline->section)->floor].push_back(outline);
  }
  std::vector<OutlineFault> faults;
  for (const auto& [floor, onFloor] : byFloor) {
    const auto found = faultsBetween(onFloor, job.unitFactor());
    faults.insert(faults.end(), found.begin(), found.end());
  }
  tell(job, faults);
}

void tellOfFaultsOf(const SectionalPlanJob& job, long long section) {
  const int floor = job.sections.find(section)->floor;
  Outlines outlines;
  for (const SectionOutline& outline : job.sections.outlines()) {
    if (job.sections.find(outline.section)->floor == floor) { outlines.push_back(&outline); }
  }
  auto faults = faultsBetween(outlines, job.unitFactor());
  std::erase_if(faults, [section](const OutlineFault& each) { return each.one != section && each.other != section; });
  tell(job, faults);
}

}  // namespace ardenix::survey

#include <algorithm>
#include <utility>

#include "frame/host/number_text.h"
#include "survey/sectional/section_rows.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sheets.h"

// The first sheet of a sectional plan: the scheme's description with its buildings.
namespace ardenix::survey {

namespace {

using BuildingSection = std::pair<int, int>;  // the building's number and the section's

std::vector<BuildingSection> byBuilding(const SectionList& list) {
  std::vector<BuildingSection> all;
  all.reserve(list.sections().size());
  for (const Section& section : list.sections()) { all.emplace_back(section.building, section.plainNumber()); }
  std::ranges::sort(all);
  all.erase(std::unique(all.begin(), all.end()), all.end());  // parts of one section
  return all;
}

// "section 4", "sections 1 and 2", "sections 1 to 3"; where one between is missing, "sections 1, 2 and 5".
std::string sectionsText(const std::vector<int>& numbers) {
  if (numbers.size() == 1) { return numberText::format("section %d", numbers.front()); }
  const int reach = numbers.back() - numbers.front();
  if (reach + 1 != static_cast<int>(numbers.size())) { return "sections " + listed(numbers); }
  return numberText::format("sections %d %s %d", numbers.front(), reach == 1 ? "and" : "to", numbers.back());
}

std::vector<std::string> buildingLines(const SectionList& list) {
  std::vector<std::string> lines;
  const std::vector<BuildingSection> all = byBuilding(list);
  for (auto first = all.begin(); first != all.end();) {
    std::vector<int> numbers;
    const int building = first->first;
    for (; first != all.end() && first->first == building; ++first) { numbers.push_back(first->second); }
    lines.push_back(numberText::format("%d. Building %d comprising %s", lines.size() + 1, building,
                                       std::string_view(sectionsText(numbers))));
  }
  return lines;
}

void writeBuildings(SectionalSheet& sheet, SectionalPlanJob& job) {
  const JobSettings& settings = job.settings();
  const TextRow row = settings.textRow("QUESTIONS", "Buildings");
  if (row.size == 0) { return; }
  if (std::ranges::any_of(job.sections.sections(), [](const Section& each) { return each.building == 0; })) {
    sheet.view().gsSetStatus("Sections without a building number stand under Building 0.");
  }
  sheet.useLayer(settings.options().textLayer, "ST_TEXT");
  Point at = sheet.writer().placeOf(row);
  for (const std::string& line : buildingLines(job.sections)) {
    sheet.writer().write(row, at, line);
    at.y += sheet.writer().nextLine(row);
  }
}

}  // namespace

bool drawSheetOne(SectionalPlanJob& job) {
  auto sheet = SectionalSheet::open(job, SheetKind::kSheet1);
  if (!sheet) { return false; }
  sheet->setUp({});
  sheet->writeFrame();
  writeBuildings(*sheet, job);
  return true;
}

void makeSheetOne(SectionalPlanJob& job) {
  if (!job.begin() || !mayListSections(job)) { return; }
  if (job.settings().options().allSheets) { return drawAllSheets(job); }
  drawSheetOne(job);
}

}  // namespace ardenix::survey

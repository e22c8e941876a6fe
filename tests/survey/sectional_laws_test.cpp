#include <algorithm>
#include <random>
#include <set>

#include "survey/sectional/outline.h"
#include "survey/sectional/quotas.h"
#include "survey/sectional/section_file.h"
#include "survey/sectional/section_rows.h"
#include "tests/core_fixture.h"

// What holds for every scheme; tests/cases/sectional_plans has whole commands.
namespace {

using namespace ardenix;
using namespace ardenix::survey;

class SectionalLaws : public CoreFixture {
 protected:
  int between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
  std::vector<Section> someSections(int count, int largestArea) {
    std::vector<Section> sections;
    for (int n = 0; n < count; ++n) {
      const int number = between(1, count);
      sections.push_back({.number = between(0, 3) == 0 ? -number : number,
                          .building = between(0, 3),
                          .area = between(1, largestArea),
                          .unit = between(0, 1) == 0 ? "" : "A 1"});
    }
    return sections;
  }
  static Quota shownTotal(const SectionList& list, PartView view) {
    Quota total = 0;
    for (const SectionRow& row : sectionRows(list, view, Quotas(list.sections()))) { total += row.quota; }
    return total;
  }

  std::mt19937 random_{7};
};

TEST_F(SectionalLaws, AdjustedQuotasTotalAHundredAndChangeByNoMoreThanTheRuleAllows) {
  for (int n = 0; n < 400; ++n) {
    SectionList list;
    list.add(someSections(between(1, 60), n % 2 == 0 ? 4 : 5000));
    const Quotas before(list.sections());
    const auto adjustment = n % 3 == 0 ? adjustedByUniqueArea(list) : adjustedByLargestRemainder(list);
    if (!adjustment) { continue; }  // no area is unique
    EXPECT_LE(std::llabs(adjustment->correction), (static_cast<long long>(list.sections().size()) + 1) / 2);
    const Quota step = n % 3 == 0 ? std::llabs(adjustment->correction) : 1;
    for (const Section& section : adjustment->adjusted) {
      EXPECT_EQ(std::llabs(quotaOf(section.fixedQuota) - before.computed(section)), step);
      list.replace(section);
    }
    EXPECT_EQ(shownTotal(list, PartView::kCollapsed), kWholeQuota);
    EXPECT_EQ(shownTotal(list, PartView::kExpanded), kWholeQuota);
  }
}

TEST_F(SectionalLaws, SectionsStandInTheirOrderAndAreFoundWhateverIsDoneToThem) {
  SectionList list;
  std::set<long long> ids;
  for (int n = 0; n < 2000; ++n) {
    const bool some = !ids.empty();
    const long long any = some ? *std::next(ids.begin(), between(0, static_cast<int>(ids.size()) - 1)) : 0;
    if (!some || between(0, 2) > 0) {
      ids.insert(list.add({.number = between(-30, -1), .area = 1}));
    } else if (between(0, 1) == 0) {
      list.replace({.id = any, .number = between(1, 30), .area = 2});
    } else {
      list.addOutline({any, {}});
      list.remove({any});
      ids.erase(any);
    }
  }
  EXPECT_TRUE(list.outlines().empty());
  EXPECT_EQ(list.sections().size(), ids.size());
  EXPECT_TRUE(std::ranges::is_sorted(list.sections(), {}, [](const Section& each) {
    return std::pair(each.plainNumber(), -each.id);  // the newer of a number first
  }));
  for (const long long id : ids) { EXPECT_EQ(list.find(id)->id, id); }
}

TEST_F(SectionalLaws, WhatIsSavedReadsBack) {
  const std::string path = folder_.path("scheme.csv");
  for (int n = 0; n < 20; ++n) {
    SectionList list;
    list.add(someSections(between(1, 80), 5000));
    saveSections(path, sectionRows(list, PartView::kExpanded, Quotas(list.sections())), PartView::kExpanded);
    const std::string saved = read(path);
    LoadedSections loaded = loadSections(path, 0);
    EXPECT_EQ(loaded.skipped, 0U);
    std::ranges::reverse(loaded.sections);  // the newest of a number was written first
    SectionList again;
    again.add(std::move(loaded.sections));
    saveSections(path, sectionRows(again, PartView::kExpanded, Quotas(again.sections())), PartView::kExpanded);
    EXPECT_EQ(read(path), saved);
  }
}

// Rooms side by side, whose corners are written with two decimals.
TEST_F(SectionalLaws, NeighboursThatShareTheirWallsAreAtPeaceUntilOneIsMoved) {
  std::uniform_real_distribution<double> wander(-1.0, 1.0);
  constexpr int kAcross = 5;
  std::vector<Point> grid;
  for (int n = 0; n < (kAcross + 1) * (kAcross + 1); ++n) {
    const Point at{n % (kAcross + 1) * 6.0 + wander(random_), n / (kAcross + 1) * 5.0 + wander(random_)};
    grid.push_back(Point{std::round(at.x * 100.0), std::round(at.y * 100.0)} / 100.0 + Point{-61240, 2853380});
  }
  std::vector<SectionOutline> rooms;
  for (int n = 0; n < kAcross * kAcross; ++n) {
    const auto corner = [&](int right, int up) {
      return grid[static_cast<size_t>((n / kAcross + up) * (kAcross + 1) + n % kAcross + right)];
    };
    rooms.push_back({n, {corner(0, 0), corner(1, 0), corner(1, 1), corner(0, 1), corner(0, 0)}});
  }
  Outlines outlines;
  for (const SectionOutline& room : rooms) { outlines.push_back(&room); }
  EXPECT_TRUE(faultsBetween(outlines, 1000.0).empty());
  for (Point& corner : rooms[12].points) { corner.x += 0.1; }
  const auto faults = faultsBetween(outlines, 1000.0);
  for (const auto& [neighbour, overlap] : {std::pair(11, false), std::pair(13, true)}) {
    EXPECT_TRUE(std::ranges::any_of(faults, [&](const OutlineFault& each) {
      const bool both = std::min(each.one, each.other) == std::min(12, neighbour) &&
                        std::max(each.one, each.other) == std::max(12, neighbour);
      return both && each.overlap == overlap;
    })) << neighbour;
  }
}

}  // namespace

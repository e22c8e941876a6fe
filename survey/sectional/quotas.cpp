#include "survey/sectional/quotas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

constexpr double kQuotasAPercent = 10'000.0;
constexpr int kDecimals = 4;

double percentOf(Quota quota) { return static_cast<double>(quota) / kQuotasAPercent; }

}  // namespace

std::string shownQuota(Quota quota) { return numberText::format("%10.4f", percentOf(quota)); }
std::string writtenQuota(Quota quota) { return numberText::format("%.4f", percentOf(quota)); }
Quota quotaOf(double percent) { return std::llround(coreDoubleRound(percent, kDecimals) * kQuotasAPercent); }

Quotas::Quotas(const std::vector<Section>& sections) {
  for (const Section& section : sections) { totalArea_ += section.area; }
  for (const Section& section : sections) { total_ += of(section); }
}

Quota Quotas::of(const Section& section) const {
  return section.hasFixedQuota() ? quotaOf(section.fixedQuota) : computed(section);
}

Quota Quotas::computed(const Section& section) const {
  constexpr double kPercent = 100.0;
  return quotaOf(static_cast<double>(section.area) / static_cast<double>(totalArea_) * kPercent);
}

// ---- Adjusting --------------------------------------------------------------------------------------------------

namespace {

// The section with the largest floor area that occurs once; null where there is none.
const Section* largestUnique(const std::vector<Section>& sections) {
  std::vector<const Section*> byArea;
  byArea.reserve(sections.size());
  for (const Section& section : sections) { byArea.push_back(&section); }
  std::ranges::sort(byArea, std::ranges::greater(), &Section::area);
  for (size_t i = 0; i < byArea.size(); ++i) {
    const int area = byArea[i]->area;
    const bool before = i > 0 && byArea[i - 1]->area == area;
    const bool after = i + 1 < byArea.size() && byArea[i + 1]->area == area;
    if (!before && !after) { return byArea[i]; }
  }
  return nullptr;
}

Section withQuota(Section section, Quota quota) {
  section.fixedQuota = percentOf(quota);
  return section;
}

// What rounding cut off a section's share, in parts of the total floor area; below 0 what it added.
struct Remainder {
  const Section* section;
  long long cut;
};

// The products may be too large, what is between them is not: whole numbers without sign go round.
long long between(long long share, long long rounded, long long totalArea) {
  using Round = unsigned long long;
  return static_cast<long long>(static_cast<Round>(share) * static_cast<Round>(kWholeQuota) -
                                static_cast<Round>(rounded) * static_cast<Round>(totalArea));
}

std::vector<Remainder> remaindersOf(const SectionList& list, const Quotas& quotas) {
  std::vector<Remainder> remainders;
  remainders.reserve(list.sections().size());
  for (const Section& section : list.sections()) {
    if (section.hasFixedQuota()) { continue; }
    remainders.push_back({&section, between(section.area, quotas.computed(section), quotas.totalArea())});
  }
  return remainders;
}

}  // namespace

std::optional<QuotaAdjustment> adjustedByUniqueArea(const SectionList& list) {
  const Section* const chosen = largestUnique(list.sections());
  if (chosen == nullptr) { return std::nullopt; }
  const Quotas quotas(list.sections());
  const Quota correction = kWholeQuota - quotas.total();
  return QuotaAdjustment{correction, {withQuota(*chosen, quotas.of(*chosen) + correction)}};
}

std::optional<QuotaAdjustment> adjustedByLargestRemainder(const SectionList& list) {
  const Quotas quotas(list.sections());
  const Quota correction = kWholeQuota - quotas.total();
  std::vector<Remainder> remainders = remaindersOf(list, quotas);
  const auto count = static_cast<size_t>(std::llabs(correction));
  if (count > remainders.size()) { return std::nullopt; }
  const Quota step = correction > 0 ? 1 : -1;
  std::ranges::stable_sort(remainders,
                           [step](const Remainder& a, const Remainder& b) { return step * a.cut > step * b.cut; });
  QuotaAdjustment adjustment{correction, {}};
  for (const Remainder& each : std::span(remainders).first(count)) {
    adjustment.adjusted.push_back(withQuota(*each.section, quotas.computed(*each.section) + step));
  }
  return adjustment;
}

}  // namespace ardenix::survey

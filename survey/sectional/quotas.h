#pragma once

#include <optional>
#include <string>
#include <vector>

#include "survey/sectional/section_list.h"

namespace ardenix::survey {

// Participation quotas are counted in ten-thousandths of a percent, so that their sums are exact.
using Quota = long long;
inline constexpr Quota kWholeQuota = 1'000'000;  // 100.0000

// "%10.4f", and without the blanks before it.
std::string shownQuota(Quota quota);
std::string writtenQuota(Quota quota);
// The quota that a percentage is shown as.
Quota quotaOf(double percent);

// The shares of a list of sections in their floor area. A section's quota is its fixed one, or its share of the total
// floor area rounded to four decimals.
class Quotas {
 public:
  explicit Quotas(const std::vector<Section>& sections);

  [[nodiscard]] long long totalArea() const { return totalArea_; }
  [[nodiscard]] Quota total() const { return total_; }
  [[nodiscard]] Quota of(const Section& section) const;
  // As if it were not fixed.
  [[nodiscard]] Quota computed(const Section& section) const;

 private:
  long long totalArea_ = 0;
  Quota total_ = 0;
};

// What brings the total of a scheme to 100.0000.
struct QuotaAdjustment {
  Quota correction = 0;           // of the total
  std::vector<Section> adjusted;  // with the quotas that they get
};

// The whole correction to the section with the largest floor area that no other has; nothing where each occurs again.
std::optional<QuotaAdjustment> adjustedByUniqueArea(const SectionList& list);

// 0.0001 to each of the sections whose quotas rounding cut most, or from each of those that it raised most; of equals
// to the first in the list. Nothing where fixed quotas leave more to correct than there are sections.
std::optional<QuotaAdjustment> adjustedByLargestRemainder(const SectionList& list);

}  // namespace ardenix::survey

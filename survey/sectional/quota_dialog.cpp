#include "survey/sectional/quota_dialog.h"

namespace ardenix::survey {

std::optional<double> askQuota(const Services& services, CWnd* owner, Quota present) {
  constexpr double kMost = 100.0;
  dialog::Dialog dialog("Manual adjust");
  equip(dialog, services, helpTopic("Section Manager"));
  const CFloatEdit quota = addFloat(
      dialog, {.caption = "PQ", .toolTip = "The participation quota in percent; 0 lets it follow the floor area"}, 0.0,
      kMost, "%.4f");
  quota.SetValue(static_cast<double>(present) * kMost / static_cast<double>(kWholeQuota));
  addOkCancel(dialog, 1);
  if (!services.mainFrame->RunDialog(dialog, owner)) { return std::nullopt; }
  return quota.GetValue();
}

}  // namespace ardenix::survey

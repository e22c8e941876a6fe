#include "arch/roof_line_dialog.h"

namespace ardenix::arch {

namespace {

constexpr NumberRow kOverhangRow{"Eaves overhang", "How far the roof line stands out from the wall pointed at", "%.2f"};

// The file counts outwards below 0; a zero has no sign.
double turnedOver(double length) { return 0.0 - length; }

}  // namespace

RoofLineDialog::RoofLineDialog(const Services& services, ArchSpecStore& store, RoofLineDrawer& drawer)
    : services_(services), drawer_(drawer), layer_(store, kRoofLineSection) {
  equip(dialog_, services_, helpTopic("Roof Line Setup"));
  const int group = dialog_.addGroup({.place = {.row = 0}});
  style_.describe(dialog_, "", group, {.row = 0});
  overhang_ = addNumber(dialog_, kOverhangRow, group, {.row = 2});
  ridges_ = addCheck(dialog_, {.caption = "&Ridges, hips and valleys",
                               .toolTip = "Draw them within the roof line, by the gable ends that you indicate",
                               .group = group,
                               .place = {.row = 3}});
  layer_.describe(dialog_, {{"Layer name:", "Layer", "The layer on which roof lines are drawn"}}, {.row = 1});
  addOkCancel(dialog_, 2);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

bool RoofLineDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void RoofLineDialog::open() {
  overhang_.SetValue(turnedOver(drawer_.settings.offset));
  style_.show(drawer_.settings.style);
  layer_.show();
  ridges_.setChecked(drawer_.settings.ridges);
}

bool RoofLineDialog::confirm() {
  if (!layer_.mayBeSaved()) { return false; }
  drawer_.settings.offset = turnedOver(overhang_.GetValue());
  style_.take(drawer_.settings.style);
  drawer_.settings.ridges = ridges_.checked();
  layer_.take({&drawer_.settings.layer, 1});
  drawer_.save();
  return true;
}

}  // namespace ardenix::arch

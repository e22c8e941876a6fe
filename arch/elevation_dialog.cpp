#include "arch/elevation_dialog.h"

#include "frame/messages.h"

namespace ardenix::arch {

namespace {

constexpr NumberRow kEavesRow{"Eaves height", "The height of the eaves above the ground"};
constexpr NumberRow kHeadRow{"Floor to window or door height", "The height of the heads of windows and doors"};

}  // namespace

ElevationDialog::ElevationDialog(const Services& services, ArchSpecStore& store, ElevationDrawer& drawer)
    : services_(services), drawer_(drawer), layers_(store, kElevationSection) {
  equip(dialog_, services_, helpTopic("Elevation Setup"));
  const int group = dialog_.addGroup({.place = {.row = 0}});
  eavesHeight_ = addNumber(dialog_, kEavesRow, group, {.row = 0});
  headHeight_ = addNumber(dialog_, kHeadRow, group, {.row = 1});
  style_.describe(dialog_, "", group, {.row = 2});
  std::vector<LayerFields::Row> rows;
  rows.reserve(kElevationViews.size());
  for (const ElevationView& view : kElevationViews) {
    rows.push_back({std::string(view.name) + " elevation", view.layerKey(), "The layer of elevations of this side"});
  }
  layers_.describe(dialog_, std::move(rows), {.row = 1});
  addOkCancel(dialog_, 2);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

bool ElevationDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void ElevationDialog::open() {
  eavesHeight_.SetValue(drawer_.settings.eavesHeight);
  headHeight_.SetValue(drawer_.settings.headHeight);
  style_.show(drawer_.settings.style);
  layers_.show();
}

bool ElevationDialog::mayBeSaved() {
  const auto refuse = [this](const dialog::Handle& field, std::string_view why) {
    warn(&dialog_, "%s", why);
    field.focus();
    return false;
  };
  if (eavesHeight_.GetValue() <= 0.0) { return refuse(eavesHeight_, "Eaves height takes more than 0"); }
  if (headHeight_.GetValue() > eavesHeight_.GetValue()) {
    return refuse(headHeight_, "The window or door height lies above the eaves");
  }
  return layers_.mayBeSaved();
}

bool ElevationDialog::confirm() {
  if (!mayBeSaved()) { return false; }
  ElevationSettings& settings = drawer_.settings;
  settings.eavesHeight = eavesHeight_.GetValue();
  settings.headHeight = headHeight_.GetValue();
  style_.take(settings.style);
  layers_.take(settings.layers);
  drawer_.save();
  return true;
}

}  // namespace ardenix::arch

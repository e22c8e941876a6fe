#include "arch/elevation_dialog.h"

#include "frame/messages.h"

namespace ardenix::arch {

namespace {

constexpr NumberRow kEavesRow{"Eaves height", "The height of the eaves above the ground"};
constexpr NumberRow kGroundRow{"Ground line beyond walls", "How far the ground line runs past the building"};
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
  describeOptions();
  addOkCancel(dialog_, 3);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void ElevationDialog::describeOptions() {
  const int group = dialog_.addGroup({.place = {.row = 2}});
  const auto check = [&](int row, std::string caption, std::string toolTip) {
    return addCheck(
        dialog_, {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.row = row}});
  };
  groundBeyond_ = addNumber(dialog_, kGroundRow, group, {.row = 0});
  names_ = check(1, "&Name and scale below", "Write SOUTH ELEVATION 1:100 and the like below the ground line");
  levels_ = check(2, "&Level marks", "Mark the heights of eaves, heads and ground at the right edge");
  wholeFaces_ = check(3, "All openings of a &wall at once", "A pick of the face's wall takes its windows and doors");
  replaces_ = check(4, "&Draw again in place", "An elevation at whose eaves line you point is replaced");
}

bool ElevationDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void ElevationDialog::open() {
  eavesHeight_.SetValue(drawer_.settings.eavesHeight);
  headHeight_.SetValue(drawer_.settings.headHeight);
  groundBeyond_.SetValue(drawer_.settings.groundBeyond);
  names_.setChecked(drawer_.settings.names);
  levels_.setChecked(drawer_.settings.levels);
  wholeFaces_.setChecked(drawer_.settings.wholeFaces);
  replaces_.setChecked(drawer_.settings.replaces);
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
  settings.groundBeyond = groundBeyond_.GetValue();
  settings.names = names_.checked();
  settings.levels = levels_.checked();
  settings.wholeFaces = wholeFaces_.checked();
  settings.replaces = replaces_.checked();
  style_.take(settings.style);
  layers_.take(settings.layers);
  drawer_.save();
  return true;
}

}  // namespace ardenix::arch

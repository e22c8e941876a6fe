#include "arch/roof_dialog.h"

#include "frame/host/number_text.h"
#include "frame/messages.h"

namespace ardenix::arch {

namespace {

constexpr NumberRow kPitchRow{"Roof pitch", "Degrees, minutes and seconds: 22.30 is 22 degrees 30 minutes"};

}  // namespace

RoofDialog::RoofDialog(const Services& services, ArchSpecStore& store, RoofDrawer& drawer)
    : services_(services), drawer_(drawer), layers_(store, kRoofSection) {
  equip(dialog_, services_, helpTopic("Roof Setup"));
  std::vector<LayerFields::Row> rows;
  rows.reserve(kElevationViews.size());
  for (const ElevationView& view : kElevationViews) {
    rows.push_back({std::string(view.name) + " view", view.layerKey(), "The layer of roofs seen from this side"});
  }
  layers_.describe(dialog_, std::move(rows), {.row = 0});
  const int group = dialog_.addGroup({.place = {.row = 1}});
  style_.describe(dialog_, "", group, {.row = 0});
  pitch_ = addNumber(dialog_, kPitchRow, group, {.row = 2});
  fromPlan_ = addCheck(dialog_, {.caption = "&Whole roof from plan",
                                 .toolTip = "A roof line with its ridges on plan gives the roof as it is seen",
                                 .group = group,
                                 .place = {.row = 3}});
  pitch_.onEdit([this] { typedPitch_ = pitch_.GetValue(); });
  addOkCancel(dialog_, 2);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

bool RoofDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void RoofDialog::open() {
  typedPitch_ = drawer_.settings.pitch;
  pitch_.SetValue(typedPitch_);
  style_.show(drawer_.settings.style);
  fromPlan_.setChecked(drawer_.settings.fromPlan);
  layers_.show();
}

double RoofDialog::pitch() const {
  const auto shown = [](double value) { return numberText::format(kPitchRow.format, value); };
  return shown(typedPitch_) == shown(pitch_.GetValue()) ? typedPitch_ : pitch_.GetValue();
}

bool RoofDialog::confirm() {
  if (!isPitch(pitch())) {
    warn(&dialog_, "A roof's pitch lies above 0 and below 90 degrees, with minutes and seconds below 60.");
    pitch_.focus();
    return false;
  }
  if (!layers_.mayBeSaved()) { return false; }
  RoofSettings& settings = drawer_.settings;
  settings.pitch = pitch();
  style_.take(settings.style);
  settings.fromPlan = fromPlan_.checked();
  layers_.take(settings.layers);
  drawer_.save();
  return true;
}

}  // namespace ardenix::arch

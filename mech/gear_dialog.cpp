#include "mech/gear_drawer.h"
#include "mech/part_commands.h"
#include "mech/placed_dialog.h"

namespace ardenix::mech {

namespace gear {

namespace {

constexpr double kLargest = 1000.0;

bool hasBore(const GearRecord& gear) { return gear.shaft > 0.0; }

constexpr Field<GearRecord> kFields[] = {
    {.member = &GearRecord::pressureAngle,
     .place = 2,
     .label = "Pressure angle",
     .tip = "Specify the pressure angle of the gear teeth",
     .unit = "degrees",
     .maximum = kLargest,
     .stored = "%.1f"},
    {.member = &GearRecord::teeth,
     .place = 3,
     .label = "Number of teeth",
     .tip = "Specify the number of teeth on the gear",
     .minimum = 2,
     .maximum = kLargest},
    {.member = &GearRecord::module,
     .place = 4,
     .label = "Module (PCD / no. teeth)",
     .tip = "Specify the module of the gear",
     .maximum = kLargest},
    {.member = &GearRecord::shaft,
     .place = 5,
     .label = "Shaft diameter",
     .tip = "Specify the shaft hole diameter of the gear (0 for no shaft hole)",
     .maximum = kLargest},
    {.member = &GearRecord::keyWidth,
     .place = 6,
     .label = "Key width",
     .tip = "Specify the width of the shaft key slot ",
     .maximum = kLargest,
     .stored = "%3f",
     .enabled = hasBore},
    {.member = &GearRecord::keyDepth,
     .place = 7,
     .label = "Key depth",
     .tip = "Specify the depth of the shaft key slot ",
     .maximum = kLargest,
     .stored = "%3f",
     .enabled = hasBore},
};

constexpr ExtraRow kExtras[] = {
    {"GearCentre", "Draw pitch circle and centre lines",
     "Check this to draw the circle on which the gear rolls, and its centre lines"},
    {"GearInvolute", "True involute",
     "Check this to draw the flanks within a thousandth of the module, undercut where a rack undercuts them"},
};

constexpr PlacedForm<GearRecord> kForm = {
    .section = "GEARS", .word = "gear", .styleKey = "GearLT", .extras = kExtras, .drawsSideViews = true};

// Shows besides what follows from the fields.
class GearDialog : public PlacedDialog<GearRecord, GearDrawer> {
 public:
  GearDialog(const Services& services, DefinitionStore& store, GearDrawer& drawer)
      : PlacedDialog(services, store, kForm, drawer) {
    const int below = addGroupBelow();
    pitchCircle_ = addLabel(box(), {.group = below, .name = "PCD"}, "");
    otherTeeth_ = addInteger(box(),
                             {.caption = "Mating teeth",
                              .toolTip = "Shows how far apart this gear and one of so many teeth run",
                              .group = below,
                              .place = {.row = 1}},
                             0, static_cast<int>(kLargest));
    centreDistance_ =
        addLabel(box(), {.group = below, .place = {.row = 1, .column = 1}, .name = "Centre distance"}, "");
    warning_ = addLabel(box(), {.group = previewGroup(), .place = {.row = 1}, .name = "Warning"}, "");
    follow(otherTeeth_, false);
  }

 protected:
  void fieldsChanged() override {
    PlacedDialog::fieldsChanged();
    const double teeth = typed(&GearRecord::teeth);
    const double module = typed(&GearRecord::module);
    const double other = otherTeeth_.GetValue();
    pitchCircle_.setText(numberText::format("Calculated PCD: %.3f", teeth * module));
    centreDistance_.setText(other > 0.0 ? numberText::format("Centre distance: %.3f", (teeth + other) * module / 2.0)
                                        : "");
    const auto tooth = gearTooth(record());
    warning_.setText(tooth && !tooth->sound ? "Too few teeth for flanks that meet root and tip." : "");
  }

 private:
  // As far as it has been typed.
  [[nodiscard]] double typed(const Member<GearRecord>& member) const {
    const auto& edit = std::get<dialog::NumberEdit>(control(member).control().state);
    return numberText::parseTyped(edit.text).value_or(0.0);
  }

  dialog::LabelHandle pitchCircle_;
  CIntEdit otherTeeth_;
  dialog::LabelHandle centreDistance_;
  dialog::LabelHandle warning_;
};

}  // namespace

}  // namespace gear

Fields<GearRecord> gearFields() { return gear::kFields; }

void drawGears(MechToolset& toolset) {
  runPlacedCommand<GearDrawer>(toolset, [&](DefinitionStore& store, GearDrawer& drawer) {
    return gear::GearDialog(toolset.services(), store, drawer).run();
  });
}

}  // namespace ardenix::mech

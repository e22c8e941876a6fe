#include "frame/drafting/part_round.h"
#include "frame/help.h"
#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "mech/duct_drawer.h"
#include "mech/line_style.h"
#include "mech/part_commands.h"
#include "mech/record_controls.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kDuctSection = "DUCT";
constexpr std::string_view kDimensionsKey = "Dims";
constexpr std::string_view kThinFoldsKey = "ThinFolds";

// What the dialog asks for, its round end by the diameter.
struct DuctFields {
  double length = 0.0;
  double width = 0.0;
  double height = 0.0;
  double diameter = 0.0;
  double offset = 0.0;
};

constexpr Field<DuctFields> kDuctFields[] = {
    {.member = &DuctFields::length, .place = 2, .label = "Length", .tip = "Length"},
    {.member = &DuctFields::width, .place = 3, .label = "Width", .tip = "Width"},
    {.member = &DuctFields::height, .place = 4, .label = "Height", .tip = "Height"},
    {.member = &DuctFields::diameter, .place = 5, .label = "Diameter", .tip = "Diameter of the round end"},
    {.member = &DuctFields::offset, .place = 6, .label = "Offset", .tip = "The offset of the round end"},
};

Duct readDuct(const TINIFile& file) {
  const std::string stored = file.ReadString(kDuctSection, kDimensionsKey, "");
  Duct duct;
  int n = 0;
  for (double* value : {&duct.length, &duct.width, &duct.radius, &duct.offset, &duct.height}) {
    *value = coreGetFieldDouble(stored, *value, ++n, ',');
  }
  return duct;
}

void writeDuct(TINIFile& file, const Duct& duct) {
  file.WriteString(
      kDuctSection, kDimensionsKey,
      numberText::format("%.3f,%.3f,%.3f,%.3f,%.3f", duct.length, duct.width, duct.radius, duct.offset, duct.height));
}

class DuctDialog {
 public:
  DuctDialog(const Services& services, DefinitionStore& store)
      : services_(services),
        store_(store),
        box_("Mechanical Ardenix - Rectangle to Round Duct"),
        controls_(kDuctFields) {
    equip(box_, services_, helpTopic("Rectangle to Round Duct"));
    controls_.describe(box_, 0);
    addPicture(box_, {.group = addSideGroup(1), .name = "Views"}, {.name = "duct_views"});
    addPreview();
    thinFolds_ =
        addCheck(box_, {.caption = "Fold lines thin",
                        .toolTip = "Check this to draw the lines along which the pattern is folded 0.25 mm wide",
                        .place = {.row = 1}});
    addOkCancel(box_, 2);
    box_.onOpen = [this] { open(); };
    box_.onOk = [this] { return confirm(); };
  }

  // True when the user left it with OK.
  bool run() { return services_.mainFrame->RunDialog(box_, services_.mainFrame); }

  [[nodiscard]] DuctDrawer drawerIn(CCadWindow& view) const {
    DuctDrawer drawer(view, lineStyle(store_, LineKind::kSolid));
    drawer.take(duct());
    if (thinFolds_.checked()) { drawer.drawThinFolds(); }
    return drawer;
  }

 private:
  int addSideGroup(int column) { return box_.addGroup({.place = {.column = column}}); }

  void addPreview() {
    constexpr int kWide = 160;
    constexpr int kHigh = 120;
    const auto draw = [this](CCadWindow& view) { drawerIn(view).draw({}); };
    dialog::addControl(box_, dialog::Preview{kWide, kHigh, draw}, {.group = addSideGroup(2)});
  }

  void open() {
    show(readDuct(store_.file()));
    thinFolds_.setChecked(store_.file().ReadInt(kDuctSection, kThinFoldsKey, 0) != 0);
  }

  // A file that does not name it is left without it where it is not wanted.
  void writeThinFolds(TINIFile& file) const {
    if (thinFolds_.checked() || !file.ReadString(kDuctSection, kThinFoldsKey, "").empty()) {
      file.WriteInt(kDuctSection, kThinFoldsKey, thinFolds_.checked() ? 1 : 0);
    }
  }

  void show(const Duct& duct) {
    controls_.show({duct.length, duct.width, duct.height, 2.0 * duct.radius, duct.offset});
  }
  [[nodiscard]] Duct duct() const {
    const DuctFields fields = controls_.values({});
    return {fields.length, fields.width, fields.diameter / 2.0, fields.offset, fields.height};
  }

  bool confirm() {
    if (!ductPattern(duct())) {
      ErrorMessage("No duct can be developed from these values.", &box_);
      return false;
    }
    writeDuct(store_.file(), duct());
    writeThinFolds(store_.file());
    store_.flush();
    return true;
  }

  const Services& services_;
  DefinitionStore& store_;
  dialog::Dialog box_;
  RecordControls<DuctFields> controls_;
  dialog::CheckHandle thinFolds_;
};

}  // namespace

void drawDucts(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  DefinitionStore& store = toolset.configuration().store();
  DuctDialog dialog(toolset.services(), store);
  if (!dialog.run()) { return; }
  dialog.drawerIn(toolset.view()).placeDucts();
  endPart(toolset.view());
}

}  // namespace ardenix::mech

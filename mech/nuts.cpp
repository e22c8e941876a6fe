#include <algorithm>

#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/nut.h"

namespace ardenix {

namespace {

using namespace nutField;

constexpr const char* kTypes[] = {"Hexagon", "Slotted"};
constexpr const char* kShapes[] = {"Rounded", "Flat Base", "Flat"};

// By type, then by shape.
constexpr const char* kSidePictures[][3] = {
    {"nut_hexagon_rounded", "nut_hexagon_flat_base", "nut_hexagon_flat"},
    {"nut_slotted_rounded", "nut_slotted_flat_base", "nut_slotted_flat"},
};
constexpr const char* kPlanPictures[] = {"nut_hexagon_plan", "nut_slotted_plan"};

constexpr FieldRow kRows[] = {
    {kHeadSize, "The size of the nut across its flats"},
    {kHeadHeight, "The height of the nut, without its washer"},
    {kDiameter, "The nominal size (diameter) of the thread"},
    {kMinorDiameter, "The minor diameter of the thread in the nut"},
    {kWasherDiameter, "The diameter of the washer or flange"},
    {.field = kWasherThickness, .toolTip = "Thickness of the washer (0 for no washer)", .name = "Washer thickness"},
    {.field = kType, .toolTip = "The type of nut", .items = kTypes},
    {.field = kShape, .toolTip = "The shape of the top and the base of the nut", .items = kShapes},
    {kSlotWidth, "The width of the slots in the nut"},
    {kSlotDepth, "The depth of the slots in the nut"},
};

const FastenerForm kForm = {
    .section = "NUTS",
    .fields = nutFields(),
    .rows = kRows,
    .options = {
        .word = "nut",
        .sideViewCaption = "Draw side view (elevation)",
        .planViewCaption = "Draw top view (plan view)",
        .headStyleCaption = "",
        .shaftStyleCaption = "",
        .headPart = "top view",
        .shaftPart = "side view",
        .repeatKey = "NutRepeat",
        .polarTip = "Whether the spacing value refers the distance between nuts, or the PCD of the circle on which the "
                    "nuts lie",
        .alignable = false,
        .stylesOfViews = true,
    }};

class NutDialog : public FastenerDialog {
 public:
  NutDialog(const Services& services, DefinitionStore& store, Nut& nut) : FastenerDialog(services, store, kForm, nut) {
    const int group = addPictureGroup("");
    sidePicture_ = addPicture(box(), {.group = group, .name = "Side picture"}, {.name = kSidePictures[0][0]});
    planPicture_ =
        addPicture(box(), {.group = group, .place = {.row = 1}, .name = "Plan picture"}, {.name = kPlanPictures[0]});
  }

 protected:
  void fieldsChanged() override {
    const bool slotted = nutOf(values()).type == NutType::kSlotted;
    control(kSlotWidth).show(slotted);
    control(kSlotDepth).show(slotted);
    showChoice(sidePicture_, kShape, kSidePictures[slotted ? 1 : 0]);
    showChoice(planPicture_, kType, kPlanPictures);
  }

  bool validate() override {
    const NutRecord nut = nutOf(values());
    const bool slotted = nut.type == NutType::kSlotted;
    return meets({
        {nut.diameter <= nut.headSize, control(kHeadSize), "Head size should be greater than thread nominal diameter!"},
        {nut.headHeight > 0.0, control(kHeadHeight), "Head height must be greater than 0!"},
        {nut.diameter > nut.minorDiameter, control(kMinorDiameter),
         "Thread minor diameter must be less then thread nominal diameter!"},
        {nut.washerThickness >= 0.0, control(kWasherThickness),
         "Flange or washer thickness must be greater or equal to 0!"},
        {nut.diameter < nut.washerDiameter, control(kWasherDiameter),
         "Flange or washer diameter must be greater thread nominal diameter!"},
        {!slotted || nut.slotWidth > 0.0, control(kSlotWidth), "Slot width must be greater than 0 (zero)!"},
        {!slotted || nut.slotDepth > 0.0, control(kSlotDepth), "Slot depth must be greater than 0 (zero)!"},
        {repeatClears(std::max(nut.headSize, nut.washerDiameter)), options().repeatValue(),
         "The repeat spacing must be greater than the nut head or washer diameter!"},
    });
  }

 private:
  dialog::PictureHandle sidePicture_;
  dialog::PictureHandle planPicture_;
};

}  // namespace

void drawNuts(MechToolset& toolset) { runFastenerCommand<Nut, NutDialog>(toolset); }

}  // namespace ardenix

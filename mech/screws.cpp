#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/socket_screw.h"

namespace ardenix {

namespace {

using namespace screwField;

constexpr const char* kHeads[] = {"Cylindrical", "Countersunk", "Rounded", "Rounded CS", "Set Screw"};
constexpr const char* kKeys[] = {"Hex", "Slotted", "Pozi Drive"};

constexpr const char* kHeadPictures[] = {"screw_cylindrical", "screw_countersunk", "screw_rounded",
                                         "screw_rounded_countersunk", "screw_set"};
constexpr const char* kKeyPictures[] = {"key_hexagon", "key_slot", "key_cross"};

constexpr FieldRow kRows[] = {
    {kHeadDiameter, "The diameter of the head of the screw"},
    {kHeadHeight, "The height of the head of the screw"},
    {kLength, "The total length of the screw shaft"},
    {kShankLength, "The length of the shank (part without thread)"},
    {kDiameter, "The nominal size (diameter) of the screw"},
    {kMinorDiameter, "The minor diameter of the thread on the screw"},
    {kKeySize, "The size of the key socket"},
    {kShoulderDiameter, "The diameter of the shoulder of the screw"},
    {.field = kHeadType, .toolTip = "The screw's head type", .items = kHeads},
    {.field = kKeyType, .toolTip = "The type of key used in the head of the screw", .items = kKeys},
};

const FastenerForm kForm = {
    .section = "CAPSCREWS",
    .fields = screwFields(),
    .rows = kRows,
    .options = {
        .word = "screw",
        .sideViewCaption = "Draw Side View (elevation)",
        .planViewCaption = "Draw Top View (plan)",
        .headStyleCaption = "Draw head as:",
        .shaftStyleCaption = "Draw shaft as:",
        .headPart = "head",
        .shaftPart = "shaft",
        .repeatKey = "ScrewRepeat",
        .polarTip = "Whether the spacing value refers the distance between screws, or the PCD of the circle on which "
                    "the screws lie",
    }};

class ScrewDialog : public FastenerDialog {
 public:
  ScrewDialog(const Services& services, DefinitionStore& store, SocketScrew& screw)
      : FastenerDialog(services, store, kForm, screw) {
    const int group = addPictureGroup("");
    headPicture_ = addPicture(box(), {.group = group, .name = "Head picture"}, {.name = kHeadPictures[0]});
    keyPicture_ =
        addPicture(box(), {.group = group, .place = {.row = 1}, .name = "Key picture"}, {.name = kKeyPictures[0]});
  }

 protected:
  void fieldsChanged() override {
    showChoice(headPicture_, kHeadType, kHeadPictures);
    showChoice(keyPicture_, kKeyType, kKeyPictures);
  }

  bool validate() override {
    const ScrewRecord screw = screwOf(values());
    return meets({
        {screw.headDiameter >= screw.diameter, control(kHeadDiameter),
         "The head diameter must be larger than the thread (nominal) diameter!"},
        {screw.headHeight > 0.0, control(kHeadHeight), "The head height must be greater than 0 (zero)!"},
        {screw.length >= screw.shankLength, control(kShankLength),
         "The thread length may not be greater than the shaft length!"},
        {screw.diameter >= screw.minorDiameter, control(kMinorDiameter),
         "The minor diameter may not be greater than the thread (nominal) diameter!"},
        {repeatClears(screw.headDiameter), options().repeatValue(),
         "The repeat spacing must be greater than the screw head diameter!"},
        {screw.keySize < screw.headDiameter, control(kKeySize),
         "The head key size must be less than the screw head diameter!"},
    });
  }

 private:
  dialog::PictureHandle headPicture_;
  dialog::PictureHandle keyPicture_;
};

}  // namespace

void drawScrews(MechToolset& toolset) { runFastenerCommand<SocketScrew, ScrewDialog>(toolset); }

}  // namespace ardenix

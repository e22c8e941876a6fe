#include <algorithm>

#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/rivet.h"

namespace ardenix {

namespace {

using namespace rivetField;

constexpr const char* kHeads[] = {"Snap", "Pan", "Mushroom", "Flat", "C-sunk"};
constexpr const char* kLeftPictures[] = {"rivet_left_snap", "rivet_left_pan", "rivet_left_mushroom", "rivet_left_flat",
                                         "rivet_left_countersunk"};
constexpr const char* kRightPictures[] = {"rivet_right_snap", "rivet_right_pan", "rivet_right_mushroom",
                                          "rivet_right_flat", "rivet_right_countersunk"};

constexpr FieldRow kRows[] = {
    {kDiameter, "The nominal size (diameter) of the shank of the rivet"},
    {kLength, "The length of the shank, between the two heads"},
    {.field = kLeftDiameter, .toolTip = "The diameter of the left head", .caption = "Head dia", .box = "LHS"},
    {.field = kLeftHeight, .toolTip = "The height of the left head", .caption = "Head height", .box = "LHS"},
    {.field = kLeftType, .toolTip = "The shape of the left head", .items = kHeads, .box = "LHS"},
    {.field = kRightDiameter, .toolTip = "The diameter of the right head", .caption = "Head dia", .box = "RHS"},
    {.field = kRightHeight, .toolTip = "The height of the right head", .caption = "Head height", .box = "RHS"},
    {.field = kRightType, .toolTip = "The shape of the right head", .items = kHeads, .box = "RHS"},
};

const FastenerForm kForm = {
    .section = "RIVETS",
    .fields = rivetFields(),
    .rows = kRows,
    .options = {
        .word = "rivet",
        .sideViewCaption = "Side View (elevation)",
        .planViewCaption = "Top View (plan)",
        .headStyleCaption = "Draw head as:",
        .shaftStyleCaption = "Draw shaft as:",
        .headPart = "head",
        .shaftPart = "shaft",
        .repeatKey = "RivetRepeat",
        .polarTip = "Whether the spacing value refers the distance between rivets, or the PCD of the circle on which "
                    "the rivets lie",
    }};

class RivetDialog : public FastenerDialog {
 public:
  RivetDialog(const Services& services, DefinitionStore& store, Rivet& rivet)
      : FastenerDialog(services, store, kForm, rivet) {
    const int group = addPictureGroup("");
    leftPicture_ = addPicture(box(), {.group = group, .name = "Left head picture"}, {.name = kLeftPictures[0]});
    rightPicture_ = addPicture(box(), {.group = group, .place = {.row = 1}, .name = "Right head picture"},
                               {.name = kRightPictures[0]});
  }

 protected:
  void fieldsChanged() override {
    showChoice(leftPicture_, kLeftType, kLeftPictures);
    showChoice(rightPicture_, kRightType, kRightPictures);
  }

  bool validate() override {
    const RivetRecord rivet = rivetOf(values());
    const auto& [diameter, length, left, right] = rivet;
    return meets({
        {right.diameter > diameter, control(kRightDiameter),
         "Right head diameter should be greater than the shank diameter!"},
        {left.diameter > diameter, control(kLeftDiameter),
         "Left head diameter should be greater than the shank diameter!"},
        {right.height > 0.0, control(kRightHeight), "Right head height must be greater than 0!"},
        {left.height > 0.0, control(kLeftHeight), "Left head height must be greater than 0!"},
        {length > 0.0, control(kLength), "Shank length must be greater than 0!"},
        {repeatClears(std::max(left.diameter, right.diameter)), options().repeatValue(),
         "Repeat spacing must be greater than the rivet head diameter!"},
    });
  }

 private:
  dialog::PictureHandle leftPicture_;
  dialog::PictureHandle rightPicture_;
};

}  // namespace

void drawRivets(MechToolset& toolset) { runFastenerCommand<Rivet, RivetDialog>(toolset); }

}  // namespace ardenix

#include <algorithm>

#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/rivet_drawer.h"

namespace ardenix::mech {

namespace rivet {

namespace {

constexpr const char* kHeads[] = {"Snap", "Pan", "Mushroom", "Flat", "C-sunk"};
constexpr const char* kLeftPictures[] = {"rivet_left_snap", "rivet_left_pan", "rivet_left_mushroom", "rivet_left_flat",
                                         "rivet_left_countersunk"};
constexpr const char* kRightPictures[] = {"rivet_right_snap", "rivet_right_pan", "rivet_right_mushroom",
                                          "rivet_right_flat", "rivet_right_countersunk"};

constexpr Field<RivetRecord> kFields[] = {
    {.member = &RivetRecord::diameter,
     .place = 2,
     .label = "Nominal dia",
     .tip = "The nominal size (diameter) of the shank of the rivet"},
    {.member = &RivetRecord::length,
     .place = 6,
     .label = "Length",
     .tip = "The length of the shank, between the two heads"},
    {.member = &RivetRecord::leftDiameter,
     .place = 4,
     .label = "Left head diameter",
     .tip = "The diameter of the left head",
     .caption = "Head dia",
     .box = "LHS"},
    {.member = &RivetRecord::leftHeight,
     .place = 3,
     .label = "Left head height",
     .tip = "The height of the left head",
     .caption = "Head height",
     .box = "LHS"},
    {.member = choice<&RivetRecord::leftType>(kHeads),
     .place = 5,
     .label = "Left head type",
     .tip = "The shape of the left head",
     .box = "LHS"},
    {.member = &RivetRecord::rightDiameter,
     .place = 8,
     .label = "Right head diameter",
     .tip = "The diameter of the right head",
     .caption = "Head dia",
     .box = "RHS"},
    {.member = &RivetRecord::rightHeight,
     .place = 7,
     .label = "Right head height",
     .tip = "The height of the right head",
     .caption = "Head height",
     .box = "RHS"},
    {.member = choice<&RivetRecord::rightType>(kHeads),
     .place = 9,
     .label = "Right head type",
     .tip = "The shape of the right head",
     .box = "RHS"},
};

constexpr FastenerRule<RivetRecord> kRules[] = {
    Rule<RivetRecord>{[](const RivetRecord& rivet) { return rivet.rightDiameter > rivet.diameter; },
                      &RivetRecord::rightDiameter, "Right head diameter should be greater than the shank diameter!"},
    Rule<RivetRecord>{[](const RivetRecord& rivet) { return rivet.leftDiameter > rivet.diameter; },
                      &RivetRecord::leftDiameter, "Left head diameter should be greater than the shank diameter!"},
    Rule<RivetRecord>{[](const RivetRecord& rivet) { return rivet.rightHeight > 0.0; }, &RivetRecord::rightHeight,
                      "Right head height must be greater than 0!"},
    Rule<RivetRecord>{[](const RivetRecord& rivet) { return rivet.leftHeight > 0.0; }, &RivetRecord::leftHeight,
                      "Left head height must be greater than 0!"},
    Rule<RivetRecord>{[](const RivetRecord& rivet) { return rivet.length > 0.0; }, &RivetRecord::length,
                      "Shank length must be greater than 0!"},
    RepeatRule<RivetRecord>{[](const RivetRecord& rivet) { return std::max(rivet.leftDiameter, rivet.rightDiameter); },
                            "Repeat spacing must be greater than the rivet head diameter!"},
};

constexpr PictureRow<RivetRecord> kPictures[] = {
    {"Left head picture", [](const RivetRecord& rivet) { return pictureOf(rivet.leftType, kLeftPictures); }},
    {"Right head picture", [](const RivetRecord& rivet) { return pictureOf(rivet.rightType, kRightPictures); }},
};

constexpr FastenerForm<RivetRecord> kForm = {
    .section = "RIVETS",
    .rules = kRules,
    .options = {.word = "rivet",
                .sideViewCaption = "Side View (elevation)",
                .planViewCaption = "Top View (plan)",
                .headStyleCaption = "Draw head as:",
                .shaftStyleCaption = "Draw shaft as:",
                .headPart = "head",
                .shaftPart = "shaft",
                .repeatKey = "RivetRepeat",
                .polarTip = "Whether the spacing value refers the distance between rivets, or the PCD of the circle on "
                            "which the rivets lie"},
    .pictures = kPictures};

}  // namespace

}  // namespace rivet

Fields<RivetRecord> rivetFields() { return rivet::kFields; }

void drawRivets(MechToolset& toolset) { runFastenerCommand<RivetDrawer>(toolset, rivet::kForm); }

}  // namespace ardenix::mech

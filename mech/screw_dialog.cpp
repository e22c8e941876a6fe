#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/screw_drawer.h"

namespace ardenix::mech {

namespace screw {

namespace {

constexpr const char* kHeads[] = {"Cylindrical", "Countersunk", "Rounded", "Rounded CS", "Set Screw"};
constexpr const char* kKeys[] = {"Hex", "Slotted", "Pozi Drive"};

constexpr const char* kHeadPictures[] = {"screw_cylindrical", "screw_countersunk", "screw_rounded",
                                         "screw_rounded_countersunk", "screw_set"};
constexpr const char* kKeyPictures[] = {"key_hexagon", "key_slot", "key_cross"};

constexpr Field<ScrewRecord> kFields[] = {
    {.member = &ScrewRecord::headDiameter,
     .place = 2,
     .label = "Head size",
     .tip = "The diameter of the head of the screw"},
    {.member = &ScrewRecord::headHeight, .place = 3, .label = "Head hgt", .tip = "The height of the head of the screw"},
    {.member = &ScrewRecord::length, .place = 5, .label = "Length", .tip = "The total length of the screw shaft"},
    {.member = &ScrewRecord::shankLength,
     .place = 6,
     .label = "Shank length",
     .tip = "The length of the shank (part without thread)"},
    {.member = &ScrewRecord::diameter,
     .place = 4,
     .label = "Thread diameter",
     .tip = "The nominal size (diameter) of the screw"},
    {.member = &ScrewRecord::minorDiameter,
     .place = 7,
     .label = "Minor dia",
     .tip = "The minor diameter of the thread on the screw"},
    {.member = &ScrewRecord::keySize, .place = 9, .label = "Key size", .tip = "The size of the key socket"},
    {.member = &ScrewRecord::shoulderDiameter,
     .place = 8,
     .label = "Shoulder diameter",
     .tip = "The diameter of the shoulder of the screw"},
    {.member = choice<&ScrewRecord::head>(kHeads), .place = 10, .label = "Head Type", .tip = "The screw's head type"},
    {.member = choice<&ScrewRecord::key>(kKeys),
     .place = 11,
     .label = "Head Key",
     .tip = "The type of key used in the head of the screw"},
};

constexpr FastenerRule<ScrewRecord> kRules[] = {
    Rule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.headDiameter >= screw.diameter; },
                      &ScrewRecord::headDiameter,
                      "The head diameter must be larger than the thread (nominal) diameter!"},
    Rule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.headHeight > 0.0; }, &ScrewRecord::headHeight,
                      "The head height must be greater than 0 (zero)!"},
    Rule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.length >= screw.shankLength; },
                      &ScrewRecord::shankLength, "The thread length may not be greater than the shaft length!"},
    Rule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.diameter >= screw.minorDiameter; },
                      &ScrewRecord::minorDiameter,
                      "The minor diameter may not be greater than the thread (nominal) diameter!"},
    RepeatRule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.headDiameter; },
                            "The repeat spacing must be greater than the screw head diameter!"},
    Rule<ScrewRecord>{[](const ScrewRecord& screw) { return screw.keySize < screw.headDiameter; },
                      &ScrewRecord::keySize, "The head key size must be less than the screw head diameter!"},
};

constexpr PictureRow<ScrewRecord> kPictures[] = {
    {"Head picture", [](const ScrewRecord& screw) { return pictureOf(screw.head, kHeadPictures); }},
    {"Key picture", [](const ScrewRecord& screw) { return pictureOf(screw.key, kKeyPictures); }},
};

constexpr FastenerForm<ScrewRecord> kForm = {
    .section = "CAPSCREWS",
    .rules = kRules,
    .options = {.word = "screw",
                .sideViewCaption = "Draw Side View (elevation)",
                .planViewCaption = "Draw Top View (plan)",
                .headStyleCaption = "Draw head as:",
                .shaftStyleCaption = "Draw shaft as:",
                .headPart = "head",
                .shaftPart = "shaft",
                .repeatKey = "ScrewRepeat",
                .polarTip = "Whether the spacing value refers the distance between screws, or the PCD of the circle on "
                            "which the screws lie"},
    .pictures = kPictures};

}  // namespace

}  // namespace screw

Fields<ScrewRecord> screwFields() { return screw::kFields; }

void drawScrews(MechToolset& toolset) { runFastenerCommand<ScrewDrawer>(toolset, screw::kForm); }

}  // namespace ardenix::mech

#include <algorithm>

#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/nut_drawer.h"

namespace ardenix::mech {

namespace nut {

namespace {

constexpr const char* kTypes[] = {"Hexagon", "Slotted"};
constexpr const char* kShapes[] = {"Rounded", "Flat Base", "Flat"};

constexpr const char* kHexagonPictures[] = {"nut_hexagon_rounded", "nut_hexagon_flat_base", "nut_hexagon_flat"};
constexpr const char* kSlottedPictures[] = {"nut_slotted_rounded", "nut_slotted_flat_base", "nut_slotted_flat"};
constexpr const char* kPlanPictures[] = {"nut_hexagon_plan", "nut_slotted_plan"};

bool slotted(const NutRecord& nut) { return nut.type == NutType::kSlotted; }

constexpr Field<NutRecord> kFields[] = {
    {.member = &NutRecord::headSize, .place = 2, .label = "Head size", .tip = "The size of the nut across its flats"},
    {.member = &NutRecord::headHeight,
     .place = 3,
     .label = "Head height",
     .tip = "The height of the nut, without its washer"},
    {.member = &NutRecord::diameter,
     .place = 4,
     .label = "Thread Dia",
     .tip = "The nominal size (diameter) of the thread"},
    {.member = &NutRecord::minorDiameter,
     .place = 6,
     .label = "Minor Dia",
     .tip = "The minor diameter of the thread in the nut"},
    {.member = &NutRecord::washerDiameter,
     .place = 5,
     .label = "Washer diameter",
     .tip = "The diameter of the washer or flange"},
    {.member = &NutRecord::washerThickness,
     .place = 7,
     .label = "Washer thickness",
     .tip = "Thickness of the washer (0 for no washer)",
     .captioned = false},
    {.member = choice<&NutRecord::type>(kTypes), .place = 10, .label = "Type", .tip = "The type of nut"},
    {.member = choice<&NutRecord::shape>(kShapes),
     .place = 11,
     .label = "Shape",
     .tip = "The shape of the top and the base of the nut"},
    {.member = &NutRecord::slotWidth,
     .place = 8,
     .label = "Slot Width",
     .tip = "The width of the slots in the nut",
     .shown = slotted},
    {.member = &NutRecord::slotDepth,
     .place = 9,
     .label = "Slot Depth",
     .tip = "The depth of the slots in the nut",
     .shown = slotted},
};

constexpr FastenerRule<NutRecord> kRules[] = {
    Rule<NutRecord>{[](const NutRecord& nut) { return nut.diameter <= nut.headSize; }, &NutRecord::headSize,
                    "Head size should be greater than thread nominal diameter!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return nut.headHeight > 0.0; }, &NutRecord::headHeight,
                    "Head height must be greater than 0!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return nut.diameter > nut.minorDiameter; }, &NutRecord::minorDiameter,
                    "Thread minor diameter must be less then thread nominal diameter!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return nut.washerThickness >= 0.0; }, &NutRecord::washerThickness,
                    "Flange or washer thickness must be greater or equal to 0!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return nut.diameter < nut.washerDiameter; }, &NutRecord::washerDiameter,
                    "Flange or washer diameter must be greater thread nominal diameter!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return !slotted(nut) || nut.slotWidth > 0.0; }, &NutRecord::slotWidth,
                    "Slot width must be greater than 0 (zero)!"},
    Rule<NutRecord>{[](const NutRecord& nut) { return !slotted(nut) || nut.slotDepth > 0.0; }, &NutRecord::slotDepth,
                    "Slot depth must be greater than 0 (zero)!"},
    RepeatRule<NutRecord>{[](const NutRecord& nut) { return std::max(nut.headSize, nut.washerDiameter); },
                          "The repeat spacing must be greater than the nut head or washer diameter!"},
};

constexpr PictureRow<NutRecord> kPictures[] = {
    {"Side picture",
     [](const NutRecord& nut) { return pictureOf(nut.shape, slotted(nut) ? kSlottedPictures : kHexagonPictures); }},
    {"Plan picture", [](const NutRecord& nut) { return pictureOf(nut.type, kPlanPictures); }},
};

constexpr FastenerForm<NutRecord> kForm = {
    .section = "NUTS",
    .rules = kRules,
    .options = {.word = "nut",
                .sideViewCaption = "Draw side view (elevation)",
                .planViewCaption = "Draw top view (plan view)",
                .headStyleCaption = "",
                .shaftStyleCaption = "",
                .headPart = "top view",
                .shaftPart = "side view",
                .repeatKey = "NutRepeat",
                .polarTip = "Whether the spacing value refers the distance between nuts, or the PCD of the circle on "
                            "which the nuts lie",
                .alignable = false,
                .stylesOfViews = true},
    .pictures = kPictures};

}  // namespace

}  // namespace nut

Fields<NutRecord> nutFields() { return nut::kFields; }

void drawNuts(MechToolset& toolset) { runFastenerCommand<NutDrawer>(toolset, nut::kForm); }

}  // namespace ardenix::mech

#include <algorithm>

#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/hole_drawer.h"
#include "mech/hole_preview.h"

namespace ardenix::mech {

namespace hole {

namespace {

constexpr const char* kTypes[] = {"Drilled", "Tapped", "Dowel"};
constexpr const char* kRanges[] = {"Through", "Blind"};

bool tapped(const HoleRecord& hole) { return hole.type == HoleType::kTapped; }

// The length that a countersink leaves for the thread.
double belowCountersink(const HoleRecord& hole) { return hole.length - hole.countersinkDepth; }

constexpr Field<HoleRecord> kFields[] = {
    {.member = &HoleRecord::diameter, .place = 2, .label = "Hole diameter", .tip = "The nominal size of the hole"},
    {.member = &HoleRecord::length, .place = 4, .label = "Hole length", .tip = "The total length of the hole"},
    {.member = choice<&HoleRecord::type>(kTypes),
     .place = 6,
     .label = "Hole type",
     .tip = "Whether the hole is drilled, drilled and tapped, or a dowel"},
    {.member = choice<&HoleRecord::range>(kRanges),
     .place = 7,
     .label = "Hole range",
     .tip = "Whether the hole is blind or a through hole"},
    {.member = &HoleRecord::threadDiameter,
     .place = 3,
     .label = "Thread diameter",
     .tip = "Thread inner diameter",
     .shown = tapped},
    {.member = &HoleRecord::threadLength,
     .place = 9,
     .label = "Thread length",
     .tip = "Length of the threaded part of the hole",
     .fallbackOf = belowCountersink,
     .shown = tapped},
    {.member = &HoleRecord::countersinkDepth,
     .place = 5,
     .label = "Countersink depth",
     .tip = "Specify the countersink length here (0 for no countersink)"},
    {.member = &HoleRecord::counterboreDiameter,
     .place = 8,
     .label = "Counterbore dia",
     .tip = "Specify the counterbore diameter here (0 for no counterbore)"},
};

// A thread up to the bottom reads back from its three decimals with a rounding of its own.
bool threadFits(const HoleRecord& hole) {
  const double room = belowCountersink(hole);
  return !tapped(hole) || hole.threadLength <= room || nearlyEqual(hole.threadLength, room);
}

constexpr FastenerRule<HoleRecord> kRules[] = {
    Rule<HoleRecord>{[](const HoleRecord& hole) { return !tapped(hole) || hole.threadDiameter >= hole.diameter; },
                     &HoleRecord::threadDiameter, "The thread diameter must be larger than the hole diameter!"},
    Rule<HoleRecord>{threadFits, &HoleRecord::threadLength,
                     "The thread length must be less than the length of the hole, minus the countersink!"},
    Rule<HoleRecord>{[](const HoleRecord& hole) { return hole.countersinkDepth <= hole.length; },
                     &HoleRecord::countersinkDepth, "The countersink depth is greater then the length of the hole!"},
    Rule<HoleRecord>{[](const HoleRecord& hole) {
                       return hole.counterboreDiameter == 0.0 || hole.counterboreDiameter >= hole.diameter;
                     },
                     &HoleRecord::counterboreDiameter, "The counterbore diameter is less then the hole diameter!"},
    RepeatRule<HoleRecord>{[](const HoleRecord& hole) { return std::max(hole.diameter, hole.threadDiameter); },
                           "The repeat spacing must be greater than the hole diameter!"},
};

constexpr FastenerForm<HoleRecord> kForm = {.section = "HOLES",
                                            .rules = kRules,
                                            .options = {.word = "hole",
                                                        .sideViewCaption = "Draw Side View (elevation)",
                                                        .planViewCaption = "Draw Top View (plan)",
                                                        .headStyleCaption = "",
                                                        .shaftStyleCaption = "",
                                                        .headPart = "top view",
                                                        .shaftPart = "side view",
                                                        .repeatKey = "HoleRepeat",
                                                        .polarTip = "The type of polar repeat",
                                                        .stylesOfViews = true},
                                            .paint = paintHolePreview};

}  // namespace

}  // namespace hole

Fields<HoleRecord> holeFields() { return hole::kFields; }

void drawHoles(MechToolset& toolset) { runFastenerCommand<HoleDrawer>(toolset, hole::kForm); }

}  // namespace ardenix::mech

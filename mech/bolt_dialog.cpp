#include "mech/bolt_drawer.h"
#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"

namespace ardenix::mech {

namespace bolt {

namespace {

constexpr Field<BoltRecord> kFields[] = {
    {.member = &BoltRecord::headSize, .place = 2, .label = "Head size", .tip = "Specify the head diameter of the bolt"},
    {.member = &BoltRecord::headHeight,
     .place = 3,
     .label = "Head height",
     .tip = "Specify the height of the head of the bolt"},
    {.member = &BoltRecord::length, .place = 5, .label = "Length", .tip = "The total length of the bolt shaft"},
    {.member = &BoltRecord::diameter, .place = 4, .label = "Thread diameter", .tip = "Nominal bolt size (diameter)"},
    {.member = &BoltRecord::threadLength,
     .place = 6,
     .label = "Thread length",
     .tip = "Specify the thread length of the bolt"},
    {.member = &BoltRecord::minorDiameter,
     .place = 7,
     .label = "Minor Dia",
     .tip = "Specify the thread minor diameter of the bolt"},
};

constexpr FastenerRule<BoltRecord> kRules[] = {
    Rule<BoltRecord>{[](const BoltRecord& bolt) { return bolt.headSize >= bolt.diameter; }, &BoltRecord::headSize,
                     "The head diameter must be larger than the thread (nominal) diameter!"},
    Rule<BoltRecord>{[](const BoltRecord& bolt) { return bolt.headHeight > 0.0; }, &BoltRecord::headHeight,
                     "The head height must be greater than 0 (zero)!"},
    Rule<BoltRecord>{[](const BoltRecord& bolt) { return bolt.length >= bolt.threadLength; }, &BoltRecord::threadLength,
                     "The thread length may not be greater than the shaft length!"},
    Rule<BoltRecord>{[](const BoltRecord& bolt) { return bolt.diameter >= bolt.minorDiameter; },
                     &BoltRecord::minorDiameter,
                     "The minor diameter may not be greater than the thread (nominal) diameter!"},
    RepeatRule<BoltRecord>{[](const BoltRecord& bolt) { return bolt.headSize; },
                           "The repeat spacing must be greater than the bolt head diameter!"},
};

constexpr SavingRule<BoltRecord> kSavingRules[] = {
    {[](const BoltRecord& bolt) {
       return bolt.threadLength < bolt.length || nearlyEqual(bolt.threadLength, bolt.length);
     },
     "The Thread Length must be less or equal to the Total Length"},
};

constexpr FastenerForm<BoltRecord> kForm = {
    .section = "BOLTS",
    .rules = kRules,
    .options = {.word = "bolt",
                .sideViewCaption = "Side View (elevation)",
                .planViewCaption = "Top View (plan)",
                .headStyleCaption = "Draw head as:",
                .shaftStyleCaption = "Draw shaft as:",
                .headPart = "head",
                .shaftPart = "shaft",
                .repeatKey = "BoltRepeat",
                .polarTip = "Whether the spacing value refers the distance between bolts, or the PCD of the circle on "
                            "which the bolts lie"},
    .savingRules = kSavingRules};

}  // namespace

}  // namespace bolt

Fields<BoltRecord> boltFields() { return bolt::kFields; }

void drawBolts(MechToolset& toolset) { runFastenerCommand<BoltDrawer>(toolset, bolt::kForm); }

}  // namespace ardenix::mech

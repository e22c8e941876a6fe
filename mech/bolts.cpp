#include "frame/host/core_services.h"
#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/hex_bolt.h"

namespace ardenix {

namespace {

constexpr FieldRow kRows[] = {
    {kHeadSize, "Specify the head diameter of the bolt"},
    {kHeadHeight, "Specify the height of the head of the bolt"},
    {kLength, "The total length of the bolt shaft"},
    {kDiameter, "Nominal bolt size (diameter)"},
    {kThreadLength, "Specify the thread length of the bolt"},
    {kMinorDiameter, "Specify the thread minor diameter of the bolt"},
};

const FastenerForm kForm = {
    .section = "BOLTS",
    .fields = boltFields(),
    .rows = kRows,
    .options = {
        .word = "bolt",
        .sideViewCaption = "Side View (elevation)",
        .planViewCaption = "Top View (plan)",
        .headStyleCaption = "Draw head as:",
        .shaftStyleCaption = "Draw shaft as:",
        .headPart = "head",
        .shaftPart = "shaft",
        .repeatKey = "BoltRepeat",
        .polarTip =
            "Whether the spacing value refers the distance between bolts, or the PCD of the circle on which the "
            "bolts lie",
    }};

class BoltDialog : public FastenerDialog {
 public:
  BoltDialog(const Services& services, DefinitionStore& store, HexBolt& bolt)
      : FastenerDialog(services, store, kForm, bolt) {}

 protected:
  bool validate() override {
    const BoltRecord bolt = boltOf(values());
    return meets({
        {bolt.headSize >= bolt.diameter, control(kHeadSize),
         "The head diameter must be larger than the thread (nominal) diameter!"},
        {bolt.headHeight > 0.0, control(kHeadHeight), "The head height must be greater than 0 (zero)!"},
        {bolt.length >= bolt.threadLength, control(kThreadLength),
         "The thread length may not be greater than the shaft length!"},
        {bolt.diameter >= bolt.minorDiameter, control(kMinorDiameter),
         "The minor diameter may not be greater than the thread (nominal) diameter!"},
        {repeatClears(bolt.headSize), options().repeatValue(),
         "The repeat spacing must be greater than the bolt head diameter!"},
    });
  }

  bool mayBeSaved() override {
    const BoltRecord bolt = boltOf(values());
    if (bolt.threadLength < bolt.length || nearlyEqual(bolt.threadLength, bolt.length)) { return true; }
    ErrorMessage("The Thread Length must be less or equal to the Total Length", &box());
    return false;
  }
};

}  // namespace

void drawBolts(MechToolset& toolset) { runFastenerCommand<HexBolt, BoltDialog>(toolset); }

}  // namespace ardenix

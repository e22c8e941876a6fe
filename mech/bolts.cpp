#include "mech/bolts.h"

#include "frame/host/core_services.h"
#include "frame/point.h"
#include "mech/fastener_dialog.h"
#include "mech/hex_bolt.h"

namespace ardenix {

namespace {

constexpr double kLongestField = 10000.0;

constexpr FastenerOptionTexts kTexts = {
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
};

struct FieldTip {
  BoltField field;
  const char* toolTip;
};

// In the dialog's order, two a row.
constexpr FieldTip kFields[] = {
    {kHeadSize, "Specify the head diameter of the bolt"},
    {kHeadHeight, "Specify the height of the head of the bolt"},
    {kLength, "The total length of the bolt shaft"},
    {kDiameter, "Nominal bolt size (diameter)"},
    {kThreadLength, "Specify the thread length of the bolt"},
    {kMinorDiameter, "Specify the thread minor diameter of the bolt"},
};

class BoltDialog : public FastenerDialog {
 public:
  BoltDialog(const Services& services, DefinitionStore& store, HexBolt& bolt)
      : FastenerDialog(services, store, "BOLTS", boltFields(), bolt.fastener()), bolt_(bolt) {
    const int group = box().addGroup({.place = {.row = 1}});
    int cell = 0;
    for (const FieldTip& row : kFields) {
      edits_[row.field] = addNumberField(
          row.field, {.toolTip = row.toolTip, .group = group, .place = {.row = cell / 2, .column = cell % 2}},
          kLongestField);
      ++cell;
    }
    addOptions(kTexts, 2);
  }

 protected:
  bool validate() override {
    const BoltRecord bolt = boltOf(values());
    return meets({
        {bolt.headSize >= bolt.diameter, edits_[kHeadSize],
         "The head diameter must be larger than the thread (nominal) diameter!"},
        {bolt.headHeight > 0.0, edits_[kHeadHeight], "The head height must be greater than 0 (zero)!"},
        {bolt.length >= bolt.threadLength, edits_[kThreadLength],
         "The thread length may not be greater than the shaft length!"},
        {bolt.diameter >= bolt.minorDiameter, edits_[kMinorDiameter],
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

  void accept() override {
    FastenerDialog::accept();
    bolt_.take(boltOf(values()));
  }

 private:
  HexBolt& bolt_;
  CFloatEdit edits_[std::size(kFields)];
};

}  // namespace

void drawBolts(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  DefinitionStore& store = toolset.configuration().store();
  HexBolt bolt(toolset.view(), store);
  BoltDialog dialog(toolset.services(), store, bolt);
  if (dialog.run()) { drawFasteners(toolset.view(), bolt, dialog.viewMode()); }
}

}  // namespace ardenix

#include <algorithm>

#include "mech/drilled_hole.h"
#include "mech/fastener_commands.h"
#include "mech/fastener_dialog.h"
#include "mech/hole_preview.h"

namespace ardenix {

namespace {

using namespace holeField;

constexpr const char* kTypes[] = {"Drilled", "Tapped", "Dowel"};
constexpr const char* kRanges[] = {"Through", "Blind"};

constexpr FieldRow kRows[] = {
    {kDiameter, "The nominal size of the hole"},
    {kLength, "The total length of the hole"},
    {.field = kType, .toolTip = "Whether the hole is drilled, drilled and tapped, or a dowel", .items = kTypes},
    {.field = kRange, .toolTip = "Whether the hole is blind or a through hole", .items = kRanges},
    {kThreadDiameter, "Thread inner diameter"},
    {kThreadLength, "Length of the threaded part of the hole"},
    {kCountersinkDepth, "Specify the countersink length here (0 for no countersink)"},
    {kCounterboreDiameter, "Specify the counterbore diameter here (0 for no counterbore)"},
};

const FastenerForm kForm = {.section = "HOLES",
                            .fields = holeFields(),
                            .rows = kRows,
                            .options = {
                                .word = "hole",
                                .sideViewCaption = "Draw Side View (elevation)",
                                .planViewCaption = "Draw Top View (plan)",
                                .headStyleCaption = "",
                                .shaftStyleCaption = "",
                                .headPart = "top view",
                                .shaftPart = "side view",
                                .repeatKey = "HoleRepeat",
                                .polarTip = "The type of polar repeat",
                                .stylesOfViews = true,
                            }};

class HoleDialog : public FastenerDialog {
 public:
  static constexpr bool kPaintsItsOwnPreview = true;
  HoleDialog(const Services& services, DefinitionStore& store, DrilledHole& hole)
      : FastenerDialog(services, store, kForm, hole) {
    const int group = addPictureGroup("Preview");
    const auto paint = [this](dialog::Canvas& canvas) { paintHolePreview(canvas, holeOf(values())); };
    addControl(box(), dialog::PixelCanvas{130, 55, paint}, {.group = group, .name = "Plan preview"});
    addControl(box(), dialog::PixelCanvas{130, 145, paint},
               {.group = group, .place = {.row = 1}, .name = "Side preview"});
  }

 protected:
  void loadRecord(std::string_view record) override { showValues(readHoleRecord(record)); }

  void fieldsChanged() override {
    const bool tapped = holeOf(values()).type == HoleType::kTapped;
    control(kThreadDiameter).show(tapped);
    control(kThreadLength).show(tapped);
  }

  bool validate() override {
    const HoleRecord hole = holeOf(values());
    const bool tapped = hole.type == HoleType::kTapped;
    const double room = hole.length - hole.countersinkDepth;
    return meets({
        {!tapped || hole.threadDiameter >= hole.diameter, control(kThreadDiameter),
         "The thread diameter must be larger than the hole diameter!"},
        // A thread up to the bottom reads back from its three decimals with a rounding of its own.
        {!tapped || hole.threadLength <= room || nearlyEqual(hole.threadLength, room), control(kThreadLength),
         "The thread length must be less than the length of the hole, minus the countersink!"},
        {hole.countersinkDepth <= hole.length, control(kCountersinkDepth),
         "The countersink depth is greater then the length of the hole!"},
        {hole.counterboreDiameter == 0.0 || hole.counterboreDiameter >= hole.diameter, control(kCounterboreDiameter),
         "The counterbore diameter is less then the hole diameter!"},
        {repeatClears(std::max(hole.diameter, hole.threadDiameter)), options().repeatValue(),
         "The repeat spacing must be greater than the hole diameter!"},
    });
  }
};

}  // namespace

void drawHoles(MechToolset& toolset) { runFastenerCommand<DrilledHole, HoleDialog>(toolset); }

}  // namespace ardenix

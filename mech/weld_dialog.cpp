#include "frame/drafting/part_round.h"
#include "mech/annotation_commands.h"
#include "mech/annotation_dialog.h"
#include "mech/fastener_placement.h"
#include "mech/weld.h"

namespace ardenix::mech {

namespace weld {

namespace {

constexpr const char* kSymbols[] = {"None",        "Square",      "V-Weld",       "Bevel",         "U-Weld", "J-Weld",
                                    "Flare bevel", "Flare V",     "Flange Edge",  "Flange Corner", "Fillet", "Bead",
                                    "Surfacing",   "Fusion spot", "Plug or spot", "Stud"};
// A side's pictures show what it draws: the other side above the reference line, the arrow side below it.
constexpr const char* kSymbolsBelow[] = {"",
                                         "weld_square",
                                         "weld_v",
                                         "weld_bevel",
                                         "weld_u",
                                         "weld_j",
                                         "weld_f_bevel",
                                         "weld_flare_v",
                                         "weld_flange_edge",
                                         "weld_flange_corner",
                                         "weld_fillet",
                                         "weld_bead",
                                         "weld_surfacing",
                                         "weld_fusion",
                                         "weld_plug",
                                         "weld_stud"};
constexpr const char* kSymbolsAbove[] = {"",
                                         "weld_square_above",
                                         "weld_v_above",
                                         "weld_bevel_above",
                                         "weld_u_above",
                                         "weld_j_above",
                                         "weld_f_bevel_above",
                                         "weld_flare_v_above",
                                         "weld_flange_edge_above",
                                         "weld_flange_corner_above",
                                         "weld_fillet_above",
                                         "weld_bead_above",
                                         "weld_surfacing_above",
                                         "weld_fusion_above",
                                         "weld_plug_above",
                                         "weld_stud_above"};
constexpr const char* kSurfaces[] = {"None", "Flush", "Convex", "Concave"};
constexpr const char* kSurfacesBelow[] = {"", "weld_flush", "weld_convex", "weld_concave"};
constexpr const char* kSurfacesAbove[] = {"", "weld_flush_above", "weld_convex_above", "weld_concave_above"};
constexpr const char* kFinishes[] = {"None", "Machine", "Grind", "Chisel", "Flame"};

constexpr std::string_view kSymbolTip = "The primary weld symbol (type of weld to be done on this side)";
constexpr std::string_view kSurfaceTip = "Supplementary weld symbol (the shape of the surface of the weld)";
constexpr std::string_view kFinishTip = "How the weld should be finished";
constexpr std::string_view kSizeTip = "Size of weld (cross-section dimension)";
constexpr int kSizeLimit = 127;

// Where the fields of a side stand in the record, the box that holds them and the pictures of its lists.
struct SideRow {
  std::string_view box;
  int symbol;
  int upperSize;
  std::span<const char* const> symbols;  // pictures
  std::span<const char* const> surfaces;
};
constexpr SideRow kOther{"Other", 2, 8, kSymbolsAbove, kSurfacesAbove};
constexpr SideRow kArrow{"Arrow", 5, 10, kSymbolsBelow, kSurfacesBelow};

constexpr Field<WeldRecord> symbolField(const Choice<WeldRecord>& member, const SideRow& side) {
  return {.member = member,
          .place = side.symbol,
          .label = "SYMBOL",
          .tip = kSymbolTip,
          .box = side.box,
          .pictures = side.symbols};
}
constexpr Field<WeldRecord> surfaceField(const Choice<WeldRecord>& member, const SideRow& side) {
  return {.member = member,
          .place = side.symbol + 1,
          .label = "Surface",
          .tip = kSurfaceTip,
          .box = side.box,
          .pictures = side.surfaces};
}
constexpr Field<WeldRecord> finishField(const Choice<WeldRecord>& member, const SideRow& side) {
  return {.member = member, .place = side.symbol + 2, .label = "Finish", .tip = kFinishTip, .box = side.box};
}
constexpr Field<WeldRecord> upperField(std::string WeldRecord::*member, const SideRow& side) {
  return {.member = member,
          .place = side.upperSize,
          .label = "Upper size",
          .tip = "",
          .box = side.box,
          .limit = kSizeLimit};
}
constexpr Field<WeldRecord> lowerField(std::string WeldRecord::*member, const SideRow& side) {
  return {.member = member,
          .place = side.upperSize + 1,
          .label = "Lower size",
          .tip = kSizeTip,
          .box = side.box,
          .limit = kSizeLimit};
}

constexpr Field<WeldRecord> kFields[] = {
    symbolField(choice<&WeldRecord::otherSymbol>(kSymbols), kOther),
    upperField(&WeldRecord::otherUpper, kOther),
    surfaceField(choice<&WeldRecord::otherSurface>(kSurfaces), kOther),
    lowerField(&WeldRecord::otherLower, kOther),
    finishField(choice<&WeldRecord::otherFinish>(kFinishes), kOther),
    symbolField(choice<&WeldRecord::arrowSymbol>(kSymbols), kArrow),
    upperField(&WeldRecord::arrowUpper, kArrow),
    surfaceField(choice<&WeldRecord::arrowSurface>(kSurfaces), kArrow),
    lowerField(&WeldRecord::arrowLower, kArrow),
    finishField(choice<&WeldRecord::arrowFinish>(kFinishes), kArrow),
    {.member = &WeldRecord::length, .place = 12, .label = "Length", .tip = "The length of each weld run"},
    {.member = &WeldRecord::pitch,
     .place = 13,
     .label = "Pitch",
     .tip = "The pitch of the weld (distance between the start of each run)"},
    {.member = &WeldRecord::site, .place = 14, .label = "Site Weld", .tip = "'Site weld' indicator"},
    {.member = &WeldRecord::allAround,
     .place = 15,
     .label = "All Around",
     .tip = "'All around' indicator ('peripheral weld')"},
    {.member = &WeldRecord::tail,
     .place = 16,
     .label = "Tail information",
     .tip = "Text to put at the 'tail' of the weld annotation (usually welding process and class numbers)",
     .multiline = true},
};

class WeldDialog : public AnnotationDialog<WeldRecord, WeldDrawer> {
 public:
  WeldDialog(MechToolset& toolset, WeldDrawer& drawer) : AnnotationDialog(toolset, "WELDS", weldFields(), drawer) {
    const int group = box().addGroup({.place = {.row = kBodyRow + 1}});
    addButton(box(), {.caption = "Weld Setup...", .toolTip = "Go to the weld setup dialog", .group = group})
        .onPress([this, &toolset] {
          runAnnotationSetup(toolset.services(), toolset.configuration(), &box());
          fieldsChanged();
        });
  }

 protected:
  // The marks at the knee belong to the weld at hand and not to its definition: they are chosen anew each time.
  void opened() override {
    WeldRecord shown = record();
    shown.site = shown.allAround = false;
    show(shown);
    fieldsChanged();
  }
};

}  // namespace

}  // namespace weld

Fields<WeldRecord> weldFields() { return weld::kFields; }

void drawWelds(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  CCadWindow& view = toolset.view();
  const DefinitionStore& store = toolset.configuration().store();
  warnOfMissingLayer(store, kWeldAnnotation, toolset.services().mainFrame);
  WeldDrawer drawer(view, store);
  if (weld::WeldDialog(toolset, drawer).run()) {
    view.SetFocus();
    drawer.draw();
  }
  endFastener(view);
  view.gsSetViewDirty(1);
  view.gsRefresh();
}

}  // namespace ardenix::mech

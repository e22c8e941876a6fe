#include "frame/host/commands.h"

#include <string_view>
#include <vector>

#include "arch/arch_commands.h"
#include "frame/entry/module_state.h"
#include "frame/entry/toolset_lifetime.h"
#include "frame/help.h"
#include "frame/host/api.h"
#include "frame/host/core_services.h"
#include "mech/annotation_commands.h"
#include "mech/fastener_commands.h"
#include "mech/part_commands.h"
#include "mech/table_commands.h"
#include "survey/plan/plan_commands.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/setup_commands.h"
#include "survey/trace_tool.h"

namespace arch = ardenix::arch;
namespace mech = ardenix::mech;
namespace survey = ardenix::survey;

namespace {

// What commands have in common that work from one library or settings file.
struct Trade {
  CommandFamily family;
  std::span<const FirstSetting> settings;
  ManualChapter chapter;
};

constexpr FirstSetting kFasteners[] = {{"MechanicalTools", "SpecFile", "ISO Mechspecs.ini"}};
constexpr FirstSetting kWalls[] = {{"ArchitecturalTools", "SpecFile", "ArchSpecs.ini"}};
constexpr FirstSetting kDiagramJob[] = {{"SG_DEFAULTS", "SG_DiaramFile", "SG Diagram.ini"}};
constexpr FirstSetting kGeneralPlanJob[] = {{"SG_DEFAULTS", "SG_GenPlanFile", "General Plan.ini"}};
constexpr FirstSetting kSectionalPlanJob[] = {{"SG_DEFAULTS", "SG_SectionalFile", "Sectional Plan.ini"}};

constexpr ManualChapter kNoChapter{"", ""};
constexpr ManualChapter kParts{"mechanical-parts.md", "Flanges, gears, links, ducts"};
constexpr ManualChapter kAnnotation{"annotations.md", "Annotations"};
constexpr ManualChapter kArchitecture{"architectural.md", "Architectural commands"};
constexpr ManualChapter kSurveySettings{"survey-settings.md", "Survey settings"};
constexpr ManualChapter kSectionalPlanChapter{"sectional-plans.md", "Sectional plans"};
constexpr ManualChapter kSurveyDiagrams{"survey-diagrams.md", "Survey diagrams"};
constexpr ManualChapter kGeneralPlans{"general-plans.md", "General plans"};

constexpr Trade kMechanical{CommandFamily::kMechanical, kFasteners, kNoChapter};
constexpr Trade kMechanicalParts{CommandFamily::kMechanical, kFasteners, kParts};
constexpr Trade kAnnotations{CommandFamily::kMechanical, kFasteners, kAnnotation};
constexpr Trade kArchitectural{CommandFamily::kArchitectural, kWalls, kArchitecture};
constexpr Trade kDiagramSettings{CommandFamily::kSurvey, kDiagramJob, kSurveySettings};
constexpr Trade kGeneralPlanSettings{CommandFamily::kSurvey, kGeneralPlanJob, kSurveySettings};
constexpr Trade kSectionalPlanSettings{CommandFamily::kSurvey, kSectionalPlanJob, kSurveySettings};
constexpr Trade kSectionalPlans{CommandFamily::kSurvey, kSectionalPlanJob, kSectionalPlanChapter};
constexpr Trade kDiagrams{CommandFamily::kSurvey, kDiagramJob, kSurveyDiagrams};
constexpr Trade kPlans{CommandFamily::kSurvey, kGeneralPlanJob, kGeneralPlans};

}  // namespace

// One row a command: export, trade, menu caption, icon, the dialog whose page of help is its own, operation. The rows
// give the exports and the command list; the operation's argument says which toolset it runs in.
// Not aligned, so that a new row changes no other.
// clang-format off
#define COMMANDS_OF_CURRENT_VIEW(ROW) \
  ROW(DisplayMechSetup, kMechanical, "Mechanical &Setup...", "mechanical_setup", "Mechanical Setup", \
      mech::displaySetup) \
  ROW(MechDrawBolts, kMechanical, "Hex &Bolts...", "hex_bolt", "Hex Bolts", mech::drawBolts) \
  ROW(MechDrawScrews, kMechanical, "Socket S&crews...", "socket_screw", "Socket Screws", mech::drawScrews) \
  ROW(MechDrawNuts, kMechanical, "&Nuts...", "nut", "Nuts", mech::drawNuts) \
  ROW(MechDrawHoles, kMechanical, "&Drilled Holes...", "drilled_hole", "Drilled Holes", mech::drawHoles) \
  ROW(MechDrawRivets, kMechanical, "&Rivets...", "rivet", "Rivets", mech::drawRivets) \
  ROW(MechDrawFlanges, kMechanicalParts, "&Flanges...", "flange", "Flanges", mech::drawFlanges) \
  ROW(MechDrawGears, kMechanicalParts, "Spur &Gears...", "spur_gear", "Spur Gears", mech::drawGears) \
  ROW(MechDrawLinks, kMechanicalParts, "&Links...", "link", "Links", mech::drawLinks) \
  ROW(MechDrawShafts, kMechanicalParts, "S&hafts...", "shaft", "Shafts", mech::drawShafts) \
  ROW(MechDrawSlots, kMechanicalParts, "Sl&ots", "slot", "", mech::drawSlots) \
  ROW(MechDrawCircleCL, kMechanicalParts, "C&ircles with Centre Lines", "circles", "", mech::drawCircles) \
  ROW(MechAddCentrelinesToCircles, kMechanicalParts, "&Add Centre Lines to Circles", "centre_lines", "", mech::addCentreLines) \
  ROW(MechDrawRectRnd, kMechanicalParts, "Rectangle to Round D&uct...", "duct", "Rectangle to Round Duct", mech::drawDucts) \
  ROW(MechDrawCoordTable, kMechanicalParts, "Coor&dinate Table...", "coordinate_table", "Coordinate Table", mech::drawCoordinateTable) \
  ROW(MechDrawPartList, kMechanicalParts, "&Parts List...", "parts_list", "Parts List", mech::drawPartsList) \
  ROW(MechDrawTabBox, kMechanicalParts, "&Table...", "table", "Table", mech::drawUserTable) \
  ROW(MechAnnotationSetup, kAnnotations, "Annotation Setu&p...", "annotation_setup", "Annotation Setup", \
      mech::setUpAnnotations) \
  ROW(MechDrawWelds, kAnnotations, "&Welds...", "weld", "Weld Annotation", mech::drawWelds) \
  ROW(MechTolerances, kAnnotations, "&Tolerances...", "tolerance_frame", "Tolerance Annotation", \
      mech::drawTolerances) \
  ROW(MechDrawToleranceDatum, kAnnotations, "Tolerance Datu&m", "tolerance_datum", "", mech::drawToleranceDatum) \
  ROW(MechSurfaceFinish, kAnnotations, "Surfac&e Finish...", "surface_finish", "Surface Finish", \
      mech::drawSurfaceFinish) \
  ROW(DisplayArchSetup, kArchitectural, "Architectural &Setup...", "architectural_setup", "Architectural Setup", \
      arch::displayArchSetup) \
  ROW(ArchSetWalls, kArchitectural, "&Wall Setup...", "wall_setup", "Wall Setup (internal)", arch::setWalls) \
  ROW(ArchDrawWalls, kArchitectural, "&Draw Walls...", "wall", "Wall Setup (internal)", arch::drawWalls) \
  ROW(ArchSetElev, kArchitectural, "&Elevation Setup...", "elevation_setup", "Elevation Setup", arch::setElevations) \
  ROW(ArchDrawElev, kArchitectural, "Draw E&levations...", "elevation", "Elevation Setup", arch::drawElevations) \
  ROW(ArchSetRoofLine, kArchitectural, "Roof Line Se&tup...", "roof_line_setup", "Roof Line Setup", \
      arch::setRoofLine) \
  ROW(ArchRoofLine, kArchitectural, "Draw Roof L&ine...", "roof_line", "Roof Line Setup", arch::drawRoofLine) \
  ROW(ArchSetRoofs, kArchitectural, "Roof Set&up...", "roof_setup", "Roof Setup", arch::setRoofs) \
  ROW(ArchDrawRoofs, kArchitectural, "Draw &Roofs...", "roof", "Roof Setup", arch::drawRoofs) \
  ROW(ArchSetStairs, kArchitectural, "Stairs Setu&p...", "stairs_setup", "Stairs Setup", arch::setStairs) \
  ROW(ArchDrawStairs, kArchitectural, "Draw St&airs...", "stairs", "Stairs Setup", arch::drawStairs) \
  ROW(ArchSetXSect, kArchitectural, "&Cross Section Setup...", "cross_section_setup", "Cross Section Setup", \
      arch::setSections) \
  ROW(ArchDrawXSect, kArchitectural, "Draw Cr&oss Sections...", "cross_section", "Cross Section Setup", \
      arch::drawSections) \
  ROW(ArchPlaceSym, kArchitectural, "Place S&ymbols", "place_symbol", "", arch::placeSymbols)

#define COMMANDS_OF_GIVEN_VIEW(ROW) \
  ROW(SG_DiagramEditor, kDiagramSettings, "SG &Diagram: Setup...", "diagram_setup", "Diagram Defaults", \
      survey::setUpDiagrams) \
  ROW(SG_GenplanEditor, kGeneralPlanSettings, "&General Plan: Setup...", "general_plan_setup", \
      "General Plan Defaults", survey::setUpGeneralPlans) \
  ROW(SG_TracePolyArea, kDiagrams, "SG Diagram: &Trace Figure", "trace_figure", "", survey::tracePolyArea) \
  ROW(SG_AdjustDrawing, kDiagrams, "SG Diagram: Ad&just Drawing", "adjust_drawing", "", survey::adjustDrawing) \
  ROW(SG_InsertBorder, kPlans, "General Plan: &Border", "plan_border", "", survey::insertBorder) \
  ROW(SG_InsertHeading, kPlans, "General Plan: &Heading", "plan_heading", "", survey::insertHeading) \
  ROW(SG_TraceArea, kPlans, "General Plan: Trace &Figure", "plan_figure", "", survey::traceArea) \
  ROW(SG_AreaTable, kPlans, "General Plan: Number &Erven...", "plan_areas", "Area table", survey::makeAreaTable) \
  ROW(SG_BlockTable, kPlans, "General Plan: Bloc&k Corners", "plan_blocks", "", survey::makeBlockTable) \
  ROW(SG_RefMarks, kPlans, "General Plan: &Reference Marks", "plan_reference_marks", "", \
      survey::makeReferenceMarkTable) \
  ROW(SG_TSMarks, kPlans, "General Plan: Town Survey &Marks", "plan_town_marks", "", survey::makeTownMarkTable) \
  ROW(SG_TrigBeacons, kPlans, "General Plan: Trig &Beacons", "plan_beacons", "", survey::makeBeaconTable) \
  ROW(SG_SingleSurveyDims, kPlans, "Survey Dimensions: Si&ngle", "dimension_single", "", survey::dimensionLines) \
  ROW(SG_SurveyDims, kPlans, "Survey Dimensions: &Sides of an Erf", "dimension_erf", "", survey::dimensionErf) \
  ROW(SG_MultiSurveyDims, kPlans, "Survey Dimensions: All Er&ven...", "dimension_erven", "Multiple dimensioning", \
      survey::dimensionErven) \
  ROW(SG_SwapSurveyDims, kPlans, "Survey Dimensions: S&wap", "dimension_swap", "", survey::swapDimensions) \
  ROW(SG_SectionEditor, kSectionalPlanSettings, "&Sectional Plan: Setup...", "sectional_plan_setup", \
      "Sectional Defaults", survey::setUpSectionalPlans) \
  ROW(SG_SectionMgr, kSectionalPlans, "Sectional Plan: Section &Manager...", "section_manager", "Section Manager", \
      survey::manageSections) \
  ROW(SG_SectionTraceSection, kSectionalPlans, "Sectional Plan: Trace Se&ction", "trace_section", "", \
      survey::traceSection) \
  ROW(SG_SectionGenS1, kSectionalPlans, "Sectional Plan: Sheet &1", "sectional_sheet1", "", survey::makeSheetOne) \
  ROW(SG_SectionGenBp, kSectionalPlans, "Sectional Plan: Block &Plan", "sectional_block_plan", "", survey::makeBlockPlan) \
  ROW(SG_SectionGenFp, kSectionalPlans, "Sectional Plan: &Floor Plans", "sectional_floor_plan", "", \
      survey::makeFloorPlans) \
  ROW(SG_SectionGenPq, kSectionalPlans, "Sectional Plan: &Quota Schedule", "sectional_quotas", "", \
      survey::makeQuotaSheet)
// clang-format on

namespace {

// ---- Toolsets: an operation runs in the one that it takes --------------------------------------------------------

void run(void (*operation)(mech::MechToolset&)) {
  ardenix::ModuleState& state = ardenix::moduleState();
  state.currentView = cadGetCurrentView();
  const auto make = [&state](CCadWindow* view) { return mech::makeMechToolset(view, state.services); };
  operation(ardenix::toolsetOfView(state.mechanical, state.currentView, make));
}

void run(void (*operation)(arch::ArchToolset&)) {
  ardenix::ModuleState& state = ardenix::moduleState();
  state.currentView = cadGetCurrentView();
  const auto make = [&state](CCadWindow* view) {
    return arch::makeArchToolset(view, state.services, state.symbolBrowser.get());
  };
  ardenix::withToolsetOfCommand(state.architectural, state.currentView, make, operation);
}

void run(void (*operation)(CCadWindow&, const ardenix::Services&), CCadWindow* view) {
  operation(*view, ardenix::moduleState().services);
}

void run(void (*operation)(survey::TraceTool&), CCadWindow* view) {
  ardenix::ModuleState& state = ardenix::moduleState();
  const auto make = [&state](CCadWindow* first) { return survey::makeTraceTool(first, state.services); };
  ardenix::Toolset& tool = ardenix::toolsetUntilUnload(state.surveyTrace, view, make);
  view->SetFocus();
  operation(static_cast<survey::TraceTool&>(tool));
}

void run(void (*operation)(survey::SheetTool&), CCadWindow* view) {
  ardenix::ModuleState& state = ardenix::moduleState();
  const auto make = [&state](CCadWindow* first) { return survey::makeSheetTool(first, state.services); };
  ardenix::Toolset& tool = ardenix::toolsetUntilUnload(state.surveySheet, view, make);
  operation(static_cast<survey::SheetTool&>(tool));
}

void run(void (*operation)(const survey::StartedJob&), CCadWindow* view) {
  ardenix::ModuleState& state = ardenix::moduleState();
  const auto make = [&state](CCadWindow* first) {
    return std::make_unique<survey::SectionalPlanJob>(first, state.services);
  };
  ardenix::Toolset& job = ardenix::toolsetUntilUnload(state.sectionalPlanJob, view, make);
  operation({static_cast<survey::SectionalPlanJob&>(job)});
}

// What works on a job that the setup began.
void run(void (*operation)(survey::SectionalPlanJob&), CCadWindow* view) {
  ardenix::Toolset* const job = ardenix::moduleState().sectionalPlanJob.get();
  if (job == nullptr) {
    coreMessageBox(view, "Initialize a new Sectional Plans job by opening the Setup dialog.",
                   "No Sectional Plan job loaded", BoxIcon::kInformation, BoxButtons::kOk);
    return;
  }
  job->setView(view);
  operation(static_cast<survey::SectionalPlanJob&>(*job));
}

// ---- The command list --------------------------------------------------------------------------------------------

CommandRow rowOf(const char* name, const Trade& trade, const char* caption, const char* icon, std::string_view dialog,
                 bool takesView) {
  const char* help = dialog.empty() ? "" : ardenix::helpTopic(dialog).path.data();
  return {name, trade.family, caption, takesView, icon, help, trade.chapter, trade.settings};
}

const std::vector<CommandRow>& commandRows() {
#define CURRENT_VIEW_ROW(name, trade, caption, icon, dialog, operation) \
  rowOf(#name, trade, caption, icon, dialog, false),
#define GIVEN_VIEW_ROW(name, trade, caption, icon, dialog, operation) rowOf(#name, trade, caption, icon, dialog, true),
  static const std::vector<CommandRow> kRows = {COMMANDS_OF_CURRENT_VIEW(CURRENT_VIEW_ROW)
                                                    COMMANDS_OF_GIVEN_VIEW(GIVEN_VIEW_ROW)};
#undef GIVEN_VIEW_ROW
#undef CURRENT_VIEW_ROW
  return kRows;
}

}  // namespace

#define EXPORT(name, trade, caption, icon, dialog, operation) \
  ARDENIX_EXPORT void name() { run(operation); }
COMMANDS_OF_CURRENT_VIEW(EXPORT)
#undef EXPORT

#define EXPORT(name, trade, caption, icon, dialog, operation) \
  ARDENIX_EXPORT void name(CCadWindow* view) { run(operation, view); }
COMMANDS_OF_GIVEN_VIEW(EXPORT)
#undef EXPORT

ARDENIX_EXPORT const CommandRow* ardenixCommands(int* count) {
  *count = static_cast<int>(commandRows().size());
  return commandRows().data();
}

ARDENIX_EXPORT void InitArdenixAPI(CMDIFrameWnd* mainFrame, COXShortcutBar* shortcutBar) {
  ardenix::moduleState().initialise(mainFrame, shortcutBar);
}

ARDENIX_EXPORT const char* ardenixGetAppVersion() { return ardenix::moduleState().version(); }

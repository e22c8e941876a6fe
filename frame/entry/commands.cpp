#include "frame/host/commands.h"

#include <iterator>

#include "arch/arch_commands.h"
#include "frame/entry/module_state.h"
#include "frame/entry/toolset_lifetime.h"
#include "frame/host/api.h"
#include "frame/host/core_services.h"
#include "mech/fastener_commands.h"
#include "survey/setup_commands.h"
#include "survey/trace_tool.h"

// One row a command: export, menu caption, operation. The rows give the exports and the command list.
#define MECHANICAL_COMMANDS(ROW)                                             \
  ROW(DisplayMechSetup, "Mechanical &Setup...", ardenix::mech::displaySetup) \
  ROW(MechDrawBolts, "Hex &Bolts...", ardenix::mech::drawBolts)              \
  ROW(MechDrawScrews, "Socket S&crews...", ardenix::mech::drawScrews)        \
  ROW(MechDrawNuts, "&Nuts...", ardenix::mech::drawNuts)                     \
  ROW(MechDrawHoles, "&Drilled Holes...", ardenix::mech::drawHoles)          \
  ROW(MechDrawRivets, "&Rivets...", ardenix::mech::drawRivets)

#define ARCHITECTURAL_COMMANDS(ROW)                                                 \
  ROW(DisplayArchSetup, "Architectural &Setup...", ardenix::arch::displayArchSetup) \
  ROW(ArchSetWalls, "&Wall Setup...", ardenix::arch::setWalls)                      \
  ROW(ArchDrawWalls, "&Draw Walls...", ardenix::arch::drawWalls)

#define SURVEY_SETUP_COMMANDS(ROW)                                               \
  ROW(SG_DiagramEditor, "SG &Diagram: Setup...", ardenix::survey::setUpDiagrams) \
  ROW(SG_GenplanEditor, "&General Plan: Setup...", ardenix::survey::setUpGeneralPlans)

#define SURVEY_TRACE_COMMANDS(ROW)                                                   \
  ROW(SG_TracePolyArea, "SG Diagram: &Trace Figure", ardenix::survey::tracePolyArea) \
  ROW(SG_AdjustDrawing, "SG Diagram: Ad&just Drawing", ardenix::survey::adjustDrawing)

#define SECTIONAL_SETUP_COMMANDS(ROW) \
  ROW(SG_SectionEditor, "&Sectional Plan: Setup...", ardenix::survey::setUpSectionalPlans)

namespace {

void runMechanical(void (*operation)(ardenix::mech::MechToolset&)) {
  ardenix::ModuleState& state = ardenix::moduleState();
  state.currentView = cadGetCurrentView();
  const auto make = [&state](CCadWindow* view) { return ardenix::mech::makeMechToolset(view, state.services); };
  operation(ardenix::toolsetOfView(state.mechanical, state.currentView, make));
}

void runArchitectural(void (*operation)(ardenix::arch::ArchToolset&)) {
  ardenix::ModuleState& state = ardenix::moduleState();
  state.currentView = cadGetCurrentView();
  const auto make = [&state](CCadWindow* view) { return ardenix::arch::makeArchToolset(view, state.services); };
  ardenix::withToolsetOfCommand(state.architectural, state.currentView, make, operation);
}

void runSetup(void (*operation)(CCadWindow&, const ardenix::Services&), CCadWindow* view) {
  operation(*view, ardenix::moduleState().services);
}

void runTracing(void (*operation)(ardenix::survey::TraceTool&), CCadWindow* view) {
  ardenix::ModuleState& state = ardenix::moduleState();
  const auto make = [&state](CCadWindow* first) { return ardenix::survey::makeTraceTool(first, state.services); };
  ardenix::Toolset& tool = ardenix::toolsetUntilUnload(state.surveyTrace, view, make);
  view->SetFocus();
  operation(static_cast<ardenix::survey::TraceTool&>(tool));
}

void runSectionalSetup(void (*operation)(ardenix::survey::SectionalPlanJob&), CCadWindow* view) {
  ardenix::ModuleState& state = ardenix::moduleState();
  const auto make = [&state](CCadWindow* first) {
    return std::make_unique<ardenix::survey::SectionalPlanJob>(first, state.services);
  };
  ardenix::Toolset& job = ardenix::toolsetUntilUnload(state.sectionalPlanJob, view, make);
  operation(static_cast<ardenix::survey::SectionalPlanJob&>(job));
}

#define MECHANICAL_ROW(name, caption, operation) {#name, CommandFamily::kMechanical, caption, false},
#define ARCHITECTURAL_ROW(name, caption, operation) {#name, CommandFamily::kArchitectural, caption, false},
#define SURVEY_ROW(name, caption, operation) {#name, CommandFamily::kSurvey, caption, true},
constexpr CommandRow kCommands[] = {MECHANICAL_COMMANDS(MECHANICAL_ROW) ARCHITECTURAL_COMMANDS(ARCHITECTURAL_ROW)
                                        SURVEY_SETUP_COMMANDS(SURVEY_ROW) SURVEY_TRACE_COMMANDS(SURVEY_ROW)
                                            SECTIONAL_SETUP_COMMANDS(SURVEY_ROW)};
#undef SURVEY_ROW
#undef ARCHITECTURAL_ROW
#undef MECHANICAL_ROW

}  // namespace

#define MECHANICAL_EXPORT(name, caption, operation) \
  ARDENIX_EXPORT void name() { runMechanical(operation); }
MECHANICAL_COMMANDS(MECHANICAL_EXPORT)
#undef MECHANICAL_EXPORT

#define ARCHITECTURAL_EXPORT(name, caption, operation) \
  ARDENIX_EXPORT void name() { runArchitectural(operation); }
ARCHITECTURAL_COMMANDS(ARCHITECTURAL_EXPORT)
#undef ARCHITECTURAL_EXPORT

#define SETUP_EXPORT(name, caption, operation) \
  ARDENIX_EXPORT void name(CCadWindow* view) { runSetup(operation, view); }
SURVEY_SETUP_COMMANDS(SETUP_EXPORT)
#undef SETUP_EXPORT

#define TRACE_EXPORT(name, caption, operation) \
  ARDENIX_EXPORT void name(CCadWindow* view) { runTracing(operation, view); }
SURVEY_TRACE_COMMANDS(TRACE_EXPORT)
#undef TRACE_EXPORT

#define SECTIONAL_EXPORT(name, caption, operation) \
  ARDENIX_EXPORT void name(CCadWindow* view) { runSectionalSetup(operation, view); }
SECTIONAL_SETUP_COMMANDS(SECTIONAL_EXPORT)
#undef SECTIONAL_EXPORT

ARDENIX_EXPORT const CommandRow* ardenixCommands(int* count) {
  *count = static_cast<int>(std::size(kCommands));
  return kCommands;
}

ARDENIX_EXPORT void InitArdenixAPI(CMDIFrameWnd* mainFrame, COXShortcutBar* shortcutBar) {
  ardenix::moduleState().initialise(mainFrame, shortcutBar);
}

ARDENIX_EXPORT const char* ardenixGetAppVersion() { return ardenix::moduleState().version(); }

#include <algorithm>
#include <cassert>

#include "frame/help.h"

namespace ardenix {

namespace {

// Page names as the help file spells them: the spellings are part of its format and stay.
constexpr HelpTopic kHelpTopics[] = {
    {"Architectural Setup", "Ardenix/Architectural_Tools/Dialogs/Architectural_Setup_Dialog.htm"},
    {"Building Standards Setup",
     "Ardenix/Architectural_Tools/Dialogs/Architectural_Setup_Dialog.htm#Building_Standards_Setup"},
    {"Elevation Setup", "Ardenix/Architectural_Tools/Dialogs/Elevation_Setup_Dialog.htm"},
    {"Roof Line Setup", "Ardenix/Architectural_Tools/Dialogs/Roof_Line_Setup_Dialog.htm"},
    {"Roof Setup", "Ardenix/Architectural_Tools/Dialogs/Roof_Setup_Dialog.htm"},
    {"Stairs Setup", "Ardenix/Architectural_Tools/Dialogs/Architectural_Setup_Dialog.htm"},
    {"Wall Setup (internal)", "Ardenix/Architectural_Tools/Dialogs/Wall_Setup_Dialog.htm#Internal_Wall_Setup_Dialog"},
    {"Wall Setup (external)", "Ardenix/Architectural_Tools/Dialogs/Wall_Setup_Dialog.htm#External_Wall_Setup_Dialog"},
    {"Cross Section Setup", "Ardenix/Architectural_Tools/Dialogs/Cross_Section_Setup_Dialog.htm"},
    {"Hex Bolts", "Ardenix/Mechanical_Tools/Dialogs/Bolt_Setup_Dialog.htm"},
    {"Socket Screws", "Ardenix/Mechanical_Tools/Dialogs/Screw_Setup_Dialog.htm"},
    {"Nuts", "Ardenix/Mechanical_Tools/Dialogs/Nut_Setup_Dialog.htm"},
    {"Drilled Holes", "Ardenix/Mechanical_Tools/Dialogs/Hole_Setup_Dialog.htm"},
    {"Rivets", "Ardenix/Mechanical_Tools/Dialogs/Rivet_Setup_Dialog.htm"},
    {"Flanges", "Ardenix/Mechanical_Tools/Dialogs/Flange_Setup_Dialog.htm"},
    {"Spur Gears", "Ardenix/Mechanical_Tools/Dialogs/Gear_Setup_Dialog.htm"},
    {"Links", "Ardenix/Mechanical_Tools/Dialogs/Link_Setup_Dialog.htm"},
    {"Shafts", "Ardenix/Mechanical_Tools/Dialogs/Shaft_Setup_Dialog.htm"},
    {"Weld Annotation", "Ardenix/Mechanical_Tools/Dialogs/Weld_Setup_Dialog.htm"},
    {"Rectangle to Round Duct", "Ardenix/Mechanical_Tools/Dialogs/Round_to_rect_Duct_Setup_dialog.htm"},
    {"Mechanical Setup", "Ardenix/Mechanical_Tools/Dialogs/Mechanical_Setup_Dialog.htm"},
    {"Annotation Setup", "Ardenix/Mechanical_Tools/Dialogs/Mechanical_Setup_Dialog.htm#Annotatio_Setup_Dialog"},
    {"Surface Finish", "Ardenix/Mechanical_Tools/Surface_Finish.htm"},
    {"Tolerance Annotation", "Ardenix/Mechanical_Tools/Tolerance.htm"},
    {"Table", "Ardenix/Mechanical_Tools/Dialogs/Mech_Table_Dialog.htm"},
    {"Coordinate Table", "Ardenix/Mechanical_Tools/Dialogs/Coord_Table_Dialog.htm"},
    {"Parts List", "Ardenix/Mechanical_Tools/Dialogs/Part_List_Dialog.htm"},
    {"Survey setup", "Ardenix/Survey_Tools/Dialogs/SG_Diagram_Options.htm"},
    {"Diagram Defaults", "Ardenix/Survey_Tools/SG_DIaram_Generation.htm"},
    {"General Plan Defaults", "Ardenix/Survey_Tools/General_Plan_Generation.htm"},
    {"Sectional Defaults", "Ardenix/Survey_Tools/Sectional_Plans/Default_Settings.htm"},
    {"General Plan Options", "Ardenix/Survey_Tools/Dialogs/GP_Options_Dialog.htm"},
    {"Multiple dimensioning", "Ardenix/Survey_Tools/Dialogs/MultipleDimensioningDlg.htm"},
    {"Insert section", "Ardenix/Survey_Tools/Dialogs/Insert_Section_Dialog.htm"},
    {"Notes", "Ardenix/Survey_Tools/Dialogs/Notes_Dialog.htm"},
    {"Section Manager", "Ardenix/Survey_Tools/Sectional_Plans/Sectional_Section_Manager.htm"},
    {"Sections", "Ardenix/Survey_Tools/Dialogs/Sections_Dialog.htm"},
    {"Area table", "Ardenix/Survey_Tools/General_Plan_Generation.htm#Area_Table"},
    {"Sectional Plans options", "Ardenix/Survey_Tools/Dialogs/Sectional_Plans_Options_Dialog.htm"},
    {"Text", "Ardenix/Survey_Tools/Dialogs/Text_Entry_Dialog.htm"},
    {"Control Coordinates", "Ardenix/Survey_Tools/Dialogs/National_coordinate_system_connections.htm"},
};

}  // namespace

const HelpTopic& helpTopic(std::string_view dialog) {
  const auto* row = std::ranges::find(kHelpTopics, dialog, &HelpTopic::dialog);
  assert(row != std::end(kHelpTopics));
  return *row;
}

}  // namespace ardenix

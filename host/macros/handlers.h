#pragma once

// What the macro commands do; one handler a row of the command table.
namespace brevan {

class MacroRun;

namespace macroHandlers {

// Groups and selection (group_commands.cpp)
void setParent(MacroRun& run);
void beginGroup(MacroRun& run);
void selectName(MacroRun& run);
void selectLayer(MacroRun& run);
void selectNew(MacroRun& run);
void clearSelection(MacroRun& run);
void clearWorkSpace(MacroRun& run);
void deleteSelection(MacroRun& run);
void linkSelection(MacroRun& run);
void newLayer(MacroRun& run);
void moveToLayer(MacroRun& run);
void copyToLayer(MacroRun& run);

// Moving what is selected (transform_commands.cpp)
void rotateByAngle(MacroRun& run);
void rotateOntoPoint(MacroRun& run);
void move(MacroRun& run);
void scale(MacroRun& run);
void mirrorAxis(MacroRun& run);
void mirrorLine(MacroRun& run);
void repeatLinear(MacroRun& run);
void repeatPolar(MacroRun& run);

// Cutting (snip_commands.cpp)
void snipRegion(MacroRun& run);
void snipPolygon(MacroRun& run);

// Rounding and arcs (fillet_commands.cpp)
void filletSides(MacroRun& run);
void filletCorner(MacroRun& run);
void arcOfThreePoints(MacroRun& run);
void arcOfTwoPoints(MacroRun& run);

// Boundaries (boundary_commands.cpp)
void tracePerimeter(MacroRun& run);
void queryBoundary(MacroRun& run);

// Hatching (hatch_commands.cpp)
void hatchPolygon(MacroRun& run);
void hatchInside(MacroRun& run);
void hatchSelection(MacroRun& run);

// Parallel lines (parallel_lines.cpp)
void defineParallels(MacroRun& run);
void drawParallels(MacroRun& run);
void drawParallelsFrom(MacroRun& run);

// The symbols of a face (enquiry_commands.cpp)
void symbolOnLine(MacroRun& run);

// Walls (wall_commands.cpp)
void joinSelectedWalls(MacroRun& run);

// Dimensions (dimension_commands.cpp)
void horizontalDimension(MacroRun& run);
void verticalDimension(MacroRun& run);

// Items at a point, patterns by name, switches (edit_commands.cpp)
void selectAt(MacroRun& run);
void editLine(MacroRun& run);
void renamePattern(MacroRun& run);
void startPolyline(MacroRun& run);
void clearCurrentObject(MacroRun& run);
void allLayers(MacroRun& run);
void showPowerBar(MacroRun& run);

// What is asked of the drawing and of the user (enquiry_commands.cpp)
void enquireNearLine(MacroRun& run);
void enquireCursor(MacroRun& run);
void enquireNearPattern(MacroRun& run);
void enquireNearSymbol(MacroRun& run);
void enquireLineDefinition(MacroRun& run);
void enquireScale(MacroRun& run);
void enquirePaper(MacroRun& run);
void enquireTextDefaults(MacroRun& run);
void enquireAreaUnits(MacroRun& run);
void enquireLockedAngle(MacroRun& run);
void queryElement(MacroRun& run);
void jumpNearLine(MacroRun& run);
void jumpNear(MacroRun& run);
void enterCoordinate(MacroRun& run);
void enterText(MacroRun& run);

// Symbols and inserted drawings (symbol_commands.cpp)
void loadSymbolFile(MacroRun& run);
void addSymbol(MacroRun& run);
// Placing them by hand (symbol_placing.cpp)
void defineSymbolPlacing(MacroRun& run);
void symbolPanel(MacroRun& run);
void insertDrawing(MacroRun& run);

// The sheet (sheet_commands.cpp)
void home(MacroRun& run);
void setPortrait(MacroRun& run);
void newScale(MacroRun& run);

// Style, cursor, undo (state_commands.cpp)
void setLineType(MacroRun& run);
void setWidth(MacroRun& run);
void unlockAngle(MacroRun& run);
void lockAngle(MacroRun& run);
void lockOntoLineAt(MacroRun& run);
void lockOntoLine(MacroRun& run);
void lockSquare(MacroRun& run);
void toggleHold(MacroRun& run);
void cursorMode(MacroRun& run);
void bracketUndo(MacroRun& run);

}  // namespace macroHandlers
}  // namespace brevan

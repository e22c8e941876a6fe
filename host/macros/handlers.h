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

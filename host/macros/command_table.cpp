#include <array>

#include "host/macros/command.h"
#include "host/macros/handlers.h"

namespace brevan {

using namespace macroHandlers;

std::span<const CommandForm> commandForms() {
  static constexpr std::array kForms = std::to_array<CommandForm>({
      {"PARENT", "text", setParent, "the category of the groups that follow"},
      {"STARTPAT", "text", beginGroup, "opens a group for what is drawn next"},
      {"BEGINGROUP", "text", beginGroup, "opens a group for what is drawn next"},
      {"SELECTNAME", "text", selectName, "selects the newest group \"PARENT NAME\""},
      {"SELECTLAYER", "text", selectLayer, "selects what lies on a layer"},
      {"SELECTNEW", "count", selectNew, "1: what is drawn joins the selection, from an empty one; 0: no longer"},
      {"CLEARSEL", "", clearSelection, "empties the selection"},
      {"CLEARWS", "", clearWorkSpace, "clears the temporary marks"},
      {"DELSELECT", "", deleteSelection, "deletes the selection"},
      {"LINKSEL", "text", linkSelection, "makes the selection one group of this name"},
      {"NEWLAYER", "text", newLayer, "makes a layer, or makes it current"},
      {"WSNEWLAY", "text", moveToLayer, "moves the selection to a layer"},
      {"COPYTOLAYER", "text", copyToLayer, "copies the selection to a layer"},
      {"ROTATE", "point =Y number", rotateByAngle, "turns the selection about a point by degrees"},
      {"ROTATE", "point =N point point", rotateOntoPoint, "turns the direction to one point into that to another"},
      {"MOVE", "point point", move, "moves the selection from one point to another"},
      {"SCALE", "point =N number number", scale, "scales the selection about a point along x and y"},
      {"MIRROR", "point flag:YN flag:YN", mirrorAxis, "mirrors left-right (Y) or up-down (N); Y keeps the original"},
      {"MIRROR", "point =A point flag:YN", mirrorLine, "mirrors about the line of two points; Y keeps the original"},
      {"REPEAT", "count =Y point point", repeatLinear, "adds copies, each displaced by the vector of two points"},
      {"REPEAT", "count =N point number", repeatPolar, "adds copies, each turned about a point by degrees"},
      {"LINETYPE", "count count", setLineType, "the current line type and pen"},
      {"WIDTH", "number", setWidth, "the current line width in tenths of a millimetre"},
      {"LOCKANG", "=U", unlockAngle, "frees the cursor"},
      {"LOCKANG", "=K number", lockAngle, "locks the cursor at an angle and square to it"},
      {"LOCKANG", "=L point", lockOntoLineAt, "locks the cursor onto the line at a point"},
      {"LOCKANG", "=L", lockOntoLine, "locks the cursor onto the line at the cursor"},
      {"YPERP", "", lockSquare, "turns the lock square to its line"},
      {"CURSORHOLD", "", toggleHold, "holds the cursor where it is, or releases it"},
      {"CURMODE", "flag:AF", cursorMode, "A snaps to what is near, F is free"},
      {"SETMACUNDO", "count", bracketUndo, "1 opens a step of undo, 0 closes it"},
  });
  return kForms;
}

}  // namespace brevan

#pragma once

#include "survey/plan/sheet_tool.h"

// The commands of general plans.
namespace ardenix::survey {

// Loads the title block in the middle of what is seen, which gets a paper that fits it, and asks for its texts.
void insertBorder(SheetTool& tool);
void insertHeading(SheetTool& tool);

// The township's outside figure, traced corner by corner, and the table of its sides.
void traceArea(SheetTool& tool);
// Numbers erven, and lists them with their areas.
void makeAreaTable(SheetTool& tool);
void makeBlockTable(SheetTool& tool);
void makeReferenceMarkTable(SheetTool& tool);
void makeBeaconTable(SheetTool& tool);
void makeTownMarkTable(SheetTool& tool);

// Survey dimensions: of lines between two points, of sides of one erf, of all sides of many erven; and the texts of one
// to the other side of its line.
void dimensionLines(SheetTool& tool);
void dimensionErf(SheetTool& tool);
void dimensionErven(SheetTool& tool);
void swapDimensions(SheetTool& tool);

}  // namespace ardenix::survey

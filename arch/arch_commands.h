#pragma once

namespace ardenix::arch {

class ArchToolset;

// The architectural commands.
void displayArchSetup(ArchToolset& toolset);
void placeSymbols(ArchToolset& toolset);
void setWalls(ArchToolset& toolset);
void drawWalls(ArchToolset& toolset);
void setElevations(ArchToolset& toolset);
void drawElevations(ArchToolset& toolset);
void setRoofLine(ArchToolset& toolset);
void drawRoofLine(ArchToolset& toolset);
void setRoofs(ArchToolset& toolset);
void drawRoofs(ArchToolset& toolset);
void setStairs(ArchToolset& toolset);
void drawStairs(ArchToolset& toolset);
void setSections(ArchToolset& toolset);
void drawSections(ArchToolset& toolset);

}  // namespace ardenix::arch

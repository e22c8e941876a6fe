#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/geometry/curve.h"

namespace brevan {

class BoundaryMap;

// One line of a set of parallel lines.
struct ParallelLine {
  int linetype = 1;
  int pen = 1;
  double width = 0.0;   // tenths of a millimetre on paper
  double offset = 0.0;  // from the reference line, above 0 to the right of travel
};

struct ParallelDefinition {
  bool tracks = false;       // follows a figure that is there, instead of points given
  double startAngle = 90.0;  // degrees between travel and the closed start or end; 90 is square
  double endAngle = 90.0;
  bool closesEnds = false;
  bool roundsCorners = false;
  std::vector<ParallelLine> lines;
};

// The boundary traced last; without curves nothing was found.
struct TracedBoundary {
  std::vector<Curve> loop;
};

// Symbols by name, with the definitions that they need.
using SymbolTable = std::map<std::string, SymbolDefinition, std::less<>>;

// The symbol file that a window loaded last, as it was then.
struct LoadedSymbols {
  std::shared_ptr<const Drawing> file;
  std::string path;  // as the macro names it
  bool paperSize = false;
  bool everywhere = false;
  friend bool operator==(const LoadedSymbols&, const LoadedSymbols&) = default;
};

// How symbols are placed by hand.
struct SymbolPlacing {
  bool snapsToWalls = false;
  bool cutsWalls = false;               // by openings that stand in them
  std::vector<std::string> wallLayers;  // in any case
};

// The paper that a command asked for and left to the host to choose.
struct AutomaticPaper {
  bool wanted = false;
  bool portrait = false;
  std::optional<Point> centre;
};

// The middle of what the view shows.
struct SeenPlace {
  Point centre;
  bool byUser = false;  // who brought it there, not a command
};

// What macro commands leave for later ones in a window.
struct MacroState {
  MacroState();
  ~MacroState();
  MacroState(const MacroState&) = delete;
  MacroState& operator=(const MacroState&) = delete;

  std::optional<ParallelDefinition> parallels;
  TracedBoundary boundary;
  std::unique_ptr<BoundaryMap> boundaries;  // made at the first tracing
  SymbolTable symbols;                      // of the symbol files loaded into this window
  LoadedSymbols loaded;
  std::vector<std::string> panel;  // the names of the file loaded last
  SymbolPlacing placing;           // of the next placing alone
  bool allLayers = false;          // of the user's own selecting
  bool promptsForPerimeter = false;
  bool powerBar = true;
  AutomaticPaper paper;
  std::optional<SeenPlace> seen;  // nothing while nobody has looked at a part of the drawing
};

}  // namespace brevan

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/line_style.h"
#include "frame/drafting/point.h"

// The macro commands that the module sends to the host, one function a form. Points and angles go out with eight
// decimals where no number of decimals is given; angles are degrees, counter-clockwise. Names are quoted so that no
// text can end its quotes.
namespace ardenix::macroText {

inline constexpr std::string_view kRootParent = "#PARENT \"A\"";
inline constexpr std::string_view kNextPattern = "#STARTPAT \"P1\"";
inline constexpr std::string_view kUnnamedPattern = "#STARTPAT \"_\"";
inline constexpr std::string_view kFreeAngle = "#LOCKANG \"U\"";
// What is drawn between the two joins the selection.
inline constexpr std::string_view kSelectNew = "#SELECTNEW 1";
inline constexpr std::string_view kSelectNewEnd = "#SELECTNEW 0";
// The same without the mark, which the host takes alike; other programs wait for either spelling.
inline constexpr std::string_view kSelectNewPlain = "SELECTNEW 1";
inline constexpr std::string_view kSelectNewPlainEnd = "SELECTNEW 0";
// What happens between the two is one step of undo.
inline constexpr std::string_view kUndoStep = "SETMACUNDO 1";
inline constexpr std::string_view kUndoStepEnd = "SETMACUNDO 0";

// Deletes the selection.
inline constexpr std::string_view kDeleteSelection = "#DELSELECT";
inline constexpr std::string_view kClearCurrent = "#CLEARCURROBJ";
inline constexpr std::string_view kClearWorkSpace = "#CLEARWS";
inline constexpr std::string_view kShowPowerBar = "SHOWPOWERBAR";
// Trusses send these two without the mark.
inline constexpr std::string_view kPlainClearSelection = "CLEARSEL";
inline constexpr std::string_view kTrussGroup = "BEGINGROUP \"TRUSS\"";
inline constexpr std::string_view kClearSelection = "#CLEARSEL";
// The cursor, held, runs level and plumb; and runs free again.
inline constexpr std::string_view kLockAxes = "#LOCKANG \"K\" 90";
inline constexpr std::string_view kFreeAxes = "#LOCKANG U";
// Leaves the user's own selecting to the current layer.
inline constexpr std::string_view kAllLayersOff = "ALLLAYER \"N\"";
inline constexpr std::string_view kThisLayerOnly = "#ALLLAYER \"N\"";  // the same, as circles of beacons send it
inline constexpr std::string_view kAllLayersOn = "ALLLAYER \"Y\"";
// The cursor snaps to what is near, or to nothing.
inline constexpr std::string_view kSnapNear = "#curmode \"A\"";
inline constexpr std::string_view kSnapFree = "#curmode \"F\"";
// The same without the mark, as architectural commands send it.
inline constexpr std::string_view kFreeCursor = "curmode \"F\"";
// Moves the cursor onto the line near it; locks it onto that line; turns the lock square to it; holds the cursor where
// it is, or releases it; frees it.
inline constexpr std::string_view kJumpToLine = "jumpnear \"L\"";
inline constexpr std::string_view kJumpNearest = "jumpnear \"N\"";
inline constexpr std::string_view kLockOntoCursorLine = "lockang \"L\"[#]";
inline constexpr std::string_view kLockSquare = "yperp";
inline constexpr std::string_view kToggleHold = "cursorhold";
inline constexpr std::string_view kUnlock = "lockang \"U\"";
// What lies at the cursor: the line, the pattern; and where the cursor is.
inline constexpr std::string_view kNearLine = "enquire \"NEARLINE\" X1 Y1 X2 Y2 pen linetype";
inline constexpr std::string_view kNearPattern = "ENQUIRE \"NEARPATNAME\" pat$ xl yl xr yr";
// Tells of the symbol near the cursor; its extent is that of the symbol unturned at the origin.
inline constexpr std::string_view kNearSymbol = "ENQUIRE \"NEARSYMBOL\" pat$ xs ys scale angle xl yl xr yr";
inline constexpr std::string_view kCursorPosition = "enquire \"CURPOSN\" xf yf";
// Brings the cursor to the middle of the paper.
inline constexpr std::string_view kHome = "#HOME";
// Brings the cursor onto what is near.
inline constexpr std::string_view kJumpNear = "#JUMPNEAR";
inline constexpr std::string_view kPortrait = "#SETPORTRAIT 1";
inline constexpr std::string_view kLandscape = "#SETPORTRAIT 0";
inline constexpr std::string_view kPolyline = "#POLY";
inline constexpr std::string_view kPlainLine = "#LINETYPE 1 1";
inline constexpr std::string_view kNoWidth = "#WIDTH 0";

std::string parent(std::string_view name);
std::string beginGroup(std::string_view name);
std::string selectName(std::string_view parent, std::string_view group);
// The same by both in one, as the host tells a pattern; and gives one another's name.
std::string selectPattern(std::string_view pattern);
std::string renamePattern(std::string_view pattern, std::string_view name);
std::string linkSelection(std::string_view group);
// The same without the closing quote, for which scripts of these parts wait. The name holds no quote itself.
std::string linkSelectionOpen(std::string_view group);
// Gives the symbol placed last, under whatever parent, to a group.
std::string takeSymbolInto(std::string_view symbol, std::string_view parent, std::string_view group);
std::string selectLayer(std::string_view layer);
std::string select(Point at);
std::string moveToLayer(std::string_view layer);
std::string copyToLayer(std::string_view layer);
// Makes a layer current, a new one where there is none of the name.
std::string newLayer(std::string_view layer);
// The same without the mark.
std::string plainNewLayer(std::string_view layer);

// The style of what is drawn next; the width in tenths of a millimetre on paper.
std::string lineType(int linetype, int pen);
std::string width(double width);
std::string exactWidth(double width);  // with eight decimals
// Continuous lines in a pen.
std::string plainLine(int pen);
// Gives the line at a point another style; the width with three decimals, like the point.
std::string editLine(Point at, const LineStyle& style);

// Turns the selection about `centre`: by an angle, or so that the direction to `from` becomes the
// direction to `onto`.
std::string rotate(Point centre, double angle);
std::string rotateOnto(Point centre, Point from, Point onto);
std::string move(Point from, Point to);
// Mirrors the selection about a level line through a point, or the line of two points; the original stays.
std::string mirrorUpDown(Point centre);
std::string mirrorAcross(Point first, Point second);
// The same about the line of two points; the original goes.
std::string turnOverAcross(Point first, Point second);
// Adds copies of the selection, each displaced by the vector from -> to, or turned about `centre` by the
// angle.
std::string repeatLinear(int copies, Point from, Point to);
// The same without the closing mark, as stairs send it.
std::string repeatSteps(int copies, Point from, Point to);
std::string repeatPolar(int copies, Point centre, double angle);
// Round a gear, with the blanks that its macros have had from the start.
std::string repeatTeeth(int copies, Point centre, double angle);
// Two copies, so that there are three at 120 degrees.
std::string repeatByThirds(Point centre);

// The same text without the mark at its start, which the host takes alike.
std::string plain(std::string_view macro);
// Selects a group by its name; the quotes are closed by the end of the line.
std::string selectNameUnclosed(std::string_view parent, std::string_view group);

// Rounds the corner of two sides, each named by a point on it, or the corner nearest a point.
std::string filletSides(double radius, Point first, Point second);
std::string filletCorner(double radius, Point near);
std::string filletFlank(double radius, Point near);  // of a gear's tooth

// An arc through three points; from one point to another, the short way, clockwise for a radius above 0.
std::string arcThrough(Point first, Point second, Point third);
std::string arcOfRadius(Point from, Point to, double radius);

// Mirrors the selection about the vertical line through a point, or about the horizontal one; nothing is kept.
std::string turnOverSideways(Point axis);
std::string turnOverUpDown(Point axis);
// About the vertical line through a point, keeping the original; the point with five decimals.
std::string mirrorKeeping(Point axis);

// Removes what the selection, or else the drawing, has inside the window between two corners.
std::string cutOut(Point corner, Point opposite);
// As above with three decimals: removes what lies outside a window, or inside a circle, whose outline is then drawn.
std::string cutAround(Point corner, Point opposite);
std::string cutCircle(Point centre, Point onCircle);
// Removes what lies inside a window, whose outline is then drawn.
std::string cutWindow(Point corner, Point opposite);
// Removes what lies outside a polygon; its corners go out with one decimal.
std::string cutAroundPolygon(std::span<const Point> corners);
// Enlarges the selection from a point; three decimals, or eight.
std::string scale(Point from, double across, double up);
std::string scaleExact(Point from, double across, double up);

// Dimensions of what is measured: where the line lies, then the two points; three decimals. Level ones can be given
// from the point that the user gave last.
std::string levelDimension(Point line, Point first, Point second);
std::string levelDimensionFromHere(Point line, Point first, Point second);
std::string uprightDimension(Point line, Point first, Point second);

// Places a symbol of a loaded file at its own size, unturned. The name goes out as it is, without quotes; the point
// with three decimals.
std::string addSymbol(std::string_view name, Point at);
// Places a symbol at a scale, turned by degrees. The coarse form goes out with three decimals and unturned, the turned
// one with five.
std::string placeSymbol(std::string_view name, Point at, double scale, int rotation);
std::string placeSymbolCoarse(std::string_view name, Point at, double scale);
std::string placeSymbolTurned(std::string_view name, Point at, double scale, double rotation);
// Loads a symbol file whose symbols are millimetres on paper and serve in this window.
std::string annotationSymbols(std::string_view path);
// Places a symbol turned by degrees; the name is quoted.
std::string addTurnedSymbol(std::string_view name, Point at, double angle);
// The same for the symbol that macro variable SYM$ names.
std::string addNamedSymbol(Point at);
// Loads a symbol file whose symbols have their real size and serve in this window.
std::string realSymbols(std::string_view path);
// The same for every window.
std::string sharedSymbols(std::string_view path);
// Opens the walls selected to those that they meet on these layers.
std::string joinWalls(const std::vector<std::string>& layers);
// How the next symbols are placed by hand: whether they snap to walls and openings cut these, and the walls' layers.
struct SymbolPlacing {
  bool snapsToWalls = false;
  bool cutsWalls = false;
  std::vector<std::string> wallLayers{};
};
std::string symbolPlacing(const SymbolPlacing& placing);
// Lets the user place symbols of the file loaded last.
inline constexpr std::string_view kPlaceSymbols = "SYMBOL";
// Loads a symbol file whose symbols are millimetres on paper and serve in every window.
std::string paperSymbols(std::string_view path);
// Inserts a drawing at its own size, unturned; the point with five decimals.
std::string load(std::string_view path, Point at);
// Sets the paper to the scale in macro variable S, its middle at a point; three decimals.
std::string newScale(Point middle);

// Lines drawn beside a path: how its ends and corners are made, and the lines with their offsets in drawing units,
// above 0 to the right of travel.
struct ParallelLines {
  struct Line {
    LineStyle style;
    double offset;
  };
  bool traces = false;      // follows the outline at a point, else the points given
  double startAngle = 0.0;  // degrees between the path and the end of the lines
  double endAngle = 0.0;
  bool closesEnds = false;
  bool roundsCorners = false;
  std::vector<Line> lines{};
};
std::string parallelLines(const ParallelLines& definition);
// One line that follows a closed figure, to the left of it where the offset is below 0.
std::string parallelToFigure(const LineStyle& style, double offset);
// Starts parallel lines by the definition given before; the point with five decimals. Without one the host asks for it.
inline constexpr std::string_view kParallelLine = "PARLLINE";
std::string parallelLine(Point first);

// Asks for a text and keeps it in a macro variable, whose present value is offered. The gap before the variable, here
// and below, is a blank or a tab; the host takes either.
inline constexpr std::string_view kEnterDiameters =
    "#ENTER \"Enter circle diameters with spaces between (enter nothing to stop)\"  cirDiamStr$";
std::string enter(std::string_view prompt, std::string_view variable, char gap = ' ');
// The same without the mark, as the numbers of a general plan are asked for, with a gap of one tab or more.
std::string plainEnter(std::string_view prompt, std::string_view variable, std::string_view gap);
// Puts what the host knows of a thing into macro variables, named with blanks between them.
std::string enquire(std::string_view what, std::string_view variables, char gap = ' ');
// The style of what is drawn next: line type, pen and width in L, P and W.
inline constexpr std::string_view kEnquireLineSettings = "ENQUIRE \"LINEDEF\" L P W C S F R G B";

// What lies at a point: A$ tells its kind and, of a symbol, the file and the name.
std::string queryElement(Point at);
// The n-th symbol that stands on the line of two points: how many there are, and a point in the middle of it.
std::string symbolOnLine(Point first, Point second, int number);
// Brings the cursor to a point as if it were typed.
std::string cursorTo(Point at);
// Locks the cursor at an angle, or to the line at a point.
std::string lockAngle(double angle);
std::string lockOntoLine(Point at);
// The same with three decimals.
std::string lockOntoPickedLine(Point at);

// Fills the area of these corners with one of the host's patterns.
std::string hatch(std::string_view pattern, double scale, std::span<const Point> corners);

// Tells of the boundary found last: its area in A1, in units of area in A9, and a point inside in X3 and Y3.
inline constexpr std::string_view kQueryBoundary = "#QRYAREAPERIM A1 A9 X3 Y3";

// Draws the smallest closed boundary round a point as lines; three decimals.
std::string drawBoundary(Point inside);

}  // namespace ardenix::macroText

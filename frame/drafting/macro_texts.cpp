#include "frame/drafting/macro_texts.h"

#include "frame/host/macro_quote.h"
#include "frame/host/number_text.h"

namespace ardenix::macroText {

using numberText::format;

std::string parent(std::string_view name) { return format("#PARENT %s", quotedForMacro(name)); }

std::string beginGroup(std::string_view name) { return format("#BEGINGROUP %s", quotedForMacro(name)); }

std::string selectName(std::string_view parent, std::string_view group) {
  return format("#SELECTNAME %s", quotedForMacro(format("%s %s", parent, group)));
}

std::string selectPattern(std::string_view pattern) { return format("#SELECTNAME %s", quotedForMacro(pattern)); }

std::string renamePattern(std::string_view pattern, std::string_view name) {
  return format("#RENAMPAT %s %s [#]", quotedForMacro(pattern), quotedForMacro(name));
}

std::string linkSelection(std::string_view group) { return format("#LINKSEL %s", quotedForMacro(group)); }

std::string linkSelectionOpen(std::string_view group) { return format("#LINKSEL \"%s", group); }

std::string takeSymbolInto(std::string_view symbol, std::string_view parent, std::string_view group) {
  return format("#RENAMPAT \"* %s\" %s [#]", symbol, quotedForMacro(format("%s %s", parent, group)));
}

std::string selectLayer(std::string_view layer) { return format("#SELECTLAYER %s", quotedForMacro(layer)); }

std::string select(Point at) { return format("SELECT [%.8f,%.8f] [#]", at.x, at.y); }

std::string moveToLayer(std::string_view layer) { return format("#WSNEWLAY %s", quotedForMacro(layer)); }

std::string copyToLayer(std::string_view layer) { return format("#COPYTOLAYER %s", quotedForMacro(layer)); }

std::string newLayer(std::string_view layer) { return format("#NEWLAYER %s", quotedForMacro(layer)); }

std::string plainNewLayer(std::string_view layer) { return format("NEWLAYER %s", quotedForMacro(layer)); }

std::string lineType(int linetype, int pen) { return format("LINETYPE %d %d", linetype, pen); }

std::string plainLine(int pen) { return format("#LINETYPE 1 %d", pen); }

std::string width(double width) { return format("WIDTH %f", width); }

std::string exactWidth(double width) { return format("WIDTH %.8f", width); }

std::string editLine(Point at, const LineStyle& style) {
  return format("#EDITLP \"N\" [%.3f,%.3f] %d %d %.3f [#]", at.x, at.y, style.linetype, style.pen, style.width);
}

std::string rotate(Point centre, double angle) {
  return format("#ROTATE [%.8f,%.8f] \"Y\" %.8f [#]", centre.x, centre.y, angle);
}

std::string rotateOnto(Point centre, Point from, Point onto) {
  return format("#ROTATE [%.8f,%.8f] \"N\" [%.8f,%.8f] [%.8f,%.8f] [#]", centre.x, centre.y, from.x, from.y, onto.x,
                onto.y);
}

std::string move(Point from, Point to) { return format("#MOVE [%.8f,%.8f] [%.8f,%.8f]", from.x, from.y, to.x, to.y); }

std::string mirrorUpDown(Point centre) { return format("#MIRROR [%.8f,%.8f] \"N\" \"Y\"", centre.x, centre.y); }

std::string turnOverAcross(Point first, Point second) {
  return format("#MIRROR [%.8f,%.8f] \"A\" [%.8f,%.8f] \"N\"", first.x, first.y, second.x, second.y);
}

std::string mirrorAcross(Point first, Point second) {
  return format("#MIRROR [%.8f,%.8f] \"A\" [%.8f,%.8f] \"Y\"", first.x, first.y, second.x, second.y);
}

std::string repeatLinear(int copies, Point from, Point to) {
  return format("#REPEAT %d \"Y\" [%.8f,%.8f] [%.8f,%.8f] [#]", copies, from.x, from.y, to.x, to.y);
}

std::string repeatSteps(int copies, Point from, Point to) {
  return format("#REPEAT %d \"Y\" [%.8f,%.8f] [%.8f,%.8f]", copies, from.x, from.y, to.x, to.y);
}

std::string repeatPolar(int copies, Point centre, double angle) {
  return format("#REPEAT %d \"N\" [%.8f,%.8f] %.8f", copies, centre.x, centre.y, angle);
}

std::string repeatTeeth(int copies, Point centre, double angle) {
  return format("#REPEAT %d \"N\"  [%.8f,%.8f]  %.8f", copies, centre.x, centre.y, angle);
}

std::string repeatByThirds(Point centre) { return format("#REPEAT 2 \"N\" [%.8f,%.8f] 120", centre.x, centre.y); }

std::string plain(std::string_view macro) { return std::string(macro.substr(macro.starts_with('#') ? 1 : 0)); }

std::string selectNameUnclosed(std::string_view parent, std::string_view group) {
  return format("#SELECTNAME \"%s %s", parent, group);
}

std::string filletSides(double radius, Point first, Point second) {
  return format("#FILLET 2 \"Y\" %.8f [%.8f,%.8f] [%.8f,%.8f] [#]", radius, first.x, first.y, second.x, second.y);
}

std::string filletCorner(double radius, Point near) {
  return format("FILLET 2 \"N\" %.8f [%.8f,%.8f] [#]", radius, near.x, near.y);
}

std::string filletFlank(double radius, Point near) {
  return format("FILLET 2 \"N\" %.8f [%.8f,%.8f]  [#]", radius, near.x, near.y);
}

std::string arcThrough(Point first, Point second, Point third) {
  return format("ARC [%.8f,%.8f] [%.8f,%.8f] [%.8f,%.8f] [#]", first.x, first.y, second.x, second.y, third.x, third.y);
}

std::string arcOfRadius(Point from, Point to, double radius) {
  return format("ARCR [%.8f,%.8f] [%.8f,%.8f] %.8f [#]", from.x, from.y, to.x, to.y, radius);
}

std::string turnOverSideways(Point axis) { return format("#MIRROR [%.8f,%.8f] \"Y\" \"N\"", axis.x, axis.y); }

std::string turnOverUpDown(Point axis) { return format("#MIRROR [%.8f,%.8f] \"N\" \"N\"", axis.x, axis.y); }

std::string mirrorKeeping(Point axis) { return format("MIRROR [%.5f,%.5f] \"Y\" \"Y\"", axis.x, axis.y); }

std::string cutOut(Point corner, Point opposite) {
  return format("#SNIP \"Y\" \"Y\" \"N\" [%.8f,%.8f] [%.8f,%.8f] [#]", corner.x, corner.y, opposite.x, opposite.y);
}

std::string cutAround(Point corner, Point opposite) {
  return format("#SNIP \"Y\" \"N\" \"N\" [%.3f,%.3f] [%.3f,%.3f] [#]", corner.x, corner.y, opposite.x, opposite.y);
}

std::string cutWindow(Point corner, Point opposite) {
  return format("SNIP \"Y\" \"Y\" \"Y\" [%.3f,%.3f] [%.3f,%.3f] [#]", corner.x, corner.y, opposite.x, opposite.y);
}

std::string cutCircle(Point centre, Point onCircle) {
  return format("#SNIP \"N\" \"Y\" \"Y\" [%.3f,%.3f] [%.3f,%.3f] [#]", centre.x, centre.y, onCircle.x, onCircle.y);
}

std::string cutAroundPolygon(std::span<const Point> corners) {
  std::string command = "#POLYSNIP \"N\" \"N\"  ";
  for (const Point corner : corners) { command += format("[%.1f,%.1f] ", corner.x, corner.y); }
  return command + "[#] ";
}

std::string scale(Point from, double across, double up) {
  return format("#SCALE [%.3f,%.3f] \"N\" %.3f %.3f", from.x, from.y, across, up);
}

std::string scaleExact(Point from, double across, double up) {
  return format("#SCALE [%.8f,%.8f] \"N\" %.8f %.8f", from.x, from.y, across, up);
}

std::string levelDimension(Point line, Point first, Point second) {
  return format("#HDIM \"F\" [%.3f,%.3f] [%.3f,%.3f] [%.3f,%.3f] ! [#]", line.x, line.y, first.x, first.y, second.x,
                second.y);
}

std::string levelDimensionFromHere(Point line, Point first, Point second) {
  return format("#HDIM \"F\" [@%.3f,%.3f] [@%.3f,%.3f] [@%.3f,%.3f] ! [#]", line.x, line.y, first.x, first.y, second.x,
                second.y);
}

std::string uprightDimension(Point line, Point first, Point second) {
  return format("#VDIM \"F\" [%.3f,%.3f] [%.3f,%.3f] [%.3f,%.3f] ! [#]", line.x, line.y, first.x, first.y, second.x,
                second.y);
}

std::string hatch(std::string_view pattern, double scale, std::span<const Point> corners) {
  std::string macro = format("#HATCH \"P\" \"%s\" %.3f 0", pattern, scale);
  for (const Point corner : corners) { macro += format(" [%.3f,%.3f]", corner.x, corner.y); }
  return macro + " [#]";
}

std::string addSymbol(std::string_view name, Point at) {
  return format("#ADDSYM %s [%.3f,%.3f] 1 0", name, at.x, at.y);
}

std::string placeSymbol(std::string_view name, Point at, double scale, int rotation) {
  return format("#ADDSYM \"%s\" [%.8f,%.8f] %.8f %d", name, at.x, at.y, scale, rotation);
}

std::string placeSymbolCoarse(std::string_view name, Point at, double scale) {
  return format("#ADDSYM \"%s\" [%.3f,%.3f] %.3f %d", name, at.x, at.y, scale, 0);
}

std::string placeSymbolTurned(std::string_view name, Point at, double scale, double rotation) {
  return format("#ADDSYM \"%s\" [%.5f,%.5f] %.5f %.5f", name, at.x, at.y, scale, rotation);
}

std::string annotationSymbols(std::string_view path) {
  return format("#NEWSYMFL %s \"Y\" \"N\"", quotedForMacro(path));
}

std::string addTurnedSymbol(std::string_view name, Point at, double angle) {
  return format("ADDSYM %s [%.3f,%.3f] 1 %.5f", quotedForMacro(name), at.x, at.y, angle);
}

std::string realSymbols(std::string_view path) { return format("NEWSYMFL %s \"N\" \"N\"", quotedForMacro(path)); }

std::string addNamedSymbol(Point at) { return addSymbol("SYM$", at); }

std::string sharedSymbols(std::string_view path) { return format("NEWSYMFL %s \"N\" \"Y\"", quotedForMacro(path)); }

namespace {

std::string withNames(std::string macro, const std::vector<std::string>& names) {
  for (const std::string& name : names) { macro.append(" ").append(quotedForMacro(name)); }
  return macro;
}

}  // namespace

std::string joinWalls(const std::vector<std::string>& layers) { return withNames("#JOINWALLS", layers); }

std::string symbolPlacing(const SymbolPlacing& placing) {
  return withNames(format("SYMDEF %d %d", placing.snapsToWalls ? 1 : 0, placing.cutsWalls ? 1 : 0), placing.wallLayers);
}

std::string paperSymbols(std::string_view path) { return format("NEWSYMFL %s \"Y\" \"Y\"", quotedForMacro(path)); }

std::string load(std::string_view path, Point at) {
  return format("#LOAD %s [%.5f, %.5f] 1 0", quotedForMacro(path), at.x, at.y);
}

std::string newScale(Point middle) { return format("#NEWSCALE 14 S [%.3f,%.3f]", middle.x, middle.y); }

std::string parallelLines(const ParallelLines& definition) {
  std::string text = format("PARLLDEF %d %.2f %.2f 1 %d %d %d ", definition.traces ? 0 : 1, definition.startAngle,
                            definition.endAngle, definition.closesEnds ? 1 : 0, definition.roundsCorners ? 1 : 0,
                            static_cast<int>(definition.lines.size()));
  for (const auto& [style, offset] : definition.lines) {
    text += format("%d %d %f %f ", style.linetype, style.pen, style.width, offset);
  }
  return text;
}

std::string parallelToFigure(const LineStyle& style, double offset) {
  return format("PARLLDEF 0 90 90 1 0 0 1 %d %d 0 %f", style.linetype, style.pen, offset);
}

std::string parallelLine(Point first) { return format("PARLLINE [%.5f,%.5f]", first.x, first.y); }

std::string enter(std::string_view prompt, std::string_view variable, char gap) {
  return ("#ENTER " + quotedForMacro(prompt) + gap).append(variable);
}

std::string plainEnter(std::string_view prompt, std::string_view variable, std::string_view gap) {
  return ("ENTER " + quotedForMacro(prompt)).append(gap).append(variable);
}

std::string enquire(std::string_view what, std::string_view variables, char gap) {
  return ("#ENQUIRE " + quotedForMacro(what) + gap).append(variables);
}

std::string symbolOnLine(Point first, Point second, int number) {
  return format("SYMBOLON [%.8f,%.8f] [%.8f,%.8f] %d count xs ys", first.x, first.y, second.x, second.y, number);
}

std::string queryElement(Point at) { return format("QUERYEL [%.3f,%.3f] A$ B$ C$ [#]", at.x, at.y); }

std::string cursorTo(Point at) { return format("curtocoordenter %.5f %.5f", at.x, at.y); }

std::string lockAngle(double angle) { return format("#LOCKANG \"K\" %.8f [#]", angle); }

std::string lockOntoLine(Point at) { return format("#LOCKANG L [%.8f,%.8f]", at.x, at.y); }

std::string lockOntoPickedLine(Point at) { return format("#LOCKANG \"L\" [%.3f,%.3f]", at.x, at.y); }

std::string drawBoundary(Point inside) { return format("#AUTOPERIM 0 [%.3f,%.3f]", inside.x, inside.y); }

}  // namespace ardenix::macroText

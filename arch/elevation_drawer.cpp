#include "arch/elevation_drawer.h"

#include <algorithm>

#include "arch/arch_part.h"
#include "arch/elevation_texts.h"
#include "arch/symbol_folder.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/names.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kFacePrompt = "Indicate face on plan for adding elevation (else spacebar to exit)";
constexpr std::string_view kEavesPrompt = "Enter roof line position of elevation (else spacebar to exit)";
constexpr std::string_view kOpeningPrompt = "Select window/door to go to elevation (else spacebar to end selection)";
constexpr std::string_view kWallPrompt = "Select outside wall for elevation (else spacebar to end selection)";

constexpr std::string_view kEavesKey = "EavesHeight";
constexpr std::string_view kHeadKey = "WinDoorHeight";
constexpr std::string_view kNamesKey = "NameUnder";
constexpr std::string_view kLevelsKey = "LevelMarks";
constexpr std::string_view kWholeFacesKey = "WholeFace";
constexpr std::string_view kReplacesKey = "DrawInPlace";
constexpr std::string_view kGroundKey = "GroundBeyond";

}  // namespace

// ---- Settings -----------------------------------------------------------------------------------------------

ElevationDrawer::ElevationDrawer(ArchSpecStore& store) : store_(store), view_(store.view()) {
  readViewSettings(store, kElevationSection, settings);
  settings.eavesHeight = store.readDouble(kElevationSection, kEavesKey, settings.eavesHeight);
  settings.headHeight = store.readDouble(kElevationSection, kHeadKey, settings.headHeight);
  const auto isOn = [&store](std::string_view key) { return store.readInt(kElevationSection, key) != 0; };
  settings.names = isOn(kNamesKey);
  settings.levels = isOn(kLevelsKey);
  settings.wholeFaces = isOn(kWholeFacesKey);
  settings.replaces = isOn(kReplacesKey);
  settings.groundBeyond = store.readDouble(kElevationSection, kGroundKey, settings.groundBeyond);
}

void ElevationDrawer::save() {
  writeViewSettings(store_, kElevationSection, settings);
  store_.writeDouble(kElevationSection, kEavesKey, settings.eavesHeight);
  store_.writeDouble(kElevationSection, kHeadKey, settings.headHeight);
  store_.writeOption(kElevationSection, kNamesKey, settings.names);
  store_.writeOption(kElevationSection, kLevelsKey, settings.levels);
  store_.writeOption(kElevationSection, kWholeFacesKey, settings.wholeFaces);
  store_.writeOption(kElevationSection, kReplacesKey, settings.replaces);
  if (store_.readDouble(kElevationSection, kGroundKey, 0.0) != settings.groundBeyond) {
    store_.writeDouble(kElevationSection, kGroundKey, settings.groundBeyond);
  }
  store_.flush();
}

// ---- Where it is folded out ---------------------------------------------------------------------------------

std::optional<ElevationFold> ElevationDrawer::askFold() const {
  view_.gsExecuteMacro(macroText::kFreeCursor);
  ElevationFold fold;
  const auto foot = askUntil(view_, kFacePrompt, [&](Point) -> std::optional<Point> {
    const auto face = lineAtCursor(view_);
    if (!face) { return std::nullopt; }
    fold.face = *face;
    return standOnFace(view_);
  });
  if (!foot) { return std::nullopt; }
  fold.foot = *foot;
  const auto eaves = askUntil(view_, kEavesPrompt, [&](Point at) -> std::optional<Point> {
    if (!nearlyEqual(at, fold.foot)) { return at; }
    tellMiss(view_, "An elevation needs room beside its face");
    return std::nullopt;
  });
  releaseCursor(view_);
  if (!eaves) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::kUnlock);
  fold.direction = directionOf(fold.foot, *eaves);
  fold.distance = ardenix::distance(fold.foot, *eaves);
  return fold;
}

bool ElevationDrawer::drawRound() {
  auto fold = askFold();
  if (!fold) { return false; }
  seen_ = viewTowards(fold->direction);
  replaced_ = settings.replaces ? patternToReplace(*fold) : "";
  fold_ = *fold;
  if (!mayDrawOn(view_, settings.layers[seen_])) { return true; }
  ArchPart part(view_, {settings.parentName, kElevationViews[seen_].prefix, settings.layers[seen_]});
  placeOpenings();
  drawWalls();
  part.finish(CurrentLayer::kTarget);
  if (!replaced_.empty()) { replace(part.group()); }
  return true;
}

// ---- Drawing one again --------------------------------------------------------------------------------------

// Where the cursor stands at the eaves of an elevation of this view, the new one gets the same eaves line and takes the
// name of the old one.
std::string ElevationDrawer::patternToReplace(ElevationFold& fold) const {
  const Point picked = fold.out(fold.foot, fold.distance);
  const bool isLine = view_.gsNearestPrim(kLinePrimitive, picked.x, picked.y) == kLinePrimitive;
  if (!isLine || view_.gsExecuteMacro(macroText::kNearPattern) == 0) { return ""; }
  std::string pattern = textVariable(view_, "pat$");
  const std::string kind = cleanParent() + " " + std::string(kElevationViews[seen_].prefix);
  if (!pattern.starts_with(kind) || view_.gsExecuteMacro(macroText::kNearLine) == 0) { return ""; }
  const PlanLine eaves{{numberVariable(view_, "X1"), numberVariable(view_, "Y1")},
                       {numberVariable(view_, "X2"), numberVariable(view_, "Y2")}};
  const auto at = crossing(eaves, {fold.foot, fold.out(fold.foot, fold.distance)});
  if (!at) { return ""; }
  fold.distance = ardenix::distance(fold.foot, *at);
  return pattern;
}

std::string ElevationDrawer::cleanParent() const {
  std::string parent = settings.parentName;
  cleanName(parent, true);
  return parent;
}

void ElevationDrawer::replace(const std::string& group) {
  view_.gsExecuteMacro(macroText::selectPattern(replaced_));
  view_.gsExecuteMacro(macroText::kDeleteSelection);
  view_.gsExecuteMacro(macroText::renamePattern(cleanParent() + " " + group, replaced_));
  clearAll(view_);
}

// ---- Windows and doors --------------------------------------------------------------------------------------

void ElevationDrawer::placeOpenings() {
  while (view_.gsEscapePressed() == 0) {
    const auto picked = askPoint(view_, kOpeningPrompt);
    if (!picked) { return; }
    placeOpening(*picked);
  }
}

void ElevationDrawer::placeOpening(Point picked) {
  const auto opening = openingAt(picked);
  if (!opening) {
    if (!settings.wholeFaces || !placeOpeningsOfWall()) {
      tellMiss(view_, "No window or door with a name lies near this point");
    }
    return;
  }
  // One that is turned over hangs from its other end.
  const Point side = opening->mirrored ? fold_.right() : -fold_.right();
  const auto edge = jamb(*opening, side);
  if (!edge || !loadElevation(*opening)) { return; }
  const auto onFace = crossing(fold_.face, {*edge, fold_.out(*edge, headDistance())});
  if (addElevation(*opening, fold_.out(onFace.value_or(*edge), headDistance()))) { return; }
  ErrorMessage(numberText::format("The symbol file \"%s\" holds no elevation \"%sE\"", opening->file, opening->name),
               &view_);
}

bool ElevationDrawer::addElevation(const PlanSymbol& opening, Point head) const {
  const std::string macro = macroText::addTurnedSymbol(opening.name + "E", head, fold_.symbolRotation());
  if (!opening.mirrored) { return view_.gsExecuteMacro(macro) != 0; }
  view_.gsExecuteMacro(macroText::kSelectNew);
  const bool isThere = view_.gsExecuteMacro(macro) != 0;
  if (isThere) { view_.gsExecuteMacro(macroText::turnOverAcross(head, fold_.out(head, settings.headHeight))); }
  view_.gsExecuteMacro(macroText::kSelectNewEnd);
  clearAll(view_);
  return isThere;
}

// All those that stand in the wall of the face, where the cursor is on that.
bool ElevationDrawer::placeOpeningsOfWall() {
  if (view_.gsExecuteMacro(macroText::kNearLine) == 0) { return false; }
  const PlanLine wall{{numberVariable(view_, "X1"), numberVariable(view_, "Y1")},
                      {numberVariable(view_, "X2"), numberVariable(view_, "Y2")}};
  if (crossing(wall, fold_.face)) { return false; }
  for (int number = 1;; ++number) {
    view_.gsExecuteMacro(macroText::symbolOnLine(fold_.face.a, fold_.face.b, number));
    if (number > static_cast<int>(numberVariable(view_, "count"))) { return number > 1; }
    const Point at{numberVariable(view_, "xs"), numberVariable(view_, "ys")};
    view_.gsExecuteMacro(macroText::cursorTo(at));
    const auto opening = openingAt(at);
    if (opening && openingFile(rememberedSymbolFolder(store_), opening->file).exists) { placeOpening(at); }
  }
}

std::optional<PlanSymbol> ElevationDrawer::openingAt(Point picked) const {
  if (view_.gsExecuteMacro(macroText::kNearPattern) == 0) { return std::nullopt; }
  return symbolAt(view_, picked);
}

// A pattern that holds more than the symbol has another extent.
std::optional<Point> ElevationDrawer::jamb(const PlanSymbol& opening, Point side) const {
  const bool isAlone = textVariable(view_, "pat$").ends_with(" " + opening.name);
  if (!fold_.isSquareToAxes() || !isAlone) { return jambOfTurned(side); }
  const Point low{numberVariable(view_, "xl"), numberVariable(view_, "yl")};
  const Point high{numberVariable(view_, "xr"), numberVariable(view_, "yr")};
  constexpr double kNone = -1e-9;  // what the coordinate across has of a side
  return Point{side.x < kNone ? low.x : high.x, side.y < kNone ? low.y : high.y};
}

// The extent along the axes has its corners elsewhere than a symbol that is turned against them.
std::optional<Point> ElevationDrawer::jambOfTurned(Point side) const {
  if (view_.gsExecuteMacro(macroText::kNearSymbol) == 0) { return std::nullopt; }
  const auto value = [this](std::string_view name) { return numberVariable(view_, name); };
  const Point origin{value("xs"), value("ys")};
  const double angle = radians(value("angle"));
  std::optional<Point> furthest;
  for (const double x : {value("xl"), value("xr")}) {
    for (const double y : {value("yl"), value("yr")}) {
      const Point corner = origin + turned(Point{x, y}, angle);
      if (!furthest || dot(corner - *furthest, side) > 0.0) { furthest = corner; }
    }
  }
  return furthest;
}

bool ElevationDrawer::loadElevation(const PlanSymbol& opening) {
  const std::string folder = rememberedSymbolFolder(store_);
  if (!folderExists(folder)) {
    if (!toldOfFolder_) {
      ErrorMessage(numberText::format("There is no symbol folder \"%s\", windows and doors are left out", folder),
                   &view_);
    }
    toldOfFolder_ = true;
    return false;
  }
  const OpeningFile file = openingFile(folder, opening.file);
  const bool loaded = view_.gsExecuteMacro(macroText::realSymbols(file.path)) != 0;
  if (!loaded || !file.exists) {
    ErrorMessage(numberText::format("The symbol \"%s\" is left out: its file \"%s\" is not there or cannot be read",
                                    opening.name, file.path),
                 &view_);
  }
  return loaded && file.exists;
}

// ---- Walls --------------------------------------------------------------------------------------------------

std::optional<Point> ElevationDrawer::askCorner() const {
  return askUntil(view_, kWallPrompt, [this](Point) -> std::optional<Point> {
    const auto wall = jumpToLine(view_);
    if (!wall) { return std::nullopt; }
    auto corner = crossing(fold_.face, *wall);
    if (!corner) { tellMiss(view_, "This wall does not end the face"); }
    return corner;
  });
}

void ElevationDrawer::drawWalls() {
  const DraftingPen pen(view_, settings.style);
  std::vector<Point> corners;
  while (view_.gsEscapePressed() == 0) {
    const auto corner = askCorner();
    if (!corner) { break; }
    pen.line(fold_.out(*corner, fold_.distance), fold_.out(*corner, groundDistance()));
    corners.push_back(*corner);
  }
  drawOutline(std::move(corners));
}

// The eaves and the ground, from the outermost corner to the other, and what is written beside them.
void ElevationDrawer::drawOutline(std::vector<Point> corners) const {
  if (corners.empty()) { return; }
  const Point right = fold_.right();
  const auto along = [right](Point corner) { return dot(corner, right); };
  const auto [leftEnd, rightEnd] = std::ranges::minmax(corners, {}, along);
  const DraftingPen pen(view_, settings.style);
  const Point beyond = right * settings.groundBeyond;
  pen.line(fold_.out(leftEnd, fold_.distance), fold_.out(rightEnd, fold_.distance));
  pen.line(fold_.out(leftEnd, groundDistance()) - beyond, fold_.out(rightEnd, groundDistance()) + beyond);
  if (settings.levels) {
    const ElevationLevel levels[] = {
        {settings.eavesHeight, fold_.distance}, {settings.headHeight, headDistance()}, {0.0, groundDistance()}};
    for (const ElevationLevel& level : levels) {
      markLevel(view_, fold_, rightEnd, level, std::max(0.0, settings.groundBeyond), settings.style);
    }
  }
  if (settings.names) {
    writeElevationName(view_, fold_, {leftEnd, rightEnd}, groundDistance(), kElevationViews[seen_].name,
                       settings.style.pen);
  }
}

}  // namespace ardenix::arch

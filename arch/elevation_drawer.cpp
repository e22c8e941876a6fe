#include "arch/elevation_drawer.h"

#include <algorithm>

#include "arch/arch_part.h"
#include "arch/symbol_folder.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kFacePrompt = "Indicate face on plan for adding elevation (else spacebar to exit)";
constexpr std::string_view kEavesPrompt = "Enter roof line position of elevation (else spacebar to exit)";
constexpr std::string_view kOpeningPrompt = "Select window/door to go to elevation (else spacebar to end selection)";
constexpr std::string_view kWallPrompt = "Select outside wall for elevation (else spacebar to end selection)";

constexpr std::string_view kEavesKey = "EavesHeight";
constexpr std::string_view kHeadKey = "WinDoorHeight";

constexpr double kQuarterTurn = 90.0;
// Degrees off an axis that are no more than rounding.
constexpr double kStraight = 1e-9;

}  // namespace

// ---- Settings -----------------------------------------------------------------------------------------------

ElevationDrawer::ElevationDrawer(ArchSpecStore& store) : store_(store), view_(store.view()) {
  readViewSettings(store, kElevationSection, settings);
  settings.eavesHeight = store.readDouble(kElevationSection, kEavesKey, settings.eavesHeight);
  settings.headHeight = store.readDouble(kElevationSection, kHeadKey, settings.headHeight);
}

void ElevationDrawer::save() {
  writeViewSettings(store_, kElevationSection, settings);
  store_.writeDouble(kElevationSection, kEavesKey, settings.eavesHeight);
  store_.writeDouble(kElevationSection, kHeadKey, settings.headHeight);
  store_.flush();
}

// ---- Where it is folded out ---------------------------------------------------------------------------------

bool ElevationDrawer::Fold::isSquareToAxes() const {
  return std::fabs(std::remainder(degrees(direction), kQuarterTurn)) <= kStraight;
}

// Square to the eaves line, also where the house is turned.
double ElevationDrawer::Fold::symbolRotation() const {
  if (isSquareToAxes()) { return kElevationViews[viewTowards(direction)].symbolRotation(); }
  constexpr double kTurn = 4.0 * kQuarterTurn;
  return std::fmod(1.5 * kTurn - degrees(direction), kTurn);
}

std::optional<ElevationDrawer::Fold> ElevationDrawer::askFold() const {
  view_.gsExecuteMacro(macroText::kFreeCursor);
  Fold fold;
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
  const auto fold = askFold();
  if (!fold) { return false; }
  fold_ = *fold;
  seen_ = viewTowards(fold_.direction);
  if (!mayDrawOn(view_, settings.layers[seen_])) { return true; }
  ArchPart part(view_, {settings.parentName, kElevationViews[seen_].prefix, settings.layers[seen_]});
  placeOpenings();
  drawWalls();
  part.finish(CurrentLayer::kTarget);
  return true;
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
    tellMiss(view_, "No window or door with a name lies near this point");
    return;
  }
  const auto jamb = leftJamb();
  if (!jamb || !loadElevation(*opening)) { return; }
  const auto onFace = crossing(fold_.face, {*jamb, fold_.out(*jamb, headDistance())});
  const std::string name = opening->name + "E";
  const Point head = fold_.out(onFace.value_or(*jamb), headDistance());
  if (view_.gsExecuteMacro(macroText::addTurnedSymbol(name, head, fold_.symbolRotation())) != 0) { return; }
  ErrorMessage(numberText::format("The symbol file \"%s\" holds no elevation \"%s\"", opening->file, name), &view_);
}

std::optional<PlanSymbol> ElevationDrawer::openingAt(Point picked) const {
  if (view_.gsExecuteMacro(macroText::kNearPattern) == 0) { return std::nullopt; }
  return symbolAt(view_, picked);
}

// The corner of the symbol on plan that lies furthest to the left in the elevation.
std::optional<Point> ElevationDrawer::leftJamb() const {
  if (!fold_.isSquareToAxes()) { return leftOfTurned(); }
  const Point low{numberVariable(view_, "xl"), numberVariable(view_, "yl")};
  const Point high{numberVariable(view_, "xr"), numberVariable(view_, "yr")};
  const Point right = fold_.right();
  return Point{right.x < 0.0 ? high.x : low.x, right.y < 0.0 ? high.y : low.y};
}

// The extent along the axes has its corners elsewhere than a symbol that is turned against them.
std::optional<Point> ElevationDrawer::leftOfTurned() const {
  if (view_.gsExecuteMacro(macroText::kNearSymbol) == 0) { return std::nullopt; }
  const auto value = [this](std::string_view name) { return numberVariable(view_, name); };
  const Point origin{value("xs"), value("ys")};
  const double angle = radians(value("angle"));
  std::optional<Point> left;
  for (const double x : {value("xl"), value("xr")}) {
    for (const double y : {value("yl"), value("yr")}) {
      const Point corner = origin + turned(Point{x, y}, angle);
      if (!left || dot(corner - *left, fold_.right()) < 0.0) { left = corner; }
    }
  }
  return left;
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

// The eaves and the ground, from the outermost corner to the other.
void ElevationDrawer::drawOutline(std::vector<Point> corners) const {
  if (corners.empty()) { return; }
  const auto along = [right = fold_.right()](Point corner) { return dot(corner, right); };
  const auto [left, right] = std::ranges::minmax(corners, {}, along);
  const DraftingPen pen(view_, settings.style);
  for (const double level : {fold_.distance, groundDistance()}) {
    pen.line(fold_.out(left, level), fold_.out(right, level));
  }
}

}  // namespace ardenix::arch

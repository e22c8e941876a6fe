#include "arch/section_drawer.h"

#include <cmath>

#include "arch/arch_part.h"
#include "arch/elevation_drawer.h"
#include "arch/plan_geometry.h"
#include "arch/plan_symbol.h"
#include "arch/roof_line_drawer.h"
#include "arch/section_drawing.h"
#include "arch/stair_drawing.h"
#include "arch/symbol_folder.h"
#include "frame/drafting/line_settings.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kPositionPrompt = "Indicate position of cross-section (else spacebar to exit)";
constexpr std::string_view kClosePrompt = "Indicate inside face of close external wall (else spacebar to exit)";
constexpr std::string_view kInternalPrompt = "Indicate face of internal wall (else spacebar for far external wall)";
constexpr std::string_view kFarPrompt = "Indicate inside face of far external wall (else spacebar to exit)";
constexpr std::string_view kArrowPrompt =
    "Indicate side of line you would like arrow heads placed (else spacebar to exit)";

constexpr int kCentred = 15;           // justification of the labels
constexpr double kBeyondFaces = 15.0;  // of the section line, in widths of the outer leaf
constexpr double kArrowShaft = 10.0;
constexpr double kTouching = 1e-6;

Point along(Point a, Point b) { return unit(b - a); }

// Whether the symbol at the cursor covers a point: its extent is that of the symbol unturned at the origin.
bool symbolCovers(CCadWindow& view, Point at) {
  if (view.gsExecuteMacro(macroText::kNearSymbol) == 0) { return false; }
  const auto value = [&view](std::string_view name) { return numberVariable(view, name); };
  const Point origin{value("xs"), value("ys")};
  const Point inside = turned(at - origin, -radians(value("angle")));
  const auto isBetween = [](double low, double x, double high) {
    return x >= low - kTouching && x <= high + kTouching;
  };
  return isBetween(value("xl"), inside.x, value("xr")) && isBetween(value("yl"), inside.y, value("yr"));
}

// The line as it lies on plan: beyond the walls at both ends.
PlanLine drawnLine(const SectionLine& line, double leaf) {
  const Point beyond = quarterWay(line.direction) * (kBeyondFaces * leaf);
  return {line.close - beyond, line.far + beyond};
}

}  // namespace

double headHeight(const ArchSpecStore& store) { return store.readDouble(kElevationSection, "WinDoorHeight", 2150.0); }

SectionDrawer::SectionDrawer(ArchSpecStore& store)
    : settings(readSectionSettings(store)), store_(store), view_(store.view()) {}

// ---- Wall types ---------------------------------------------------------------------------------------------

bool SectionDrawer::hasWallTypes() {
  const auto read = [this](std::string_view key, std::string_view word, WallType& wall) {
    if (const auto record = store_.readRecord(kWallTypes, store_.readInt("WALLS", key))) {
      wall = readWallType(*record);
      return true;
    }
    ErrorMessage(numberText::format("Save an %s wall type first", word), &view_);
    return false;
  };
  return read("ExternalWall", "external", external_) && read("InternalWall", "internal", internal_);
}

// ---- Picks --------------------------------------------------------------------------------------------------

// The wall line near the point picked, and where the cursor comes to stand on it.
std::optional<SectionDrawer::Face> SectionDrawer::faceAtCursor() {
  Point picked;
  view_.gsGetCurrCoord(picked.x, picked.y);
  const auto wall = lineAtCursor(view_);
  if (!wall) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::cursorTo(picked));
  view_.gsExecuteMacro(macroText::kJumpNearest);
  return Face{footOfPerpendicular(cursorPosition(view_), wall->a, wall->b), *wall};
}

void SectionDrawer::askInternalWalls(SectionLine& line) {
  const PlanLine section{line.close, line.close + quarterWay(line.direction)};
  while (view_.gsEscapePressed() == 0) {
    const auto face = askUntil(view_, kInternalPrompt, [&](Point) -> std::optional<Point> {
      const auto wall = lineAtCursor(view_);
      if (!wall) { return std::nullopt; }
      auto at = crossing(section, *wall);
      if (!at) { tellMiss(view_, "This wall does not cross the section line"); }
      return at;
    });
    if (!face) { return; }
    line.internalWalls.push_back(distance(line.close, *face));
  }
}

std::optional<Point> SectionDrawer::askFarFace(const Face& close) {
  return askUntil(view_, kFarPrompt, [&](Point) -> std::optional<Point> {
    const auto face = faceAtCursor();
    if (!face) { return std::nullopt; }
    if (crossing(close.wall, face->wall)) {
      tellMiss(view_, "This wall is not parallel to the close one");
      return std::nullopt;
    }
    const Point across = footOfPerpendicular(close.at, face->wall.a, face->wall.b);
    if (distance(close.at, across) < kTouching) {
      tellMiss(view_, "This is the close wall");
      return std::nullopt;
    }
    return across;
  });
}

std::optional<SectionLine> SectionDrawer::askLine() {
  Face close;
  const auto found = askUntil(view_, kClosePrompt, [&](Point) -> std::optional<Point> {
    const auto face = faceAtCursor();
    if (!face || view_.gsExecuteMacro(macroText::kLockOntoCursorLine) == 0) { return std::nullopt; }
    close = *face;
    return face->at;
  });
  if (!found) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::kLockSquare);
  view_.gsExecuteMacro(macroText::kToggleHold);
  view_.gsExecuteMacro(macroText::lineType(settings.line.linetype, settings.line.pen));
  SectionLine line{.close = close.at, .far = close.at, .internalWalls = {}};
  line.direction = quarterOf(close.at, close.at + quarterTurned(along(close.wall.a, close.wall.b)));
  askInternalWalls(line);
  const auto far = askFarFace(close);
  view_.gsExecuteMacro(macroText::kToggleHold);
  if (!far) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::kUnlock);
  line.direction = quarterOf(close.at, *far);
  line.far = close.at + quarterWay(line.direction) * distance(close.at, *far);
  for (const double wall : line.internalWalls) {
    if (wall > line.length()) { view_.gsSetStatus("An internal wall lies beyond the far wall"); }
  }
  return line;
}

// The section line is shown meanwhile.
std::optional<Point> SectionDrawer::askArrowSide(const SectionLine& line) {
  const PlanLine shown = drawnLine(line, external_.widths[kExtWallWidth]);
  view_.gsDisplayLine(shown.a.x, shown.a.y, shown.b.x, shown.b.y, settings.line.pen);
  const auto side = askUntil(view_, kArrowPrompt, [&](Point at) -> std::optional<Point> {
    const Point way = at - footOfPerpendicular(at, line.close, line.far);
    if (length(way) > kTouching) { return unit(way); }
    tellMiss(view_, "This point lies on the section line");
    return std::nullopt;
  });
  view_.gsRefresh();
  return side;
}

// ---- Drawing ------------------------------------------------------------------------------------------------

void SectionDrawer::drawLine(const SectionLine& line, Point arrowWay, int layer) {
  const double leaf = external_.widths[kExtWallWidth];
  const PlanLine drawn = drawnLine(line, leaf);
  const DraftingPen pen(view_, settings.line, layer);
  const DraftingPen arrow(view_, {.pen = settings.line.pen}, layer);
  const TextStyle label = settings.text(settings.line.pen, kCentred);
  const Point shaft = arrowWay * (kArrowShaft * leaf);
  const Point out = quarterWay(line.direction) * (kArrowShaft * leaf / 2.0);
  pen.line(drawn.a, drawn.b);
  arrow.arrow(drawn.a, drawn.a + shaft, settings.arrowHead());
  arrow.arrow(drawn.b, drawn.b + shaft, settings.arrowHead());
  pen.text(drawn.a - out, settings.label, label);
  pen.text(drawn.b + out, settings.label, label);
}

// The opening whose symbol covers the middle of a wall where the section line crosses it.
SectionOpening SectionDrawer::openingAt(Point wall) {
  view_.gsExecuteMacro(macroText::cursorTo(wall));
  if (view_.gsExecuteMacro(macroText::kNearPattern) == 0) { return SectionOpening::kNone; }
  const auto symbol = symbolAt(view_, wall);
  if (!symbol || !symbolCovers(view_, wall)) { return SectionOpening::kNone; }
  const std::string folder = rememberedSymbolFolder(store_);
  if (!folderExists(folder)) {
    if (!toldOfFolder_) {
      ErrorMessage(numberText::format("There is no symbol folder \"%s\", windows and doors are left out", folder),
                   &view_);
    }
    toldOfFolder_ = true;
    return SectionOpening::kNone;
  }
  const OpeningFile file = openingFile(folder, symbol->file);
  if (!file.exists) { return SectionOpening::kNone; }
  return file.isDoor ? SectionOpening::kDoor : SectionOpening::kWindow;
}

// Looked for before the section line is drawn, which would lie nearer than any symbol.
std::array<SectionOpening, 2> SectionDrawer::openingsAcross(const SectionLine& line) {
  const Point out = quarterWay(line.direction) * (external_.thickness() / 2.0);
  return {openingAt(line.close - out), openingAt(line.far + out)};
}

SectionSheet SectionDrawer::sheetOf(const SectionLine& line, Point at) {
  return {.view = view_,
          .settings = settings,
          .external = external_,
          .internal = internal_,
          .eavesHeight = store_.readDouble(kElevationSection, "EavesHeight", 2600.0),
          .headHeight = headHeight(store_),
          .line = line,
          .at = at,
          .openings = openingsAcross(line)};
}

bool SectionDrawer::drawRound() {
  if (!hasWallTypes()) { return false; }
  const auto position = askPoint(view_, kPositionPrompt);
  if (!position) { return false; }
  const LineSettings usersOwn(view_, settings.line);
  const auto line = askLine();
  if (!line) { return false; }
  const std::string& layer = line->isVertical() ? settings.verticalLayer : settings.horizontalLayer;
  if (!mayDrawOn(view_, layer)) { return false; }
  const auto arrowWay = askArrowSide(*line);
  if (!arrowWay) { return false; }
  const SectionSheet sheet = sheetOf(*line, *position);
  const int planLayer = view_.gsGetCurrentLayer();
  ArchPart part(view_, {settings.parentName, line->isVertical() ? "VT" : "HZ", layer});
  drawLine(*line, *arrowWay, planLayer);
  drawSection(sheet);
  drawSectionRoof(sheet, {.pitch = store_.readDouble("ROOFS", "RoofPitch", 26.0), .overhang = eavesOverhang(store_)});
  if (settings.countsLabels) { saveLabel(store_, nextLabel(settings.label)); }
  part.finish(CurrentLayer::kAsBefore);
  return true;
}

}  // namespace ardenix::arch

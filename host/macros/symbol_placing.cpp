#include <algorithm>
#include <cmath>

#include "frame/host/core_services.h"
#include "host/drawing/wall_openings.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

constexpr double kHalfTurn = 180.0;
constexpr double kQuarterTurn = 90.0;

constexpr std::string_view kSettings = "Symbols";  // of the host
constexpr const char* kFlipKey = "F";
constexpr const char* kSideKey = "Tab";
constexpr const char* kTurnKey = "R";

double normalised(double angle) {
  const double turned = std::fmod(angle, 2.0 * kHalfTurn);
  return turned < 0.0 ? turned + 2.0 * kHalfTurn : turned;
}

// A symbol at the cursor, as the user turns it about. Near a wall it stands on the wall's face: an opening with its
// left jamb at the foot of the cursor and its depth in the wall, any other symbol with its back to the wall.
class SymbolInHand {
 public:
  SymbolInHand(DrawingWindow& window, std::string name, SymbolPlacing placing)
      : window_(window), name_(std::move(name)), placing_(std::move(placing)) {
    const auto setting = [](std::string_view key) { return coreGetDefaultInt(kSettings, key, 0); };
    flipped_ = setting("Flip") != 0;
    otherSide_ = setting("Side") != 0;
    turn_ = setting("Turn");
    isOpening_ = name_.ends_with('P') && hasSymbol(window_, name_ + "E");
    width_ = isOpening_ ? widthOf(name_ + "E") : 0.0;
  }

  void press(std::string_view key) {
    if (key == kFlipKey) {
      flipped_ = !flipped_;
    } else if (key == kSideKey) {
      otherSide_ = !otherSide_;
    } else {
      turn_ += kQuarterTurn;
    }
  }

  [[nodiscard]] Symbol at(Point p) const {
    const auto wall = wallNear(p);
    return wall ? onWall(*wall) : free(p);
  }

  void place(Point p) {
    const auto wall = wallNear(p);
    Drawing& drawing = window_.drawing();
    const PrimitiveId id = placeSymbol(window_, wall ? onWall(*wall) : free(p));
    if (!wall || !isOpening_ || !placing_.cutsWalls) { return; }
    tell(cutWall(drawing, *wall, {0.0, width_}, drawing.find(id)->group));
  }

 private:
  [[nodiscard]] double widthOf(const std::string& name) const {
    Drawing alone;
    alone.setParameters(window_.drawing().parameters());
    copySymbol(window_, name, alone);
    return alone.bounds(Primitive{.geometry = Symbol{name, {}}}).width();
  }

  [[nodiscard]] std::optional<WallRun> wallNear(Point p) const {
    if (!placing_.snapsToWalls) { return std::nullopt; }
    const Drawing& drawing = window_.drawing();
    return wallAt(drawing, p, aperture(drawing), [this](const Layer& layer) {
      return std::ranges::find(placing_.wallLayers, layer.name) != placing_.wallLayers.end();
    });
  }

  [[nodiscard]] Symbol free(Point p) const {
    const double angle = window_.cursor().lockedAngle().value_or(0.0) + turn_ + (otherSide_ ? kHalfTurn : 0.0);
    return {name_, p, 1.0, angle == 0.0 ? 0.0 : normalised(angle), flipped_};
  }

  [[nodiscard]] Symbol onWall(const WallRun& wall) const {
    const bool endsFirst = isOpening_ && flipped_ != otherSide_;
    const Point at = wall.at(endsFirst ? width_ : 0.0, otherSide_ ? wall.thickness : 0.0);
    const bool turnsBack = isOpening_ == otherSide_;
    return {name_, at, 1.0, normalised(degrees(angleOf(wall.along)) + (turnsBack ? kHalfTurn : 0.0)), flipped_};
  }

  void tell(WallCut cut) {
    if (cut == WallCut::kLocked) { window_.gsSetStatus("The wall is not cut: its layer is locked"); }
    if (cut == WallCut::kNoRoom) { window_.gsSetStatus("The wall is not cut: it does not run on at both jambs"); }
  }

  DrawingWindow& window_;
  std::string name_;
  SymbolPlacing placing_;
  bool isOpening_ = false;
  double width_ = 0.0;  // of an opening, from jamb to jamb
  bool flipped_ = false;
  bool otherSide_ = false;
  double turn_ = 0.0;  // degrees, away from walls
};

// What would be placed is seen at the cursor as long as this lives.
class HangsAtCursor {
 public:
  HangsAtCursor(Cursor& cursor, const SymbolInHand& symbol) : cursor_(cursor) {
    cursor_.setRubber([&symbol](Point p) { return std::vector<Geometry>{symbol.at(p)}; });
  }
  HangsAtCursor(const HangsAtCursor&) = delete;
  HangsAtCursor& operator=(const HangsAtCursor&) = delete;
  ~HangsAtCursor() { cursor_.setRubber(nullptr); }

 private:
  Cursor& cursor_;
};

// The plan of an opening that has an elevation beside it; else which the user chooses. Nothing when he leaves the menu.
std::optional<std::string> chosenSymbol(DrawingWindow& window, const SymbolPlacing& placing) {
  const std::vector<std::string>& panel = window.macroState().panel;
  if (panel.size() == 1) { return panel.front(); }
  constexpr size_t kPlanAndElevation = 2;
  if (placing.snapsToWalls && panel.size() == kPlanAndElevation && panel[1] == panel[0] + "E") { return panel[0]; }
  std::string items;
  for (const std::string& name : panel) { items += (items.empty() ? "" : ",") + name; }
  const int item = window.gsSubMenu(items);
  return item == 0 ? std::nullopt : std::optional(panel.at(static_cast<size_t>(item) - 1));
}

bool switchedOn(const MacroRun& run, size_t argument) {
  const double value = run.number(argument);
  if (value != 0.0 && value != 1.0) { throw MacroError(run.column(argument), "SYMDEF expects 0 or 1 here"); }
  return value == 1.0;
}

}  // namespace

void defineSymbolPlacing(MacroRun& run) {
  SymbolPlacing placing{.snapsToWalls = switchedOn(run, 0), .cutsWalls = switchedOn(run, 1), .wallLayers = {}};
  for (size_t at = 2; run.has(at); ++at) { placing.wallLayers.push_back(run.text(at)); }
  run.window.macroState().placing = std::move(placing);
}

// Which symbol, when the file holds several, and then its positions until the user has enough.
void symbolPanel(MacroRun& run) {
  DrawingWindow& window = run.window;
  if (window.macroState().panel.empty()) { throw MacroError(1, "SYMBOL expects a symbol file to be loaded first"); }
  window.requireDrawable();
  SymbolPlacing placing = std::exchange(window.macroState().placing, {});
  const auto name = chosenSymbol(window, placing);
  if (!name) { return; }
  if (placing.snapsToWalls) { window.gsSetStatus("F flips the hand, Tab changes the side, R turns"); }
  SymbolInHand symbol(window, *name, std::move(placing));
  const HangsAtCursor hanging(window.cursor(), symbol);
  const std::vector<std::string> keys{kFlipKey, kSideKey, kTurnKey};
  while (const auto at = window.askPoint("Indicate the position of the symbol (space bar to stop)", keys,
                                         [&symbol](std::string_view key) { symbol.press(key); })) {
    symbol.place(*at);
  }
}

}  // namespace brevan::macroHandlers

#include <optional>
#include <vector>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"
#include "mech/fastener_placement.h"
#include "mech/line_style.h"
#include "mech/outline.h"
#include "mech/part_commands.h"
#include "mech/plan_placement.h"

// Circles about one centre with their centre lines, and centre lines for circles that are there.
namespace ardenix::mech {

namespace {

constexpr std::string_view kCentreLines = "CENTRELINES";
constexpr std::string_view kCentreLinePrefix = "CL";
constexpr double kSmallestRadius = 1e-12;

void selectPlainPart(CCadWindow& view, std::string_view group) {
  view.gsExecuteMacro(macroText::selectNameUnclosed(kCentreLines, group));
  view.gsExecuteMacro(macroText::linkSelection(group));
}

// ---- Circles by a list of diameters -------------------------------------------------------------------------

struct Diameters {
  std::vector<double> radii{};
  double end = 0.0;  // half of what ended the list
  bool readable = true;
};

// A number, or a word that ends the list; what only begins like a number is a slip, as diameters with commas between.
bool looksLikeNumber(const std::string& field) {
  return field.find_first_of("0123456789") != std::string::npos &&
         std::string_view("+-.,0123456789").find(field.front()) != std::string_view::npos;
}

Diameters readDiameters(const std::string& typed) {
  Diameters diameters;
  for (int n = 1;; ++n) {
    const std::string field = textField(typed, n, "", ' ');
    if (field.empty()) { return diameters; }
    const auto number = numberText::parseTyped(field);
    if (!number && looksLikeNumber(field)) { return {.readable = false}; }
    diameters.end = number && std::isfinite(*number) ? *number / 2.0 : 0.0;
    if (diameters.end <= kSmallestRadius) { return diameters; }
    diameters.radii.push_back(std::exchange(diameters.end, 0.0));
  }
}

// "" when the user has enough.
std::string askDiameters(CCadWindow& view) {
  constexpr std::string_view kVariable = "cirDiamStr$";
  constexpr int kLongest = 256;
  view.gsSetMacStrVar(kVariable, "");  // else the last answer is offered, and Enter would never end
  view.gsExecuteMacro(macroText::kEnterDiameters);
  std::array<char, kLongest> buffer{};
  view.gsGetMacStrVar(kVariable, buffer.data(), kLongest);
  std::string typed = buffer.data();
  coreTrimStr(typed);
  return typed;
}

bool usable(const Diameters& diameters, CCadWindow& view) {
  if (diameters.readable && !diameters.radii.empty()) { return true; }
  ErrorMessage(diameters.readable ? "Give at least one diameter greater than 0" : "Separate the diameters with blanks",
               &view);
  return false;
}

// The reference lies off the centre by what ended the list, so the part is turned only where that was a number.
void drawCirclesAt(CCadWindow& view, const LineStyles& styles, const PlanPlacement& place, const Diameters& diameters) {
  const std::string group = startPart(view, kCentreLines, kCentreLinePrefix);
  const DraftingPen pen(view, styles.solid);
  for (const double radius : diameters.radii) { pen.circle(place.centre, radius); }
  const double reach = 1.2 * *std::ranges::max_element(diameters.radii);
  drawCentreCross({view, styles.centre}, place.centre, reach, reach);
  selectPlainPart(view, group);
  turnPart(view, place.centre, place.centre - Point{0, diameters.end}, place.target);
}

bool drawCirclesOfAnswer(CCadWindow& view, const LineStyles& styles) {
  clearAll(view);
  const std::string typed = askDiameters(view);
  if (typed.empty()) { return false; }
  const Diameters diameters = readDiameters(typed);
  if (!usable(diameters, view)) { return true; }
  const auto place = askPlan(view, "Circle");
  if (place) { drawCirclesAt(view, styles, *place, diameters); }
  return place.has_value();
}

// ---- Centre lines of a circle that is picked ----------------------------------------------------------------

bool addToPicked(CCadWindow& view, const LineStyle& style) {
  clearAll(view);
  const auto picked = askPoint(view, "Click on the circle you want to add centre lines to (spacebar to exit)");
  if (!picked) { return false; }
  if (view.gsNearestPrim(kArcPrimitive, picked->x, picked->y) != kArcPrimitive) {
    view.gsSetStatus("No circle or arc lies near this point.");
    return true;
  }
  Point start;
  Point centre;
  Point end;
  int direction = 0;
  view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, direction);
  const double reach = 1.5 * distance(centre, start);
  const std::string group = startPart(view, kCentreLines, kCentreLinePrefix);
  drawCentreCross({view, style}, centre, reach, reach);
  selectPlainPart(view, group);
  return true;
}

}  // namespace

void drawCircles(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  CCadWindow& view = toolset.view();
  const LineStyles styles = lineStyles(toolset.configuration().store());
  drawRounds(view, [&] { return mayDrawOn(view, view.gsGetCurrentLayerName()) && drawCirclesOfAnswer(view, styles); });
  endFastener(view);
}

void addCentreLines(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  CCadWindow& view = toolset.view();
  const LineStyle style = lineStyle(toolset.configuration().store(), LineKind::kCentre);
  drawRounds(view, [&] { return mayDrawOn(view, view.gsGetCurrentLayerName()) && addToPicked(view, style); });
  endPart(view);
}

}  // namespace ardenix::mech

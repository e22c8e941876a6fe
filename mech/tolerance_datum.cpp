#include <cmath>
#include <numbers>
#include <optional>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "mech/annotation_commands.h"
#include "mech/annotation_part.h"
#include "mech/nearest_line.h"
#include "mech/tolerance_frame.h"
#include "mech/tolerance_leader.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kDatum = "TS_DATUM";
constexpr int kCentre = 5;

// Where a datum stands: on the surface, and the way into it.
struct DatumPlace {
  Point foot;
  double into = 0.0;   // radians counter-clockwise from the x axis
  bool onOwn = false;  // on a short level line of its own, from which a leader goes to the surface
};

// How far the short line reaches to either side, in units.
constexpr double kOwnLine = 4.0;

// Into a line whose outside nobody showed: up, or to the left of a plumb line, is outside.
double intoLine(const LineFoot& line) {
  const Point along = line.b - line.a;
  Point outside = quarterTurned(along);
  const bool plumb = std::fabs(outside.y) <= std::fabs(outside.x) * 1e-12;
  if (plumb ? outside.x > 0.0 : outside.y < 0.0) { outside = -outside; }
  return angleOf(-outside);
}

// The mark stands on the side of the line on which the user pointed.
DatumPlace datumPlace(CCadWindow& view, const LineFoot& line, Point picked) {
  constexpr double kOnLine = 1e-6;  // millimetres on paper
  const bool onLine = distance(line.foot, picked) <= kOnLine * paperMillimetre(view);
  return {line.foot, onLine ? intoLine(line) : angleOf(line.foot - picked)};
}

// Asked again until there is a line, unless a leader can lead to it. Nothing when the user ended the prompt.
std::optional<DatumPlace> askSurface(CCadWindow& view, bool leads) {
  while (const auto picked = askPoint(view, "Indicate the surface to mark.")) {
    const auto line = footOnNearestLine(view, *picked);
    if (line && !nearlyEqual(line->a, line->b)) { return datumPlace(view, *line, *picked); }
    if (leads) { return DatumPlace{.foot = *picked, .into = -std::numbers::pi / 2.0, .onOwn = true}; }
    ErrorMessage("There is no line near this point to stand the datum on. Please indicate the surface again.", &view);
  }
  return std::nullopt;
}

// A whole turn is none, and what rounding leaves of one is not written with a minus.
double turnOf(double radiansInto) {
  constexpr double kNoTurn = 5e-6;
  const double turn = degrees(radiansInto) + 90.0;
  return std::fabs(turn) < kNoTurn ? 0.0 : turn;
}

void placeMark(AnnotationPen& pen, const DatumPlace& place) {
  pen.symbol(kDatum,
             macroText::placeSymbolTurned(kDatum, place.foot, pen.style().scale * kCellScale, turnOf(place.into)));
}

// The letter stands upright in the middle of the mark's box, and belongs to the mark.
void letterMark(AnnotationPart& part, const DatumPlace& place, std::string_view letter) {
  constexpr double kBox = 7.5;  // units from the surface
  part.pen().text(place.foot - polar(kBox * part.pen().unit(), place.into), letter, kCentre);
  part.pen().view().gsExecuteMacro(macroText::takeSymbolInto(kDatum, kToleranceAnnotation.parent, part.group()));
}

// From the end of its own line that lies nearer to the feature; from a surface's line straight.
void leadFrom(const AnnotationPen& pen, const DatumPlace& place, Leader leader) {
  const Point half{place.onOwn ? kOwnLine * pen.unit() : 0.0, 0.0};
  pen.strokes().line(place.foot - half, place.foot + half);
  leader.begin = leader.feature.x < place.foot.x ? place.foot - half : place.foot + half;
  leader.bend = leader.begin;
  drawLeader(pen, leader);
}

// "" where the user gives none. One that would break its line is asked for again.
std::string askLetter(CCadWindow& view) {
  std::string letter = "A";
  view.gsGetTextFromPromptBar("Enter datum ID:", letter, 1);
  while (breaksLine(letter)) {
    ErrorMessage(numberText::format("A datum has one line: \"%s\" cannot hold \"\\N\", which breaks it.", letter),
                 &view);
    view.gsGetTextFromPromptBar("Enter datum ID:", letter, 1);
  }
  return letter;
}

void takeBack(CCadWindow& view) {
  view.gsExecuteMacro(macroText::selectName(kToleranceAnnotation.parent, kDatum));
  view.gsExecuteMacro(macroText::kDeleteSelection);
}

void drawDatum(CCadWindow& view, const DefinitionStore& store) {
  warnOfMissingLayer(store, kToleranceAnnotation, &view);
  const auto part = AnnotationPart::prepare(view, store, kToleranceAnnotation);
  if (!part) { return; }
  clearAll(view);
  const bool leads = leadersWanted(store);
  const auto place = askSurface(view, leads);
  if (!place) { return; }
  part->beginOnLayer("TSD");
  placeMark(part->pen(), *place);
  if (!part->hasSymbols()) { return; }
  const std::string letter = askLetter(view);
  const auto leader = leads && !letter.empty() ? askLeader(view) : std::nullopt;
  if (letter.empty() || (place->onOwn && !leader)) { return takeBack(view); }
  if (leader) { leadFrom(part->pen(), *place, *leader); }
  letterMark(*part, *place, letter);
  part->finishOnLayer();
}

}  // namespace

void drawToleranceDatum(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  toolset.view().SetFocus();
  drawDatum(toolset.view(), toolset.configuration().store());
  endPart(toolset.view());
}

}  // namespace ardenix::mech

#include <cmath>
#include <optional>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/core_services.h"
#include "mech/annotation_commands.h"
#include "mech/annotation_part.h"
#include "mech/nearest_line.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kDatum = "TS_DATUM";
constexpr int kCentre = 5;

// Where a datum stands: on the surface, and the way into it.
struct DatumPlace {
  Point foot;
  double into = 0.0;  // radians counter-clockwise from the x axis
};

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

// Asked again until there is a line. Nothing when the user ended the prompt.
std::optional<DatumPlace> askSurface(CCadWindow& view) {
  while (const auto picked = askPoint(view, "Indicate the surface to mark.")) {
    const auto line = footOnNearestLine(view, *picked);
    if (line && !nearlyEqual(line->a, line->b)) { return datumPlace(view, *line, *picked); }
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

void takeBack(CCadWindow& view) {
  view.gsExecuteMacro(macroText::selectName(kToleranceAnnotation.parent, kDatum));
  view.gsExecuteMacro(macroText::kDeleteSelection);
}

void drawDatum(CCadWindow& view, const DefinitionStore& store) {
  warnOfMissingLayer(store, kToleranceAnnotation, &view);
  const auto part = AnnotationPart::prepare(view, store, kToleranceAnnotation);
  if (!part) { return; }
  clearAll(view);
  const auto place = askSurface(view);
  if (!place) { return; }
  part->beginOnLayer("TSD");
  placeMark(part->pen(), *place);
  if (!part->hasSymbols()) { return; }
  std::string letter = "A";
  view.gsGetTextFromPromptBar("Enter datum ID:", letter, 1);
  if (letter.empty()) { return takeBack(view); }
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

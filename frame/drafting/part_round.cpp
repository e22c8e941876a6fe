#include "frame/drafting/part_round.h"

#include <cmath>
#include <limits>

#include "frame/drafting/group_numbering.h"
#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix {

namespace {

// Whether numbers of this size lie a thousandth apart or closer.
bool holdsThousandths(double coordinate) {
  const double size = std::fabs(coordinate);
  return std::nextafter(size, std::numeric_limits<double>::infinity()) - size <= 1e-3;
}

}  // namespace

std::optional<Point> askPoint(CCadWindow& view, std::string_view prompt) {
  Point point;
  if (view.gsGetPointFromUser(prompt, point.x, point.y) != 0) { return std::nullopt; }
  return point;
}

std::optional<Point> askPlace(CCadWindow& view, std::string_view prompt) {
  for (;;) {
    const auto point = askPoint(view, prompt);
    if (!point || (holdsThousandths(point->x) && holdsThousandths(point->y))) { return point; }
    ErrorMessage("The point lies too far from the origin: no part can be drawn there to a thousandth.", &view);
  }
}

std::optional<Point> askPointApart(CCadWindow& view, std::string_view prompt, Point other) {
  std::optional<Point> point;
  do { point = askPoint(view, prompt); } while (point && nearlyEqual(*point, other));
  return point;
}

double numberTyped(std::string_view typed, int field) {
  const std::string text = textField(typed, field, "", ' ');
  return numberText::parseTyped(text).value_or(coreGetFieldDouble(typed, 0.0, field, ' '));
}

double askNumber(CCadWindow& view, std::string_view prompt) {
  std::string typed;
  view.gsGetTextFromPromptBar(prompt, typed, 1);
  return numberTyped(typed, 1);
}

void clearAll(CCadWindow& view) {
  view.gsClearSelection();
  view.gsClearWorkSpace();
}

std::string startPart(CCadWindow& view, std::string_view parent, std::string_view prefix) {
  clearAll(view);
  return startNumberedGroup(view, parent, prefix);
}

void selectPart(CCadWindow& view, std::string_view parent, std::string_view group) {
  view.gsExecuteMacro(macroText::selectName(parent, group));
  view.gsExecuteMacro(macroText::linkSelection(group));
}

void turnPart(CCadWindow& view, Point centre, Point from, Point onto) {
  if (!nearlyEqual(onto, centre)) { view.gsExecuteMacro(macroText::rotateOnto(centre, from, onto)); }
}

void endPart(CCadWindow& view) {
  view.gsExecuteMacro(macroText::kRootParent);
  view.gsExecuteMacro(macroText::kNextPattern);
}

}  // namespace ardenix

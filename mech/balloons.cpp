#include "mech/balloons.h"

#include <algorithm>
#include <optional>

#include "frame/drafting/part_round.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/number_text.h"

namespace ardenix::mech {

namespace {

// Of the height of the number in it; and of the head of the leader, tenths of a millimetre.
constexpr double kRadius = 1.5;
constexpr double kHeadLength = 30.0;
constexpr double kHeadWidth = 10.0;
constexpr int kMiddle = 5;

// As large as the texts of the list, upright in the middle of the circle.
TextStyle numberStyle(CCadWindow& view) {
  TextDefaults defaults;
  view.gsGetTextDefaultParams(defaults);
  constexpr double kOfDefault = 1.5;
  return {.height = kOfDefault * defaults.height, .justification = kMiddle, .font = defaults.font, .pen = defaults.pen};
}

void drawBalloon(CCadWindow& view, size_t number, Point centre, Point part) {
  constexpr double kTenths = 10.0;
  const TextStyle style = numberStyle(view);
  const double radius = kRadius * style.height / kTenths * paperMillimetre(view);
  startPart(view, "BALLOONS", "B");
  const int colour = view.gsGetCurrPen();
  const DraftingPen pen(view, {.pen = colour});
  pen.circle(centre, radius);
  pen.text(centre, std::to_string(number), style);
  if (distance(centre, part) > radius) {
    pen.arrow(centre + unit(part - centre) * radius, part,
              {.length = kHeadLength, .width = kHeadWidth, .style3 = colour});
  }
  endPart(view);
}

Point nearestTo(Point centre, const std::vector<Point>& points) {
  return *std::ranges::min_element(points, {}, [centre](Point p) { return distance(p, centre); });
}

std::optional<Point> askFor(CCadWindow& view, std::string_view what, size_t number, const std::string& part) {
  return askPoint(
      view, numberText::format("%s balloon %d, %s (spacebar to leave it out)", what, static_cast<int>(number), part));
}

}  // namespace

void placeBalloons(CCadWindow& view, const std::vector<BalloonRow>& rows) {
  const bool escapedBefore = view.gsEscapePressed() != 0;
  for (size_t number = 1; number <= rows.size(); ++number) {
    if (!escapedBefore && view.gsEscapePressed() != 0) { return; }
    BalloonRow row = rows[number - 1];
    if (row.outline.empty()) {
      const auto part = askFor(view, "Click on a part for", number, row.part);
      if (!part) { continue; }
      row.outline = {*part};
    }
    if (const auto centre = askFor(view, "Click to place", number, row.part)) {
      drawBalloon(view, number, *centre, nearestTo(*centre, row.outline));
    }
  }
}

}  // namespace ardenix::mech

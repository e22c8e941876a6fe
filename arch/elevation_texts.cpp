#include "arch/elevation_texts.h"

#include <cctype>
#include <cmath>
#include <string>

#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

// Tenths of a millimetre on paper.
constexpr double kNameHeight = 50.0;
constexpr double kLevelHeight = 25.0;
// Millimetres on paper.
constexpr double kNameGap = 6.0;
constexpr double kLevelGap = 2.0;
constexpr double kLevelStroke = 8.0;

constexpr int kTopCentre = 6;
constexpr int kMiddleLeft = 2;

TextStyle textStyle(const ElevationFold& fold, double height, int justification, int pen) {
  constexpr double kTenths = 10.0;
  return {.height = height,
          .justification = justification,
          .angle = fold.symbolRotation() * kTenths,
          .font = "Arial",
          .pen = pen};
}

// "2 600", with a blank before every three digits.
std::string inThousands(long millimetres) {
  constexpr size_t kDigits = 3;
  std::string digits = std::to_string(millimetres);
  for (size_t at = digits.size(); at > kDigits;) {
    at -= kDigits;
    digits.insert(at, " ");
  }
  return digits;
}

std::string levelText(CCadWindow& view, double height) {
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  constexpr double kUnitOfParms = 100000.0;
  const double unit = parms.p[3] > 0.0 ? parms.p[3] / kUnitOfParms : 1.0;
  const long millimetres = std::lround(height * unit);
  return millimetres == 0 ? "0" : "+" + inThousands(millimetres);
}

}  // namespace

void writeElevationName(CCadWindow& view, const ElevationFold& fold, const ElevationEnds& ends, double ground,
                        std::string_view side, int pen) {
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  std::string name(side);
  for (char& letter : name) { letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter))); }
  name += " ELEVATION 1:" + numberText::shortest(parms.p[1]);
  const Point at = fold.out(middle(ends.left, ends.right), ground + kNameGap * paperMillimetre(view));
  DraftingPen(view, {.pen = pen}).text(at, name, textStyle(fold, kNameHeight, kTopCentre, pen));
}

void markLevel(CCadWindow& view, const ElevationFold& fold, Point rightEnd, const ElevationLevel& level, double beyond,
               const LineStyle& style) {
  const double millimetre = paperMillimetre(view);
  const Point edge = fold.out(rightEnd, level.distance) + fold.right() * beyond;
  const auto along = [&](double gap) { return edge + fold.right() * (gap * millimetre); };
  const DraftingPen pen(view, {.pen = style.pen});
  pen.line(along(kLevelGap), along(kLevelGap + kLevelStroke));
  pen.text(along(2.0 * kLevelGap + kLevelStroke), levelText(view, level.height),
           textStyle(fold, kLevelHeight, kMiddleLeft, style.pen));
}

}  // namespace ardenix::arch

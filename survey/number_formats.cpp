#include "survey/number_formats.h"

#include <cmath>

#include "frame/drafting/point.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

constexpr double kHairsbreadth = 1e-12;

std::string grouped(std::string_view digits, std::string_view separator) {
  std::string text(digits.substr(0, digits.size() % 3));
  for (size_t at = text.size(); at < digits.size(); at += 3) {
    if (at > 0) { text += separator; }
    text += digits.substr(at, 3);
  }
  return text;
}

struct Sexagesimal {
  int degrees = 0;
  double minutes = 0.0;
  double seconds = 0.0;
};

// Whether sixty of a unit have become one of the next.
bool isFull(double sixtieths) { return sixtieths >= 60.0 - (60.0 * kHairsbreadth + kHairsbreadth); }

Sexagesimal split(double radians, double secondsStep) {
  double all = degrees(radians);
  if (all < -kHairsbreadth) { all += 360.0; }
  Sexagesimal angle{static_cast<int>(std::floor(all)), 0.0, 0.0};
  angle.minutes = (all - angle.degrees) * 60.0;
  angle.seconds = (angle.minutes - std::floor(angle.minutes)) * 60.0;
  // A half that its way through radians left a hair short is still a half.
  constexpr double kHair = 1e-7;
  angle.seconds = std::floor((angle.seconds + kHair) / secondsStep + 0.5) * secondsStep;
  if (isFull(angle.seconds)) {
    angle.minutes += 1.0;
    angle.seconds -= 60.0;
  }
  if (isFull(angle.minutes)) {
    angle.minutes -= 60.0;
    angle.degrees += 1;
  }
  if (angle.degrees >= 360) { angle.degrees -= 360; }
  angle.minutes = std::floor(angle.minutes);
  return angle;
}

bool containsScale(std::string_view text) {
  constexpr std::string_view kWord = "SCALE";
  std::string capitals(text);
  for (char& c : capitals) { c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
  return capitals.find(kWord) != std::string::npos;
}

}  // namespace

std::string areaWithUnit(double squareMetres, std::string_view squareMetreName, const NumberStyle& style) {
  constexpr double kHectare = 10'000.0;
  const std::string whole = formattedArea(squareMetres);
  if (numberText::parseDouble(whole).value_or(0.0) < kHectare) {
    return grouped(whole, style.thousands) + ' ' + std::string(squareMetreName);
  }
  const std::string plain = numberText::fixed(squareMetres / kHectare, 4);
  const size_t stop = plain.find('.');
  return grouped(std::string_view(plain).substr(0, stop), style.thousands) +
         (style.decimal.empty() ? "." : style.decimal) + plain.substr(stop + 1) + " hectares";
}

std::string formattedNumber(double value, const NumberStyle& style, PlusSign plus) {
  const std::string plain = numberText::fixed(value, 2);
  const size_t first = plain.starts_with('-') ? 1 : 0;
  const size_t stop = plain.find('.');
  std::string text = grouped(std::string_view(plain).substr(first, stop - first), style.thousands);
  if (!style.decimal.empty()) { text += style.decimal + plain.substr(stop + 1); }
  if (plus == PlusSign::kAsStyled && style.plusSign && value > kHairsbreadth) { return "+" + text; }
  return plain.substr(0, first) + text;
}

BearingText formattedBearing(double radians, const NumberStyle& style) {
  const Sexagesimal angle = split(radians, style.roundBearing ? 10.0 : 1.0);
  const bool signs = style.bearing == std::string(1, kDegreeSign);
  const bool whole = angle.minutes == 0.0 && angle.seconds == 0.0;
  return {numberText::format("%d%s%02.0f%s%02.0f%s", angle.degrees, std::string_view(style.bearing), angle.minutes,
                             signs ? "'" : std::string_view(style.bearing), angle.seconds, signs ? "\"" : ""),
          whole && angle.degrees == 0, whole && angle.degrees == 180};
}

std::string formattedArea(double squareMetres) { return numberText::fixed(squareMetres, 0); }

std::string withScale(std::string_view text, double scale) {
  return containsScale(text) ? numberText::format("%s%.0f", text, scale) : std::string(text);
}

}  // namespace ardenix::survey

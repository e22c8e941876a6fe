#pragma once

#include <string>
#include <string_view>

#include "survey/number_style.h"

namespace ardenix::survey {

enum class PlusSign { kNever, kAsStyled };

// A distance or coordinate with two decimals, rounded as printf rounds; 1234.567 is "1 234,57" with comma and blank.
// A style without decimal separator cuts the decimals off after that rounding. The sign of a negative value stays
// even where its digits are zeros. A plus sign, where asked for and styled, goes before what is above 1e-12.
std::string formattedNumber(double value, const NumberStyle& style, PlusSign plus = PlusSign::kNever);

struct BearingText {
  std::string text;
  bool zero = false;      // as written, 0 degrees 00 minutes 00 seconds
  bool straight = false;  // as written, 180 degrees 00 minutes 00 seconds
};

// A direction in radians, 0 to 2 pi, in degrees, minutes and whole seconds, or tens of seconds where the style rounds;
// a full circle is 0.
BearingText formattedBearing(double radians, const NumberStyle& style);

// Whole square metres.
std::string formattedArea(double squareMetres);

// From 1 ha on in hectares with four decimals, below in whole square metres, followed by the unit: "hectares", or what
// square metres are called. Both are grouped as the style says; without a decimal separator hectares get a full stop.
std::string areaWithUnit(double squareMetres, std::string_view squareMetreName, const NumberStyle& style);

// "Scale 1:" and 500 give "Scale 1:500"; a text without "scale" in it, in capitals or not, is returned as it is.
std::string withScale(std::string_view text, double scale);

}  // namespace ardenix::survey

#pragma once

#include <string>
#include <string_view>

namespace ardenix::survey {

// The degree sign in Windows-1252.
inline constexpr char kDegreeSign = '\xB0';

// How a job writes its numbers and bearings.
struct NumberStyle {
  // At most one character each; empty: nothing. Without a decimal separator numbers lose their decimals; with
  // the degree sign bearings bear degree, minute and second signs.
  std::string decimal = ".";
  std::string thousands = ".";
  std::string bearing = ".";
  bool roundBearing = false;  // to the nearest 10 seconds
  bool plusSign = false;      // before positive coordinates
};

// The letters that settings files hold for separators, in the order in which dialogs offer them.
inline constexpr std::string_view kSeparatorLetters = "PCSNDM";

// The separator of a settings value, by its first letter: C a comma, S a blank, N nothing, D the degree sign, M a
// hyphen; a full stop for everything else.
std::string separatorOf(std::string_view value);

}  // namespace ardenix::survey

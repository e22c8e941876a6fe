#pragma once

#include <string>
#include <string_view>

// The labels that are offered when beacons, corners and erven are named one after another. Where letters are stepped,
// O and I are left out, since they read as 0 and 1.
namespace ardenix::survey {

// 12A, 12B, ..., 12Z, 13A; Z, 1A. Digits alone, or at the end only, are a number: 12, 13; RM9, RM10.
std::string nextDigitsThenLetters(std::string_view label);

// A, B, ..., Z, A1; Z1, A2; Z9, A10. Digits alone are a number: 12, 13.
std::string nextLettersThenDigits(std::string_view label);

// ERF12, ERF13; A, A1; 7, 8. Blanks round the prefix go.
std::string nextPrefixAndNumber(std::string_view label);

}  // namespace ardenix::survey

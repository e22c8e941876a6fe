#include "survey/label_sequences.h"

#include <algorithm>

#include "frame/host/core_services.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kDigits = "0123456789";

// The digits at the start, without leading zeros, as a number one higher; of any length. No digits count as 0.
std::string oneMore(std::string_view text) {
  std::string number(text.substr(0, text.find_first_not_of(kDigits)));
  number.erase(0, number.find_first_not_of('0'));
  for (size_t at = number.size(); at-- > 0;) {
    if (number[at] != '9') {
      ++number[at];
      return number;
    }
    number[at] = '0';
  }
  return "1" + number;
}

struct Stepped {
  char letter = 'A';
  bool wrapped = false;  // from Z to A
};

Stepped stepped(char letter) {
  if (letter == 'Z') { return {'A', true}; }
  if (letter == 'z') { return {'a', true}; }
  constexpr char kLast = '\xFF';
  if (letter == kLast) { return {letter, false}; }
  const char next = static_cast<char>(letter + 1);
  const bool readsAsDigit = next == 'O' || next == 'o' || next == 'I' || next == 'i';
  return {static_cast<char>(next + (readsAsDigit ? 1 : 0)), false};
}

// Steps the last character, and says whether it wrapped.
bool stepLast(std::string& text) {
  const auto [letter, wrapped] = stepped(text.back());
  text.back() = letter;
  return wrapped;
}

}  // namespace

std::string nextDigitsThenLetters(std::string_view label) {
  if (label.empty()) { return "A"; }
  const size_t split = label.find_first_not_of(kDigits);
  if (split == std::string_view::npos) { return oneMore(label); }
  const std::string_view number = label.substr(0, split);
  std::string letters(label.substr(split));
  if (number.empty() && kDigits.find(letters.back()) != std::string_view::npos) { return nextPrefixAndNumber(label); }
  if (stepLast(letters)) { return oneMore(number) + letters; }
  const size_t significant = number.find_first_not_of('0');
  if (number.empty()) { return letters; }
  return (significant == std::string_view::npos ? "0" : std::string(number.substr(significant))) + letters;
}

std::string nextLettersThenDigits(std::string_view label) {
  const size_t split = std::min(label.find_first_of(kDigits), label.size());
  std::string letters(label.substr(0, split));
  std::string number(label.substr(split));
  if (letters.empty()) { return oneMore(number); }
  if (!stepLast(letters)) { return letters + number; }
  if (number.find_first_not_of(kDigits) == std::string::npos) { return letters + oneMore(number); }
  stepLast(number);
  return letters + number;
}

std::string nextPrefixAndNumber(std::string_view label) {
  const size_t split = std::min(label.find_first_of(kDigits), label.size());
  std::string prefix(label.substr(0, split));
  coreTrimStr(prefix);
  return prefix + oneMore(label.substr(split));
}

}  // namespace ardenix::survey

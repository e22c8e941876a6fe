#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/services.h"

namespace ardenix::survey {

// A text of a sheet and what it is called.
struct LabelledText {
  std::string_view label;
  std::string text;
};

// Shows the texts in a grid, where the user changes them all at once. False where the user leaves them as they are.
bool askTexts(const Services& services, const std::string& title, std::vector<LabelledText>& texts);

// Shows notes of several lines. False where the user leaves them as they are.
bool askNotes(const Services& services, std::string& notes);

// Lets the user choose among these. The indexes of those chosen; none where the user gave it up.
std::vector<size_t> chooseSections(const Services& services, std::vector<std::string> sections);

std::vector<std::string> linesOf(std::string_view text);
// As many words in a line as it has room for letters.
std::vector<std::string> brokenIntoLines(std::string_view text, size_t letters);

}  // namespace ardenix::survey

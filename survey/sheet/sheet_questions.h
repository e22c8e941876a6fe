#pragma once

#include <string_view>

#include "survey/settings_keys.h"
#include "survey/sheet/sheet_writer.h"

// The texts of a sheet that settings files place by a row each. A row of size 0 is neither asked nor drawn.
namespace ardenix::survey {

// Asks for the text of a row and draws the answer at its place; up to `most` answers, a line below each other, where
// the row allows several: a blank one ends them.
void askRow(SheetWriter& sheet, std::string_view section, const KeyRow& question);
// The same, below the last text wherever the row stands.
void askRowBelow(SheetWriter& sheet, std::string_view section, const KeyRow& question);

// Draws a row's text without asking, or another text in the row's place.
void writeRow(SheetWriter& sheet, const TextRow& row);
void writeRow(SheetWriter& sheet, const TextRow& row, std::string_view text);

}  // namespace ardenix::survey

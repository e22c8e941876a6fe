#pragma once

#include <string>

#include "host/drawing/sheet.h"

namespace brevan {

// What the PDF writer leaves to be put right in its finished file. Every change keeps the length, because a
// PDF file lists where its parts begin; throws HostFailure where the file is not as the writer makes it.

// One fixed moment in place of the clock's, so that the same drawing gives the same bytes.
void fixCreationDate(std::string& file);

// The page as large as the sheet to a ten-thousandth of a point; the writer rounds it to whole points. The
// upper left corner stays.
void fixPageSize(std::string& file, const Sheet& sheet);

}  // namespace brevan

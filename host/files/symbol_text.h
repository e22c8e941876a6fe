#pragma once

#include <string>
#include <string_view>

#include "host/drawing/drawing.h"

namespace brevan {

// Symbol files as text, so that a draughtsman can read and change them. UTF-8, a statement a line, "#" starts a
// comment; numbers are millimetres from the symbol's origin, angles degrees counter-clockwise.
//
//   size paper | real        of the symbols that follow: millimetres on paper, or real ones
//   symbol NAME              what follows, up to the next symbol, is drawn in it
//   upturned NAME OTHER      NAME is OTHER turned upside down about the x axis
//   line X Y X Y ...         through two points or more
//   closed X Y X Y X Y ...   the same and back to the first
//   circle X Y R             about a centre
//   arc X Y R FROM TO        about a centre, counter-clockwise
//
// The drawing that comes of it holds the symbols and shows each of them once, named, in rows. Throws HostFailure
// with file and line.
Drawing drawingFromSymbolText(std::string_view utf8, const std::string& file);
Drawing openSymbolText(const std::string& path);

}  // namespace brevan

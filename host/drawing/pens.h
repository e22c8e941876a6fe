#pragma once

#include <cstdint>

#include "frame/host/limits.h"

namespace brevan {

// Colours are 0xRRGGBB.
using Colour = uint32_t;

enum class Ground { kPaper, kDark };

inline constexpr int kPens = limits::kPenByLayer - 1;  // the next number stands for the layer's pen

// What a pen draws with: black on paper and white on a dark screen for pen 1, distinct hues up to 15, then
// 24 hues of 10 shades each. Every colour stands off its ground. A number outside 1 to 255 draws as pen 1.
Colour penColour(int pen, Ground ground);

// The entry of the DXF colour index that comes closest to the pen on paper; 7, which shows black or
// white as the ground asks, for pen 1.
int colourIndex(int pen);

// The colour that an entry of the colour index (1 to 255) stands for.
Colour indexedColour(int index);

// Whether the entry that comes closest is the pen's very colour in every program; beyond the first nine,
// programs differ by a shade.
bool isIndexedExactly(int pen);

}  // namespace brevan

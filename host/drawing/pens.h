#pragma once

#include <cstdint>

#include "frame/host/limits.h"

namespace brevan {

// Colours are 0xRRGGBB.
using Colour = uint32_t;

enum class Ground { kPaper, kDark };

inline constexpr int kPens = limits::kPenByLayer - 1;  // the next number stands for the layer's pen

// What a pen draws with: black on paper and white on a dark screen for pen 1, plain colours up to 7, greys up to 15,
// then 24 hues of 10 shades each. Every colour stands off its ground. A number outside 1 to 255 draws as pen 1.
Colour penColour(int pen, Ground ground);

// The entry of the DXF colour index for a pen: 7, which shows black or white as the ground asks, for pen 1, and each
// other for one pen whose hue and shade it has.
int colourIndex(int pen);
// The pen of an entry, so that its index is the same again.
int penOfIndex(int index);

// The colour that an entry of the colour index (1 to 255) stands for.
Colour indexedColour(int index);

}  // namespace brevan

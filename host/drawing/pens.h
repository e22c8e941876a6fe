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

// The entry of the DXF colour index for a pen: 7, which shows black or white as the ground asks, for pen 1, and each of
// 1 to 249 for one pen whose hue and shade it has. Pens 10 to 15 have none of their own, so theirs is the closest.
int colourIndex(int pen);
// The pen of an entry, so that its index is the same again; a grey beyond 249 gives the nearest of the grey pens.
int penOfIndex(int index);

// The colour that an entry of the colour index (1 to 255) stands for.
Colour indexedColour(int index);

// Whether the entry stands for this pen alone.
bool hasOwnIndex(int pen);

}  // namespace brevan

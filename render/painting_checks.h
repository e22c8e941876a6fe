#pragma once

#include <cstddef>

#include "host/drawing/drawing.h"

namespace brevan {

// Throws HostFailure when no stroke was painted of a drawing that shows something: a picture is never
// blank without a word.
void requirePainted(size_t strokes, const Drawing& drawing);

}  // namespace brevan

#pragma once

#include <string>

#include "host/drawing/drawing.h"

namespace brevan {

// How far the numbers of a file's primitives may be strewn, because a reader finds them by index: a drawing
// from which so much was erased that it exceeds this is numbered anew from 1, in drawing order.
inline constexpr long long kMostStrewnDrgIds = 100'000;
constexpr long long mostDrgId(size_t primitives) { return kMostStrewnDrgIds + 16 * static_cast<long long>(primitives); }

// The whole drawing as the bytes of a drawing file: parameters, sheet, layers, groups, symbols, primitives. They
// are read again and compared before they are returned. Throws HostFailure.
std::string drawingDrg(const Drawing& drawing);

}  // namespace brevan

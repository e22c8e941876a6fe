#pragma once

#include <cstdio>
#include <cstdlib>

#include "host/drawing/drawing.h"

// What fuzz targets hold their readers to.
namespace fuzzing {

// Says where the law stands that does not hold, and stops.
inline void require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
  if (holds) { return; }
  std::fprintf(stderr, "%s:%d: the law does not hold\n", file, line);
  std::abort();
}

// Every primitive is finite and lies on a layer that is there; what symbols are made of is finite.
inline void requireSound(const brevan::Drawing& drawing) {
  drawing.forEach([&drawing](brevan::PrimitiveId, const brevan::Primitive& primitive) {
    require(isFinite(primitive.geometry) && drawing.layer(primitive.layer) != nullptr);
    require(primitive.group <= drawing.lastGroup());
  });
  for (const auto& [name, symbol] : drawing.symbols()) {
    for (const brevan::Primitive& part : symbol.parts) { require(isFinite(part.geometry)); }
  }
}

}  // namespace fuzzing

#include "host/drawing/symbol_expansion.h"

#include <array>

namespace brevan {

void copyDefinition(const Drawing& from, std::string_view name, Drawing& onto) {
  const SymbolDefinition* definition = from.symbol(name);
  if (definition == nullptr || onto.symbol(name) != nullptr) { return; }
  onto.addSymbol(*definition);
  for (const Primitive& part : definition->parts) {
    if (const auto* inner = std::get_if<Symbol>(&part.geometry)) { copyDefinition(from, inner->name, onto); }
  }
}

Transform symbolPlacement(const Symbol& symbol, double size) {
  const Point along = unitOfDegrees(symbol.rotation);
  const double across = symbol.mirrored ? -size : size;
  return Transform::shift(symbol.at) * Transform::rotation({}, along.x, along.y) *
         Transform{across, 0.0, 0.0, 0.0, size, 0.0};
}

std::vector<Geometry> missingSymbolStrokes() {
  constexpr double kHalf = 1.5;
  constexpr std::array<Point, 4> kCorners = {{{-kHalf, -kHalf}, {kHalf, -kHalf}, {kHalf, kHalf}, {-kHalf, kHalf}}};
  std::vector<Geometry> strokes;
  for (size_t corner = 0; corner < kCorners.size(); ++corner) {
    strokes.emplace_back(Line{kCorners[corner], kCorners[(corner + 1) % kCorners.size()]});
  }
  strokes.emplace_back(Line{kCorners[0], kCorners[2]});
  strokes.emplace_back(Line{kCorners[1], kCorners[3]});
  return strokes;
}

Text turnedOver(Text text) {
  text.angle += text.angle >= 1800.0 ? -1800.0 : 1800.0;
  const int tens = text.justification >= 11 ? 10 : 0;
  const int place = text.justification - tens;
  text.justification = tens + 10 - (place >= 1 && place <= 9 ? place : 1);
  return text;
}

}  // namespace brevan

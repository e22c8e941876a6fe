#include "host/drawing/symbol_expansion.h"

#include <algorithm>

#include "frame/host/core_services.h"

namespace brevan {

const SymbolDefinition* SymbolExpansion::definition(std::string_view name) {
  parts(name);
  return drawing_.symbol(name);
}

size_t SymbolExpansion::parts(std::string_view name) {
  open_.clear();  // a symbol refused earlier left its path
  return partsOf(name);
}

size_t SymbolExpansion::partsOf(std::string_view name) {
  if (const auto known = parts_.find(name); known != parts_.end()) { return known->second; }
  const SymbolDefinition* symbol = drawing_.symbol(name);
  if (symbol == nullptr) { return 1; }
  const std::string quoted = "Symbol \"" + std::string(name) + "\"";
  if (std::find(open_.begin(), open_.end(), name) != open_.end()) { throw HostFailure(quoted + " contains itself."); }
  if (open_.size() >= kDeepest) {
    throw HostFailure(quoted + " lies deeper than " + std::to_string(kDeepest) + " symbols within symbols.");
  }
  open_.push_back(name);
  size_t parts = 1;  // so that a tree of empty symbols comes to something, too
  for (const Primitive& part : symbol->parts) {
    const Symbol* inner = std::get_if<Symbol>(&part.geometry);
    parts += inner == nullptr ? 1 : partsOf(inner->name);
    if (parts > mostParts_) {
      throw HostFailure(quoted + " expands to more than " + std::to_string(mostParts_) + " parts.");
    }
  }
  open_.pop_back();
  parts_.emplace(name, parts);
  return parts;
}

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

#include "host/drawing/primitive.h"

namespace brevan {

namespace {

// What a transform does to a direction on paper, in degrees.
double turnedBy(const Transform& transform, double degreesBefore) {
  const Point direction = transform.direction(unitOfDegrees(degreesBefore));
  return degrees(angleOf(direction));
}

double wrapped(double value, double period) {
  const double turned = std::fmod(value, period);
  return turned < 0.0 ? turned + period : turned;
}

bool readsUpright(double tenths) { return tenths <= 900.0 || tenths > 2700.0; }

// A justification with left and right (or bottom and top) exchanged; tens stay.
int exchanged(int justification, bool leftRight) {
  const int place = (justification - 1) % 10;  // column by column, bottom to top
  const int column = place / 3;
  const int row = place % 3;
  return justification - place + (leftRight ? (2 - column) * 3 + row : column * 3 + 2 - row);
}

// A mirror image of a text lies where the text's own image would, with its letters as they were: it reads the way
// it did, upright or not, and the justification changes sides instead.
void mirrorText(Text& text, double image) {
  const double before = wrapped(text.angle, 3600.0);
  const bool turnedOver = readsUpright(image) != readsUpright(before);
  text.angle = turnedOver ? wrapped(image + 1800.0, 3600.0) : image;
  text.justification = exchanged(text.justification, turnedOver);
}

void transformText(Text& text, const Transform& transform) {
  text.at = transform(text.at);
  const bool plainShift = transform.xx == 1.0 && transform.yx == 0.0 && transform.yy == 1.0;
  if (plainShift) { return; }
  const double image = wrapped(turnedBy(transform, text.angle / 10.0) * 10.0, 3600.0);
  if (transform.mirrors()) {
    mirrorText(text, image);
  } else {
    text.angle = image;
  }
}

Symbol transformedSymbol(Symbol symbol, const Transform& transform) {
  symbol.at = transform(symbol.at);
  const bool plainShift = transform.xx == 1.0 && transform.yx == 0.0 && transform.yy == 1.0;
  if (plainShift) { return symbol; }
  if (transform.mirrors()) {
    // The image of the symbol's own y axis stays its y axis; the x axis is turned over.
    const double yAxis = turnedBy(transform, symbol.rotation + 90.0);
    symbol.rotation = wrapped(yAxis - 90.0, 360.0);
    symbol.mirrored = !symbol.mirrored;
  } else {
    symbol.rotation = wrapped(turnedBy(transform, symbol.rotation), 360.0);
  }
  symbol.scale *= std::sqrt(std::abs(transform.xx * transform.yy - transform.xy * transform.yx));
  return symbol;
}

struct Transformer {
  const Transform& transform;
  Geometry operator()(const Line& line) const { return Line{transform(line.a), transform(line.b)}; }
  Geometry operator()(const Arc& arc) const {
    return Arc{transform(arc.start), transform(arc.centre), transform(arc.end), arc.clockwise != transform.mirrors()};
  }
  Geometry operator()(Text text) const {
    transformText(text, transform);
    return text;
  }
  Geometry operator()(Arrow arrow) const {
    arrow.p1 = transform(arrow.p1);
    arrow.p2 = transform(arrow.p2);
    return arrow;
  }
  Geometry operator()(const Symbol& symbol) const { return transformedSymbol(symbol, transform); }
  Geometry operator()(Dimension dimension) const {
    dimension.at = transform(dimension.at);
    dimension.p1 = transform(dimension.p1);
    dimension.p2 = transform(dimension.p2);
    const bool quarterTurned = std::abs(transform.yx) > std::abs(transform.xx);
    if (quarterTurned) {
      const bool level = dimension.kind == DimensionKind::kHorizontal;
      dimension.kind = level ? DimensionKind::kVertical : DimensionKind::kHorizontal;
    }
    return dimension;
  }
  Geometry operator()(const Hatch& hatch) const { return transformed(hatch, transform); }
};

bool isFinite(const Hatch& hatch) {
  bool finite = isFinite(hatch.origin) && std::isfinite(hatch.scale) && std::isfinite(hatch.angle);
  for (const HatchLoop& loop : hatch.loops) {
    for (const HatchCorner& corner : loop) { finite = finite && std::isfinite(corner.bulge); }
  }
  for (const HatchLines& lines : hatch.lines) {
    finite = finite && std::isfinite(lines.angle) && isFinite(lines.start) && isFinite(lines.step);
    for (const double dash : lines.dashes) { finite = finite && std::isfinite(dash); }
  }
  return finite;
}

}  // namespace

std::string_view kindName(const Geometry& geometry) {
  constexpr std::array<std::string_view, std::variant_size_v<Geometry>> kNames = {
      "line", "arc", "text", "arrow", "symbol", "dimension", "hatch"};
  return kNames[geometry.index()];
}

Geometry transformed(const Geometry& geometry, const Transform& transform) {
  return std::visit(Transformer{transform}, geometry);
}

bool canTransform(const Geometry& geometry, const Transform& transform) {
  const Hatch* hatch = std::get_if<Hatch>(&geometry);
  const bool bends = std::holds_alternative<Arc>(geometry) || (hatch != nullptr && hasBulges(*hatch));
  return !bends || transform.keepsShape();
}

size_t weight(const Geometry& geometry) {
  constexpr size_t kLettersOfALine = 128;  // a primitive and its places in the indexes take about 240 bytes
  if (const Text* text = std::get_if<Text>(&geometry)) { return 1 + text->text.size() / kLettersOfALine; }
  if (const auto* dimension = std::get_if<Dimension>(&geometry)) {
    return 1 + dimension->text.size() / kLettersOfALine;
  }
  if (const Hatch* hatch = std::get_if<Hatch>(&geometry)) {
    constexpr size_t kCornersOfALine = 10;
    size_t corners = 0;
    for (const HatchLoop& loop : hatch->loops) { corners += loop.size(); }
    return 1 + corners / kCornersOfALine;
  }
  return 1;
}

bool isFinite(const Geometry& geometry) {
  bool finite = true;
  forEachPoint(geometry, [&finite](Point p) { finite = finite && isFinite(p); });
  if (const Text* text = std::get_if<Text>(&geometry)) {
    return finite && std::isfinite(text->height) && std::isfinite(text->angle) && std::isfinite(text->widthFactor);
  }
  if (const Arrow* arrow = std::get_if<Arrow>(&geometry)) {
    return finite && std::isfinite(arrow->length) && std::isfinite(arrow->width);
  }
  if (const Symbol* symbol = std::get_if<Symbol>(&geometry)) {
    return finite && std::isfinite(symbol->scale) && std::isfinite(symbol->rotation);
  }
  if (const Hatch* hatch = std::get_if<Hatch>(&geometry)) { return finite && isFinite(*hatch); }
  return finite;
}

}  // namespace brevan

#include "host/files/dxf/write/entities.h"

#include <algorithm>

#include "host/drawing/arrow_shape.h"
#include "host/drawing/dash_pattern.h"
#include "host/drawing/dimension_strokes.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/hatch_patterns.h"
#include "host/drawing/pens.h"
#include "host/drawing/symbol_expansion.h"
#include "host/drawing/text_layout.h"

namespace brevan {

namespace {

double positiveDegrees(double angle) {
  const double turned = std::fmod(angle, 360.0);
  return turned < 0.0 ? turned + 360.0 : turned;
}

}  // namespace

int dxfLineweight(double tenths) {
  constexpr std::array<int, 23> kAllowed = {5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50, 53,
                                            60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
  if (tenths <= 0.0) { return -3; }
  const double wanted = tenths * 10.0;
  return *std::min_element(kAllowed.begin(), kAllowed.end(),
                           [wanted](int a, int b) { return std::abs(a - wanted) < std::abs(b - wanted); });
}

// How the lines of a text lie on paper, in the lengths of the space.
struct DxfTextFrame {
  TextLayout layout;
  Transform toSpace;  // from millimetres about the text's point
  double capHeight = 0.0;
  int column = 0;  // 0 left, 1 centre, 2 right
  int row = 0;     // 0 bottom, 1 middle, 2 top

  [[nodiscard]] double anchorX(const PlacedLine& line) const { return line.baseline.x + line.width * 0.5 * column; }
};

DxfEntityWriter::DxfEntityWriter(DxfModel& model, DxfTags& tags, const DxfSpace& space)
    : model_(model), tags_(tags), space_(space) {
  DxfTags owner;
  owner.handle(330, space.owner);
  owner.text(100, "AcDbEntity");
  beforeStyle_ = owner.take();
}

void DxfEntityWriter::begin(std::string_view kind) {
  tags_.raw("0\n");
  tags_.raw(kind);
  tags_.raw("\n5\n");
  tags_.hex(model_.nextHandle());
  tags_.raw("\n");
  tags_.raw(reactors_);
  tags_.raw(beforeStyle_);
  tags_.raw(style_);
}

// A factor for the pattern of the line type, which readers lay themselves: from a dash at the start, or centred.
void DxfEntityWriter::beginCurve(std::string_view kind, const Curve& curve) {
  begin(kind);
  const double scale = dashScale(styleKey_.linetype, curve, 1.0 / space_.paperMillimetre);
  if (scale != 1.0) { tags_.real(48, scale); }
}

// Primitives of one look follow each other, so the groups that say it are kept from one to the next.
void DxfEntityWriter::setStyle(const Primitive& primitive, int pen) {
  const StyleKey key = {primitive.layer, pen, primitive.linetype, primitive.width};
  if (styled_ && key == styleKey_) { return; }
  styled_ = true;
  styleKey_ = key;
  const bool inSymbol = space_.symbol != nullptr;
  DxfTags style;
  style.text(8, inSymbol ? "0" : model_.layerName(primitive.layer));
  style.text(6, model_.lineTypeName(primitive.linetype));
  if (pen == kPenByLayer) {
    if (inSymbol) { style.integer(62, 0); }  // by block: the pen of the symbol where it is placed
  } else {
    style.integer(62, colourIndex(pen));
  }
  style.integer(370, dxfLineweight(primitive.width));
  style_ = style.take();
}

// A member of a group names it, as the group names its members.
void DxfEntityWriter::setReactors(const Primitive& primitive) {
  const GroupId group = space_.owner == kModelRecord ? primitive.group : 0;
  if (group == reactorsOf_) { return; }
  reactorsOf_ = group;
  DxfTags reactors;
  if (group != 0) {
    reactors.text(102, "{ACAD_REACTORS");
    reactors.handle(330, model_.groups()[static_cast<size_t>(group) - 1].handle);
    reactors.text(102, "}");
  }
  reactors_ = reactors.take();
}

DxfEntities DxfEntityWriter::write(const Primitive& primitive) {
  struct Visitor {
    DxfEntityWriter& writer;
    const Primitive& primitive;
    void operator()(const Line& line) const { writer.line(line); }
    void operator()(const Arc& arc) const { writer.arc(arc); }
    void operator()(const Text& text) const { writer.text(primitive, text); }
    void operator()(const Arrow& arrow) const { writer.arrow(primitive, arrow); }
    void operator()(const Symbol& symbol) const { writer.symbol(symbol); }
    void operator()(const Dimension&) const { writer.writeDimensionPicture(primitive); }
    void operator()(const Hatch& hatch) const { writer.hatch(hatch); }
  };
  setReactors(primitive);
  setStyle(primitive, primitive.pen);
  const DxfHandle first = model_.handleSeed();
  std::visit(Visitor{*this, primitive}, primitive.geometry);
  return {first, model_.handleSeed() - first};
}

void DxfEntityWriter::line(const Line& line) {
  const Point a = placed(line.a);
  const Point b = placed(line.b);
  beginCurve("LINE", line);
  tags_.raw("100\nAcDbLine\n10\n");
  tags_.number(a.x);
  tags_.raw("\n20\n");
  tags_.number(a.y);
  tags_.raw("\n30\n0\n11\n");
  tags_.number(b.x);
  tags_.raw("\n21\n");
  tags_.number(b.y);
  tags_.raw("\n31\n0\n");
}

void DxfEntityWriter::arc(const Arc& arc) {
  const double radius = arcRadius(arc);
  const Point centre = placed(arc.centre);
  if (radius == 0.0) {
    begin("POINT");
    tags_.text(100, "AcDbPoint");
    tags_.point(10, centre);
    return;
  }
  const double from = degrees(angleOf(placed(arc.clockwise ? arc.end : arc.start) - centre));
  const double to = degrees(angleOf(placed(arc.clockwise ? arc.start : arc.end) - centre));
  const bool full = from == to;
  beginCurve(full ? "CIRCLE" : "ARC", arc);
  tags_.raw("100\nAcDbCircle\n10\n");
  tags_.number(centre.x);
  tags_.raw("\n20\n");
  tags_.number(centre.y);
  tags_.raw("\n30\n0\n40\n");
  tags_.number(radius);
  tags_.raw("\n");
  if (full) { return; }
  tags_.raw("100\nAcDbArc\n50\n");
  tags_.number(positiveDegrees(from));
  tags_.raw("\n51\n");
  tags_.number(positiveDegrees(to));
  tags_.raw("\n");
}

void DxfEntityWriter::writeLoop(const Loop& loop) {
  if (const auto* circle = std::get_if<ArcShape>(&loop.front()); circle != nullptr && isFullCircle(*circle)) {
    write({.geometry = *circle});
    return;
  }
  setStyle({.geometry = Line{}}, 1);
  begin("LWPOLYLINE");
  tags_.text(100, "AcDbPolyline");
  tags_.integer(90, static_cast<long long>(loop.size()));
  tags_.integer(70, 1);
  for (const Curve& edge : loop) {
    const Point corner = placed(startOf(edge));
    tags_.real(10, corner.x);
    tags_.real(20, corner.y);
    if (std::holds_alternative<ArcShape>(edge)) { tags_.real(42, bulgeOf(edge)); }
  }
}

void DxfEntityWriter::text(const Primitive& primitive, Text text) {
  std::vector<std::string> lines = textLines(text.text);
  const bool blank = std::all_of(lines.begin(), lines.end(), [](const std::string& line) { return line.empty(); });
  if (blank) { return; }
  if (space_.symbol != nullptr && space_.symbol->key.turnsTexts) { text = turnedOver(std::move(text)); }
  setStyle(primitive, text.pen);
  const int plain = text.justification >= 11 ? text.justification - 10 : text.justification;
  const int place = plain >= 1 && plain <= 9 ? plain - 1 : 0;
  const Point along = unitOfDegrees(text.angle / 10.0);
  const double size = space_.paperMillimetre;
  DxfTextFrame frame;
  frame.layout = layOut(text);
  frame.toSpace = Transform::shift(placed(text.at)) * Transform::rotation({}, along.x, along.y) *
                  Transform::scaling({}, size, size);
  frame.capHeight = frame.layout.height * capHeight(faceOf(text.font));
  frame.column = place / 3;
  frame.row = place % 3;
  if (frame.capHeight == 0.0) { return; }
  if (lines.size() == 1) {
    singleLine(text, frame);
  } else {
    severalLines(text, frame, std::move(lines));
  }
}

// Readers agree on baselines and capitals, not on descenders: a bottom row is aligned by the baseline, the
// middle and top ones by the capitals, each at the point where the text is shown.
void DxfEntityWriter::singleLine(const Text& text, const DxfTextFrame& frame) {
  const PlacedLine& line = frame.layout.lines.front();
  const double up = frame.row * 0.5 * frame.capHeight;
  constexpr std::array<int, 3> kVertical = {0, 2, 3};  // baseline, middle, top
  const int vertical = kVertical[static_cast<size_t>(frame.row)];
  begin("TEXT");
  tags_.text(100, "AcDbText");
  tags_.point(10, frame.toSpace(line.baseline));
  tags_.real(40, frame.capHeight * space_.paperMillimetre);
  const bool underlined = (text.style & kUnderlined) != 0;
  tags_.text(1, (underlined ? "%%u" : "") + dxfTextValue(line.text, model_.version()));
  tags_.real(50, positiveDegrees(text.angle / 10.0));
  tags_.real(41, text.widthFactor == 0.0 ? 1.0 : text.widthFactor);
  tags_.text(7, model_.styleName(text.font));
  tags_.integer(72, frame.column);
  if (frame.column != 0 || vertical != 0) {
    tags_.point(11, frame.toSpace({frame.anchorX(line), line.baseline.y + up}));
  }
  tags_.text(100, "AcDbText");
  if (vertical != 0) { tags_.integer(73, vertical); }
}

void DxfEntityWriter::severalLines(const Text& text, const DxfTextFrame& frame, std::vector<std::string> lines) {
  const PlacedLine& top = frame.layout.lines.front();
  begin("MTEXT");
  tags_.text(100, "AcDbMText");
  tags_.point(10, frame.toSpace({frame.anchorX(top), top.baseline.y + frame.capHeight}));
  tags_.real(40, frame.capHeight * space_.paperMillimetre);
  tags_.real(41, 0.0);
  tags_.integer(71, 1 + frame.column);
  tags_.integer(72, 1);
  std::string value;
  if (text.widthFactor != 1.0 && text.widthFactor != 0.0) {
    value += "\\W" + numberText::shortest(text.widthFactor) + ";";
  }
  if ((text.style & kUnderlined) != 0) { value += "\\L"; }
  value += dxfMTextValue(lines, model_.version());
  constexpr size_t kChunk = 250;
  size_t at = 0;
  for (; value.size() - at > kChunk; at += kChunk) { tags_.text(3, std::string_view(value).substr(at, kChunk)); }
  tags_.text(1, std::string_view(value).substr(at));
  tags_.text(7, model_.styleName(text.font));
  tags_.point(11, unitOfDegrees(text.angle / 10.0));
  tags_.integer(73, 2);
  // Lines of an MTEXT stand 5/3 of the capitals' height apart times this factor.
  tags_.real(44, kLineSpacing * frame.layout.height / (frame.capHeight * 5.0 / 3.0));
}

void DxfEntityWriter::arrow(const Primitive& primitive, const Arrow& arrow) {
  const ArrowShape shape = arrowShape(arrow, space_.paperMillimetre);
  if (!shape.drawn) { return; }
  if (shape.hasShaft) { line(shape.shaft); }
  if (shape.headPen != kPenByLayer) { setStyle(primitive, shape.headPen); }
  solid(shape.head);
}

void DxfEntityWriter::solid(const std::array<Point, 3>& corners) {
  begin("SOLID");
  tags_.text(100, "AcDbTrace");
  for (size_t corner = 0; corner < 4; ++corner) {  // the last corner stands twice
    tags_.point(10 + static_cast<int>(corner), placed(corners[std::min<size_t>(corner, 2)]));
  }
}

void DxfEntityWriter::symbol(const Symbol& symbol) {
  if (symbol.scale == 0.0) { return; }
  const bool outermost = space_.symbol == nullptr;
  const DxfBlock& block =
      model_.block(outermost ? model_.outermostKey(symbol.name)
                             : DxfBlockKey{symbol.name, space_.symbol->key.realSize, space_.symbol->key.turnsTexts});
  const Parameters& parameters = model_.drawing().parameters();
  const double unit = block.key.realSize ? 1.0 / parameters.unit() : parameters.paperMillimetre();
  const double scale = symbol.scale * (outermost ? unit : 1.0);
  const bool turns = outermost && model_.turned() && (block.definition == nullptr || !block.definition->upright);
  begin("INSERT");
  tags_.text(100, "AcDbBlockReference");
  tags_.text(2, block.name);
  tags_.point(10, placed(symbol.at));
  tags_.real(41, symbol.mirrored ? -scale : scale);
  tags_.real(42, scale);
  tags_.real(43, scale);
  tags_.real(50, positiveDegrees(symbol.rotation + (turns ? 180.0 : 0.0)));
}

void DxfEntityWriter::hatch(const Hatch& hatch) {
  const bool solid = hatch.pattern == kSolidPattern;
  const std::span<const HatchLines> lines = linesOf(hatch);
  if (hatch.loops.empty() || (!solid && lines.empty())) { return; }
  begin("HATCH");
  tags_.text(100, "AcDbHatch");
  tags_.point(10, {});
  tags_.real(210, 0.0);
  tags_.real(220, 0.0);
  tags_.real(230, 1.0);
  tags_.text(2, dxfPlain(hatch.pattern, model_.version()));
  tags_.integer(70, solid ? 1 : 0);
  tags_.integer(71, 0);
  tags_.integer(91, static_cast<long long>(hatch.loops.size()));
  for (const HatchLoop& loop : hatch.loops) { hatchPath(loop); }
  constexpr int kOddParity = 0;
  constexpr int kPredefined = 1;
  constexpr int kCustom = 2;
  tags_.integer(75, kOddParity);
  tags_.integer(76, solid ? kPredefined : kCustom);
  if (!solid) {
    tags_.real(52, hatch.angle);
    tags_.real(41, hatch.scale * space_.paperMillimetre);
    tags_.integer(77, 0);
    tags_.integer(78, static_cast<long long>(lines.size()));
    for (const HatchLines& family : lines) { hatchLines(hatch, family); }
  }
  tags_.integer(98, 0);
}

void DxfEntityWriter::hatchPath(const HatchLoop& loop) {
  constexpr int kPolyline = 2;
  const bool bent = std::any_of(loop.begin(), loop.end(), [](const HatchCorner& c) { return c.bulge != 0.0; });
  tags_.integer(92, 1 + kPolyline);
  tags_.integer(72, bent ? 1 : 0);
  tags_.integer(73, 1);
  tags_.integer(93, static_cast<long long>(loop.size()));
  for (const HatchCorner& corner : loop) {
    const Point at = placed(corner.at);
    tags_.real(10, at.x);
    tags_.real(20, at.y);
    if (bent) { tags_.real(42, corner.bulge); }
  }
  tags_.integer(97, 0);
}

// Lines stand in the file as they lie, turned and with their full lengths.
void DxfEntityWriter::hatchLines(const Hatch& hatch, const HatchLines& lines) {
  const double size = hatch.scale * space_.paperMillimetre;
  const Point turned = unitOfDegrees(hatch.angle);
  const Point start = placed(hatch.origin) + Transform::rotation({}, turned.x, turned.y)(lines.start * size);
  const Point along = unitOfDegrees(lines.angle + hatch.angle);
  const Point step = Transform::rotation({}, along.x, along.y)(lines.step * size);
  tags_.real(53, positiveDegrees(lines.angle + hatch.angle));
  tags_.real(43, start.x);
  tags_.real(44, start.y);
  tags_.real(45, step.x);
  tags_.real(46, step.y);
  tags_.integer(79, static_cast<long long>(lines.dashes.size()));
  for (const double dash : lines.dashes) { tags_.real(49, dash * size); }
}

void DxfEntityWriter::writeSymbolParts(const DxfBlock& block) {
  if (block.definition == nullptr) {
    Primitive stroke;
    stroke.pen = kPenByLayer;
    for (Geometry& geometry : missingSymbolStrokes()) {
      stroke.geometry = std::move(geometry);
      write(stroke);
    }
    return;
  }
  for (const Primitive& part : block.definition->parts) { write(part); }
}

void DxfEntityWriter::writeDimensionPicture(const Primitive& primitive) {
  const bool inSymbol = space_.symbol != nullptr;
  const Parameters own = inSymbol ? Parameters() : model_.drawing().parameters();
  Primitive stroke = primitive;
  stroke.linetype = 1;
  stroke.group = 0;
  for (Geometry& geometry : dimensionStrokes(std::get<Dimension>(primitive.geometry), own)) {
    if (Text* text = std::get_if<Text>(&geometry)) { text->pen = primitive.pen; }
    stroke.geometry = std::move(geometry);
    write(stroke);
  }
}

DxfEntities DxfEntityWriter::writeDimension(const Primitive& primitive, size_t number) {
  const Dimension& dimension = std::get<Dimension>(primitive.geometry);
  const DimensionLine line = dimensionLine(dimension);
  const bool vertical = dimension.kind == DimensionKind::kVertical;
  const Parameters& parameters = model_.drawing().parameters();
  // The text's centre: half its height above its lower edge.
  const double half = kDimensionTextHeight / 20.0 * parameters.paperMillimetre() * (model_.turned() ? -1.0 : 1.0);
  const Point centre = dimensionTextPoint(dimension, parameters) + (vertical ? Point{-half, 0.0} : Point{0.0, half});
  const DxfEntities written = {model_.handleSeed(), 1};
  setReactors(primitive);
  setStyle(primitive, primitive.pen);
  begin("DIMENSION");
  tags_.text(100, "AcDbDimension");
  if (model_.version() != DxfVersion::kR2000) { tags_.integer(280, 0); }
  tags_.text(2, "*D" + std::to_string(number + 1));
  tags_.point(10, placed(line.second));
  tags_.point(11, placed(centre));
  constexpr int kLinear = 0;
  constexpr int kOwnBlock = 32;
  tags_.integer(70, kLinear + kOwnBlock);
  tags_.text(1, dimension.text.empty() ? " " : dxfMTextValue(textLines(dimension.text), model_.version()));
  tags_.integer(71, 5);
  tags_.real(42, distance(line.first, line.second));
  tags_.text(3, "Standard");
  tags_.text(100, "AcDbAlignedDimension");
  tags_.point(13, placed(dimension.p1));
  tags_.point(14, placed(dimension.p2));
  tags_.real(50, vertical ? 90.0 : 0.0);
  tags_.text(100, "AcDbRotatedDimension");
  return written;
}

}  // namespace brevan

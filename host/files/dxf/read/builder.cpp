#include "host/files/dxf/read/builder.h"

#include <algorithm>

namespace brevan {

namespace {

// From lengths of the space to tenths of a millimetre on paper.
void sizeOnPaper(Geometry& geometry, double paperMillimetre) {
  if (Text* text = std::get_if<Text>(&geometry)) { text->height /= paperMillimetre; }
  if (Arrow* arrow = std::get_if<Arrow>(&geometry)) {
    arrow->length /= paperMillimetre;
    arrow->width /= paperMillimetre;
  }
  if (Hatch* hatch = std::get_if<Hatch>(&geometry)) { hatch->scale /= paperMillimetre; }
}

Transform cellTransform(const DxfInsert& insert, Point base, double column, double row) {
  const Point along = unitOfDegrees(insert.rotation);
  const Transform flip = insert.flipped ? Transform{-1.0, 0.0, 0.0, 0.0, 1.0, 0.0} : Transform{};
  return flip * Transform::shift(insert.at) * Transform::rotation({}, along.x, along.y) *
         Transform::shift({column * insert.columnSpacing, row * insert.rowSpacing}) *
         Transform::scaling({}, insert.scaleX, insert.scaleY) * Transform::shift(Point{} - base);
}

// What a part leaves open is as its block's placement says.
DxfLook inherited(DxfLook part, const DxfLook& placement) {
  const bool onLayerZero = part.layer == 0;
  if (onLayerZero) { part.layer = placement.layer; }
  if (part.pen == DxfLook::kByBlock) { part.pen = placement.pen; }
  if (part.linetype == DxfLook::kByBlock) { part.linetype = placement.linetype; }
  if (part.width < 0.0) { part.width = placement.width; }
  return part;
}

double wrappedDegrees(double angle) {
  const double turned = std::fmod(angle, 360.0);
  return turned < 0.0 ? turned + 360.0 : turned;
}

}  // namespace

void DxfBuilder::beginEntity(uint64_t handle) {
  if (inEntity_) { entities_.back().last = drawing_.lastId(); }
  inEntity_ = handle != 0;
  if (!inEntity_) { return; }
  handlesRise_ = handlesRise_ && (entities_.empty() || entities_.back().handle < handle);
  entities_.push_back({handle, drawing_.lastId(), drawing_.lastId()});
}

const Primitive& DxfBuilder::styled(const DxfLook& look) {
  if (!(look == lastLook_)) {
    lastLook_ = look;
    lastStyle_ = styles_.styled(look);
  }
  return lastStyle_;
}

void DxfBuilder::push(const Primitive& style, Geometry&& geometry) {
  if (!isFinite(geometry)) {
    throw DxfRefusal("a " + std::string(kindName(geometry)) + " reaches beyond the numbers that can be computed with");
  }
  if (layersIn_ <= style.layer) { reachLayer(style.layer); }
  Primitive primitive{style.layer, style.pen, style.linetype, style.width, 0, std::move(geometry)};
  if (Text* text = std::get_if<Text>(&primitive.geometry)) { text->pen = primitive.pen; }
  drawing_.load(drawing_.lastId() + 1, std::move(primitive));
}

// Layers enter the drawing with the first thing that lies on them or beyond.
void DxfBuilder::reachLayer(int index) {
  while (layersIn_ <= index) {
    drawing_.loadLayer(layersIn_, styles_.layer(layersIn_));
    ++layersIn_;
  }
}

void DxfBuilder::setParameters(const Parameters& parameters) {
  parameters_ = parameters;
  drawing_.setParameters(parameters);
}

// A south-oriented drawing is written as it is seen on paper, its texts upright.
Geometry DxfBuilder::inDrawing(Geometry geometry) const {
  sizeOnPaper(geometry, parameters_.paperMillimetre());
  if (!parameters_.turnedOnPaper()) { return geometry; }
  if (Text* text = std::get_if<Text>(&geometry)) {
    text->at = Point{} - text->at;
    return geometry;
  }
  if (Symbol* symbol = std::get_if<Symbol>(&geometry)) {
    symbol->at = Point{} - symbol->at;
    return geometry;
  }
  Geometry turned = transformed(geometry, Transform{-1.0, 0.0, 0.0, 0.0, -1.0, 0.0});
  if (const Hatch* hatch = std::get_if<Hatch>(&geometry)) {
    Hatch upright = std::get<Hatch>(turned);
    upright.angle = hatch->angle;
    return upright;
  }
  return turned;
}

void DxfBuilder::take(const DxfLook& look, Geometry&& geometry) {
  const bool asItIs = std::holds_alternative<Line>(geometry) || std::holds_alternative<Arc>(geometry);
  if (asItIs && !parameters_.turnedOnPaper()) {
    push(styled(look), std::move(geometry));
  } else {
    push(styled(look), inDrawing(std::move(geometry)));
  }
}

void DxfBuilder::replaceLast(const DxfLook& look, Geometry geometry) {
  drawing_.replace(drawing_.lastId(), [&] {
    Primitive primitive = styled(look);
    primitive.geometry = inDrawing(std::move(geometry));
    return primitive;
  }());
}

void DxfBuilder::insert(const DxfLook& look, DxfInsert insert) {
  const DxfBlockRead* block = blocks_.find(insert.block);
  if (block == nullptr) {
    report_.note(insert.isPicture ? "DIMENSION without its picture" : "INSERT of a block that is not there");
    return;
  }
  const size_t parts = blocks_.partsOf(insert);
  const DxfOpenLook* open = insert.isPicture || !hasOneScale(insert) ? nullptr : blocks_.asSymbol(*block);
  const bool symbol = open != nullptr && styles_.looksAlikeAsSymbol(*open, look);
  expanded_ += symbol ? static_cast<size_t>(insert.columns * insert.rows) : parts;
  if (expanded_ > DxfBlocks::kMostParts) {
    throw DxfRefusal("the blocks placed up to \"" + insert.block + "\" come to more than " +
                     std::to_string(DxfBlocks::kMostParts) + " parts");
  }
  if (symbol) {
    placeSymbol(*block, insert, look);
  } else {
    explode(*block, insert, {}, look);
  }
}

void DxfBuilder::explode(const DxfBlockRead& block, const DxfInsert& insert, const Transform& outer,
                         const DxfLook& look) {
  for (long long row = 0; row < insert.rows; ++row) {
    for (long long column = 0; column < insert.columns; ++column) {
      const Point base = insert.isPicture ? Point{} : block.base;
      const Transform cell = cellTransform(insert, base, static_cast<double>(column), static_cast<double>(row));
      explodeOnce(block, outer * cell, look);
    }
  }
}

void DxfBuilder::explodeOnce(const DxfBlockRead& block, const Transform& placing, const DxfLook& look) {
  for (const DxfPiece& piece : block.pieces) {
    const DxfLook partLook = inherited(piece.look, look);
    if (const DxfInsert* inner = std::get_if<DxfInsert>(&piece.what)) {
      const DxfBlockRead* innerBlock = blocks_.find(inner->block);
      if (innerBlock != nullptr) { explode(*innerBlock, *inner, placing, partLook); }
      continue;
    }
    forEachPlaced(std::get<Geometry>(piece.what), placing, [&](Geometry geometry) {
      if (drawing_.count() > 16 * DxfBlocks::kMostParts) {
        throw DxfRefusal("block \"" + block.name + "\" makes the drawing exceed " +
                         std::to_string(16 * DxfBlocks::kMostParts) + " primitives");
      }
      push(styled(partLook), inDrawing(std::move(geometry)));
    });
  }
}

// The symbol's own mirror is about its y axis, before it is turned.
Symbol DxfBuilder::symbolOf(const DxfInsert& insert) const {
  Symbol symbol{insert.block, insert.at, std::abs(insert.scaleX), insert.rotation, insert.scaleX < 0.0};
  if (insert.scaleY < 0.0) {
    symbol.rotation += 180.0;
    symbol.mirrored = !symbol.mirrored;
  }
  if (insert.flipped) {
    symbol.at.x = -symbol.at.x;
    symbol.rotation = -symbol.rotation;
    symbol.mirrored = !symbol.mirrored;
  }
  symbol.rotation = wrappedDegrees(symbol.rotation);
  return symbol;
}

void DxfBuilder::placeSymbol(const DxfBlockRead& block, const DxfInsert& insert, const DxfLook& look) {
  defineSymbol(block);
  using Kind = DxfBlockOrigin::Kind;
  const bool onPaper = block.origin.kind == Kind::kPaperSymbol || block.origin.kind == Kind::kMissingSymbol;
  const double size = onPaper ? 1.0 / parameters_.paperMillimetre() : parameters_.unit();
  const bool turns = parameters_.turnedOnPaper() && !block.origin.upright;
  const Primitive style = styled(look);
  for (long long row = 0; row < insert.rows; ++row) {
    for (long long column = 0; column < insert.columns; ++column) {
      DxfInsert cell = insert;
      const Point along = unitOfDegrees(insert.rotation);
      const Point offset = {static_cast<double>(column) * insert.columnSpacing,
                            static_cast<double>(row) * insert.rowSpacing};
      cell.at = insert.at + Point{along.x * offset.x - along.y * offset.y, along.y * offset.x + along.x * offset.y};
      cell.block = block.name;
      Symbol symbol = symbolOf(cell);
      symbol.scale *= size;
      if (turns) { symbol.rotation = wrappedDegrees(symbol.rotation + 180.0); }
      push(style, inDrawing(std::move(symbol)));
    }
  }
}

void DxfBuilder::defineSymbol(const DxfBlockRead& block) {
  if (block.origin.kind == DxfBlockOrigin::Kind::kMissingSymbol || symbols_.contains(block.name)) { return; }
  SymbolDefinition& definition = symbols_[block.name];
  definition.name = block.name;
  definition.paperSize = block.origin.kind == DxfBlockOrigin::Kind::kPaperSymbol;
  definition.upright = block.origin.upright;
  const double paperMillimetre = definition.paperSize ? 1.0 : parameters_.scale();
  const Transform toOrigin = Transform::shift(Point{} - block.base);
  std::vector<Primitive> parts;
  for (const DxfPiece& piece : block.pieces) {
    Primitive part = styles_.styled(piece.look);
    part.layer = 0;
    if (piece.look.pen == DxfLook::kByBlock) { part.pen = kPenByLayer; }
    if (const DxfInsert* inner = std::get_if<DxfInsert>(&piece.what)) {
      const DxfBlockRead* innerBlock = blocks_.find(inner->block);
      if (innerBlock == nullptr) { continue; }
      defineSymbol(*innerBlock);
      part.geometry = transformed(symbolOf(*inner), toOrigin);
      parts.push_back(std::move(part));
      continue;
    }
    forEachPlaced(std::get<Geometry>(piece.what), toOrigin, [&](Geometry geometry) {
      sizeOnPaper(geometry, paperMillimetre);
      if (Text* text = std::get_if<Text>(&geometry)) { text->pen = part.pen; }
      part.geometry = std::move(geometry);
      parts.push_back(part);
    });
  }
  symbols_[block.name].parts = std::move(parts);
}

void DxfBuilder::addGroup(std::string_view parent, std::string_view name, const std::vector<uint64_t>& members) {
  if (!handlesRise_) {
    std::stable_sort(entities_.begin(), entities_.end(),
                     [](const Place& a, const Place& b) { return a.handle < b.handle; });
    handlesRise_ = true;
  }
  const GroupId group = drawing_.addGroup(parent, name);
  auto next = entities_.cbegin();
  Place run;  // of members that follow each other
  for (const uint64_t handle : members) {
    const bool follows = next != entities_.cend() && next->handle == handle;  // as members mostly do
    const auto found = follows ? next : entityOf(handle);
    if (found == entities_.cend()) { continue; }
    next = found + 1;
    if (found->before != run.last) {
      drawing_.loadGroupOf(run.before + 1, run.last, group);
      run.before = found->before;
    }
    run.last = found->last;
  }
  drawing_.loadGroupOf(run.before + 1, run.last, group);
}

std::vector<DxfBuilder::Place>::const_iterator DxfBuilder::entityOf(uint64_t handle) const {
  const auto found = std::lower_bound(entities_.begin(), entities_.end(), handle,
                                      [](const Place& place, uint64_t wanted) { return place.handle < wanted; });
  return found != entities_.end() && found->handle == handle ? found : entities_.end();
}

Drawing DxfBuilder::finish(std::string_view currentLayer) {
  const int current = styles_.layerOf(currentLayer.empty() ? "0" : currentLayer);
  reachLayer(styles_.layerCount() - 1);
  drawing_.setCurrentLayer(current);
  for (auto& [name, symbol] : symbols_) { drawing_.addSymbol(std::move(symbol)); }
  drawing_.endLoading();
  return std::move(drawing_);
}

}  // namespace brevan

#include "host/files/dxf/write/model.h"

#include "host/drawing/line_types.h"
#include "host/files/dxf/write/names.h"

namespace brevan {

DxfModel::DxfModel(const Drawing& drawing, DxfVersion version)
    : drawing_(drawing), version_(version), turned_(drawing.parameters().turnedOnPaper()) {
  drawing.forEach([this](PrimitiveId id, const Primitive& primitive) {
    note(primitive);
    if (std::holds_alternative<Dimension>(primitive.geometry)) { dimensions_.push_back(id); }
    if (const Symbol* symbol = std::get_if<Symbol>(&primitive.geometry)) { noteBlock(outermostKey(symbol->name)); }
  });
  measure();
  nameLayers();
  nameStyles();
  nameBlocks();
  nameGroups();
  firstDimensionRecord_ = next_;
  next_ += static_cast<DxfHandle>(dimensions_.size());
}

// Extents take a walk over the drawing, so they are asked for once.
void DxfModel::measure() {
  const Box extents = drawing_.extents();
  sheet_ = drawing_.sheet() ? *drawing_.sheet() : sheetFor(extents, drawing_.parameters());
  if (extents.empty()) { return; }
  extents_.add(shown(extents.low));
  extents_.add(shown(extents.high));
}

void DxfModel::note(const Primitive& primitive) {
  if (primitive.linetype != 1) { lineTypes_.insert(primitive.linetype); }
  if (const Text* text = std::get_if<Text>(&primitive.geometry)) { styles_.try_emplace(text->font); }
  if (std::holds_alternative<Dimension>(primitive.geometry)) { styles_.try_emplace(Text().font); }
}

DxfBlockKey DxfModel::outermostKey(const std::string& symbol) const {
  const SymbolDefinition* definition = drawing_.symbol(symbol);
  if (definition == nullptr) { return {symbol, false, false}; }
  return {symbol, !definition->paperSize, turned_ && !definition->upright};
}

// Inner symbols come before those that hold them.
void DxfModel::noteBlock(const DxfBlockKey& key) {
  if (blockIndex_.contains(key)) { return; }
  const SymbolDefinition* definition = drawing_.symbol(key.symbol);
  if (definition != nullptr) {
    for (const Primitive& part : definition->parts) {
      note(part);
      const Symbol* inner = std::get_if<Symbol>(&part.geometry);
      if (inner != nullptr) { noteBlock({inner->name, key.realSize, key.turnsTexts}); }
    }
  }
  blockIndex_.emplace(key, blocks_.size());
  blocks_.push_back({key, {}, definition, 0});
}

std::string DxfModel::lineTypeName(int number) const {
  return number == 1 ? "Continuous" : brevan::lineTypeName(number);
}

void DxfModel::nameLayers() {
  DxfNames names;
  for (int index = 0; index < drawing_.layerCount(); ++index) {
    const Layer* layer = drawing_.layer(index);
    if (layer != nullptr) { lineTypes_.insert(layer->linetype); }
    layerNames_.push_back(layer == nullptr ? std::string() : dxfPlain(names.unique(layer->name), version_));
  }
}

void DxfModel::nameStyles() {
  DxfNames names;
  names.unique("Standard");
  for (auto& [font, style] : styles_) { style = dxfPlain(names.unique(font), version_); }
}

void DxfModel::nameBlocks() {
  DxfNames names;
  for (DxfBlock& block : blocks_) {
    block.name = dxfPlain(names.unique(block.key.symbol), version_);
    block.record = nextHandle();
  }
}

void DxfModel::nameGroups() {
  DxfNames names;
  groups_.resize(static_cast<size_t>(drawing_.lastGroup()));
  drawing_.forEachGroup([&](const Group& group) {
    DxfGroup& written = groups_[static_cast<size_t>(group.id) - 1];
    written.unnamed = group.name == "_";
    const std::string name = written.unnamed ? "*A" + std::to_string(group.id) : names.unique(group.name);
    written.name = dxfPlain(name, version_);
    written.description = dxfPlain(std::string(group.parent) + " " + group.name, version_);
    written.handle = nextHandle();
  });
}

}  // namespace brevan

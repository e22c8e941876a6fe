#include "host/files/drg_filler.h"

#include <vector>

#include "host/files/drg_writer.h"

namespace brevan {

bool isStrewn(const Drawing& drawing) { return drawing.lastId() > mostDrgId(drawing.count()); }

namespace {

void fillLayerLooks(DrgDatabase& database, const Drawing& drawing) {
  std::vector<DrgLayerLook> looks;
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    const bool plain = layer == nullptr || (layer->linetype == 1 && layer->width == 0.0);
    if (!plain) { looks.push_back({index, layer->linetype, layer->width}); }
  }
  database.execute("DROP TABLE IF EXISTS layer_looks");
  if (looks.empty()) { return; }
  database.execute(drgDefinition<DrgLayerLook>());
  TableFiller<DrgLayerLook> rows(database);
  for (const DrgLayerLook& look : looks) { rows.add(look); }
}

}  // namespace

void fillHead(DrgDatabase& database, const Drawing& drawing) {
  TableFiller<DrgParameter> parameters(database);
  int number = 0;
  for (const double value : drawing.parameters().all) { parameters.add({++number, value}); }
  if (drawing.sheet()) { TableFiller<Sheet>(database).add(*drawing.sheet()); }
  fillLayerLooks(database, drawing);
  TableFiller<DrgLayer> layers(database);
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    if (layer != nullptr) { layers.add({index, *layer, index == drawing.currentLayer()}); }
  }
}

void fillGroup(TableFiller<DrgGroup>& groups, const Group& group) {
  groups.add({group.id, std::string(group.parent), std::string(group.name)});
}

void fillSymbols(DrgDatabase& database, const Drawing& drawing) {
  TableFiller<DrgSymbol> symbols(database);
  PrimitiveFiller parts(database);
  int number = 0;
  for (const auto& [name, symbol] : drawing.symbols()) {
    symbols.add({++number, name, symbol.paperSize, symbol.upright, symbol.file});
    int part = 0;
    for (const Primitive& primitive : symbol.parts) { parts.add(number, ++part, primitive); }
  }
}

}  // namespace brevan

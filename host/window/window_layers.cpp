#include "frame/host/core_services.h"
#include "host/window/drawing_window.h"

namespace brevan {

int DrawingWindow::gsAddLayer(std::string_view name) {
  Layer layer;
  layer.name = name;
  const int index = drawing_.addLayer(std::move(layer));
  drawing_.setCurrentLayer(index);
  call("gsAddLayer", {name});
  return index;
}

int DrawingWindow::gsGetLayerIndexFromName(std::string_view name) { return drawing_.layerNamed(name); }

int DrawingWindow::gsGetLayerCount() { return drawing_.layerCount(); }

int DrawingWindow::gsGetLayerDefIndex(int index, LayerDef& layer) {
  const Layer* found = drawing_.layer(index);
  if (found == nullptr) { return 0; }
  layer = {found->name, found->visible, found->locked, found->pen};
  return 1;
}

int DrawingWindow::gsSetLayerDefIndex(int index, const LayerDef& layer) {
  call("gsSetLayerDefIndex", {index, std::string_view(layer.name)});
  const Layer* found = drawing_.layer(index);
  if (found == nullptr) {
    Layer made;
    made.name = layer.name;
    index = drawing_.addLayer(std::move(made));
    found = drawing_.layer(index);
  }
  Layer changed = *found;
  const int sameName = drawing_.layerNamed(layer.name);
  if (sameName < 0 || sameName == index) { changed.name = layer.name; }
  changed.visible = layer.visible;
  changed.locked = layer.locked;
  changed.pen = layer.pen;
  drawing_.changeLayer(index, std::move(changed));
  return 1;
}

int DrawingWindow::gsGetCurrentLayer() { return drawing_.currentLayer(); }

std::string DrawingWindow::gsGetCurrentLayerName() { return drawing_.layer(drawing_.currentLayer())->name; }

void DrawingWindow::gsSetCurrentLayer(int index) {
  if (drawing_.layer(index) == nullptr) {
    throw HostFailure("There is no layer with the number " + std::to_string(index) + ".");
  }
  drawing_.setCurrentLayer(index);
  call("gsSetCurrentLayer", {index});
}

void DrawingWindow::gsDeleteLayer(std::string_view name) {
  call("gsDeleteLayer", {name});
  deleteLayer(drawing_.layerNamed(name));
}

void DrawingWindow::gsDeleteLayer(int index) {
  call("gsDeleteLayer", {index});
  deleteLayer(index);
}

// What is locked stays as it is.
void DrawingWindow::deleteLayer(int index) {
  const Layer* layer = drawing_.layer(index);
  if (layer != nullptr && !layer->locked) { drawing_.removeLayer(index); }
}

void DrawingWindow::gsSetLayerVisibility(int index, int shown, int) {
  call("gsSetLayerVisibility", {index, shown});
  const Layer* found = drawing_.layer(index);
  if (found == nullptr) { return; }
  Layer changed = *found;
  changed.visible = shown != 0;
  drawing_.changeLayer(index, std::move(changed));
}

int DrawingWindow::gsGetLayerLockedState() { return drawing_.layer(drawing_.currentLayer())->locked ? 1 : 0; }

void DrawingWindow::gsSetLayerLockedState(int locked) {
  call("gsSetLayerLockedState", {locked});
  Layer changed = *drawing_.layer(drawing_.currentLayer());
  changed.locked = locked != 0;
  drawing_.changeLayer(drawing_.currentLayer(), std::move(changed));
}

}  // namespace brevan

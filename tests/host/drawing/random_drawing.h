#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"

// A drawing that changes at random, the same way in every run. What it does is valid; every kind of change and of
// primitive comes up.
class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed) : random_(seed) {
    drawing.beginLoading();
    defineSymbol();
    drawing.endLoading();
  }

  brevan::Drawing drawing;

  brevan::PrimitiveId add() {
    brevan::Primitive primitive{.layer = anyLayer(), .pen = whole(1, 9), .geometry = geometry()};
    if (drawing.lastGroup() > 0 && whole(0, 1) == 1) { primitive.group = whole(1, drawing.lastGroup()); }
    return drawing.add(std::move(primitive));
  }

  void change() {
    using Change = void (RandomDrawing::*)();
    constexpr std::array<Change, 14> kChanges = {
        &RandomDrawing::draw,       &RandomDrawing::draw,        &RandomDrawing::draw,      &RandomDrawing::draw,
        &RandomDrawing::erase,      &RandomDrawing::move,        &RandomDrawing::move,      &RandomDrawing::move,
        &RandomDrawing::makeLayer,  &RandomDrawing::alterLayer,  &RandomDrawing::dropLayer, &RandomDrawing::makeGroup,
        &RandomDrawing::alterSheet, &RandomDrawing::defineSymbol};
    (this->*kChanges[static_cast<size_t>(whole(0, 13))])();
  }

  int whole(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  brevan::Point point() { return {static_cast<double>(whole(-200, 200)), static_cast<double>(whole(-200, 200))}; }

 private:
  brevan::Geometry geometry() {
    using namespace brevan;
    const Point at = point();
    const Point other = at + Point{whole(-40, 40) + 0.5, static_cast<double>(whole(-40, 40))};
    switch (whole(0, 6)) {
      case 0: return Line{at, other};
      case 1: return Arc{other, at, point(), whole(0, 1) == 1};
      case 2: return Text{at, "T" + std::to_string(whole(0, 999)), "Arial", 35.0, whole(0, 359) * 10.0, whole(1, 9)};
      case 3: return Arrow{at, other};
      case 5:
        return Hatch{"CONCRETE",
                     whole(1, 4) * 0.5,
                     static_cast<double>(whole(0, 359)),
                     at,
                     {},
                     {{{at, whole(-2, 2) * 0.5}, {other}, {point()}}}};
      case 4: return Symbol{"BOX", at, whole(1, 3) * 0.5, static_cast<double>(whole(0, 359)), whole(0, 1) == 1};
      default: return Dimension{static_cast<DimensionKind>(whole(0, 1)), point(), at, other, "!"};
    }
  }

  int anyLayer() {
    int index = whole(0, drawing.layerCount() - 1);
    while (drawing.layer(index) == nullptr) { --index; }
    return index;
  }
  brevan::PrimitiveId anyPrimitive() {
    for (int tries = 0; tries < 20 && drawing.lastId() > 0; ++tries) {
      const brevan::PrimitiveId id = whole(1, drawing.lastId());
      if (drawing.find(id) != nullptr) { return id; }
    }
    return 0;
  }

  void draw() { add(); }
  void defineSymbol() {
    brevan::SymbolDefinition box{whole(0, 1) == 1 ? "BOX" : "SPARE", {}, whole(0, 1) == 1, false};
    box.parts.push_back({.geometry = brevan::Line{{0, 0}, {static_cast<double>(whole(1, 9)), 0}}});
    box.parts.push_back({.geometry = brevan::Line{{4, 0}, {4, 3}}});
    drawing.addSymbol(std::move(box));
  }
  void erase() { drawing.remove(anyPrimitive()); }
  void move() {
    const brevan::PrimitiveId id = anyPrimitive();
    if (id == 0) { return; }
    brevan::Primitive moved = *drawing.find(id);
    const auto turn = brevan::Transform::rotation(point(), brevan::radians(whole(0, 359)));
    moved.geometry = transformed(moved.geometry, turn);
    moved.group = whole(0, drawing.lastGroup());
    if (whole(0, 2) == 0) { moved.layer = anyLayer(); }
    drawing.replace(id, std::move(moved));
  }
  void makeLayer() { drawing.setCurrentLayer(drawing.addLayer({"L" + std::to_string(whole(0, 6)), true, false, 1})); }
  void alterLayer() {
    const int index = anyLayer();
    brevan::Layer layer = *drawing.layer(index);
    layer.visible = !layer.visible;
    layer.linetype = layer.visible ? 1 : 4;
    layer.width = layer.visible ? 0.0 : 5.0;
    drawing.changeLayer(index, std::move(layer));
  }
  void dropLayer() { drawing.removeLayer(anyLayer()); }
  void makeGroup() {
    if (drawing.lastGroup() > 0 && whole(0, 2) == 0) {
      drawing.renameGroup(whole(1, drawing.lastGroup()), "BOLTS", "S" + std::to_string(whole(0, 3)));
    } else {
      drawing.addGroup("BOLTS", "S" + std::to_string(whole(0, 3)));
    }
  }
  void alterSheet() {
    brevan::Parameters parameters = drawing.parameters();
    parameters.setScale(whole(1, 5));
    drawing.setParameters(parameters);
    auto sheet = brevan::isoSheet("A4", true);
    sheet->corner = point();
    drawing.setSheet(sheet);
  }

  std::mt19937 random_;
};

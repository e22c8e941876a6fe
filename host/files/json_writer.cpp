#include "host/files/json_writer.h"

#include "host/drawing/hatch_text.h"

namespace brevan {

namespace {

struct GeometryMembers {
  JsonObject& object;

  void operator()(const Line& line) const { object.point("p1", line.a).point("p2", line.b); }
  void operator()(const Arc& arc) const {
    object.point("start", arc.start).point("centre", arc.centre).point("end", arc.end);
    object.integer("direction", arc.clockwise ? 1 : 0);
  }
  void operator()(const Text& text) const {
    object.point("at", text.at).text("text", text.text).text("font", text.font).number("height", text.height);
    object.number("angle", text.angle).integer("justification", text.justification).integer("style", text.style);
    if (text.widthFactor != 1.0) { object.number("widthFactor", text.widthFactor); }
  }
  void operator()(const Arrow& arrow) const {
    object.point("p1", arrow.p1).point("p2", arrow.p2).number("length", arrow.length).number("width", arrow.width);
    object.integers("style", arrow.style);
  }
  void operator()(const Symbol& symbol) const {
    object.text("name", symbol.name).point("at", symbol.at).number("scale", symbol.scale);
    object.number("rotation", symbol.rotation);
    if (symbol.mirrored) { object.boolean("mirrored", true); }
  }
  void operator()(const Dimension& dimension) const {
    object.text("kind", dimension.kind == DimensionKind::kHorizontal ? "horizontal" : "vertical");
    object.point("at", dimension.at).point("p1", dimension.p1).point("p2", dimension.p2).text("text", dimension.text);
  }
  // The outlines as a text: "x y bulge" of each corner, outlines parted by ";".
  void operator()(const Hatch& hatch) const {
    object.text("pattern", hatch.pattern).number("scale", hatch.scale).number("angle", hatch.angle);
    object.point("origin", hatch.origin).text("outlines", textOf(hatch.loops));
    if (!hatch.lines.empty()) { object.text("lines", textOf(hatch.lines)); }
  }
};

// What every primitive bears, under the names of the member list.
void addHeader(JsonObject& object, const Drawing& drawing, PrimitiveId id, const Primitive& primitive) {
  const Layer* layer = drawing.layer(primitive.layer);
  const Text* text = std::get_if<Text>(&primitive.geometry);
  const bool isArrow = std::holds_alternative<Arrow>(primitive.geometry);
  object.integer("id", id).text("type", kindName(primitive.geometry));
  object.text("layer", layer == nullptr ? std::string_view() : layer->name);
  object.integer("pen", text == nullptr ? primitive.pen : text->pen).integer("linetype", primitive.linetype);
  object.number(isArrow ? "lineWidth" : "width", primitive.width);
  const bool grouped = primitive.group != 0;
  object.text("parent", grouped ? drawing.group(primitive.group).parent : std::string_view());
  object.text("group", grouped ? drawing.group(primitive.group).name : std::string_view());
  object.integer("groupId", primitive.group);
}

void addParameters(std::string& out, const Parameters& parameters) {
  JsonObject object(out);
  object.number("scale", parameters.scale()).number("unit", parameters.unit());
  object.integer("coordinateSystem", parameters.coordinateSystem()).integer("orientation", parameters.orientation());
  object.numbers("all", parameters.all);
  object.close();
}

void addLayers(std::string& out, const Drawing& drawing) {
  std::string_view between;
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    if (layer == nullptr) { continue; }
    out += between;
    between = ",\n  ";
    JsonObject object(out);
    object.integer("index", index).text("name", layer->name).boolean("visible", layer->visible);
    object.boolean("locked", layer->locked).boolean("current", index == drawing.currentLayer());
    object.close();
  }
}

void addSymbolNames(std::string& out, const Drawing& drawing) {
  std::string_view between;
  for (const auto& [name, symbol] : drawing.symbols()) {
    out += between;
    between = ",";
    appendJsonText(out, name);
  }
}

void addPrimitives(std::string& out, const Drawing& drawing) {
  std::string_view between = "\n  ";
  drawing.forEach([&](PrimitiveId id, const Primitive&) {
    out += between;
    between = ",\n  ";
    JsonObject object(out);
    addPrimitiveMembers(object, drawing, id);
    object.close();
  });
}

}  // namespace

void addPrimitiveMembers(JsonObject& object, const Drawing& drawing, PrimitiveId id) {
  const Primitive* primitive = drawing.find(id);
  if (primitive == nullptr) { return; }
  addHeader(object, drawing, id, *primitive);
  std::visit(GeometryMembers{object}, primitive->geometry);
}

std::string drawingJson(const Drawing& drawing) {
  std::string out;
  out.reserve(200 * drawing.count() + 1000);
  out += "{\"format\":\"brevan-drawing\",\"version\":1,\n \"parameters\":";
  addParameters(out, drawing.parameters());
  out += ",\n \"layers\":[";
  addLayers(out, drawing);
  out += "],\n \"symbols\":[";
  addSymbolNames(out, drawing);
  out += "],\n \"primitives\":[";
  addPrimitives(out, drawing);
  out += "]}\n";
  return out;
}

}  // namespace brevan

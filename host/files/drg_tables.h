#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/drawing/drawing.h"
#include "host/drawing/hatch_text.h"
#include "host/drawing/refused_change.h"

namespace brevan {

// The tables of a drawing file. Each record names its columns once, in order; the table's definition, its
// writing and its reading all follow from that. A row is anything with real, integer, flag, text and point.

inline constexpr int kDrgApplication = 0x42525644;  // "BRVD" in the database's header
inline constexpr int kDrgVersion = 1;

struct DrgParameter {
  int number = 0;  // P1 is 1
  double value = 0.0;
};

struct DrgLayer {
  int index = 0;
  Layer layer;
  bool current = false;
};

struct DrgGroup {
  int id = 0;
  std::string parent;
  std::string name;
};

// Symbols are numbered from 1 in the order of their names.
struct DrgSymbol {
  int number = 0;
  std::string name;
  bool paperSize = true;
  bool upright = false;
  std::string file;
};

// A primitive of the drawing (symbol 0) or a part of a symbol, which are numbered from 1 each.
template <class Kind>
struct DrgPrimitive {
  int symbol = 0;
  int id = 0;
  Primitive primitive;  // all but the geometry
  Kind geometry;
};

struct DrgLayerLook {
  int layer = 0;
  int linetype = 1;
  double width = 0.0;
};

template <class Record>
struct DrgTable;

template <>
struct DrgTable<DrgParameter> {
  static constexpr std::string_view kName = "parameters";
  static constexpr std::string_view kKey = "number";
  template <class Row, class Record>
  static void columns(Row& row, Record& record) {
    row.integer("number", record.number);
    row.real("value", record.value);
  }
};

template <>
struct DrgTable<Sheet> {
  static constexpr std::string_view kName = "sheet";
  static constexpr std::string_view kKey = "name";
  template <class Row, class Record>
  static void columns(Row& row, Record& sheet) {
    row.text("name", sheet.name);
    row.real("width", sheet.width);
    row.real("height", sheet.height);
    row.point("x", "y", sheet.corner);
  }
};

template <>
struct DrgTable<DrgLayer> {
  static constexpr std::string_view kName = "layers";
  static constexpr std::string_view kKey = "layer";
  template <class Row, class Record>
  static void columns(Row& row, Record& record) {
    row.integer("layer", record.index);
    row.text("name", record.layer.name);
    row.flag("visible", record.layer.visible);
    row.flag("locked", record.layer.locked);
    row.integer("pen", record.layer.pen);
    row.flag("current", record.current);
  }
};

// Where layers have one besides their pen; a file without such layers lacks the table.
template <>
struct DrgTable<DrgLayerLook> {
  static constexpr std::string_view kName = "layer_looks";
  static constexpr std::string_view kKey = "layer";
  template <class Row, class Record>
  static void columns(Row& row, Record& record) {
    row.integer("layer", record.layer);
    row.integer("line_type", record.linetype);
    row.real("line_width", record.width);
  }
};

template <>
struct DrgTable<DrgGroup> {
  static constexpr std::string_view kName = "part_groups";
  static constexpr std::string_view kKey = "id";
  template <class Row, class Record>
  static void columns(Row& row, Record& group) {
    row.integer("id", group.id);
    row.text("parent", group.parent);
    row.text("name", group.name);
  }
};

template <>
struct DrgTable<DrgSymbol> {
  static constexpr std::string_view kName = "symbols";
  static constexpr std::string_view kKey = "symbol";
  template <class Row, class Record>
  static void columns(Row& row, Record& symbol) {
    row.integer("symbol", symbol.number);
    row.text("name", symbol.name);
    row.flag("paper_size", symbol.paperSize);
    row.flag("upright", symbol.upright);
    row.text("file", symbol.file);
  }
};

// The name of a kind's table and the columns of its geometry.
template <class Kind>
struct DrgGeometry;

template <>
struct DrgGeometry<Line> {
  static constexpr std::string_view kName = "lines";
  template <class Row, class Record>
  static void columns(Row& row, Record& line) {
    row.point("x1", "y1", line.a);
    row.point("x2", "y2", line.b);
  }
};

template <>
struct DrgGeometry<Arc> {
  static constexpr std::string_view kName = "arcs";
  template <class Row, class Record>
  static void columns(Row& row, Record& arc) {
    row.point("start_x", "start_y", arc.start);
    row.point("centre_x", "centre_y", arc.centre);
    row.point("end_x", "end_y", arc.end);
    row.flag("clockwise", arc.clockwise);
  }
};

template <>
struct DrgGeometry<Text> {
  static constexpr std::string_view kName = "texts";
  template <class Row, class Record>
  static void columns(Row& row, Record& text) {
    row.point("x", "y", text.at);
    row.text("text", text.text);
    row.text("font", text.font);
    row.real("height", text.height);
    row.real("angle", text.angle);
    row.integer("justification", text.justification);
    row.integer("style", text.style);
    row.integer("text_pen", text.pen);
    row.real("width_factor", text.widthFactor);
  }
};

template <>
struct DrgGeometry<Arrow> {
  static constexpr std::string_view kName = "arrows";
  template <class Row, class Record>
  static void columns(Row& row, Record& arrow) {
    row.point("x1", "y1", arrow.p1);
    row.point("x2", "y2", arrow.p2);
    row.real("head_length", arrow.length);
    row.real("head_width", arrow.width);
    row.integer("style1", arrow.style[0]);
    row.integer("style2", arrow.style[1]);
    row.integer("head_pen", arrow.style[2]);
  }
};

template <>
struct DrgGeometry<Symbol> {
  static constexpr std::string_view kName = "placed_symbols";
  template <class Row, class Record>
  static void columns(Row& row, Record& symbol) {
    row.text("name", symbol.name);
    row.point("x", "y", symbol.at);
    row.real("scale", symbol.scale);
    row.real("rotation", symbol.rotation);
    row.flag("mirrored", symbol.mirrored);
  }
};

template <>
struct DrgGeometry<Dimension> {
  static constexpr std::string_view kName = "dimensions";
  template <class Row, class Record>
  static void columns(Row& row, Record& dimension) {
    bool vertical = dimension.kind == DimensionKind::kVertical;
    row.flag("vertical", vertical);
    if constexpr (!std::is_const_v<Record>) {
      dimension.kind = vertical ? DimensionKind::kVertical : DimensionKind::kHorizontal;
    }
    row.point("x", "y", dimension.at);
    row.point("x1", "y1", dimension.p1);
    row.point("x2", "y2", dimension.p2);
    row.text("text", dimension.text);
  }
};

// Outlines, and the lines of a pattern that is not ours, stand in it as texts (host/drawing/hatch_text.h).
template <>
struct DrgGeometry<Hatch> {
  static constexpr std::string_view kName = "hatches";
  template <class Row, class Record>
  static void columns(Row& row, Record& hatch) {
    row.text("pattern", hatch.pattern);
    row.real("scale", hatch.scale);
    row.real("angle", hatch.angle);
    row.point("x", "y", hatch.origin);
    std::string outlines = textOf(hatch.loops);
    std::string lines = textOf(hatch.lines);
    row.text("outlines", outlines);
    row.text("lines", lines);
    if constexpr (!std::is_const_v<Record>) {
      auto loopsRead = hatchLoopsOf(outlines);
      auto linesRead = hatchLinesOf(lines);
      if (!loopsRead) { throw RefusedChange("\"outlines\" is numbers by three, two corners or more an outline"); }
      if (!linesRead) { throw RefusedChange("\"lines\" is five numbers or more a line"); }
      hatch.loops = std::move(*loopsRead);
      hatch.lines = std::move(*linesRead);
    }
  }
};

template <class Kind>
struct DrgTable<DrgPrimitive<Kind>> {
  static constexpr std::string_view kName = DrgGeometry<Kind>::kName;
  static constexpr std::string_view kKey = "symbol, id";
  template <class Row, class Record>
  static void columns(Row& row, Record& record) {
    row.integer("symbol", record.symbol);
    row.integer("id", record.id);
    row.integer("layer", record.primitive.layer);
    row.integer("pen", record.primitive.pen);
    row.integer("line_type", record.primitive.linetype);
    row.real("line_width", record.primitive.width);
    row.integer("part_group", record.primitive.group);
    DrgGeometry<Kind>::columns(row, record.geometry);
  }
};

// Calls the function object's operator()<Record>() for every table, kinds of primitive last.
template <class Function>
void forEachDrgPrimitiveTable(Function&& function) {
  function.template operator()<Line>();
  function.template operator()<Arc>();
  function.template operator()<Text>();
  function.template operator()<Arrow>();
  function.template operator()<Symbol>();
  function.template operator()<Dimension>();
  function.template operator()<Hatch>();
}
template <class Function>
void forEachDrgTable(Function&& function) {
  function.template operator()<DrgParameter>();
  function.template operator()<Sheet>();
  function.template operator()<DrgLayer>();
  function.template operator()<DrgGroup>();
  function.template operator()<DrgSymbol>();
  forEachDrgPrimitiveTable([&]<class Kind>() { function.template operator()<DrgPrimitive<Kind>>(); });
}

// Collects a table's columns as SQL.
class DrgColumnNames {
 public:
  void integer(std::string_view name, const int&) { add(name, "INTEGER"); }
  void flag(std::string_view name, const bool&) { add(name, "INTEGER"); }
  void real(std::string_view name, const double&) { add(name, "REAL"); }
  void text(std::string_view name, const std::string&) { add(name, "TEXT"); }
  void point(std::string_view x, std::string_view y, const Point&) { add(x, "REAL"), add(y, "REAL"); }

  std::string definitions;   // "x1 REAL NOT NULL, ..."
  std::string names;         // "x1, ..."
  std::string placeholders;  // "?, ..."

 private:
  void add(std::string_view name, std::string_view type) {
    const std::string_view between = names.empty() ? "" : ", ";
    definitions.append(between).append(name).append(" ").append(type).append(" NOT NULL");
    names.append(between).append(name);
    placeholders.append(between).append("?");
  }
};

template <class Record>
DrgColumnNames drgColumns() {
  DrgColumnNames names;
  const Record record{};
  DrgTable<Record>::columns(names, record);
  return names;
}

template <class Record>
std::string drgDefinition() {
  return "CREATE TABLE " + std::string(DrgTable<Record>::kName) + " (" + drgColumns<Record>().definitions +
         ", PRIMARY KEY (" + std::string(DrgTable<Record>::kKey) + ")) STRICT, WITHOUT ROWID";
}

}  // namespace brevan

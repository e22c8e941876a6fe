#include "host/files/drg_writer.h"

#include "frame/host/core_services.h"
#include "host/files/drg_database.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_tables.h"

namespace brevan {

namespace {

// Puts a record's columns into a statement, in order.
class BindingRow {
 public:
  explicit BindingRow(DrgStatement& statement) : statement_(statement) {}
  void integer(std::string_view, const int& value) { statement_.bind(++place_, static_cast<long long>(value)); }
  void flag(std::string_view, const bool& value) { statement_.bind(++place_, static_cast<long long>(value)); }
  void real(std::string_view, const double& value) { statement_.bind(++place_, value); }
  void text(std::string_view, const std::string& value) { statement_.bind(++place_, value); }
  void point(std::string_view, std::string_view, const Point& value) {
    statement_.bind(++place_, value.x);
    statement_.bind(++place_, value.y);
  }

 private:
  DrgStatement& statement_;
  int place_ = 0;
};

template <class Record>
class TableFiller {
 public:
  explicit TableFiller(DrgDatabase& database) : insert_(database, statementText()) {}
  void add(const Record& record) {
    BindingRow row(insert_);
    DrgTable<Record>::columns(row, record);
    insert_.step();
  }

 private:
  static std::string statementText() {
    const DrgColumnNames columns = drgColumns<Record>();
    return "INSERT INTO " + std::string(DrgTable<Record>::kName) + " (" + columns.names + ") VALUES (" +
           columns.placeholders + ")";
  }
  DrgStatement insert_;
};

void fillHead(DrgDatabase& database, const Drawing& drawing) {
  TableFiller<DrgParameter> parameters(database);
  int number = 0;
  for (const double value : drawing.parameters().all) { parameters.add({++number, value}); }
  if (drawing.sheet()) { TableFiller<Sheet>(database).add(*drawing.sheet()); }
  TableFiller<DrgLayer> layers(database);
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    if (layer != nullptr) { layers.add({index, *layer, index == drawing.currentLayer()}); }
  }
  TableFiller<DrgGroup> groups(database);
  for (GroupId id = 1; id <= drawing.lastGroup(); ++id) {
    groups.add({id, std::string(drawing.group(id).parent), std::string(drawing.group(id).name)});
  }
}

// A filler for each kind of primitive.
struct PrimitiveFiller {
  explicit PrimitiveFiller(DrgDatabase& database)
      : lines(database), arcs(database), texts(database), arrows(database), symbols(database), dimensions(database) {}

  void add(int symbol, int id, const Primitive& primitive) {
    Primitive plain;
    plain.layer = primitive.layer;
    plain.pen = primitive.pen;
    plain.linetype = primitive.linetype;
    plain.width = primitive.width;
    plain.group = primitive.group;
    std::visit(
        [&]<class Kind>(const Kind& geometry) {
          to(geometry).add({symbol, id, plain, geometry});
        },
        primitive.geometry);
  }

  TableFiller<DrgPrimitive<Line>>& to(const Line&) { return lines; }
  TableFiller<DrgPrimitive<Arc>>& to(const Arc&) { return arcs; }
  TableFiller<DrgPrimitive<Text>>& to(const Text&) { return texts; }
  TableFiller<DrgPrimitive<Arrow>>& to(const Arrow&) { return arrows; }
  TableFiller<DrgPrimitive<Symbol>>& to(const Symbol&) { return symbols; }
  TableFiller<DrgPrimitive<Dimension>>& to(const Dimension&) { return dimensions; }

  TableFiller<DrgPrimitive<Line>> lines;
  TableFiller<DrgPrimitive<Arc>> arcs;
  TableFiller<DrgPrimitive<Text>> texts;
  TableFiller<DrgPrimitive<Arrow>> arrows;
  TableFiller<DrgPrimitive<Symbol>> symbols;
  TableFiller<DrgPrimitive<Dimension>> dimensions;
};

bool isStrewn(const Drawing& drawing) { return drawing.lastId() > mostDrgId(drawing.count()); }

void fillPrimitives(DrgDatabase& database, const Drawing& drawing) {
  PrimitiveFiller primitives(database);
  const bool numberAnew = isStrewn(drawing);
  int number = 0;
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    ++number;
    primitives.add(0, numberAnew ? number : id, primitive);
  });
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

bool sameLayers(const Drawing& first, const Drawing& second) {
  if (first.layerCount() != second.layerCount() || first.currentLayer() != second.currentLayer()) { return false; }
  for (int index = 0; index < first.layerCount(); ++index) {
    const Layer* one = first.layer(index);
    const Layer* other = second.layer(index);
    if ((one == nullptr) != (other == nullptr) || (one != nullptr && !(*one == *other))) { return false; }
  }
  return true;
}

bool sameGroups(const Drawing& first, const Drawing& second) {
  if (first.lastGroup() != second.lastGroup()) { return false; }
  for (GroupId id = 1; id <= first.lastGroup(); ++id) {
    const Group& one = first.group(id);
    const Group& other = second.group(id);
    if (one.parent != other.parent || one.name != other.name) { return false; }
  }
  return true;
}

bool samePrimitives(const Drawing& drawing, const Drawing& read) {
  const bool numberedAnew = isStrewn(drawing);
  int number = 0;
  bool same = drawing.count() == read.count();
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const Primitive* other = read.find(numberedAnew ? ++number : id);
    same = same && other != nullptr && primitive == *other;
  });
  return same;
}

bool sameContents(const Drawing& drawing, const Drawing& read) {
  return drawing.parameters() == read.parameters() && drawing.sheet() == read.sheet() && sameLayers(drawing, read) &&
         sameGroups(drawing, read) && drawing.symbols() == read.symbols() && samePrimitives(drawing, read);
}

}  // namespace

std::string drawingDrg(const Drawing& drawing) {
  DrgDatabase database("the new drawing file");
  database.execute("PRAGMA application_id=" + std::to_string(kDrgApplication));
  database.execute("PRAGMA user_version=" + std::to_string(kDrgVersion));
  database.execute("BEGIN");
  forEachDrgTable([&]<class Record>() { database.execute(drgDefinition<Record>()); });
  fillHead(database, drawing);
  fillPrimitives(database, drawing);
  fillSymbols(database, drawing);
  database.execute("COMMIT");
  std::string bytes = database.bytes();
  if (!sameContents(drawing, drawingFromDrg(bytes, "the new drawing file"))) {
    throw HostFailure("the new drawing file does not read back as the drawing; nothing was written");
  }
  return bytes;
}

}  // namespace brevan

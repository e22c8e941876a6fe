#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "host/files/drg_database.h"
#include "host/files/drg_tables.h"

// Rows of a drawing file as a drawing has them.
namespace brevan {

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
  // A row of the same key gives way.
  void add(const Record& record) {
    BindingRow row(insert_);
    DrgTable<Record>::columns(row, record);
    insert_.step();
  }

 private:
  static std::string statementText() {
    const DrgColumnNames columns = drgColumns<Record>();
    return "REPLACE INTO " + std::string(DrgTable<Record>::kName) + " (" + columns.names + ") VALUES (" +
           columns.placeholders + ")";
  }
  DrgStatement insert_;
};

// A filler for each kind of primitive.
struct PrimitiveFiller {
  explicit PrimitiveFiller(DrgDatabase& database)
      : lines(database),
        arcs(database),
        texts(database),
        arrows(database),
        symbols(database),
        dimensions(database),
        hatches(database) {}

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
  TableFiller<DrgPrimitive<Hatch>>& to(const Hatch&) { return hatches; }

  TableFiller<DrgPrimitive<Line>> lines;
  TableFiller<DrgPrimitive<Arc>> arcs;
  TableFiller<DrgPrimitive<Text>> texts;
  TableFiller<DrgPrimitive<Arrow>> arrows;
  TableFiller<DrgPrimitive<Symbol>> symbols;
  TableFiller<DrgPrimitive<Dimension>> dimensions;
  TableFiller<DrgPrimitive<Hatch>> hatches;
};

// Parameters, sheet and layers.
void fillHead(DrgDatabase& database, const Drawing& drawing);
void fillGroup(TableFiller<DrgGroup>& groups, const Group& group);
void fillSymbols(DrgDatabase& database, const Drawing& drawing);
// Whether a drawing's ids are so strewn that its file numbers them anew.
bool isStrewn(const Drawing& drawing);

}  // namespace brevan

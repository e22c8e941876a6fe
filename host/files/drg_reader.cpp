#include "host/files/drg_reader.h"

#include <sqlite3.h>

#include <limits>
#include <map>
#include <set>

#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/files/drg_database.h"
#include "host/files/drg_tables.h"
#include "host/files/drg_writer.h"

namespace brevan {

namespace {

constexpr int kMostLayers = 1 << 18;

// Takes a record's columns from the present row of a statement, in order.
class ReadingRow {
 public:
  ReadingRow(const DrgStatement& statement, std::string_view table, long long number)
      : statement_(statement), table_(table), number_(number) {}

  void integer(std::string_view name, int& value) {
    sqlite3_stmt* const row = next(name, SQLITE_INTEGER);
    const sqlite3_int64 held = sqlite3_column_int64(row, place_);
    if (held < std::numeric_limits<int>::min() || held > std::numeric_limits<int>::max()) {
      fail(name, "is a number of at most nine digits");
    }
    value = static_cast<int>(held);
  }
  void flag(std::string_view name, bool& value) {
    int held = 0;
    integer(name, held);
    if (held != 0 && held != 1) { fail(name, "is 0 or 1"); }
    value = held == 1;
  }
  void real(std::string_view name, double& value) {
    sqlite3_stmt* const row = next(name, SQLITE_FLOAT);
    value = sqlite3_column_double(row, place_);
    if (!std::isfinite(value)) { fail(name, "is a finite number"); }
  }
  void text(std::string_view name, std::string& value) {
    sqlite3_stmt* const row = next(name, SQLITE_TEXT);
    const unsigned char* const characters = sqlite3_column_text(row, place_);
    const auto length = static_cast<size_t>(sqlite3_column_bytes(row, place_));
    if (characters == nullptr && length > 0) { throw std::bad_alloc(); }
    auto held = toWindows1252({reinterpret_cast<const char*>(characters), length});
    if (!held) { fail(name, "is UTF-8 text of characters that Windows-1252 has"); }
    value = std::move(*held);
  }
  void point(std::string_view x, std::string_view y, Point& value) { real(x, value.x), real(y, value.y); }

  [[noreturn]] void fail(std::string_view column, std::string_view rule) const {
    fail("\"" + std::string(column) + "\" " + std::string(rule));
  }
  [[noreturn]] void fail(const std::string& rule) const {
    statement_.database().fail("table " + std::string(table_) + ", row " + std::to_string(number_) + ": " + rule);
  }

 private:
  sqlite3_stmt* next(std::string_view name, int type) {
    if (sqlite3_column_type(statement_.handle(), ++place_) != type) {
      fail(name, type == SQLITE_INTEGER ? "is an integer" : type == SQLITE_FLOAT ? "is a real number" : "is a text");
    }
    return statement_.handle();
  }

  const DrgStatement& statement_;
  std::string_view table_;
  long long number_;
  int place_ = -1;
};

// Calls use(record, row) for every row; what the drawing refuses is reported as the row's fault.
template <class Record, class Use>
void readTable(DrgDatabase& database, const Use& use) {
  using Table = DrgTable<Record>;
  DrgStatement select(database, "SELECT " + drgColumns<Record>().names + " FROM " + std::string(Table::kName) +
                                    " ORDER BY " + std::string(Table::kKey));
  for (long long number = 1; select.step(); ++number) {
    ReadingRow row(select, Table::kName, number);
    Record record{};
    try {
      Table::columns(row, record);
      use(record, row);
    } catch (const RefusedChange& refused) { row.fail(refused.what()); }
  }
}

class DrgReader {
 public:
  DrgReader(DrgDatabase& database, Drawing& drawing) : database_(database), drawing_(drawing) {}

  void read() {
    checkHeader();
    checkSchema();
    checkStructure();
    drawing_.beginLoading();
    readHead();
    readPrimitives();
    addSymbols();
    try {
      drawing_.endLoading();
    } catch (const RefusedChange& refused) { database_.fail(refused.what()); }
  }

 private:
  long long number(const std::string& sql) {
    DrgStatement query(database_, sql);
    return query.step() ? sqlite3_column_int64(query.handle(), 0) : 0;
  }

  void checkHeader() {
    if (number("PRAGMA application_id") != kDrgApplication) { database_.fail("it is a database, but not a drawing"); }
    const long long version = number("PRAGMA user_version");
    if (version != kDrgVersion) {
      database_.fail("it has version " + std::to_string(version) +
                     " of the drawing format; this program reads version " + std::to_string(kDrgVersion));
    }
  }

  // Nothing but a drawing's tables, so that no trigger, view or computed column of another's making is met.
  void checkSchema() {
    std::map<std::string, std::string> expected;
    forEachDrgTable([&]<class Record>() { expected.emplace(DrgTable<Record>::kName, drgDefinition<Record>()); });
    expected.emplace(DrgTable<DrgLayerLook>::kName, drgDefinition<DrgLayerLook>());
    DrgStatement schema(database_, "SELECT name, sql FROM sqlite_schema WHERE sql IS NOT NULL");
    const auto column = [&schema](int place) {
      const unsigned char* const text = sqlite3_column_text(schema.handle(), place);
      return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text));
    };
    while (schema.step()) {
      const std::string name = column(0);
      if (name.starts_with("sqlite_")) { continue; }
      tables_.insert(name);
      const auto table = expected.find(name);
      if (table == expected.end() || table->second != column(1)) {
        database_.fail("\"" + messageText(name) + "\" in its database is not as a drawing has it");
      }
      expected.erase(table);
    }
    for (const std::string_view mayLack : {DrgTable<DrgLayerLook>::kName, DrgGeometry<Hatch>::kName}) {
      expected.erase(std::string(mayLack));
    }
    if (!expected.empty()) { database_.fail("its table \"" + expected.begin()->first + "\" is missing"); }
  }

  void checkStructure() {
    DrgStatement check(database_, "PRAGMA quick_check(1)");
    if (!check.step()) { database_.fail("its database could not be checked"); }
    const std::string found = reinterpret_cast<const char*>(sqlite3_column_text(check.handle(), 0));
    if (found != "ok") { database_.fail("the database in it is damaged: " + messageText(found)); }
  }

  void readHead() {
    readParameters();
    int sheets = 0;
    readTable<Sheet>(database_, [&](Sheet& sheet, const ReadingRow& row) {
      if (++sheets > 1) { row.fail("a drawing has one sheet at most"); }
      if (sheet.width <= 0.0 || sheet.height <= 0.0) { row.fail("a sheet has a width and a height above 0"); }
      drawing_.setSheet(std::move(sheet));
    });
    readLayers();
    readTable<DrgGroup>(database_, [&](const DrgGroup& group, const ReadingRow& row) {
      if (group.id != drawing_.lastGroup() + 1) { row.fail("groups are numbered from 1 without a gap"); }
      drawing_.addGroup(group.parent, group.name);
    });
    readTable<DrgSymbol>(database_, [&](DrgSymbol& symbol, const ReadingRow& row) {
      if (symbol.number != static_cast<int>(symbols_.size()) + 1) {
        row.fail("symbols are numbered from 1 without a gap");
      }
      if (!symbolNames_.insert(symbol.name).second) { row.fail("the symbol's name occurs twice"); }
      symbols_.push_back({{std::move(symbol.name), {}, symbol.paperSize, symbol.upright, std::move(symbol.file)}, {}});
    });
  }

  void readParameters() {
    Parameters parameters;
    int next = 1;
    readTable<DrgParameter>(database_, [&](const DrgParameter& parameter, const ReadingRow& row) {
      if (parameter.number != next || next > Parameters::kCount) { row.fail("parameters are numbered 1 to 12"); }
      parameters.all[static_cast<size_t>(next++) - 1] = parameter.value;
    });
    if (next != Parameters::kCount + 1) { database_.fail("table parameters: there are 12 of them"); }
    if (parameters.scale() <= 0.0 || parameters.unit() <= 0.0) {
      database_.fail("table parameters: scale (1) and unit (3) are above 0");
    }
    try {
      drawing_.setParameters(parameters);
    } catch (const RefusedChange& refused) { database_.fail("table parameters: " + std::string(refused.what())); }
  }

  std::map<int, DrgLayerLook> layerLooks() {
    std::map<int, DrgLayerLook> looks;
    if (!tables_.contains(DrgTable<DrgLayerLook>::kName)) { return looks; }
    readTable<DrgLayerLook>(database_, [&](const DrgLayerLook& look, const ReadingRow& row) {
      if (look.linetype < 1 || look.width < 0.0) { row.fail("a line type is above 0, a width not below"); }
      looks.emplace(look.layer, look);
    });
    return looks;
  }

  void readLayers() {
    std::map<int, DrgLayerLook> looks = layerLooks();
    std::set<std::string> names;
    int current = -1;
    readTable<DrgLayer>(database_, [&](DrgLayer& record, const ReadingRow& row) {
      if (record.index >= kMostLayers) { row.fail("layers are numbered 0 to " + std::to_string(kMostLayers - 1)); }
      if (!names.insert(record.layer.name).second) { row.fail("the layer's name occurs twice"); }
      if (record.current && current >= 0) { row.fail("one layer is the current one"); }
      if (record.current) { current = record.index; }
      if (const auto look = looks.extract(record.index)) {
        record.layer.linetype = look.mapped().linetype;
        record.layer.width = look.mapped().width;
      }
      drawing_.loadLayer(record.index, std::move(record.layer));
    });
    if (!looks.empty()) {
      database_.fail("table layer_looks: there is no layer " + std::to_string(looks.begin()->first));
    }
    if (current < 0) { database_.fail("table layers: one layer is the current one"); }
    drawing_.setCurrentLayer(current);
  }

  void readPrimitives() {
    size_t rows = 0;
    forEachDrgPrimitiveTable([&]<class Kind>() {
      if (!tables_.contains(DrgGeometry<Kind>::kName)) { return; }
      rows += static_cast<size_t>(number("SELECT count(*) FROM " + std::string(DrgGeometry<Kind>::kName)));
    });
    forEachDrgPrimitiveTable([&]<class Kind>() {
      if (!tables_.contains(DrgGeometry<Kind>::kName)) { return; }
      readTable<DrgPrimitive<Kind>>(database_, [&](DrgPrimitive<Kind>& record, const ReadingRow& row) {
        if (record.id > mostDrgId(rows)) { row.fail("numbers run to " + std::to_string(mostDrgId(rows)) + " here"); }
        record.primitive.geometry = std::move(record.geometry);
        if (record.symbol == 0) {
          drawing_.load(record.id, std::move(record.primitive));
        } else {
          addPart(record.symbol, record.id, std::move(record.primitive), row);
        }
      });
    });
  }

  void addPart(int symbol, int place, Primitive part, const ReadingRow& row) {
    if (symbol < 0 || symbol > static_cast<int>(symbols_.size())) { row.fail("there is no such symbol"); }
    if (!isFinite(part.geometry) || part.group < 0 || part.layer < 0) { row.fail("it holds a number out of range"); }
    if (!symbols_[static_cast<size_t>(symbol) - 1].parts.emplace(place, std::move(part)).second) {
      row.fail("the symbol has a part of this number already");
    }
  }

  void addSymbols() {
    for (SymbolRead& symbol : symbols_) {
      for (auto& [place, part] : symbol.parts) { symbol.definition.parts.push_back(std::move(part)); }
      drawing_.addSymbol(std::move(symbol.definition));
    }
  }

  struct SymbolRead {
    SymbolDefinition definition;
    std::map<int, Primitive> parts;
  };

  DrgDatabase& database_;
  Drawing& drawing_;
  std::set<std::string, std::less<>> tables_;  // there are in the file
  std::vector<SymbolRead> symbols_;
  std::set<std::string> symbolNames_;
};

// The size that the database's header states, so that a file cut short is told by itself.
size_t statedSize(std::string_view bytes) {
  const auto number = [bytes](size_t at, size_t count) {
    size_t value = 0;
    for (size_t n = 0; n < count; ++n) { value = value << 8U | static_cast<unsigned char>(bytes[at + n]); }
    return value;
  };
  const size_t pageSize = number(16, 2);
  return (pageSize == 1 ? size_t{65536} : pageSize) * number(28, 4);
}

}  // namespace

Drawing drawingFromDrg(std::string bytes, const std::string& file) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  constexpr size_t kHeader = 100;
  constexpr size_t kJournalKind = 18;  // 2: write-ahead, part of whose content lies in another file
  const std::string name = "\"" + messageText(file) + "\"";
  if (bytes.size() < kHeader || !bytes.starts_with(kMagic)) { throw HostFailure(name + ": it is no drawing file"); }
  if (bytes[kJournalKind] != 1 || bytes[kJournalKind + 1] != 1) {
    throw HostFailure(name + ": another program keeps it in write-ahead mode; let that program close it first");
  }
  if (statedSize(bytes) != bytes.size()) { throw HostFailure(name + ": it was cut short or added to"); }
  DrgDatabase database(name, bytes);
  Drawing drawing;
  DrgReader(database, drawing).read();
  return drawing;
}

Drawing openDrg(const std::string& path) { return drawingFromDrg(readWhole(path, kMostDrgBytes), path); }

}  // namespace brevan

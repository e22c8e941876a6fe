#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/every_kind.h"
#include "fuzz/laws.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"

// A drawing file, or changes of four bytes each to the values of a sound one: a fuzzer that flips bytes of a database
// seldom gets past its structure. What is read is a drawing that can be written and comes back alike.
namespace {

using namespace fuzzing;

constexpr std::string_view kDatabase = "SQLite format 3";
constexpr const char* kTables[] = {"parameters", "sheet", "layers", "part_groups",    "symbols",   "lines",
                                   "arcs",       "texts", "arrows", "placed_symbols", "dimensions"};
constexpr const char* kValues[] = {"0",
                                   "1",
                                   "-1",
                                   "2",
                                   "3",
                                   "256",
                                   "1e308",
                                   "-1e308",
                                   "9e999",
                                   "5e-324",
                                   "2147483647",
                                   "2147483648",
                                   "-2147483649",
                                   "9223372036854775807",
                                   "1000000",
                                   "NULL",
                                   "''",
                                   "'W1'",
                                   "'W2'",
                                   "'M10'",
                                   "'a'||char(10)",
                                   "char(0x4E2D)",
                                   "x'00'",
                                   "x'C3'",
                                   "'1'",
                                   "1.5",
                                   "char(0xB0)",
                                   "hex(zeroblob(40000))",
                                   "'a'||char(0)||'b'",
                                   "0.0"};

// Bytes read as "change, in this table, in this row, this column to this value".
class Edits {
 public:
  Edits() {
    const std::string whole = brevan::drawingDrg(everyKind());
    require(sqlite3_open(":memory:", &database_) == SQLITE_OK);
    auto* bytes = static_cast<unsigned char*>(sqlite3_malloc64(whole.size()));
    std::copy(whole.begin(), whole.end(), bytes);
    const auto size = static_cast<sqlite3_int64>(whole.size());
    require(sqlite3_deserialize(database_, "main", bytes, size, size,
                                SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE) == SQLITE_OK);
  }
  Edits(const Edits&) = delete;
  Edits& operator=(const Edits&) = delete;
  ~Edits() { sqlite3_close(database_); }

  // What the constraints of the tables refuse is left out.
  void change(ByteChoices& choices) {
    const std::string table = choices.of(kTables);
    const uint8_t action = choices.byte();
    const std::string column = columnOf(table, choices.byte());
    const std::string value = choices.of(kValues);
    const std::string row = "(SELECT rowid FROM " + table + " LIMIT 1 OFFSET " + std::to_string(action / 16) + ')';
    switch (action % 8) {
      case 0: execute("DELETE FROM " + table + " WHERE rowid=" + row); break;
      case 1: execute("INSERT INTO " + table + " SELECT * FROM " + table + " WHERE rowid=" + row); break;
      case 2: execute("UPDATE " + table + " SET " + column + '=' + value); break;
      case 3: execute("UPDATE " + table + " SET " + column + '=' + column + '+' + value + " WHERE rowid=" + row); break;
      default: execute("UPDATE " + table + " SET " + column + '=' + value + " WHERE rowid=" + row); break;
    }
  }
  [[nodiscard]] std::string bytes() const {
    sqlite3_int64 size = 0;
    unsigned char* bytes = sqlite3_serialize(database_, "main", &size, 0);
    std::string whole(reinterpret_cast<const char*>(bytes), static_cast<size_t>(size));
    sqlite3_free(bytes);
    return whole;
  }

 private:
  void execute(const std::string& sql) { sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr); }
  std::string columnOf(const std::string& table, int number) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(database_, ("SELECT * FROM " + table).c_str(), -1, &statement, nullptr) == SQLITE_OK);
    const std::string name = sqlite3_column_name(statement, number % sqlite3_column_count(statement));
    sqlite3_finalize(statement);
    return name;
  }

  sqlite3* database_ = nullptr;
};

std::string changed(ByteChoices choices) {
  Edits edits;
  for (int n = 0; n < 16 && !choices.done(); ++n) { edits.change(choices); }
  return edits.bytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  try {
    const brevan::Drawing drawing =
        brevan::drawingFromDrg(input.starts_with(kDatabase) ? std::string(input) : changed({data, size}), "fuzz.drg");
    requireSound(drawing);
    const brevan::Drawing again = brevan::drawingFromDrg(brevan::drawingDrg(drawing), "again.drg");
    require(brevan::drawingJson(drawing) == brevan::drawingJson(again));
  } catch (const HostFailure&) { return 0; }
  return 0;
}

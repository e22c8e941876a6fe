#include <sqlite3.h>

#include <memory>
#include <random>
#include <stdexcept>

#include "bench/report.h"
#include "host/drawing/drawing.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"

// Making the bytes of a drawing file, which are read back and compared, and reading them, against the database's own
// work: rows of the same numbers put into a table and taken out of it, or taken out alone.
namespace {

using namespace brevan;

void fill(Drawing& drawing, int64_t count) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> coordinate(0.0, 10'000.0);
  const auto point = [&] { return Point{coordinate(random), coordinate(random)}; };
  drawing.beginLoading();
  for (PrimitiveId id = 1; id <= count; ++id) { drawing.load(id, {.geometry = Line{point(), point()}}); }
  drawing.endLoading();
}

using Database = std::unique_ptr<sqlite3, decltype([](sqlite3* handle) { sqlite3_close(handle); })>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype([](sqlite3_stmt* handle) { sqlite3_finalize(handle); })>;

void execute(const Database& database, const char* sql) {
  if (sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) { throw std::runtime_error(sql); }
}

Statement prepared(const Database& database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.get(), sql, -1, &statement, nullptr) != SQLITE_OK) { throw std::runtime_error(sql); }
  return Statement(statement);
}

// Number, layer, pen, line type, width, group and four coordinates a line.
Database rowsAlone(const Drawing& drawing) {
  sqlite3* handle = nullptr;
  if (sqlite3_open(":memory:", &handle) != SQLITE_OK) { throw std::runtime_error("no database"); }
  Database database(handle);
  execute(database, "CREATE TABLE lines (id INTEGER PRIMARY KEY, a, b, c, d, e, x1, y1, x2, y2); BEGIN");
  const Statement insert = prepared(database, "INSERT INTO lines VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const Line& line = std::get<Line>(primitive.geometry);
    int place = 0;
    for (const int number : {id, primitive.layer, primitive.pen, primitive.linetype}) {
      sqlite3_bind_int(insert.get(), ++place, number);
    }
    sqlite3_bind_double(insert.get(), ++place, primitive.width);
    sqlite3_bind_int(insert.get(), ++place, primitive.group);
    for (const double number : {line.a.x, line.a.y, line.b.x, line.b.y}) {
      sqlite3_bind_double(insert.get(), ++place, number);
    }
    sqlite3_step(insert.get());
    sqlite3_reset(insert.get());
  });
  execute(database, "COMMIT");
  return database;
}

double sumOfRows(const Database& database) {
  const Statement select = prepared(database, "SELECT * FROM lines ORDER BY id");
  double sum = 0.0;
  while (sqlite3_step(select.get()) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(select.get()); ++column) {
      sum += sqlite3_column_double(select.get(), column);
    }
  }
  return sum;
}

void saveDrg(benchmark::State& state) {
  bench::keepBigBlocks();
  Drawing drawing;
  fill(drawing, state.range(0));
  bench::BestTime save;
  bench::BestTime putAndTaken;
  for (auto _ : state) {
    putAndTaken.measure([&] { return sumOfRows(rowsAlone(drawing)); });
    save.measure([&] { return drawingDrg(drawing).size(); });
  }
  bench::report(state, static_cast<double>(state.range(0)), save.seconds(), {{"SQLite alone", putAndTaken.seconds()}});
}

void openDrg(benchmark::State& state) {
  bench::keepBigBlocks();
  Drawing drawing;
  fill(drawing, state.range(0));
  const Database rows = rowsAlone(drawing);
  const std::string bytes = drawingDrg(drawing);
  bench::BestTime open;
  bench::BestTime taken;
  for (auto _ : state) {
    taken.measure([&] { return sumOfRows(rows); });
    open.measure([&] { return drawingFromDrg(bytes, "bench").count(); });
  }
  bench::report(state, static_cast<double>(state.range(0)), open.seconds(), {{"SQLite alone", taken.seconds()}});
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(2)->Unit(benchmark::kMillisecond);
}
BENCHMARK(saveDrg)->Apply(sizes);
BENCHMARK(openDrg)->Apply(sizes);

}  // namespace

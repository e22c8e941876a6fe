#include "host/files/drg_database.h"

#include <sqlite3.h>

#include <array>

#include "frame/host/core_services.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

struct Limit {
  int what;
  int most;
};
constexpr std::array<Limit, 9> kLimits = {{{SQLITE_LIMIT_LENGTH, 16 << 20},
                                           {SQLITE_LIMIT_SQL_LENGTH, 64 << 10},
                                           {SQLITE_LIMIT_COLUMN, 64},
                                           {SQLITE_LIMIT_EXPR_DEPTH, 50},
                                           {SQLITE_LIMIT_COMPOUND_SELECT, 4},
                                           {SQLITE_LIMIT_VDBE_OP, 50'000},
                                           {SQLITE_LIMIT_FUNCTION_ARG, 8},
                                           {SQLITE_LIMIT_ATTACHED, 0},
                                           {SQLITE_LIMIT_TRIGGER_DEPTH, 1}}};

struct Switch {
  int what;
  int on;
};
constexpr std::array<Switch, 4> kSwitches = {{{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                              {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                              {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                              {SQLITE_DBCONFIG_ENABLE_VIEW, 0}}};

constexpr int kStepsBetweenChecks = 10'000;
constexpr int64_t kStepsAnyFile = 20'000'000;
constexpr int64_t kStepsAByte = 100;

}  // namespace

void DrgDatabase::open(const std::string& file, int flags) {
  sqlite3* opened = nullptr;  // even where it fails
  const int result = sqlite3_open_v2(file.c_str(), &opened, flags | SQLITE_OPEN_PRIVATECACHE, nullptr);
  handle_.reset(opened);
  if (result != SQLITE_OK) { failAsReported(); }
  for (const Limit& limit : kLimits) { sqlite3_limit(handle_.get(), limit.what, limit.most); }
  for (const Switch& row : kSwitches) { sqlite3_db_config(handle_.get(), row.what, row.on, nullptr); }
}

void DrgDatabase::openInMemory() { open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY); }

std::unique_ptr<DrgDatabase> DrgDatabase::onDisk(const std::string& path) {
  std::unique_ptr<DrgDatabase> database(new DrgDatabase());
  database->name_ = path;
  database->open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW);
  database->execute(
      "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=FULL; "
      "PRAGMA temp_store=MEMORY; BEGIN IMMEDIATE; COMMIT");
  return database;
}

DrgDatabase::DrgDatabase(std::string name) : name_(std::move(name)) {
  openInMemory();
  execute("PRAGMA journal_mode=OFF; PRAGMA page_size=4096; PRAGMA temp_store=MEMORY");
}

DrgDatabase::DrgDatabase(std::string name, std::string& bytes)
    : name_(std::move(name)), stepsLeft_(kStepsAnyFile + kStepsAByte * static_cast<int64_t>(bytes.size())) {
  openInMemory();
  const auto size = static_cast<sqlite3_int64>(bytes.size());
  auto* const data = reinterpret_cast<unsigned char*>(bytes.data());
  if (sqlite3_deserialize(handle_.get(), "main", data, size, size, SQLITE_DESERIALIZE_READONLY) != SQLITE_OK) {
    failAsReported();
  }
  const auto countDown = [](void* left) { return (*static_cast<int64_t*>(left) -= kStepsBetweenChecks) < 0 ? 1 : 0; };
  sqlite3_progress_handler(handle_.get(), kStepsBetweenChecks, countDown, &stepsLeft_);
  execute("PRAGMA cell_size_check=ON; PRAGMA query_only=ON; PRAGMA temp_store=MEMORY; PRAGMA cache_size=-4000");
}

void DrgDatabase::Close::operator()(sqlite3* handle) const { sqlite3_close(handle); }

void DrgDatabase::execute(const std::string& sql) {
  if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) { failAsReported(); }
}

std::string DrgDatabase::bytes() const {
  sqlite3_int64 size = 0;
  const std::unique_ptr<unsigned char, void (*)(void*)> data(sqlite3_serialize(handle_.get(), "main", &size, 0),
                                                             sqlite3_free);
  if (data == nullptr) { fail("there is not enough memory"); }
  return {reinterpret_cast<const char*>(data.get()), static_cast<size_t>(size)};
}

void DrgDatabase::fail(std::string_view reason) const { throw HostFailure(name_ + ": " + std::string(reason)); }

void DrgDatabase::failAsReported() const {
  switch (sqlite3_errcode(handle_.get())) {
    case SQLITE_INTERRUPT: fail("it asks for more work than a file of its size can need");
    case SQLITE_NOMEM: throw std::bad_alloc();
    default: fail("the database in it is damaged: " + messageText(sqlite3_errmsg(handle_.get())));
  }
}

DrgStatement::DrgStatement(DrgDatabase& database, const std::string& sql) : database_(database) {
  const int length = static_cast<int>(sql.size());
  if (sqlite3_prepare_v2(database.handle(), sql.c_str(), length, &handle_, nullptr) != SQLITE_OK) {
    database.failAsReported();
  }
}

DrgStatement::~DrgStatement() { sqlite3_finalize(handle_); }

void DrgStatement::bind(int place, long long value) {
  if (sqlite3_bind_int64(handle_, place, value) != SQLITE_OK) { database_.failAsReported(); }
}

void DrgStatement::bind(int place, double value) {
  if (sqlite3_bind_double(handle_, place, value) != SQLITE_OK) { database_.failAsReported(); }
}

void DrgStatement::bind(int place, std::string_view windows1252) {
  const std::string text = toUtf8(windows1252);
  const int length = static_cast<int>(text.size());
  if (sqlite3_bind_text(handle_, place, text.data(), length, SQLITE_TRANSIENT) != SQLITE_OK) {
    database_.failAsReported();
  }
}

bool DrgStatement::step() {
  const int result = sqlite3_step(handle_);
  if (result == SQLITE_ROW) { return true; }
  if (result != SQLITE_DONE) { database_.failAsReported(); }
  sqlite3_reset(handle_);
  return false;
}

}  // namespace brevan

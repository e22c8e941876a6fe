#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brevan {

// A drawing file's database, in memory but where it is opened on disk. What the library reports is thrown as
// HostFailure with the name given.
class DrgDatabase {
 public:
  // A new and empty one.
  explicit DrgDatabase(std::string name);
  // One from a file's bytes, to be read only. Its schema is trusted with nothing, and work on it is bounded by
  // its size. The bytes must outlive it.
  DrgDatabase(std::string name, std::string& bytes);
  // One of our own making on disk, to be changed in place: a transaction is durable when it ends, and one that was
  // cut off is taken back by the next opening. While it is open, a second program is refused.
  static std::unique_ptr<DrgDatabase> onDisk(const std::string& path);
  ~DrgDatabase() = default;
  DrgDatabase(const DrgDatabase&) = delete;
  DrgDatabase& operator=(const DrgDatabase&) = delete;

  void execute(const std::string& sql);
  [[nodiscard]] std::string bytes() const;
  [[nodiscard]] sqlite3* handle() const { return handle_.get(); }
  [[noreturn]] void fail(std::string_view reason) const;
  [[noreturn]] void failAsReported() const;

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };
  DrgDatabase() = default;
  void open(const std::string& file, int flags);
  void openInMemory();
  std::string name_;
  int64_t stepsLeft_ = 0;
  std::unique_ptr<sqlite3, Close> handle_;
};

// A prepared statement: values are bound, rows stepped through. Texts are Windows-1252 outside, UTF-8 inside.
class DrgStatement {
 public:
  DrgStatement(DrgDatabase& database, const std::string& sql);
  ~DrgStatement();
  DrgStatement(const DrgStatement&) = delete;
  DrgStatement& operator=(const DrgStatement&) = delete;

  void bind(int place, long long value);
  void bind(int place, double value);
  void bind(int place, std::string_view windows1252);
  // Whether there is a row; without one the statement starts anew.
  bool step();
  [[nodiscard]] sqlite3_stmt* handle() const { return handle_; }
  [[nodiscard]] const DrgDatabase& database() const { return database_; }

 private:
  DrgDatabase& database_;
  sqlite3_stmt* handle_ = nullptr;
};

}  // namespace brevan

#pragma once

#include <limits>
#include <string>
#include <string_view>

#include "host/drawing/primitive.h"
#include "host/scripts/script_syntax.h"

namespace brevan {

inline constexpr size_t kAnyNumberOfWords = std::numeric_limits<size_t>::max();

// Where a script has come to, and the reading of its words.
class ScriptCursor {
 public:
  explicit ScriptCursor(const Script& script) : script_(script) {}

  // Null at the end.
  [[nodiscard]] const Statement* peek() const {
    return next_ < script_.statements.size() ? &script_.statements[next_] : nullptr;
  }
  const Statement& take() { return script_.statements.at(next_++); }
  [[nodiscard]] bool nextIs(std::string_view name) const { return peek() != nullptr && peek()->name() == name; }

  // At a statement; the second form at the next statement, or at the script's end.
  [[noreturn]] void fail(const Statement& statement, const std::string& what) const;
  [[noreturn]] void failHere(const std::string& asked) const;

  // The word at a place; fails where it is missing or not of its kind.
  [[nodiscard]] const std::string& string(const Statement& statement, size_t word) const;  // quoted or bare
  [[nodiscard]] double number(const Statement& statement, size_t word) const;
  [[nodiscard]] int integer(const Statement& statement, size_t word) const;
  [[nodiscard]] Point point(const Statement& statement, size_t word) const;
  // Fails unless the statement has this many words, its name included.
  void expectWords(const Statement& statement, size_t least, size_t most) const;

  [[nodiscard]] const Script& script() const { return script_; }

 private:
  const Script& script_;
  size_t next_ = 0;
};

}  // namespace brevan

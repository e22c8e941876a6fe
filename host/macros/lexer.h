#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/geometry/point.h"

namespace brevan {

// What is wrong with a macro command, and where: column 1 is its first character.
class MacroError : public std::runtime_error {
 public:
  MacroError(size_t column, const std::string& what) : std::runtime_error(what), column_(column) {}
  [[nodiscard]] size_t column() const { return column_; }

 private:
  size_t column_;
};

enum class TokenKind { kText, kNumber, kPoint, kRelativePoint, kName, kTerminator, kMeasured };

struct Token {
  TokenKind kind = TokenKind::kName;
  size_t column = 1;
  std::string text;  // of a quoted text without its quotes, of a name as written
  double number = 0.0;
  Point point;
};

// One command: an optional "#", the word, its arguments. A quoted text doubles the quotation marks inside;
// an unterminated one ends with the line. "[#]" is the terminator, "!" the measured value.
struct MacroLine {
  std::string word;  // in capitals
  std::vector<Token> arguments;
  size_t endColumn = 1;
};

// Throws MacroError.
MacroLine readMacroLine(std::string_view line);

}  // namespace brevan

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/macros/lexer.h"
#include "host/macros/variables.h"

namespace brevan {

class DrawingWindow;

// A command as its handler sees it: arguments that fit the pattern, counted from 0 without the literals.
class MacroRun {
 public:
  MacroRun(DrawingWindow& window, MacroVariables& variables) : window(window), variables(variables) {}

  DrawingWindow& window;
  MacroVariables& variables;
  std::vector<Token> arguments;

  [[nodiscard]] bool has(size_t index) const { return index < arguments.size(); }
  [[nodiscard]] Point point(size_t index) const { return arguments.at(index).point; }
  [[nodiscard]] double number(size_t index) const { return arguments.at(index).number; }
  // Throws MacroError for what is no pen.
  [[nodiscard]] int pen(size_t index) const;
  [[nodiscard]] const std::string& text(size_t index) const { return arguments.at(index).text; }
  [[nodiscard]] size_t column(size_t index) const { return has(index) ? arguments[index].column : 1; }
};

// One form of a command. The pattern is read from left to right:
//   point     an absolute or relative point
//   number    a number or a numeric variable
//   count     a whole number
//   text      a quoted text or a text variable
//   name      a text, or a bare word
//   variable  the name of a variable that the command sets
//   measured  "!" or a quoted text
//   key:WORD  this word, quoted or bare, not handed to the handler
//   flag:YNA  one of these letters, quoted or bare
//   =Y        this letter, quoted or bare, not handed to the handler
// An element that ends in "+" may be repeated up to the closing "[#]", which is always taken.
struct CommandForm {
  std::string_view word;
  std::string_view pattern;
  void (*handler)(MacroRun& run);  // throws MacroError; what it changed before is taken back
  std::string_view summary;
};

std::span<const CommandForm> commandForms();

// Reads and executes one command. Throws MacroError; the drawing is then as before.
void executeMacro(DrawingWindow& window, MacroVariables& variables, std::string_view line);

}  // namespace brevan

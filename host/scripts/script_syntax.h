#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace brevan {

// A script that cannot go on: "FILE:LINE: what was asked, what the script gave". UTF-8; what is longer than anyone
// reads, as it quotes a line of megabytes, is cut.
class ScriptFailure : public std::runtime_error {
 public:
  ScriptFailure(const std::string& file, int line, const std::string& what);
};

// A script that failed because a file could not be written.
class ScriptOutputFailure : public ScriptFailure {
 public:
  using ScriptFailure::ScriptFailure;
};

struct ScriptWord {
  std::string text;     // Windows-1252
  bool quoted = false;  // a string; else a word or number
};

struct Statement {
  int line = 0;
  std::vector<ScriptWord> words;  // never empty; the first is the statement's name
  // What follows the first word as typed, in UTF-8, without outer blanks; of a macro as the host takes it, in
  // Windows-1252 and with the blanks at its end.
  std::string rest;

  [[nodiscard]] const std::string& name() const { return words.front().text; }
  // As it stands in the script, for messages; UTF-8.
  [[nodiscard]] std::string shown() const;
};

struct Script {
  std::string file;  // as named by the user
  std::vector<Statement> statements;
  int lastLine = 1;
};

// Reads a script's text: UTF-8, one statement a line, "#" starts a comment, strings in double quotes with
// \" and \\. The text after `macro` is taken as typed. Throws ScriptFailure.
Script readScript(std::string file, std::string_view utf8);

// A text as a script's string, in quotes; UTF-8 as the text.
std::string scriptString(std::string_view utf8);

}  // namespace brevan

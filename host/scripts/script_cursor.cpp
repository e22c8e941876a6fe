#include "host/scripts/script_cursor.h"

#include <cmath>
#include <limits>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

void ScriptCursor::fail(const Statement& statement, const std::string& what) const {
  throw ScriptFailure(script_.file, statement.line, what);
}

void ScriptCursor::failHere(const std::string& asked) const {
  const Statement* statement = peek();
  if (statement == nullptr) { throw ScriptFailure(script_.file, script_.lastLine, asked + ", the script ends"); }
  fail(*statement, asked + ", the script gave: " + statement->shown());
}

const std::string& ScriptCursor::string(const Statement& statement, size_t word) const {
  if (word >= statement.words.size()) { fail(statement, toUtf8(statement.name()) + " expects more words"); }
  return statement.words[word].text;
}

double ScriptCursor::number(const Statement& statement, size_t word) const {
  const std::string& text = string(statement, word);
  const auto value = statement.words[word].quoted ? std::nullopt : numberText::parseDouble(text);
  if (!value) { fail(statement, toUtf8(statement.name()) + " expects a number, got \"" + toUtf8(text) + '"'); }
  return *value;
}

int ScriptCursor::integer(const Statement& statement, size_t word) const {
  const double value = number(statement, word);
  if (value != std::floor(value) || std::abs(value) > std::numeric_limits<int>::max()) {
    fail(statement,
         toUtf8(statement.name()) + " expects a whole number, got \"" + toUtf8(statement.words[word].text) + '"');
  }
  return static_cast<int>(value);
}

Point ScriptCursor::point(const Statement& statement, size_t word) const {
  return {number(statement, word), number(statement, word + 1)};
}

void ScriptCursor::expectWords(const Statement& statement, size_t least, size_t most) const {
  const size_t count = statement.words.size();
  if (count >= least && count <= most) { return; }
  std::string range = std::to_string(least - 1);
  if (most >= kAnyNumberOfWords) {
    range += " or more";
  } else if (least != most) {
    range += " to " + std::to_string(most - 1);
  }
  fail(statement, toUtf8(statement.name()) + " expects " + range + " words after it, got " + std::to_string(count - 1));
}

}  // namespace brevan

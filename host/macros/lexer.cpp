#include "host/macros/lexer.h"

#include <algorithm>

#include "frame/host/number_text.h"

namespace brevan {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

size_t skipBlanks(std::string_view line, size_t at) {
  while (at < line.size() && isBlank(line[at])) { ++at; }
  return at;
}

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// A bare word ends at a blank, a bracket or a quotation mark.
size_t wordEnd(std::string_view line, size_t at) {
  while (at < line.size() && !isBlank(line[at]) && line[at] != '[' && line[at] != '"') { ++at; }
  return at;
}

Token readQuoted(std::string_view line, size_t& at) {
  Token token{TokenKind::kText, at + 1, {}, 0.0, {}};
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      if (at + 1 >= line.size() || line[at + 1] != '"') {
        ++at;
        break;
      }
      ++at;
    }
    token.text += line[at];
  }
  return token;
}

double readCoordinate(std::string_view text, size_t column) {
  const auto number = numberText::parseTyped(text);
  if (!number || text.find(',') != std::string_view::npos) {
    throw MacroError(column, "a coordinate is a number, got \"" + std::string(text) + "\"");
  }
  return *number;
}

// "[x,y]", "[@dx,dy]" or "[#]".
Token readBracket(std::string_view line, size_t& at) {
  Token token{TokenKind::kPoint, at + 1, {}, 0.0, {}};
  const size_t close = line.find(']', at);
  if (close == std::string_view::npos) { throw MacroError(at + 1, "\"[\" without \"]\""); }
  std::string_view inside = line.substr(at + 1, close - at - 1);
  size_t column = at + 2;
  at = close + 1;
  if (inside == "#") {
    token.kind = TokenKind::kTerminator;
    return token;
  }
  if (!inside.empty() && inside.front() == '@') {
    token.kind = TokenKind::kRelativePoint;
    inside.remove_prefix(1);
    ++column;
  }
  const size_t comma = inside.find(',');
  if (comma == std::string_view::npos) { throw MacroError(column, "a point is two numbers with a comma between"); }
  token.point = {readCoordinate(inside.substr(0, comma), column),
                 readCoordinate(inside.substr(comma + 1), column + comma + 1)};
  return token;
}

Token readBare(std::string_view line, size_t& at) {
  Token token{TokenKind::kName, at + 1, {}, 0.0, {}};
  const size_t end = wordEnd(line, at);
  token.text = line.substr(at, end - at);
  at = end;
  if (token.text == "!") {
    token.kind = TokenKind::kMeasured;
  } else if (const auto number = numberText::parseDouble(token.text)) {
    token.kind = TokenKind::kNumber;
    token.number = *number;
  }
  return token;
}

}  // namespace

MacroLine readMacroLine(std::string_view line) {
  MacroLine command;
  size_t at = skipBlanks(line, 0);
  if (at < line.size() && line[at] == '#') { ++at; }
  const size_t end = wordEnd(line, at);
  if (end == at) { throw MacroError(at + 1, "a macro command starts with a word"); }
  command.word = line.substr(at, end - at);
  std::transform(command.word.begin(), command.word.end(), command.word.begin(), upper);
  for (at = skipBlanks(line, end); at < line.size(); at = skipBlanks(line, at)) {
    const char c = line[at];
    command.arguments.push_back(c == '"'   ? readQuoted(line, at)
                                : c == '[' ? readBracket(line, at)
                                           : readBare(line, at));
  }
  command.endColumn = line.size() + 1;
  return command;
}

}  // namespace brevan

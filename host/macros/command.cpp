#include "host/macros/command.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "frame/host/limits.h"
#include "host/drawing/drawing.h"
#include "host/window/drawing_window.h"

namespace brevan {

namespace {

// What one argument was expected to be, for the message.
struct Mismatch {
  size_t position = 0;
  size_t column = 1;
  std::string expected;
};

std::string_view nextElement(std::string_view& pattern) {
  const size_t start = pattern.find_first_not_of(' ');
  if (start == std::string_view::npos) { return pattern = {}; }
  const size_t end = std::min(pattern.find(' ', start), pattern.size());
  const std::string_view element = pattern.substr(start, end - start);
  pattern.remove_prefix(end);
  return element;
}

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isLetterOf(const Token& token, std::string_view letters) {
  if (token.kind != TokenKind::kText && token.kind != TokenKind::kName) { return false; }
  return token.text.size() == 1 && letters.find(capital(token.text[0])) != std::string_view::npos;
}

std::string letterList(std::string_view letters) {
  std::string list;
  for (const char letter : letters) { list += (list.empty() ? "\"" : " or \"") + std::string(1, letter) + "\""; }
  return list;
}

bool isKey(const Token& token, std::string_view key) {
  if (token.kind != TokenKind::kText && token.kind != TokenKind::kName) { return false; }
  return std::equal(token.text.begin(), token.text.end(), key.begin(), key.end(),
                    [](char a, char b) { return capital(a) == b; });
}

bool readText(Token& token, const MacroRun& run) {
  if (token.kind == TokenKind::kText) { return true; }
  const std::string* value = token.kind == TokenKind::kName ? run.variables.text(token.text) : nullptr;
  if (value == nullptr) { return false; }
  token.text = *value;
  return true;
}

// A bare word is a name, too; one that ends in "$" is a variable and must be set.
bool readName(Token& token, const MacroRun& run) {
  if (readText(token, run)) { return true; }
  return (token.kind == TokenKind::kName || token.kind == TokenKind::kNumber) && !token.text.ends_with('$');
}

// Reads one argument as the pattern's element asks; the text is what was expected instead.
std::optional<std::string> readAs(std::string_view element, Token& token, MacroRun& run) {
  if (element == "point") {
    if (token.kind == TokenKind::kRelativePoint) {
      token.point = run.window.cursor().lastGiven() + token.point;
      return std::nullopt;
    }
    return token.kind == TokenKind::kPoint ? std::nullopt : std::optional<std::string>("a point in brackets");
  }
  if (element == "number" || element == "count") {
    if (token.kind == TokenKind::kName) {
      if (const auto value = run.variables.number(token.text)) {
        token.number = *value;
        token.kind = TokenKind::kNumber;
      }
    }
    const bool whole = element == "number" || token.number == std::floor(token.number);
    if (token.kind == TokenKind::kNumber && whole) { return std::nullopt; }
    return element == "number" ? "a number" : "a whole number";
  }
  if (element == "text") {
    return readText(token, run) ? std::nullopt : std::optional<std::string>("a text in quotes");
  }
  if (element == "name") { return readName(token, run) ? std::nullopt : std::optional<std::string>("a name"); }
  if (element == "variable") {
    return token.kind == TokenKind::kName ? std::nullopt : std::optional<std::string>("the name of a variable");
  }
  if (element == "measured") {
    if (token.kind == TokenKind::kMeasured || token.kind == TokenKind::kText) { return std::nullopt; }
    return "\"!\" or a text in quotes";
  }
  if (element.starts_with("key:")) {
    const std::string_view key = element.substr(4);
    return isKey(token, key) ? std::nullopt : std::optional<std::string>("\"" + std::string(key) + "\"");
  }
  const std::string_view letters = element.substr(element.find_first_of(":=") + 1);
  if (!isLetterOf(token, letters)) { return letterList(letters); }
  if (token.text[0] >= 'a') { token.text[0] = static_cast<char>(token.text[0] - 'a' + 'A'); }
  return std::nullopt;
}

// Fits the arguments to the pattern; a mismatch tells how far it came.
std::optional<Mismatch> fit(const CommandForm& form, const MacroLine& line, MacroRun& run) {
  run.arguments.clear();
  size_t position = 0;
  std::string_view pattern = form.pattern;
  for (std::string_view element = nextElement(pattern); !element.empty(); element = nextElement(pattern)) {
    const bool many = element.back() == '+';
    if (many) { element.remove_suffix(1); }
    if (position >= line.arguments.size()) {
      Token missing;
      missing.kind = TokenKind::kTerminator;
      return Mismatch{position, line.endColumn, readAs(element, missing, run).value_or("")};
    }
    Token token = line.arguments[position];
    if (auto expected = readAs(element, token, run)) { return Mismatch{position, token.column, std::move(*expected)}; }
    const bool literal = element.front() == '=' || element.starts_with("key:");
    if (!literal) { run.arguments.push_back(std::move(token)); }
    ++position;
    if (!many) { continue; }
    for (; position < line.arguments.size() && line.arguments[position].kind != TokenKind::kTerminator; ++position) {
      Token next = line.arguments[position];
      if (auto expected = readAs(element, next, run)) { return Mismatch{position, next.column, std::move(*expected)}; }
      run.arguments.push_back(std::move(next));
    }
  }
  if (position < line.arguments.size() && line.arguments[position].kind == TokenKind::kTerminator) { ++position; }
  if (position < line.arguments.size()) {
    return Mismatch{position, line.arguments[position].column, "the end of the command"};
  }
  return std::nullopt;
}

const CommandForm& fittingForm(const MacroLine& line, MacroRun& run) {
  std::optional<Mismatch> furthest;
  for (const CommandForm& form : commandForms()) {
    if (form.word != line.word) { continue; }
    const auto mismatch = fit(form, line, run);
    if (!mismatch) { return form; }
    if (!furthest || mismatch->position > furthest->position) {
      furthest = mismatch;
    } else if (mismatch->position == furthest->position && mismatch->expected != furthest->expected) {
      furthest->expected += " or " + mismatch->expected;
    }
  }
  if (!furthest) { throw MacroError(1, "there is no macro command " + line.word); }
  throw MacroError(furthest->column, line.word + " expects " + furthest->expected + " here");
}

}  // namespace

int MacroRun::pen(size_t index) const {
  if (limits::kPens.contains(number(index))) { return static_cast<int>(number(index)); }
  throw MacroError(column(index), "a pen is " + limits::kPens.text());
}

void executeMacro(DrawingWindow& window, MacroVariables& variables, std::string_view text) {
  const MacroLine line = readMacroLine(text);
  MacroRun run(window, variables);
  const CommandForm& form = fittingForm(line, run);
  Drawing& drawing = window.drawing();
  const bool ownStep = !drawing.inStep();
  if (ownStep) { drawing.beginStep(line.word); }
  const size_t mark = drawing.mark();
  try {
    form.handler(run);
  } catch (const RefusedChange& refused) {
    drawing.rollBackTo(mark);
    if (ownStep) { drawing.endStep(); }
    throw MacroError(1, refused.what());
  } catch (...) {
    drawing.rollBackTo(mark);
    if (ownStep) { drawing.endStep(); }
    throw;
  }
  if (ownStep) { drawing.endStep(); }
}

}  // namespace brevan

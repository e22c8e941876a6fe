#include "host/scripts/script_syntax.h"

#include "host/core/text_encoding.h"

namespace brevan {

namespace {

std::string readable(const std::string& what) {
  constexpr size_t kMost = 1000;
  constexpr unsigned kContinuation = 0x80U;
  if (what.size() <= kMost) { return what; }
  size_t end = kMost;
  while (end > 0 && (static_cast<unsigned char>(what[end]) & 0xC0U) == kContinuation) { --end; }
  return what.substr(0, end) + "... (" + std::to_string(what.size() - end) + " bytes more)";
}

constexpr std::string_view kMacro = "macro";

// Reads the words of one line.
class LineReader {
 public:
  LineReader(const Script& script, std::string_view line) : script_(script), line_(line) {}

  Statement read() {
    Statement statement;
    statement.line = script_.lastLine;
    for (skipBlanks(); at_ < line_.size() && line_[at_] != '#'; skipBlanks()) {
      statement.words.push_back(line_[at_] == '"' ? readString() : readWord());
      if (statement.words.size() > 1) { continue; }
      skipBlanks();
      const std::string_view rest = line_.substr(at_);
      const bool macro = statement.name() == kMacro && !statement.words.front().quoted;
      statement.rest = macro ? encoded(rest) : std::string(trimmed(rest));
      if (macro) { break; }
    }
    return statement;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const { throw ScriptFailure(script_.file, script_.lastLine, what); }

  void skipBlanks() {
    while (at_ < line_.size() && (line_[at_] == ' ' || line_[at_] == '\t')) { ++at_; }
  }

  [[nodiscard]] std::string encoded(std::string_view utf8) const {
    auto text = toWindows1252(utf8);
    if (!text) { fail("a text holds a character that Windows-1252 lacks: " + messageText(utf8)); }
    return *std::move(text);
  }

  ScriptWord readString() {
    std::string utf8;
    for (++at_;; ++at_) {
      if (at_ >= line_.size()) { fail("a string without its closing quotation mark"); }
      if (line_[at_] == '"') { break; }
      const bool escape =
          line_[at_] == '\\' && at_ + 1 < line_.size() && (line_[at_ + 1] == '"' || line_[at_ + 1] == '\\');
      if (escape) { ++at_; }
      utf8 += line_[at_];
    }
    ++at_;
    if (at_ < line_.size() && line_[at_] != ' ' && line_[at_] != '\t') { fail("a blank must follow a string"); }
    return {encoded(utf8), true};
  }

  ScriptWord readWord() {
    const size_t start = at_;
    while (at_ < line_.size() && line_[at_] != ' ' && line_[at_] != '\t' && line_[at_] != '"') { ++at_; }
    if (at_ < line_.size() && line_[at_] == '"') { fail("a blank must go before a string"); }
    return {encoded(line_.substr(start, at_ - start)), false};
  }

  const Script& script_;
  std::string_view line_;
  size_t at_ = 0;
};

}  // namespace

ScriptFailure::ScriptFailure(const std::string& file, int line, const std::string& what)
    : std::runtime_error(file + ':' + std::to_string(line) + ": " + readable(what)) {}

std::string Statement::shown() const {
  if (rest.empty()) { return toUtf8(name()); }
  return toUtf8(name()) + ' ' + (name() == "macro" ? toUtf8(rest) : rest);
}

Script readScript(std::string file, std::string_view utf8) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (utf8.starts_with(kByteOrderMark)) { utf8.remove_prefix(kByteOrderMark.size()); }
  Script script{std::move(file), {}, 0};
  while (!utf8.empty()) {
    ++script.lastLine;
    const size_t end = utf8.find_first_of("\r\n");
    const std::string_view line = utf8.substr(0, end);
    if (line.find('\0') != std::string_view::npos) {
      throw ScriptFailure(script.file, script.lastLine, "a script is text and holds no NUL byte");
    }
    Statement statement = LineReader(script, line).read();
    if (!statement.words.empty()) { script.statements.push_back(std::move(statement)); }
    if (end == std::string_view::npos) { break; }
    const bool crlf = utf8[end] == '\r' && end + 1 < utf8.size() && utf8[end + 1] == '\n';
    utf8.remove_prefix(end + (crlf ? 2 : 1));
  }
  script.lastLine = std::max(script.lastLine, 1);
  return script;
}

std::string scriptString(std::string_view utf8) {
  std::string quoted = "\"";
  for (const char c : utf8) {
    if (c == '"' || c == '\\') { quoted += '\\'; }
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace brevan

#include "mech/table_text.h"

#include <algorithm>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::mech {

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) { return {}; }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Where the quotes close that a text begins with; npos where they do not.
size_t closingQuote(std::string_view text) {
  for (size_t at = 1; at < text.size(); ++at) {
    if (text[at] != kQuote) { continue; }
    if (at + 1 == text.size() || text[at + 1] != kQuote) { return at; }
    ++at;
  }
  return std::string_view::npos;
}

std::string withoutQuotes(std::string_view quoted) {
  std::string text;
  for (size_t at = 1; at + 1 < quoted.size(); ++at) {
    text += quoted[at];
    if (quoted[at] == kQuote) { ++at; }
  }
  return text;
}

// How many characters at the start of a line are its first field, and whether that stands in quotes. Quotes within
// a field are characters like others.
struct FieldSpan {
  size_t length;
  bool quoted;
};
FieldSpan firstField(std::string_view line, char separator) {
  const size_t start = std::min(line.find_first_not_of(' '), line.size());
  if (start < line.size() && line[start] == kQuote) {
    const size_t close = closingQuote(line.substr(start));
    const size_t after = close == std::string_view::npos ? close : line.find_first_not_of(' ', start + close + 1);
    const size_t end = std::min(after, line.size());
    if (close != std::string_view::npos && (end == line.size() || line[end] == separator)) { return {end, true}; }
  }
  return {std::min(line.find(separator), line.size()), false};
}

size_t countOutsideQuotes(std::string_view line, char separator) {
  size_t count = 0;
  bool inside = false;
  for (const char c : line) {
    inside = inside != (c == kQuote);
    if (!inside && c == separator) { ++count; }
  }
  return count;
}

std::string unableToOpen(const std::string& path) { return numberText::format("Unable to open CSV file %s", path); }

// The caller tells of what reading may throw.
std::optional<std::vector<std::string>> linesOf(const std::string& path) {
  const int file = coreFileOpen(path, "r");
  if (file == 0) { return std::nullopt; }
  std::vector<std::string> lines;
  for (std::string line; coreFileTxtRead(file, line) != 0;) { lines.push_back(line); }
  coreFileClose(file);
  return lines;
}

}  // namespace

std::string quotedField(std::string_view field) {
  const bool plain = field.find_first_of(",;\t\"") == std::string_view::npos && trimmed(field).size() == field.size();
  if (plain) { return std::string(field); }
  std::string quoted(1, kQuote);
  for (const char c : field) { quoted.append(c == kQuote ? 2 : 1, c); }
  return quoted + kQuote;
}

std::string joinedFields(const TableRow& fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) { line += ','; }
    line += quotedField(field);
  }
  return line;
}

TableRow splitFields(std::string_view line, char separator) {
  TableRow fields;
  for (;;) {
    const auto [length, quoted] = firstField(line, separator);
    const std::string_view field = trimmed(line.substr(0, length));
    fields.push_back(quoted ? withoutQuotes(field) : std::string(field));
    if (length == line.size()) { return fields; }
    line.remove_prefix(length + 1);
  }
}

char separatorOf(std::string_view firstLine) {
  const auto count = [firstLine](char separator) { return countOutsideQuotes(firstLine, separator); };
  const size_t semicolons = count(';');
  const size_t tabs = count('\t');
  if (count(',') > 0 || semicolons + tabs == 0) { return ','; }
  return semicolons >= tabs ? ';' : '\t';
}

std::optional<std::vector<TableRow>> readTable(const std::string& path, size_t longestLine, CWnd* owner) {
  std::optional<std::vector<std::string>> lines;
  try {
    lines = linesOf(path);
  } catch (const HostFailure&) {}
  if (!lines) {
    ErrorMessage(unableToOpen(path), owner);
    return std::nullopt;
  }
  const auto tooLong = std::ranges::find_if(*lines, [&](const std::string& line) { return line.size() > longestLine; });
  if (tooLong != lines->end()) {
    ErrorMessage(numberText::format("%s:%d: the line has %d characters, a table takes %d at most.", path,
                                    static_cast<int>(tooLong - lines->begin()) + 1, static_cast<int>(tooLong->size()),
                                    static_cast<int>(longestLine)),
                 owner);
    return std::nullopt;
  }
  const char separator = lines->empty() ? ',' : separatorOf(lines->front());
  std::vector<TableRow> rows;
  rows.reserve(lines->size());
  for (const std::string& line : *lines) { rows.push_back(splitFields(line, separator)); }
  return rows;
}

bool writeLines(const std::string& path, std::span<const std::string> lines, CCadWindow& view, CWnd* owner) {
  try {
    const int file = coreFileOpen(path, "w");
    bool whole = file != 0;
    for (const std::string& line : lines) { whole = whole && coreFileTxtWrite(file, line) != 0; }
    if (whole) {
      coreFileClose(file);
      return true;
    }
  } catch (const HostFailure& failure) { view.gsSetStatus(failure.what()); }
  ErrorMessage(numberText::format("Unable to create CSV file %s", path), owner);
  return false;
}

}  // namespace ardenix::mech

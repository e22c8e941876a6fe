#include "host/window/clipboard_table.h"

namespace brevan {

namespace {

constexpr char kMark = '"';

bool endsField(std::string_view text, size_t at) {
  return at >= text.size() || text.substr(at, 1).find_first_of("\t\r\n") == 0;
}

// Takes a field in quotes from the start of a text; false, and nothing taken, where the quotes do not enclose a field.
bool takeQuoted(std::string_view& text, std::string& field) {
  std::string within;
  for (size_t at = 1; at < text.size(); ++at) {
    if (text[at] == kMark && text.substr(at + 1, 1) != "\"") {
      if (!endsField(text, at + 1)) { return false; }
      field = std::move(within);
      text.remove_prefix(at + 1);
      return true;
    }
    within += text[at];
    if (text[at] == kMark) { ++at; }
  }
  return false;
}

std::string takeField(std::string_view& text) {
  std::string field;
  if (text.starts_with(kMark) && takeQuoted(text, field)) { return field; }
  size_t length = 0;
  while (!endsField(text, length)) { ++length; }
  field = text.substr(0, length);
  text.remove_prefix(length);
  return field;
}

}  // namespace

std::vector<std::vector<std::string>> clipboardRows(std::string_view text) {
  std::vector<std::vector<std::string>> rows;
  while (!text.empty()) {
    std::vector<std::string>& row = rows.emplace_back();
    row.push_back(takeField(text));
    while (text.starts_with('\t')) {
      text.remove_prefix(1);
      row.push_back(takeField(text));
    }
    if (text.starts_with('\r')) { text.remove_prefix(1); }
    if (text.starts_with('\n')) { text.remove_prefix(1); }
  }
  return rows;
}

}  // namespace brevan

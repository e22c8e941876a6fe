#include "host/drawing/hatch_text.h"

#include <initializer_list>

#include "frame/host/number_text.h"

namespace brevan {

namespace {

void appendNumbers(std::string& text, std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    if (!text.empty() && text.back() != ';') { text += ' '; }
    numberText::appendShortest(text, number);
  }
}

// A row of numbers for each part of the text; nothing where one of them is none.
std::optional<std::vector<std::vector<double>>> rowsOfNumbers(std::string_view text) {
  std::vector<std::vector<double>> rows;
  if (text.empty()) { return rows; }
  rows.emplace_back();
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of(" ;"), text.size());
    const auto number = numberText::parseDouble(text.substr(0, end));
    if (!number) { return std::nullopt; }
    rows.back().push_back(*number);
    if (end < text.size() && text[end] == ';') { rows.emplace_back(); }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return rows;
}

}  // namespace

std::string textOf(const std::vector<HatchLoop>& loops) {
  std::string text;
  for (const HatchLoop& loop : loops) {
    if (!text.empty()) { text += ';'; }
    for (const HatchCorner& corner : loop) { appendNumbers(text, {corner.at.x, corner.at.y, corner.bulge}); }
  }
  return text;
}

std::string textOf(const std::vector<HatchLines>& lines) {
  std::string text;
  for (const HatchLines& row : lines) {
    if (!text.empty()) { text += ';'; }
    appendNumbers(text, {row.angle, row.start.x, row.start.y, row.step.x, row.step.y});
    for (const double dash : row.dashes) { appendNumbers(text, {dash}); }
  }
  return text;
}

std::optional<std::vector<HatchLoop>> hatchLoopsOf(std::string_view text) {
  const auto rows = rowsOfNumbers(text);
  if (!rows) { return std::nullopt; }
  std::vector<HatchLoop> loops;
  for (const std::vector<double>& row : *rows) {
    if (row.size() % 3 != 0 || row.size() < 6) { return std::nullopt; }
    HatchLoop& loop = loops.emplace_back();
    for (size_t at = 0; at < row.size(); at += 3) { loop.push_back({{row[at], row[at + 1]}, row[at + 2]}); }
  }
  return loops;
}

std::optional<std::vector<HatchLines>> hatchLinesOf(std::string_view text) {
  const auto rows = rowsOfNumbers(text);
  if (!rows) { return std::nullopt; }
  constexpr size_t kHead = 5;
  std::vector<HatchLines> lines;
  for (const std::vector<double>& row : *rows) {
    if (row.size() < kHead) { return std::nullopt; }
    lines.push_back({row[0], {row[1], row[2]}, {row[3], row[4]}, {row.begin() + kHead, row.end()}});
  }
  return lines;
}

}  // namespace brevan

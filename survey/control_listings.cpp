#include "survey/control_listings.h"

#include <algorithm>
#include <array>

#include "frame/host/core_services.h"
#include "survey/text_row.h"

namespace ardenix::survey {

namespace {

constexpr size_t kPointLine = 60;  // characters at least

std::string trimmedText(std::string_view text) {
  std::string trimmed(text);
  coreTrimStr(trimmed);
  return trimmed;
}

// Columns are counted from 1.
char at(std::string_view line, size_t column) { return line[column - 1]; }

bool marked(std::string_view line, std::array<size_t, 3> columns) {
  if (line.size() < kPointLine) { return false; }
  const auto all = [&](char mark) {
    return std::ranges::all_of(columns, [&](size_t column) { return at(line, column) == mark; });
  };
  return all('.') || all(',');
}

struct Word {
  size_t begin = 0;
  std::string text;
};

// The word, between blanks, that holds a column.
Word wordAt(std::string_view line, size_t column) {
  const size_t before = line.find_last_of(' ', column - 1);
  const size_t begin = before == std::string_view::npos ? 0 : before + 1;
  const size_t end = std::min(line.find(' ', column - 1), line.size());
  return {begin, std::string(line.substr(begin, end - begin))};
}

// With a full stop; empty for what is no coordinate or is 0.00.
std::string coordinate(std::string text) {
  std::ranges::replace(text, ',', '.');
  return text == "0.00" || coreIsNumeric(text) == 0 ? std::string() : text;
}

bool complete(std::string_view name, std::string_view y, std::string_view x) {
  return !name.empty() && !y.empty() && !x.empty();
}

std::string joined(std::string_view first, char between, std::string_view second) {
  return std::string(first).append(1, between).append(second);
}

std::string degreeSquareOf(std::string_view line) {
  constexpr std::string_view kCountry = "   RSA   ";
  constexpr size_t kShortest = 49;
  constexpr size_t kCountryColumn = 36;
  constexpr size_t kSquareColumn = 45;
  constexpr size_t kSquareLength = 4;
  if (line.size() < kShortest || line.size() >= kPointLine) { return {}; }
  if (line.substr(kCountryColumn - 1, kCountry.size()) != kCountry) { return {}; }
  return std::string(line.substr(kSquareColumn - 1, kSquareLength));
}

// The fields of a line that has exactly as many.
template <size_t kCount>
bool fieldsOf(std::string_view line, std::array<std::string, kCount>& fields) {
  if (std::ranges::count(line, ',') != static_cast<std::ptrdiff_t>(kCount) - 1) { return false; }
  splitFields(line, fields);
  for (std::string& field : fields) { coreTrimStr(field); }
  return true;
}

}  // namespace

std::vector<ListedPoint> beaconsOfListing(const std::vector<std::string>& lines) {
  constexpr size_t kYMark = 39;
  constexpr size_t kXMark = 51;
  std::vector<ListedPoint> points;
  std::string square;
  for (const std::string& line : lines) {
    if (const std::string found = degreeSquareOf(line); !found.empty()) { square = found; }
    if (!marked(line, {kYMark, kXMark, kPointLine})) { continue; }
    const Word y = wordAt(line, kYMark);
    const size_t numberStart = std::min(line.find_first_not_of(' '), y.begin);
    const size_t numberEnd = std::min(line.find(' ', numberStart), y.begin);
    const std::string name = trimmedText(std::string_view(line).substr(numberEnd, y.begin - numberEnd));
    const std::string yText = coordinate(y.text);
    const std::string xText = coordinate(wordAt(line, kXMark).text);
    if (!complete(name, yText, xText)) { continue; }
    const std::string number = joined(square, '/', line.substr(numberStart, numberEnd - numberStart));
    points.push_back({joined(name, ' ', number), joined("1", ',', joined(yText, ',', xText))});
  }
  return points;
}

std::vector<ListedPoint> marksOfListing(const std::vector<std::string>& lines) {
  constexpr size_t kYMark = 29;
  constexpr size_t kXMark = 41;
  constexpr size_t kHeightMark = 50;
  std::vector<ListedPoint> points;
  for (const std::string& line : lines) {
    if (!marked(line, {kYMark, kXMark, kHeightMark})) { continue; }
    const Word y = wordAt(line, kYMark);
    const std::string name = trimmedText(std::string_view(line).substr(0, y.begin));
    const std::string yText = coordinate(y.text);
    const std::string xText = coordinate(wordAt(line, kXMark).text);
    if (complete(name, yText, xText)) { points.push_back({name, joined(yText, ',', xText)}); }
  }
  return points;
}

std::vector<ListedPoint> beaconsOfTable(const std::vector<std::string>& lines) {
  std::vector<ListedPoint> points;
  for (const std::string& line : lines) {
    std::array<std::string, 4> fields;
    if (!fieldsOf(line, fields)) { continue; }
    const auto& [name, number, y, x] = fields;
    if (!complete(name, coordinate(y), coordinate(x))) { continue; }
    const bool numbered = !number.empty();
    points.push_back(
        {numbered ? joined(name, ' ', number) : name, joined(numbered ? "1" : "0", ',', joined(y, ',', x))});
  }
  return points;
}

std::vector<ListedPoint> marksOfTable(const std::vector<std::string>& lines) {
  std::vector<ListedPoint> points;
  for (const std::string& line : lines) {
    std::array<std::string, 3> fields;
    if (!fieldsOf(line, fields)) { continue; }
    const auto& [name, y, x] = fields;
    if (complete(name, coordinate(y), coordinate(x))) { points.push_back({name, joined(y, ',', x)}); }
  }
  return points;
}

}  // namespace ardenix::survey

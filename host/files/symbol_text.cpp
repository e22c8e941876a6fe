#include "host/files/symbol_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

constexpr size_t kMostBytes = size_t{4} << 20;
constexpr size_t kMostParts = 1'000'000;  // a turned symbol is a line of text and as many parts as the other
constexpr double kFarthest = 1e9;         // a thousand kilometres, so that nothing overflows where symbols are placed

class SymbolTextReader {
 public:
  SymbolTextReader(std::string_view text, std::string file) : text_(text), file_(std::move(file)) {}

  std::vector<SymbolDefinition> read() {
    for (size_t at = 0; at < text_.size(); ++line_) {
      const size_t end = std::min(text_.find('\n', at), text_.size());
      readLine(text_.substr(at, end - at));
      at = end + 1;
    }
    return std::move(symbols_);
  }

 private:
  struct StatementRow {
    std::string_view name;
    size_t least;  // words after the name
    size_t most;
    void (SymbolTextReader::*read)();
  };

  void readLine(std::string_view line) {
    static constexpr size_t kAny = 1000;
    static const std::array<StatementRow, 7> kRows = {{{"size", 1, 1, &SymbolTextReader::size},
                                                       {"symbol", 1, 1, &SymbolTextReader::symbol},
                                                       {"upturned", 2, 2, &SymbolTextReader::upturned},
                                                       {"line", 4, kAny, &SymbolTextReader::line},
                                                       {"closed", 6, kAny, &SymbolTextReader::closed},
                                                       {"circle", 3, 3, &SymbolTextReader::circle},
                                                       {"arc", 5, 5, &SymbolTextReader::arc}}};
    words_.clear();
    line = line.substr(0, line.find('#'));
    while (true) {
      const size_t first = line.find_first_not_of(" \t\r");
      if (first == std::string_view::npos) { break; }
      line.remove_prefix(first);
      words_.push_back(line.substr(0, line.find_first_of(" \t\r")));
      line.remove_prefix(words_.back().size());
    }
    if (words_.empty()) { return; }
    for (const StatementRow& row : kRows) {
      if (row.name != words_[0]) { continue; }
      if (words_.size() <= row.least || words_.size() > row.most + 1) {
        fail(std::string(row.name) + " takes another number of words, got " + std::to_string(words_.size() - 1));
      }
      (this->*row.read)();
      return;
    }
    fail("there is no statement \"" + messageText(words_[0]) + "\"");
  }

  void size() {
    if (words_[1] != "paper" && words_[1] != "real") { fail("size expects paper or real"); }
    paperSize_ = words_[1] == "paper";
  }

  void symbol() { begin(words_[1]); }

  void upturned() {
    const std::string wanted = name(words_[2]);
    const auto other = places_.find(wanted);
    if (other == places_.end()) { fail("there is no symbol \"" + wanted + "\" above"); }
    std::vector<Primitive> parts = symbols_[other->second].parts;
    count(parts.size());
    for (Primitive& part : parts) {
      part.geometry = transformed(part.geometry, Transform{1.0, 0.0, 0.0, 0.0, -1.0, 0.0});
    }
    begin(words_[1]);
    symbols_.back().parts = std::move(parts);
  }

  void line() {
    const std::vector<Point> points = pointsFrom(1);
    for (size_t n = 1; n < points.size(); ++n) { add(Line{points[n - 1], points[n]}); }
  }

  void closed() {
    line();
    const std::vector<Point> points = pointsFrom(1);
    add(Line{points.back(), points.front()});
  }

  void circle() {
    const Point centre = {number(1), number(2)};
    const Point start = centre + Point{radius(3), 0.0};
    add(Arc{start, centre, start, false});
  }

  void arc() {
    const Point centre = {number(1), number(2)};
    add(Arc{centre + unitOfDegrees(number(4)) * radius(3), centre, centre + unitOfDegrees(number(5)) * radius(3),
            false});
  }

  void begin(std::string_view word) {
    const std::string wanted = name(word);
    if (!places_.emplace(wanted, symbols_.size()).second) { fail("there is a symbol \"" + wanted + "\" already"); }
    symbols_.push_back({wanted, {}, paperSize_, false});
  }

  void add(Geometry geometry) {
    if (symbols_.empty()) { fail("a symbol's name comes before what is drawn in it"); }
    count(1);
    Primitive part;
    part.pen = kPenByLayer;
    part.geometry = std::move(geometry);
    symbols_.back().parts.push_back(std::move(part));
  }

  void count(size_t parts) {
    parts_ += parts;
    if (parts_ > kMostParts) { fail("the symbols come to more than " + std::to_string(kMostParts) + " parts"); }
  }

  std::vector<Point> pointsFrom(size_t first) {
    if ((words_.size() - first) % 2 != 0) { fail("the last point lacks its y"); }
    std::vector<Point> points;
    for (size_t n = first; n < words_.size(); n += 2) { points.push_back({number(n), number(n + 1)}); }
    return points;
  }
  double number(size_t word) {
    const auto value = numberText::parseDouble(words_[word]);
    if (!value) { fail("a number is expected, got \"" + messageText(words_[word]) + "\""); }
    if (std::abs(*value) > kFarthest) { fail("a number is at most 1e9 in size, got " + messageText(words_[word])); }
    return *value;
  }
  double radius(size_t word) {
    const double value = number(word);
    if (value <= 0.0) { fail("a radius is above 0"); }
    return value;
  }
  std::string name(std::string_view word) {
    auto read = toWindows1252(word);
    if (!read) { fail("a name holds a character that Windows-1252 lacks"); }
    return std::move(*read);
  }
  [[noreturn]] void fail(const std::string& rule) const {
    throw HostFailure(file_ + ":" + std::to_string(line_) + ": " + rule);
  }

  std::string_view text_;
  std::string file_;
  size_t line_ = 1;
  bool paperSize_ = true;
  std::vector<std::string_view> words_;
  size_t parts_ = 0;
  std::vector<SymbolDefinition> symbols_;
  std::unordered_map<std::string, size_t> places_;  // of the symbols by name
};

// Each symbol once, its name below it, in rows on a sheet about as wide as high.
void showAll(Drawing& drawing, const std::vector<SymbolDefinition>& symbols) {
  const double paper = drawing.parameters().paperMillimetre();
  std::vector<Box> boxes;
  Box cell;
  for (const SymbolDefinition& symbol : symbols) {
    Primitive placed;
    placed.geometry = Symbol{symbol.name, {}};
    boxes.push_back(drawing.bounds(placed));
    Box size;
    size.add(Point{});
    size.add(Point{boxes.back().width(), boxes.back().height()});
    cell.add(size);
  }
  constexpr double kNameHeight = 20.0;
  const double across = std::max(cell.width(), 30.0 * paper) + 10.0 * paper;
  const double down = cell.height() + 12.0 * paper;
  const auto columns = static_cast<size_t>(std::ceil(std::sqrt(static_cast<double>(symbols.size()))));
  for (size_t n = 0; n < symbols.size(); ++n) {
    const size_t row = n / columns;
    const Point corner = {static_cast<double>(n % columns) * across, -static_cast<double>(row) * down};
    Primitive part;
    part.pen = kPenByLayer;
    part.geometry = Symbol{symbols[n].name, corner - boxes[n].low};
    drawing.add(part);
    Text text{corner - Point{0.0, 2.0 * paper}, symbols[n].name, "Arial", kNameHeight};
    text.justification = 3;
    text.pen = part.pen;
    part.geometry = std::move(text);
    drawing.add(std::move(part));
  }
}

}  // namespace

Drawing drawingFromSymbolText(std::string_view utf8, const std::string& file) {
  const std::vector<SymbolDefinition> symbols = SymbolTextReader(utf8, messageText(file)).read();
  Drawing drawing;
  drawing.beginLoading();
  const bool anyReal =
      std::any_of(symbols.begin(), symbols.end(), [](const SymbolDefinition& symbol) { return !symbol.paperSize; });
  Parameters parameters;
  if (anyReal) { parameters.setScale(50.0); }
  drawing.setParameters(parameters);
  for (const SymbolDefinition& symbol : symbols) { drawing.addSymbol(symbol); }
  showAll(drawing, symbols);
  drawing.endLoading();
  return drawing;
}

Drawing openSymbolText(const std::string& path) { return drawingFromSymbolText(readWhole(path, kMostBytes), path); }

}  // namespace brevan

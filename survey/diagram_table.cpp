#include "survey/diagram_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "survey/control_point.h"
#include "survey/corner_letters.h"
#include "survey/number_formats.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr size_t kColumns = 6;
enum Column : size_t { kBoundary, kDistance, kBearing, kBeacon, kY, kX };
using Line = std::array<std::string, kColumns>;

struct ColumnPlace {
  double position = 0.0;  // millimetres to the right of the table's own
  int justification = 1;
};
using Columns = std::array<ColumnPlace, kColumns>;

// Nothing unless both positions and justifications are there. A first field stands empty before the columns'.
std::optional<Columns> columnsOf(const JobSettings& job) {
  const std::string positions = job.value(kDataSection, kDataKeys[0]);
  const std::string justifications = job.value(kDataSection, kDataKeys[1]);
  if (positions.empty() || justifications.empty()) { return std::nullopt; }
  Columns columns;
  for (size_t column = 0; column < kColumns; ++column) {
    const int field = static_cast<int>(column) + 2;
    columns.at(column) = {coreGetFieldDouble(positions, 0.0, field, ','),
                          coreGetFieldInt(justifications, 1, field, ',')};
  }
  return columns;
}

// As a settings file holds it while none is chosen.
bool holdsNothing(const ControlPoint& point) {
  return point.name.empty() && point.number.empty() && point.y == 0.0 && point.x == 0.0;
}

class DataTable {
 public:
  DataTable(SheetWriter& sheet, const TextRow& row, const Columns& columns)
      : sheet_(sheet), row_(row), columns_(columns), place_(sheet.placeOf(row)) {}

  double draw(const Figure& figure) {
    sheet_.view().gsExecuteMacro(macroText::kAllLayersOff);
    const std::vector<LetterPlace> letters = lettersOf(figure);
    for (size_t n = 0; n < figure.size(); ++n) { drawSide(figure[n], letters[n]); }
    nextLine();
    for (const std::string_view key : kControlKeys) { drawControlPoint(key); }
    return place_.y;
  }

 private:
  [[nodiscard]] std::vector<LetterPlace> lettersOf(const Figure& figure) const {
    if (sheet_.job().options().lettersClear) { return placeLetters(sheet_, figure, row_, circleRadius()); }
    constexpr int kAbove = 4;
    std::vector<LetterPlace> letters;
    for (const Side& side : figure) { letters.push_back({side.from, kAbove}); }
    return letters;
  }

  void drawSide(const Side& side, const LetterPlace& letter) {
    circleBeacon(side.from);
    sheet_.write(row_, letter.at, side.fromLabel, letter.justification);
    const NumberStyle& numbers = sheet_.job().numbers();
    write({side.name(), formattedNumber(side.join.distance, numbers),
           formattedBearing(side.join.direction, numbers).text, side.fromLabel, coordinate(side.from.x),
           coordinate(side.from.y)});
    nextLine();
  }

  [[nodiscard]] double circleRadius() const {
    return sheet_.job().paperFactor() * sheet_.job().options().cornerDiam / 2.0;
  }

  void circleBeacon(Point beacon) {
    const double radius = circleRadius();
    if (radius == 0.0) { return; }
    sheet_.view().gsExecuteMacro(macroText::cutCircle(beacon, beacon + Point{0, radius}));
  }

  void drawControlPoint(std::string_view key) {
    const std::string value = sheet_.job().value(kControlSection, key);
    const ControlPoint point = controlPointOf(value);
    if (holdsNothing(point)) { return; }
    const bool beacon = point.category == ControlCategory::kTrigonometricalBeacon;
    Line line;
    line[kDistance] = beacon ? point.number : "";
    line[kBearing] = point.name;
    line[kY] = coordinate(point.y);
    line[kX] = coordinate(point.x);
    write(line);
    sheet_.view().gsExecuteMacro(macroText::addSymbol(beacon ? "TRIG" : "WITNESS", placeOf(kBeacon)));
    sheet_.view().gsExecuteMacro(macroText::beginGroup("_"));
    nextLine();
  }

  void write(const Line& line) {
    for (size_t column = 0; column < kColumns; ++column) {
      sheet_.write(row_, placeOf(column), line.at(column), columns_.at(column).justification);
    }
  }
  [[nodiscard]] Point placeOf(size_t column) const {
    return {place_.x + sheet_.across(columns_.at(column).position), place_.y};
  }
  void nextLine() { place_.y += sheet_.nextLine(row_); }
  [[nodiscard]] std::string coordinate(double value) const {
    return formattedNumber(value, sheet_.job().numbers(), PlusSign::kAsStyled);
  }

  SheetWriter& sheet_;
  const TextRow& row_;
  const Columns& columns_;
  Point place_;
};

}  // namespace

TextRow dataTableRow(const JobSettings& job) {
  const bool amongTexts = !job.value(kDiagramTextSection, kDataTableKey).empty();
  return job.textRow(amongTexts ? kDiagramTextSection : kDataSection, kDataTableKey);
}

double heightOfDataTable(const SheetWriter& sheet, const TextRow& row, const Figure& figure) {
  if (!columnsOf(sheet.job()) || row.size == 0) { return 0.0; }
  const auto controls = std::ranges::count_if(kControlKeys, [&](std::string_view key) {
    return !holdsNothing(controlPointOf(sheet.job().value(kControlSection, key)));
  });
  return std::fabs(sheet.nextLine(row)) * static_cast<double>(figure.size() + 1 + static_cast<size_t>(controls));
}

double drawDataTable(SheetWriter& sheet, const TextRow& row, const Figure& figure) {
  const std::optional<Columns> columns = columnsOf(sheet.job());
  if (!columns || row.size == 0) { return sheet.placeOf(row).y; }
  return DataTable(sheet, row, *columns).draw(figure);
}

}  // namespace ardenix::survey

#include "survey/plan/plan_tables.h"

#include <array>

#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "survey/number_formats.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr int kCentredFigure = 15;
constexpr int kRight = 8;

// ---- Sides of the figure ----------------------------------------------------------------------------------------

constexpr double kFigureWidths[] = {6.0, 6.0, 8.833, 4.333, 9.9171, 9.9171};
constexpr HeadingCell kFigureCells[] = {{"TL"},
                                        {"T"},
                                        {"T"},
                                        {"T"},
                                        {"T"},
                                        {"TR"},
                                        {"TL"},
                                        {"T"},
                                        {"T"},
                                        {"TL"},
                                        {"T"},
                                        {"TR"},
                                        {"TL", "SIDES"},
                                        {"TL", "METRES"},
                                        {"TL", "ANGLES OF\\nDIRECTION"},
                                        {"TL"},
                                        {"T"},
                                        {"TR"},
                                        {"TBL"},
                                        {"TBL"},
                                        {"TBL"},
                                        {"TBL"},
                                        {"TBL"},
                                        {"TRBL"}};
// Numbers end at their place: centred there, the widest would cross its ruling.
constexpr TableColumn kFigureColumns[] = {{2.1665, kCentredFigure}, {10.8, kRight},   {18.666, kRight},
                                          {23.0, kCentredFigure},   {33.666, kRight}, {43.333, kRight}};
constexpr TableForm kFigureTable = {.kind = "A_TABLE0",
                                    .widths = kFigureWidths,
                                    .cells = kFigureCells,
                                    .columns = kFigureColumns,
                                    .firstRow = 9.833 + 1.1,
                                    .lastRowLess = 9.833,
                                    .lastRowSteps = 1};

// ---- Areas of erven ---------------------------------------------------------------------------------------------

constexpr double kAreaWidths[] = {10.417, 10.417};
constexpr HeadingCell kAreaCells[] = {{"TL"}, {"TR"}, {"TL", "ERF\\nNUMBER"}, {"TRBL"}, {"TBL"}, {"TRBL"}};
constexpr TableColumn kAreaColumns[] = {{5.208, kCentredFigure}, {15.625, kCentredFigure}};
constexpr TableForm kAreaTable = {.kind = "A_TABLE1",
                                  .widths = kAreaWidths,
                                  .cells = kAreaCells,
                                  .columns = kAreaColumns,
                                  .firstRow = 6.0 + 1.1,
                                  .lastRowLess = 6.0};

// ---- Points -----------------------------------------------------------------------------------------------------

constexpr double kPointWidths[] = {4.333, 9.9171, 9.9171};
constexpr HeadingCell kPointCells[] = {{"TL"}, {"T"}, {"TR"}, {"TBL"}, {"TBL"}, {"TRBL"}};
constexpr TableColumn kPointColumns[] = {{2.1665, kCentredFigure}, {10.5, kCentredFigure}, {19.5, kCentredFigure}};
constexpr TableColumn kTownMarkColumns[] = {{2.333, kCentredFigure}, {10.5, kCentredFigure}, {19.5, kCentredFigure}};

constexpr TableForm pointTable(std::string_view kind, std::span<const TableColumn> columns) {
  return {.kind = kind,
          .widths = kPointWidths,
          .cells = kPointCells,
          .columns = columns,
          .firstRow = 3.0 + 1.1,
          .lastRowLess = 3.0};
}

constexpr std::array kPointTables = {pointTable("B_TABLE0", kPointColumns), pointTable("B_TABLE1", kPointColumns),
                                     pointTable("B_TABLE2", kPointColumns), pointTable("B_TABLE3", kTownMarkColumns)};

// ---- Styles -----------------------------------------------------------------------------------------------------

enum Field : int { kTablePen = 1, kTextPen, kHeight, kLayer, kFont };

// A whole number of a row; a missing one is the default.
int wholeField(const JobSettings& job, std::string_view key, int field, int fallback, limits::WholeRange range) {
  const int value = coreGetFieldInt(job.value(kTableSection, key), fallback, field, ',');
  if (range.contains(value)) { return value; }
  throw HostFailure(numberText::format("%s: field %d of \"%s\" in section \"%s\" takes %d to %d, got %d",
                                       job.file().FileName(), field, key, kTableSection, range.least, range.most,
                                       value));
}

}  // namespace

const TableForm& figureTableForm() { return kFigureTable; }
const TableForm& areaTableForm() { return kAreaTable; }
const TableForm& pointTableForm(int kind) { return kPointTables.at(static_cast<size_t>(kind)); }

TableStyle tableStyleOf(const JobSettings& job, CCadWindow& view, std::string_view key, std::string_view otherKey) {
  if (job.value(kTableSection, key).empty() && !otherKey.empty()) { return tableStyleOf(job, view, otherKey); }
  constexpr limits::WholeRange kLayers{0, 32767};
  TableStyle style;
  style.tablePen = wholeField(job, key, kTablePen, style.tablePen, limits::kPens);
  style.textPen = wholeField(job, key, kTextPen, style.textPen, limits::kPens);
  style.height = wholeField(job, key, kHeight, style.height, limits::kTextSizes);
  style.layer = wholeField(job, key, kLayer, style.layer, kLayers);
  if (style.layer >= view.gsGetLayerCount() - 1) { style.layer = 0; }
  std::array<char, 256> font{};
  coreGetField(job.value(kTableSection, key), "", font.data(), static_cast<int>(font.size()), kFont, ',');
  if (font.front() != '\0') { style.font = font.data(); }
  return style;
}

bool mayDrawTable(CCadWindow& view, const TableStyle& style) {
  LayerDef layer;
  return view.gsGetLayerDefIndex(style.layer, layer) == 0 || mayDrawOn(view, layer.name);
}

std::string coordinateText(const JobSettings& job, double value) {
  return formattedNumber(value, job.numbers(), PlusSign::kAsStyled);
}

}  // namespace ardenix::survey

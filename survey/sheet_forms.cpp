#include "survey/settings_sheet.h"

namespace ardenix::survey {

namespace {

constexpr SheetColumn kTextColumns[] = {
    {"Default Text", Entry::kText, 200},
    {"Hor Coord (mm)", Entry::kMillimetres, 110},
    {"Ver Coord (mm)", Entry::kMillimetres, 110},
    {"Pen", Entry::kPen, 45},
    {"Size", Entry::kSize, 45},
    {"Lorg", Entry::kJustification, 45},
    {"Font", Entry::kFont, 110},
    {"Underline", Entry::kFlag, 70},
};

constexpr SheetColumn kLineColumns[] = {
    {"Start Hor Coord (mm)", Entry::kMillimetres, 130},
    {"Start Ver Coord (mm)", Entry::kMillimetres, 130},
    {"End Hor Coord (mm)", Entry::kMillimetres, 130},
    {"End Ver Coord (mm)", Entry::kMillimetres, 130},
    {"Pen", Entry::kPen, 45},
    {"LT", Entry::kLinetype, 60},
};

constexpr SheetColumn kDataColumnColumns[] = {{"Hor Coord (mm)", Entry::kMillimetres, 110},
                                              {"Lorg", Entry::kJustification, 60}};

constexpr SheetColumn kTableColumns[] = {
    {"Table Pen", Entry::kPen, 75}, {"Text Pen", Entry::kPen, 75}, {"Text Hgt", Entry::kSize, 70},
    {"Layer", Entry::kName, 170},   {"Font", Entry::kFont, 130},
};

constexpr SheetColumn kExtentColumns[] = {{"Lower extent (mm)", Entry::kMillimetres, 130},
                                          {"Upper extent (mm)", Entry::kMillimetres, 130}};

constexpr SheetColumn kFloorColumns[] = {{"Floor Name", Entry::kText, 300}};

SheetForm textForm(const TextSheet& sheet) {
  return {.caption = sheet.caption,
          .columns = kTextColumns,
          .record = RecordForm::kTextRow,
          .blocks = {{.section = sheet.section, .keys = sheet.rows}}};
}

std::vector<SheetForm> diagramForms() {
  const auto sheets = textSheets(SurveyMode::kDiagram);
  SheetForm texts = textForm(sheets[1]);
  texts.blocks.push_back({.section = sheets[1].section,
                          .numberedKey = kAdditionalText,
                          .most = kMostTextRows - static_cast<int>(sheets[1].rows.size()),
                          .heading = "Additional text %d",
                          .removable = true});
  const RowBlock lines{
      .section = kLineSection, .numberedKey = kLineKey, .most = kMostLines, .heading = "Line %d", .removable = true};
  return {textForm(sheets[0]),
          std::move(texts),
          {.caption = "Lines", .columns = kLineColumns, .blocks = {lines}},
          {.caption = "Data Table", .columns = kDataColumnColumns, .columnsAreRecords = true}};
}

std::vector<SheetForm> generalPlanForms() {
  const auto sheets = textSheets(SurveyMode::kGeneralPlan);
  return {textForm(sheets[0]),
          textForm(sheets[1]),
          {.caption = "Tables", .columns = kTableColumns, .blocks = {{.section = kTableSection, .keys = tableRows()}}}};
}

std::vector<SheetForm> sectionalForms() {
  const auto sheets = textSheets(SurveyMode::kSectionalPlan);
  const RowBlock floors{.section = kFloorSection, .numberedKey = kFloorKey, .most = kMostFloors, .heading = "Floor %d"};
  return {textForm(sheets[0]),
          textForm(sheets[1]),
          {.caption = "Draw Extents",
           .columns = kExtentColumns,
           .blocks = {{.section = kExtentSection, .keys = extentRows()}}},
          {.caption = "Floor Names", .columns = kFloorColumns, .record = RecordForm::kWhole, .blocks = {floors}}};
}

}  // namespace

std::vector<SheetForm> sheetForms(SurveyMode mode) {
  switch (mode) {
    case SurveyMode::kDiagram: return diagramForms();
    case SurveyMode::kGeneralPlan: return generalPlanForms();
    case SurveyMode::kSectionalPlan: return sectionalForms();
  }
  return {};
}

}  // namespace ardenix::survey

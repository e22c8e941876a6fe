#include "host/files/dxf/write/tables.h"

#include <algorithm>
#include <numeric>

#include "host/drawing/dimension_strokes.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/line_types.h"
#include "host/drawing/pens.h"
#include "host/files/dxf/own_notes.h"
#include "host/files/dxf/write/entities.h"

namespace brevan {

namespace {

// What the units of a drawing are called in DXF, by millimetres a unit.
struct UnitCode {
  double millimetres;
  int code;
  bool metric;
};
constexpr std::array<UnitCode, 8> kUnitCodes = {{{1.0, 4, true},
                                                 {10.0, 5, true},
                                                 {100.0, 14, true},
                                                 {1000.0, 6, true},
                                                 {1e6, 7, true},
                                                 {25.4, 1, false},
                                                 {304.8, 2, false},
                                                 {914.4, 10, false}}};
constexpr UnitCode kUnknownUnit = {0.0, 0, true};

UnitCode unitCode(double millimetres) {
  const auto* const found = std::find_if(kUnitCodes.begin(), kUnitCodes.end(), [millimetres](const UnitCode& row) {
    return std::abs(row.millimetres - millimetres) <= 1e-9 * row.millimetres;
  });
  return found == kUnitCodes.end() ? kUnknownUnit : *found;
}

class HeaderWriter {
 public:
  explicit HeaderWriter(DxfTags& tags) : tags_(tags) {}
  void text(std::string_view name, int code, std::string_view value) { named(name).text(code, value); }
  void integer(std::string_view name, long long value) { named(name).integer(70, value); }
  void real(std::string_view name, double value) { named(name).real(40, value); }
  void point(std::string_view name, Point p) { named(name).point(10, p); }
  void flatPoint(std::string_view name, Point p) {
    named(name).real(10, p.x);
    tags_.real(20, p.y);
  }

 private:
  DxfTags& named(std::string_view name) {
    tags_.text(9, name);
    return tags_;
  }
  DxfTags& tags_;
};

void writeExtents(HeaderWriter& header, const DxfModel& model) {
  const Box& extents = model.extents();
  constexpr Point kFar = {1e20, 1e20};
  header.point("$EXTMIN", extents.empty() ? kFar : extents.low);
  header.point("$EXTMAX", extents.empty() ? Point{} - kFar : extents.high);
  header.flatPoint("$LIMMIN", extents.empty() ? Point{} : extents.low);
  header.flatPoint("$LIMMAX", extents.empty() ? Point{420.0, 297.0} : extents.high);
}

}  // namespace

size_t writeDxfHeader(DxfTags& tags, const DxfModel& model) {
  const Parameters& parameters = model.drawing().parameters();
  const UnitCode unit = unitCode(parameters.unit());
  HeaderWriter header(tags);
  tags.text(0, "SECTION");
  tags.text(2, "HEADER");
  tags.text(999, parametersNote(parameters));
  if (model.drawing().sheet()) { tags.text(999, dxfPlain(sheetNote(*model.drawing().sheet()), model.version())); }
  header.text("$ACADVER", 1, model.version() == DxfVersion::kR2000 ? "AC1015" : "AC1024");
  header.text("$DWGCODEPAGE", 3, "ANSI_1252");
  header.point("$INSBASE", {});
  writeExtents(header, model);
  header.real("$LTSCALE", 1.0);
  header.text("$TEXTSTYLE", 7, "Standard");
  header.text("$CLAYER", 8, model.layerName(model.drawing().currentLayer()));
  header.text("$CELTYPE", 6, "ByLayer");
  header.text("$DIMSTYLE", 2, "Standard");
  header.integer("$LUNITS", 2);
  header.integer("$LUPREC", 4);
  header.integer("$INSUNITS", unit.code);
  header.integer("$MEASUREMENT", unit.metric ? 1 : 0);
  header.integer("$TILEMODE", 1);
  tags.text(9, "$LWDISPLAY");
  tags.integer(290, 1);
  tags.text(9, "$HANDSEED");
  tags.text(5, std::string(kHandleSeedDigits, '0'));
  const size_t seedAt = tags.size() - kHandleSeedDigits - 1;
  tags.text(0, "ENDSEC");
  return seedAt;
}

void writeDxfClasses(DxfTags& tags) {
  struct ClassRow {
    std::string_view record;
    std::string_view name;
  };
  constexpr std::array<ClassRow, 2> kClasses = {
      {{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"}, {"ACDBPLACEHOLDER", "AcDbPlaceHolder"}}};
  tags.text(0, "SECTION");
  tags.text(2, "CLASSES");
  for (const ClassRow& row : kClasses) {
    tags.text(0, "CLASS");
    tags.text(1, row.record);
    tags.text(2, row.name);
    tags.text(3, "ObjectDBX Classes");
    tags.integer(90, 0);
    tags.integer(280, 0);
    tags.integer(281, 0);
  }
  tags.text(0, "ENDSEC");
}

namespace {

class TableWriter {
 public:
  TableWriter(DxfTags& tags, std::string_view name, DxfHandle table, size_t rows)
      : tags_(tags), name_(name), table_(table) {
    tags.text(0, "TABLE");
    tags.text(2, name);
    tags.handle(5, table);
    tags.integer(330, 0);
    tags.text(100, "AcDbSymbolTable");
    tags.integer(70, static_cast<long long>(rows));
  }
  // The groups that every record begins with; `subclass` is its own.
  DxfTags& record(DxfHandle handle, std::string_view subclass, std::string_view name, int flags) {
    tags_.text(0, name_);
    tags_.handle(name_ == "DIMSTYLE" ? 105 : 5, handle);
    tags_.handle(330, table_);
    tags_.text(100, "AcDbSymbolTableRecord");
    tags_.text(100, subclass);
    tags_.text(2, name);
    if (name_ != "BLOCK_RECORD") { tags_.integer(70, flags); }
    return tags_;
  }
  void close() { tags_.text(0, "ENDTAB"); }

 private:
  DxfTags& tags_;
  std::string_view name_;
  DxfHandle table_;
};

void writeViewports(DxfTags& tags, const DxfModel& model) {
  TableWriter table(tags, "VPORT", kViewportTable, 1);
  table.record(kActiveViewport, "AcDbViewportTableRecord", "*ACTIVE", 0);
  const Box& extents = model.extents();
  const Point centre = extents.empty() ? Point{210.0, 148.5} : extents.centre();
  const double height = std::max({extents.height(), extents.width() * 0.7, 1e-6}) * 1.05;
  const auto flat = [&tags](int code, Point p) {
    tags.real(code, p.x);
    tags.real(code + 10, p.y);
  };
  flat(10, {0.0, 0.0});  // the viewport takes the whole screen
  flat(11, {1.0, 1.0});
  flat(12, centre);
  flat(13, {0.0, 0.0});  // snap and grid
  flat(14, {10.0, 10.0});
  flat(15, {10.0, 10.0});
  flat(16, {0.0, 0.0});  // seen from straight above
  tags.real(36, 1.0);
  tags.point(17, {});
  tags.real(40, extents.empty() ? 297.0 : height);
  tags.real(41, 1.5);
  tags.real(42, 50.0);
  tags.real(43, 0.0);
  tags.real(44, 0.0);
  tags.real(50, 0.0);
  tags.real(51, 0.0);
  constexpr std::array<int, 8> kFlagValues = {0, 1000, 1, 3, 0, 0, 0, 0};
  for (size_t flag = 0; flag < kFlagValues.size(); ++flag) {
    tags.integer(71 + static_cast<int>(flag), kFlagValues[flag]);
  }
  table.close();
}

// Patterns are millimetres on paper and written in drawing units, so that they look as on paper.
void writeLineType(TableWriter& table, DxfHandle handle, const DxfModel& model, int number) {
  const LineType& type = lineType(number);
  const double unit = model.drawing().parameters().paperMillimetre();
  DxfTags& tags = table.record(handle, "AcDbLinetypeTableRecord", model.lineTypeName(number), 0);
  tags.text(3, type.pattern.empty() ? "Solid line" : type.description);
  tags.integer(72, 65);
  tags.integer(73, static_cast<long long>(type.pattern.size()));
  tags.real(40, std::accumulate(type.pattern.begin(), type.pattern.end(), 0.0) * unit);
  double sign = 1.0;
  for (const double length : type.pattern) {
    tags.real(49, sign * length * unit);
    tags.integer(74, 0);
    sign = -sign;
  }
}

void writeLineTypes(DxfTags& tags, DxfModel& model) {
  TableWriter table(tags, "LTYPE", kLineTypeTable, model.lineTypes().size() + 2);
  const auto writeStandIn = [&table](DxfHandle handle, std::string_view name) {
    DxfTags& record = table.record(handle, "AcDbLinetypeTableRecord", name, 0);
    record.text(3, "");
    record.integer(72, 65);
    record.integer(73, 0);
    record.real(40, 0.0);
  };
  writeStandIn(kByBlockLineType, "ByBlock");
  writeStandIn(kByLayerLineType, "ByLayer");
  for (const int number : model.lineTypes()) {
    writeLineType(table, number == 1 ? DxfHandle{kContinuousLineType} : model.nextHandle(), model, number);
  }
  table.close();
}

void writeLayers(DxfTags& tags, DxfModel& model) {
  const Drawing& drawing = model.drawing();
  TableWriter table(tags, "LAYER", kLayerTable, static_cast<size_t>(drawing.layerCount()));
  constexpr int kLocked = 4;
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    if (layer == nullptr) { continue; }
    table.record(model.nextHandle(), "AcDbLayerTableRecord", model.layerName(index), layer->locked ? kLocked : 0);
    tags.integer(62, layer->visible ? colourIndex(layer->pen) : -colourIndex(layer->pen));
    tags.text(6, model.lineTypeName(layer->linetype));
    tags.integer(370, dxfLineweight(layer->width));
    tags.handle(390, kPlotStylePlaceholder);
  }
  table.close();
}

std::string fontFile(std::string_view font) {
  constexpr std::array<std::string_view, 3> kFiles = {"arial.ttf", "times.ttf", "cour.ttf"};
  return std::string(kFiles[static_cast<size_t>(faceOf(font))]);
}

void writeStyle(TableWriter& table, DxfHandle handle, std::string_view name, std::string_view file) {
  DxfTags& tags = table.record(handle, "AcDbTextStyleTableRecord", name, 0);
  tags.real(40, 0.0);
  tags.real(41, 1.0);
  tags.real(50, 0.0);
  tags.integer(71, 0);
  tags.real(42, 2.5);
  tags.text(3, file);
  tags.text(4, "");
}

void writeStyles(DxfTags& tags, DxfModel& model) {
  TableWriter table(tags, "STYLE", kStyleTable, model.styles().size() + 1);
  writeStyle(table, kStandardStyle, "Standard", "arial.ttf");
  for (const auto& [font, style] : model.styles()) {
    writeStyle(table, model.nextHandle(), style, fontFile(font));
    tags.text(1001, "ACAD");  // the font's own name, for a program that has it
    tags.text(1000, dxfPlain(font, model.version()));
    tags.integer(1071, 0);
  }
  table.close();
}

void writeDimensionStyles(DxfTags& tags, const DxfModel& model) {
  TableWriter table(tags, "DIMSTYLE", kDimensionStyleTable, 1);
  tags.text(100, "AcDbDimStyleTable");
  tags.integer(71, 0);
  table.record(kDimensionStyle, "AcDbDimStyleTableRecord", "Standard", 0);
  tags.real(40, model.drawing().parameters().paperMillimetre());
  tags.real(41, kDimensionArrowLength / 10.0);
  tags.real(42, kExtensionGap);
  tags.real(44, kExtensionOvershoot);
  tags.real(140, kDimensionTextHeight / 10.0 * capHeight(FontFace::kSans));
  tags.real(147, kDimensionTextGap);
  tags.integer(73, 0);  // texts lie along the dimension line ...
  tags.integer(74, 0);
  tags.integer(77, 1);  // ... and above it
  tags.integer(271, 3);
  tags.handle(340, kStandardStyle);
  table.close();
}

void writeBlockRecords(DxfTags& tags, const DxfModel& model) {
  TableWriter table(tags, "BLOCK_RECORD", kBlockRecordTable, 2 + model.blocks().size() + model.dimensions().size());
  const auto write = [&](DxfHandle handle, std::string_view name, DxfHandle layout) {
    table.record(handle, "AcDbBlockTableRecord", name, 0);
    tags.handle(340, layout);
    if (model.version() == DxfVersion::kR2000) { return; }
    tags.integer(70, 0);
    tags.integer(280, 1);
    tags.integer(281, 0);
  };
  write(kModelRecord, "*Model_Space", kModelLayout);
  write(kPaperRecord, "*Paper_Space", kPaperLayout);
  for (const DxfBlock& block : model.blocks()) { write(block.record, block.name, 0); }
  for (size_t n = 0; n < model.dimensions().size(); ++n) {
    write(model.dimensionRecord(n), "*D" + std::to_string(n + 1), 0);
  }
  table.close();
}

}  // namespace

void writeDxfTables(DxfTags& tags, DxfModel& model) {
  tags.text(0, "SECTION");
  tags.text(2, "TABLES");
  writeViewports(tags, model);
  writeLineTypes(tags, model);
  writeLayers(tags, model);
  writeStyles(tags, model);
  TableWriter(tags, "VIEW", kViewTable, 0).close();
  TableWriter(tags, "UCS", kUcsTable, 0).close();
  TableWriter applications(tags, "APPID", kApplicationTable, 1);
  applications.record(kApplication, "AcDbRegAppTableRecord", "ACAD", 0);
  applications.close();
  writeDimensionStyles(tags, model);
  writeBlockRecords(tags, model);
  tags.text(0, "ENDSEC");
}

}  // namespace brevan

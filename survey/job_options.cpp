#include "survey/job_options.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

double read(const TINIFile& file, const NumberOption& row) {
  const double value = file.ReadDouble(kOptionSection, row.key, row.used);
  if (value >= row.minimum && value <= row.maximum) { return value; }
  throw HostFailure(numberText::format("%s: \"%s\" in section \"%s\" takes %s to %s, got %s", file.FileName(), row.key,
                                       kOptionSection, numberText::shortest(row.minimum),
                                       numberText::shortest(row.maximum), numberText::shortest(value)));
}

bool readFlag(const TINIFile& file, const NumberOption& row) { return read(file, row) != 0.0; }
int readInt(const TINIFile& file, const NumberOption& row) { return static_cast<int>(read(file, row)); }

std::string readLayer(const TINIFile& file, const LayerOption& row) {
  const std::string name = file.ReadString(kOptionSection, row.key, row.used).substr(0, kLayerNameLimit);
  return name.empty() ? std::string(row.used) : name;
}

std::string readSeparator(const TINIFile& file, std::string_view key) {
  return separatorOf(file.ReadString(kOptionSection, key, ","));
}

}  // namespace

JobOptions readJobOptions(const TINIFile& file) {
  return {.addNotes = readFlag(file, option::kAddNotes),
          .servNotes = readFlag(file, option::kServNotes),
          .useOffset = readFlag(file, option::kUseOffset),
          .offset = readInt(file, option::kOffset),
          .polySnipFactor = read(file, option::kPolySnipFactor),
          .delLines = readFlag(file, option::kDelLines),
          .lineType = readInt(file, option::kLineType),
          .cornerDiam = read(file, option::kCornerDiam),
          .blockDiam = read(file, option::kBlockDiam),
          .dimSetting = static_cast<DimensionTexts>(readInt(file, option::kDimSetting)),
          .multiline = readFlag(file, option::kMultiline),
          .tracePen = readInt(file, option::kTracePen),
          .diagramLayer = readLayer(file, option::kDiagramLayer),
          .figureLayer = readLayer(file, option::kFigureLayer),
          .frameLayer = readLayer(file, option::kFrameLayer),
          .textLayer = readLayer(file, option::kTextLayer)};
}

NumberStyle readNumberStyle(const TINIFile& file) {
  return {.decimal = readSeparator(file, option::kDecimal),
          .thousands = readSeparator(file, option::kThousand),
          .bearing = readSeparator(file, option::kBearing),
          .roundBearing = readFlag(file, option::kRoundBearing),
          .plusSign = readFlag(file, option::kPlusSign)};
}

}  // namespace ardenix::survey

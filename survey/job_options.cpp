#include "survey/job_options.h"

#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

constexpr unsigned kDiagrams = 1U << static_cast<unsigned>(SurveyMode::kDiagram);
constexpr unsigned kPlans = 1U << static_cast<unsigned>(SurveyMode::kGeneralPlan);
constexpr unsigned kSections = 1U << static_cast<unsigned>(SurveyMode::kSectionalPlan);
constexpr unsigned kAllModes = kDiagrams | kPlans | kSections;

// The entries of a separator's list.
enum SeparatorEntry : int { kFullStop, kComma, kSpace };

constexpr OptionRow kOptions[] = {
    {.key = "Decimal",
     .member = &JobOptions::decimal,
     .kind = OptionKind::kSeparator,
     .box = OptionBox::kSeparators,
     .modes = kAllModes,
     .caption = "Decimal",
     .toolTip = "Separator between the whole number and its decimals",
     .offered = kComma},
    {.key = "Thousand",
     .member = &JobOptions::thousands,
     .kind = OptionKind::kSeparator,
     .box = OptionBox::kSeparators,
     .modes = kAllModes,
     .caption = "Thousand",
     .toolTip = "Separator between groups of three digits",
     .offered = kSpace},
    {.key = "Bearing",
     .member = &JobOptions::bearing,
     .kind = OptionKind::kSeparator,
     .box = OptionBox::kSeparators,
     .modes = kAllModes,
     .caption = "Bearing",
     .toolTip = "Separator between degrees, minutes and seconds",
     .offered = kSpace},
    {.key = "RoundBearing",
     .member = &JobOptions::roundBearing,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kSeparators,
     .modes = kAllModes,
     .caption = "Round bearing to nearest 10\"",
     .toolTip = "Bearings are written to the nearest 10 seconds",
     .offered = 1},
    {.key = "UseOffset",
     .member = &JobOptions::useOffset,
     .kind = OptionKind::kWayOfClipping,
     .box = OptionBox::kSnip,
     .modes = kDiagrams,
     .caption = "Snip surrounding data",
     .offered = 1},
    {.key = "Offset",
     .member = &JobOptions::offset,
     .kind = OptionKind::kWhole,
     .box = OptionBox::kSnip,
     .modes = kDiagrams,
     .caption = "Offset",
     .toolTip = "Distance of the rectangle from the figure, in millimetres on paper",
     .used = 5,
     .offered = 5,
     .maximum = 10000},
    // The limit keeps the clipping polygon within what coordinates can say.
    {.key = "PolySnipFactor",
     .member = &JobOptions::polySnipFactor,
     .kind = OptionKind::kFactor,
     .box = OptionBox::kSnip,
     .modes = kDiagrams,
     .caption = "PolySnipFactor",
     .toolTip = "How many times as far from the centre the clipping polygon lies, above 1",
     .used = 2.0,
     .offered = 1.7,
     .minimum = 1,
     .maximum = 10000},
    {.key = "DelLines",
     .member = &JobOptions::delLines,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kSnip,
     .modes = kDiagrams,
     .caption = "Delete isolated lines.",
     .toolTip = "Leave out lines that do not touch the figure",
     .offered = 1},
    {.key = "LineType",
     .member = &JobOptions::lineType,
     .kind = OptionKind::kLineType,
     .box = OptionBox::kStyle,
     .modes = kDiagrams,
     .caption = "Offshoot linetype",
     .toolTip = "Line type in which lines outside the figure are marked",
     .used = 5,
     .offered = 21,
     .minimum = limits::kListedLineTypes.least,
     .maximum = limits::kListedLineTypes.most},
    {.key = "Layer",
     .member = &JobOptions::diagramLayer,
     .kind = OptionKind::kLayer,
     .box = OptionBox::kStyle,
     .modes = kDiagrams,
     .caption = "Layer Name",
     .toolTip = "Layer on which the texts of the diagram are drawn",
     .usedText = "SG_DIAGRAM",
     .offeredText = "SG_DIAGRAM"},
    {.key = "BlockDiam",
     .member = &JobOptions::blockDiam,
     .kind = OptionKind::kMeasure,
     .box = OptionBox::kStyle,
     .modes = kPlans,
     .caption = "Block corner diameter (mm)",
     .toolTip = "Diameter of the beacon circles of block corners; 0 draws none",
     .used = 2.0,
     .offered = 2.0,
     .maximum = 1000},
    {.key = "CornerDiam",
     .member = &JobOptions::cornerDiam,
     .kind = OptionKind::kMeasure,
     .box = OptionBox::kStyle,
     .modes = kDiagrams | kPlans,
     .caption = "Corner point diameter (mm)",
     .toolTip = "Diameter of the beacon circles of the outside figure; 0 draws none",
     .used = 2.0,
     .offered = 2.0,
     .maximum = 1000},
    {.key = "DimSetting",
     .member = &JobOptions::dimSetting,
     .kind = OptionKind::kList,
     .box = OptionBox::kStyle,
     .modes = kPlans,
     .caption = "Dimensions",
     .toolTip = "What a survey dimension draws",
     .maximum = 2},
    {.key = "TracePen",
     .member = &JobOptions::tracePen,
     .kind = OptionKind::kPen,
     .box = OptionBox::kStyle,
     .modes = kSections,
     .caption = "Temporary colour while tracing figure",
     .toolTip = "Pen of the rubber band while a figure is traced",
     .used = 1,
     .offered = 1,
     .minimum = limits::kPens.least,
     .maximum = limits::kPens.most},
    {.key = "FigLayer",
     .member = &JobOptions::figureLayer,
     .kind = OptionKind::kLayer,
     .box = OptionBox::kStyle,
     .modes = kSections,
     .caption = "Layer for figures",
     .toolTip = "Layer of the line work of figures",
     .offeredText = "ST_FIGURE"},
    {.key = "TxtLayer",
     .member = &JobOptions::textLayer,
     .kind = OptionKind::kLayer,
     .box = OptionBox::kStyle,
     .modes = kSections,
     .caption = "Layer for text",
     .toolTip = "Layer of texts outside the frame",
     .offeredText = "ST_TEXT"},
    {.key = "FrmLayer",
     .member = &JobOptions::frameLayer,
     .kind = OptionKind::kLayer,
     .box = OptionBox::kStyle,
     .modes = kSections,
     .caption = "Layer for frame data",
     .toolTip = "Layer of what stands in the frame",
     .offeredText = "ST_FRAMETXT"},
    {.key = "PlusSign",
     .member = &JobOptions::plusSign,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kDiagrams | kPlans,
     .caption = "Plus sign for positive coordinates",
     .offered = 1},
    {.key = "ServNotes",
     .member = &JobOptions::servNotes,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kDiagrams,
     .caption = "Servitude notes"},
    {.key = "AddNotes",
     .member = &JobOptions::addNotes,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kDiagrams,
     .caption = "Additional notes"},
    {.key = "LettersClear",
     .member = &JobOptions::lettersClear,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kDiagrams | kPlans,
     .caption = "Letters clear of the figure",
     .toolTip = "Letters of corners and marks stand beside them, clear of lines and circles"},
    {.key = "Hectares",
     .member = &JobOptions::hectares,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kDiagrams,
     .caption = "Areas from 1 ha in hectares",
     .toolTip = "With four decimals; smaller ones in square metres. Thousands are grouped"},
    {.key = "Multiline",
     .member = &JobOptions::multiline,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kPlans,
     .caption = "Separate text for bearing + distance",
     .toolTip = "Two texts instead of one of two lines"},
    {.key = "FitTexts",
     .member = &JobOptions::fitTexts,
     .kind = OptionKind::kFlag,
     .box = OptionBox::kFlags,
     .modes = kPlans,
     .caption = "Fit dimensions to short sides",
     .toolTip = "Texts longer than their side stand outside the erven; between two erven the distance stands alone"},
};

double readNumber(const TINIFile& file, const OptionRow& row) {
  const double value = file.ReadDouble(kOptionSection, row.key, row.used);
  if (value >= row.minimum && value <= row.maximum) { return value; }
  throw HostFailure(numberText::format("%s: \"%s\" in section \"%s\" takes %s to %s, got %s", file.FileName(), row.key,
                                       kOptionSection, numberText::shortest(row.minimum),
                                       numberText::shortest(row.maximum), numberText::shortest(value)));
}

std::string readText(const TINIFile& file, const OptionRow& row) {
  if (row.kind == OptionKind::kSeparator) { return separatorOf(file.ReadString(kOptionSection, row.key, "")); }
  const std::string name = file.ReadString(kOptionSection, row.key, row.usedText).substr(0, kLayerNameLimit);
  return name.empty() ? std::string(row.usedText) : name;
}

void readInto(std::string& value, const TINIFile& file, const OptionRow& row) { value = readText(file, row); }

template <class Number>
void readInto(Number& value, const TINIFile& file, const OptionRow& row) {
  const double number = readNumber(file, row);
  if constexpr (std::is_same_v<Number, DimensionTexts>) {
    value = static_cast<DimensionTexts>(static_cast<int>(number));
  } else {
    value = static_cast<Number>(number);
  }
}

}  // namespace

std::span<const OptionRow> optionRows() { return kOptions; }

JobOptions readJobOptions(const TINIFile& file) {
  JobOptions options;
  for (const OptionRow& row : kOptions) {
    std::visit([&](auto member) { readInto(options.*member, file, row); }, row.member);
  }
  return options;
}

}  // namespace ardenix::survey

#pragma once

#include <string>
#include <string_view>

#include "frame/host/ini.h"
#include "survey/number_style.h"

namespace ardenix::survey {

inline constexpr std::string_view kOptionSection = "DEFAULTS";

// An option that is a number or a flag (0 or 1). What a drawing command uses for a missing key is not what the
// option dialogs offer for it.
struct NumberOption {
  std::string_view key;
  double used;
  double offered;
  double minimum = 0.0;
  double maximum = 1.0;
};

namespace option {

inline constexpr NumberOption kRoundBearing{"RoundBearing", 0, 1};
inline constexpr NumberOption kPlusSign{"PlusSign", 0, 1};
inline constexpr NumberOption kAddNotes{"AddNotes", 0, 0};
inline constexpr NumberOption kServNotes{"ServNotes", 0, 0};
inline constexpr NumberOption kUseOffset{"UseOffset", 0, 1};
inline constexpr NumberOption kOffset{"Offset", 5, 5, 0, 10000};
// Above 1; the limit keeps the clipping polygon within what coordinates can say.
inline constexpr NumberOption kPolySnipFactor{"PolySnipFactor", 2.0, 1.7, 1, 10000};
inline constexpr NumberOption kDelLines{"DelLines", 0, 1};
inline constexpr NumberOption kLineType{"LineType", 5, 21, 1, 32};
inline constexpr NumberOption kCornerDiam{"CornerDiam", 2.0, 2.0, 0, 1000};
inline constexpr NumberOption kBlockDiam{"BlockDiam", 2.0, 2.0, 0, 1000};
inline constexpr NumberOption kDimSetting{"DimSetting", 0, 0, 0, 2};
inline constexpr NumberOption kMultiline{"Multiline", 0, 0};
inline constexpr NumberOption kTracePen{"TracePen", 1, 1, 1, 256};

}  // namespace option

struct LayerOption {
  std::string_view key;
  std::string_view used;
  std::string_view offered;
};

inline constexpr size_t kLayerNameLimit = 32;

namespace option {

inline constexpr LayerOption kDiagramLayer{"Layer", "SG_DIAGRAM", "SG_DIAGRAM"};
inline constexpr LayerOption kFigureLayer{"FigLayer", "", "ST_FIGURE"};
inline constexpr LayerOption kFrameLayer{"FrmLayer", "", "ST_FRAMETXT"};
inline constexpr LayerOption kTextLayer{"TxtLayer", "", "ST_TEXT"};

inline constexpr std::string_view kDecimal = "Decimal";
inline constexpr std::string_view kThousand = "Thousand";
inline constexpr std::string_view kBearing = "Bearing";

}  // namespace option

// Every option's key.
inline constexpr std::string_view kOptionKeys[] = {
    option::kDecimal,        option::kThousand,           option::kBearing,         option::kRoundBearing.key,
    option::kPlusSign.key,   option::kAddNotes.key,       option::kServNotes.key,   option::kUseOffset.key,
    option::kOffset.key,     option::kPolySnipFactor.key, option::kDelLines.key,    option::kLineType.key,
    option::kCornerDiam.key, option::kBlockDiam.key,      option::kDimSetting.key,  option::kMultiline.key,
    option::kTracePen.key,   option::kDiagramLayer.key,   option::kFigureLayer.key, option::kFrameLayer.key,
    option::kTextLayer.key,
};

// What a survey dimension draws.
enum class DimensionTexts : int { kBearingAndDistance = 0, kDistanceOnly = 1, kBearingOnly = 2 };

// The options of a settings file as drawing commands use them.
struct JobOptions {
  bool addNotes = false;
  bool servNotes = false;
  bool useOffset = false;       // clip to a rectangle grown by `offset`; else to the figure scaled
  int offset = 0;               // millimetres on paper
  double polySnipFactor = 0.0;  // above 1
  bool delLines = false;
  int lineType = 0;
  double cornerDiam = 0.0;  // millimetres on paper
  double blockDiam = 0.0;   // millimetres on paper
  DimensionTexts dimSetting = DimensionTexts::kBearingAndDistance;
  bool multiline = false;
  int tracePen = 0;
  std::string diagramLayer;
  std::string figureLayer;  // empty: none named
  std::string frameLayer;
  std::string textLayer;
};

// Throw HostFailure with file, key, range and value for a number outside its range.
JobOptions readJobOptions(const TINIFile& file);
NumberStyle readNumberStyle(const TINIFile& file);

}  // namespace ardenix::survey

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "frame/host/ini.h"
#include "survey/number_style.h"
#include "survey/survey_mode.h"

namespace ardenix::survey {

inline constexpr std::string_view kOptionSection = "DEFAULTS";

// What a survey dimension draws.
enum class DimensionTexts : int { kBearingAndDistance = 0, kDistanceOnly = 1, kBearingOnly = 2 };

// The options of a settings file as drawing commands use them.
struct JobOptions : NumberStyle {
  bool addNotes = false;
  bool servNotes = false;
  bool useOffset = false;       // clip to a rectangle grown by `offset`; else to the figure scaled
  int offset = 0;               // millimetres on paper
  double polySnipFactor = 0.0;  // above 1
  bool delLines = false;
  int lineType = 0;
  bool lettersClear = false;  // letters of corners stand beside them, clear of lines and circles
  bool hectares = false;      // areas from 1 ha in hectares, thousands grouped
  double cornerDiam = 0.0;    // millimetres on paper
  double blockDiam = 0.0;     // millimetres on paper
  DimensionTexts dimSetting = DimensionTexts::kBearingAndDistance;
  bool multiline = false;
  bool fitTexts = false;  // of dimensions longer than their side: outside, then the distance alone
  int tracePen = 0;
  std::string diagramLayer;
  std::string figureLayer;  // empty: none named
  std::string frameLayer;
  std::string textLayer;
  double floorPlanWidth = 0.0;  // millimetres on paper that floor plans may take
  // Of sectional plans: what is drawn and told besides.
  bool allSheets = false;
  bool floorAreas = false;
  bool faintWalls = false;
  bool floorTotals = false;
  bool adjustmentRule = false;
  bool checkOutlines = false;
  bool exclusiveAreas = false;
};

using OptionMember = std::variant<bool JobOptions::*, int JobOptions::*, double JobOptions::*,
                                  DimensionTexts JobOptions::*, std::string JobOptions::*>;

// The control that shows an option.
enum class OptionKind {
  kFlag,
  kWayOfClipping,  // a flag that chooses between the fields beside it
  kWhole,
  kFactor,   // above its minimum
  kMeasure,  // millimetres on paper
  kList,
  kLineType,
  kPen,
  kLayer,
  kSeparator
};

// The box of an option dialog in which an option stands.
enum class OptionBox { kSeparators, kSnip, kStyle, kFlags };

// An option of the settings. What a drawing command uses for a missing key is not what the option dialogs offer for it.
struct OptionRow {
  std::string_view key;
  OptionMember member;
  OptionKind kind;
  OptionBox box;
  unsigned modes;  // of whose dialog it is, a bit each
  std::string_view caption;
  std::string_view toolTip{};
  double used = 0.0;
  double offered = 0.0;  // of a separator the entry of its list
  double minimum = 0.0;
  double maximum = 1.0;
  std::string_view usedText{};  // of layers
  std::string_view offeredText{};

  [[nodiscard]] bool isOf(SurveyMode mode) const { return (modes >> static_cast<unsigned>(mode) & 1U) != 0; }
};

// In the order in which dialogs show them.
std::span<const OptionRow> optionRows();

inline constexpr size_t kLayerNameLimit = 32;

// Throws HostFailure with file, key, range and value for a number outside its range.
JobOptions readJobOptions(const TINIFile& file);

}  // namespace ardenix::survey

#pragma once

#include <string>

#include "frame/host/ini.h"
#include "frame/services.h"

namespace ardenix::survey {

inline constexpr std::string_view kNumberingSection = "StandSetup";
inline constexpr std::string_view kNumberLayerKey = "NumberLayer";
inline constexpr std::string_view kNumberLayer = "STAND_NO";

// How erven are numbered, as a settings file keeps it.
struct NumberingSettings {
  std::string layer{kNumberLayer};
  bool table = true;       // areas are listed in a table
  bool writeArea = false;  // below the number
  bool byStroke = false;   // each stroke numbers the erven that it crosses
  bool totals = false;     // a last row counts the erven and sums their areas
  bool check = false;      // tells how the sum of the areas stands to the figure traced last
  int rowsAColumn = 0;     // of the table; 0: all in one
};

NumberingSettings readNumberingSettings(const TINIFile& file);
void write(const NumberingSettings& settings, TINIFile& file);

// Lets the user change them; false when cancelled.
bool editNumberingSettings(NumberingSettings& settings, const Services& services, CWnd& owner);

}  // namespace ardenix::survey

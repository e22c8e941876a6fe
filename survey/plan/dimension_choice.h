#pragma once

#include <string>

#include "frame/host/cad_window.h"
#include "frame/host/ini.h"
#include "frame/services.h"

namespace ardenix::survey {

// Which erven get survey dimensions, as a settings file keeps it.
struct DimensionChoice {
  std::string layer;  // of the erf numbers
  int from = 0;       // 0 and 0: all
  int to = 0;

  [[nodiscard]] bool all() const { return from == 0 && to == 0; }
  [[nodiscard]] bool takes(int number) const;
};

DimensionChoice readDimensionChoice(const TINIFile& file);
void write(const DimensionChoice& choice, TINIFile& file);

// Lets the user choose among the layers of the view; false when cancelled.
bool editDimensionChoice(DimensionChoice& choice, const Services& services, CCadWindow& view);

}  // namespace ardenix::survey

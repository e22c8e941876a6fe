#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

// The numbers of erven that a drawing holds: texts of a layer, whose first line is the number.
namespace ardenix::survey {

struct ErfText {
  std::string number;
  Point at;
};

// In drawing order; none for a layer that is not there.
std::vector<ErfText> erfTextsOn(CCadWindow& view, std::string_view layer);

std::set<std::string, std::less<>> numbersOnLayer(CCadWindow& view, std::string_view layer);

}  // namespace ardenix::survey

#include "survey/number_style.h"

namespace ardenix::survey {

std::string separatorOf(std::string_view value) {
  switch (value.empty() ? '\0' : value.front()) {
    case 'C': return ",";
    case 'S': return " ";
    case 'N': return "";
    case 'D': return {kDegreeSign};
    case 'M': return "-";
    default: return ".";
  }
}

}  // namespace ardenix::survey

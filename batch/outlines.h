#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/geometry/point.h"

namespace brevan {

// What is to be cut of a drawing.
struct CutRequest {
  std::string from;
  std::string to;
  std::vector<std::string> groups;  // "NAME" or "PARENT NAME"; none: every part
  std::optional<Point> at;          // instead of parts the outer outline of the figure there
};

// Writes closed outlines alone as an exchange file: loops as polylines, circles as circles. What does not close is
// named on standard error. Throws InputUnread and OutputUnwritten; std::runtime_error where nothing closes.
void writeOutlines(const CutRequest& request);

}  // namespace brevan

#pragma once

#include <string>

#include "host/drawing/drawing.h"

namespace brevan {

inline constexpr size_t kMostDrgBytes = size_t{1} << 30;

// The drawing that a drawing file's bytes hold; `file` names it in failures. Reads as if the file came from an
// enemy: the database's structure is checked whole, its tables must be a drawing's and nothing else, and every
// value must be of its type and in its range. Throws HostFailure that names file, table, row and rule.
Drawing drawingFromDrg(std::string bytes, const std::string& file);

// Reads the file first.
Drawing openDrg(const std::string& path);

}  // namespace brevan

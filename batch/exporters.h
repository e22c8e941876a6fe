#pragma once

#include <string>

#include "host/scripts/script_player.h"

namespace brevan {

// What drawings can be exported as, by ending. The title goes into the files that have a place for one.
std::map<std::string, Exporter, std::less<>> exporters(const std::string& title);

}  // namespace brevan

#pragma once

#include "survey/job_settings.h"
#include "survey/sheet/ruled_table.h"

// The tables of a general plan, as data.
namespace ardenix::survey {

const TableForm& figureTableForm();
const TableForm& areaTableForm();
// The tables of block corners (0), reference marks (1), trigonometrical beacons (2) and town survey marks (3).
const TableForm& pointTableForm(int kind);

// The style that a settings file gives a table, from section "TABLES"; of another key where the first is missing. A
// layer that the view lacks is layer 0. Throws HostFailure with file, key and range for a row nothing can be drawn
// with.
TableStyle tableStyleOf(const JobSettings& job, CCadWindow& view, std::string_view key, std::string_view otherKey = "");

// Whether a table in this style can be drawn; says so where its layer is locked or hidden.
bool mayDrawTable(CCadWindow& view, const TableStyle& style);

// Coordinates as tables write them.
std::string coordinateText(const JobSettings& job, double value);

}  // namespace ardenix::survey

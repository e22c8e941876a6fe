#pragma once

#include <cstddef>

#include "host/files/dxf/write/model.h"

namespace brevan {

// The parts of a DXF file that stand before its blocks and after its entities.

// Returns where the seed of handles stands in the text, kHandleSeedDigits hexadecimal digits that are put
// in when all handles are given out.
inline constexpr size_t kHandleSeedDigits = 8;
size_t writeDxfHeader(DxfTags& tags, const DxfModel& model);
void writeDxfClasses(DxfTags& tags);
void writeDxfTables(DxfTags& tags, DxfModel& model);

}  // namespace brevan

#pragma once

#include "host/drawing/hatch.h"
#include "host/files/dxf/read/record.h"

namespace brevan {

// What a HATCH comes to, without outlines where none of them closes. Lengths of its pattern are those of its space, as
// heights of texts are. A pattern that this program wrote is told by its name again, one of another program by its
// lines.
Hatch dxfHatchRead(const DxfRecord& record, bool own);

}  // namespace brevan

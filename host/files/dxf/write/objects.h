#pragma once

#include <vector>

#include "host/files/dxf/write/entities.h"
#include "host/files/dxf/write/model.h"

namespace brevan {

// Dictionaries, layouts and groups. `entities` holds those of each primitive, by PrimitiveId.
void writeDxfObjects(DxfTags& tags, const DxfModel& model, const std::vector<DxfEntities>& entities);

}  // namespace brevan

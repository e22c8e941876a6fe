#pragma once

#include <vector>

#include "host/files/dxf_entities.h"
#include "host/files/dxf_model.h"

namespace brevan {

// Dictionaries, layouts and groups. `entities` holds those of each primitive, by PrimitiveId.
void writeDxfObjects(DxfTags& tags, const DxfModel& model, const std::vector<DxfEntities>& entities);

}  // namespace brevan

#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/line_style.h"

namespace ardenix::arch {

// How the lines of one kind are drawn, and whether.
struct LayerStyle : LineStyle {
  bool visible = true;
};

inline constexpr int kLayerStyleFields = 4;

// The style in four fields of a record from `first`; a missing field has the value above.
LayerStyle readLayerStyle(std::string_view record, int first);
std::string layerStyleFields(const LayerStyle& style);

}  // namespace ardenix::arch

#pragma once

#include <string>
#include <string_view>

namespace ardenix {

// How the lines of one kind are drawn, and whether.
struct LayerStyle {
  int pen = 1;
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre on paper
  bool visible = true;
};

inline constexpr int kLayerStyleFields = 4;

// The style in four fields of a record from `first`; a missing field has the value above.
LayerStyle readLayerStyle(std::string_view record, int first);
std::string layerStyleFields(const LayerStyle& style);

}  // namespace ardenix

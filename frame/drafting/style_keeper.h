#pragma once

#include <optional>

#include "frame/drafting/line_style.h"
#include "frame/host/cad_window.h"

namespace ardenix {

// Gives the user the line type, pen and width back that were current when it was made, however the command goes on that
// sets others for its own drawing. Leaves them in the macro variables L, P and W.
class StyleKeeper {
 public:
  explicit StyleKeeper(CCadWindow& view);
  StyleKeeper(const StyleKeeper&) = delete;
  StyleKeeper& operator=(const StyleKeeper&) = delete;
  ~StyleKeeper();

 private:
  CCadWindow& view_;
  std::optional<LineStyle> style_;  // nothing where the host did not tell it
};

}  // namespace ardenix

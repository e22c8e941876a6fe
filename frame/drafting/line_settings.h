#pragma once

#include "frame/drafting/line_style.h"
#include "frame/host/cad_window.h"

namespace ardenix {

// The style of what macros draw while the object lives; afterwards the user's own holds again.
class LineSettings {
 public:
  LineSettings(CCadWindow& view, const LineStyle& style);
  LineSettings(const LineSettings&) = delete;
  LineSettings& operator=(const LineSettings&) = delete;
  ~LineSettings();

 private:
  void set(const LineStyle& style) const;

  CCadWindow& view_;
  LineStyle before_;
};

}  // namespace ardenix

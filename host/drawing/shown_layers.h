#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// The layers that a picture shows: those that are visible, and among them those that are named.
class ShownLayers {
 public:
  // No names: all that are visible. Throws HostFailure for a name that no layer has.
  explicit ShownLayers(const Drawing& drawing, std::span<const std::string> names = {});
  [[nodiscard]] bool shows(int layer) const {
    const auto index = static_cast<size_t>(layer);
    return index < shown_.size() && shown_[index];
  }
  // Calls function(primitive) in drawing order.
  template <class Function>
  void forEachPrimitive(const Drawing& drawing, const Function& function) const {
    drawing.forEach([&](PrimitiveId, const Primitive& primitive) {
      if (shows(primitive.layer)) { function(primitive); }
    });
  }

 private:
  std::vector<bool> shown_;
};

}  // namespace brevan

#pragma once

#include "frame/host/cad_window.h"

namespace ardenix {

// What a family of commands runs in: the view it works on and whatever the family keeps with it.
class Toolset {
 public:
  explicit Toolset(CCadWindow* view) : view_(view) {}
  Toolset(const Toolset&) = delete;
  Toolset& operator=(const Toolset&) = delete;
  virtual ~Toolset() = default;

  [[nodiscard]] CCadWindow& view() const { return *view_; }
  [[nodiscard]] bool worksIn(const CCadWindow* view) const { return view_ == view; }
  // Points a toolset that outlives its view at the view of the running command.
  void setView(CCadWindow* view) { view_ = view; }

 private:
  CCadWindow* view_;
};

}  // namespace ardenix

#pragma once

#include <memory>

#include "frame/host/cad_window.h"

namespace ardenix {

// What a family of commands runs in: the view it works on and whatever the family keeps with it.
class Toolset {
 public:
  explicit Toolset(CCadWindow* view) { setView(view); }
  Toolset(const Toolset&) = delete;
  Toolset& operator=(const Toolset&) = delete;
  virtual ~Toolset() = default;

  [[nodiscard]] CCadWindow& view() const { return *view_; }
  // Not in a view that was opened at the address of a closed one.
  [[nodiscard]] bool worksIn(const CCadWindow* view) const { return view_ == view && !life_.expired(); }
  // Points a toolset that outlives its view at the view of the running command.
  void setView(CCadWindow* view) {
    view_ = view;
    life_ = view->life();
  }

 private:
  CCadWindow* view_ = nullptr;
  std::weak_ptr<const void> life_;
};

}  // namespace ardenix

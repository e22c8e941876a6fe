#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/layer.h"

namespace brevan {

// Finds layers by name and the lowest free number without walking them: a script or file may make a layer a line.
// After a change that it was not told of it is made anew when next asked.
class LayerNames {
 public:
  using Layers = std::vector<std::optional<Layer>>;

  void forget() noexcept { known_ = false; }
  // The lowest number of that name; -1 where there is none.
  int named(const Layers& layers, std::string_view name) {
    learn(layers);
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? -1 : found->second;
  }
  // The lowest number that no layer has.
  size_t freePlace(const Layers& layers) {
    learn(layers);
    return free_;
  }
  // A layer of a new name stands at the free place now.
  void added(const Layers& layers) {
    numbers_.emplace(layers[free_]->name, static_cast<int>(free_));
    findFree(layers);
    known_ = true;
  }

 private:
  void learn(const Layers& layers) {
    if (known_) { return; }
    numbers_.clear();
    for (size_t index = 0; index < layers.size(); ++index) {
      if (layers[index]) { numbers_.emplace(layers[index]->name, static_cast<int>(index)); }
    }
    free_ = 0;
    findFree(layers);
    known_ = true;
  }
  void findFree(const Layers& layers) {
    while (free_ < layers.size() && layers[free_]) { ++free_; }
  }

  bool known_ = false;
  size_t free_ = 0;
  std::map<std::string, int, std::less<>> numbers_;
};

}  // namespace brevan

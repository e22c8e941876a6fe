#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arch/layer_style.h"
#include "frame/host/cad_window.h"
#include "frame/host/dialog.h"

namespace ardenix::arch {

// A row of a layer grid: the style that it shows, by its place among the styles of a part.
struct LayerGridRow {
  std::string_view name;
  size_t style;
  bool visibilityFixed = false;
};

// A grid in which the user sets pen, line type, width and visibility of a part's lines. A pen cell bears
// its pen's colour; a right click on it opens the pen chooser, one on "Vis" turns yes into no.
class LayerGrid {
 public:
  LayerGrid() = default;
  LayerGrid(const LayerGrid&) = delete;
  LayerGrid& operator=(const LayerGrid&) = delete;

  // Adds the grid to a dialog.
  void describe(dialog::Dialog& dialog, dialog::Setting setting, std::span<const LayerGridRow> rows, CCadWindow& view);
  void show(std::span<const LayerStyle> styles);
  // The styles of the rows shown; the others stay as they are.
  void take(std::span<LayerStyle> styles) const;

 private:
  void colour(int row);
  void choosePen(int row);
  void toggle(int row);

  CCadWindow* view_ = nullptr;
  std::vector<LayerGridRow> rows_;
  dialog::GridHandle grid_;
};

}  // namespace ardenix::arch

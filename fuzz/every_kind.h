#pragma once

#include "host/drawing/drawing.h"

namespace fuzzing {

// A drawing with one of everything that a drawing file has a table for.
inline brevan::Drawing everyKind() {
  using namespace brevan;
  Drawing drawing;
  drawing.beginLoading();
  const int walls = drawing.addLayer({"Walls"});
  drawing.setSheet(Sheet{"A4", 210.0, 297.0, {-105.0, -148.5}});
  const GroupId bolt = drawing.addGroup("BOLTS", "M10");
  const GroupId nut = drawing.addGroup("NUTS", "M10N");
  drawing.addSymbol({"W1", {{.geometry = Line{{0, 0}, {3, 4}}}, {.geometry = Text{{1, 1}, "W"}}}});
  drawing.addSymbol(
      {"W2", {{.geometry = Symbol{"W1", {1, 0}, 2.0, 90.0}}, {.geometry = Arc{{1, 0}, {0, 0}, {1, 0}}}}, false});
  drawing.add({.group = bolt, .geometry = Line{{0, 0}, {10, 0}}});
  drawing.add({.layer = walls,
               .pen = kPenByLayer,
               .linetype = 4,
               .width = 2.5,
               .group = nut,
               .geometry = Arc{{10, 0}, {5, 0}, {0, 0}}});
  drawing.add({.layer = walls, .geometry = Text{{3, 4}, "M10 \xB0", "Arial", 35.0, 450.0, 5, kUnderlined}});
  drawing.add({.geometry = Arrow{{0, 0}, {5, 5}}});
  drawing.add({.geometry = Symbol{"W2", {7, 7}, 0.5, 45.0, true}});
  drawing.add({.geometry = Dimension{DimensionKind::kVertical, {12, 5}, {10, 0}, {10, 10}, "!"}});
  drawing.endLoading();
  return drawing;
}

}  // namespace fuzzing

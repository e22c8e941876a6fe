#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/drawing/layer.h"
#include "host/drawing/parameters.h"
#include "host/drawing/primitive.h"
#include "host/drawing/sheet.h"
#include "host/drawing/symbol_definition.h"

namespace brevan {

// A change holds the other state of one thing: swapping it with the present one undoes it, swapping again
// redoes it.
struct PrimitiveChange {
  PrimitiveId id = 0;
  std::unique_ptr<Primitive> other;  // null: not there
};

struct LayerChange {
  int index = 0;
  std::optional<Layer> other;
};

struct GroupChange {
  GroupId id = 0;
  bool there = false;       // false: the other state is before the group was made
  std::string_view parent;  // kept by the drawing
  std::string name;
};

// Parameters, sheet and current layer, which change seldom and together.
struct PlainState {
  Parameters parameters;
  std::optional<Sheet> sheet;
  int currentLayer = 0;
};
struct PlainChange {
  std::unique_ptr<PlainState> other;  // never null; apart, so that the common changes stay small
};

struct SymbolChange {
  std::string name;
  std::unique_ptr<SymbolDefinition> other;  // null: not there
};

using Change = std::variant<PrimitiveChange, LayerChange, GroupChange, PlainChange, SymbolChange>;

// What one undo takes back.
struct Step {
  std::string name;
  std::vector<Change> changes;
};

}  // namespace brevan

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "frame/host/limits.h"
#include "host/drawing/hatch.h"
#include "host/geometry/arc.h"
#include "host/geometry/segment.h"
#include "host/geometry/transform.h"

namespace brevan {

using PrimitiveId = int32_t;  // from 1; 0: none
using GroupId = int32_t;      // from 1; 0: none

inline constexpr int kPenByLayer = limits::kPenByLayer;

using Line = Segment;
using Arc = ArcShape;

// Style flags of a text; the others are kept and mean nothing to the host.
inline constexpr int kUnderlined = 4;

struct Text {
  Point at;
  std::string text;  // Windows-1252; "\n" and "\N" (backslash and letter) break the line
  std::string font = "Arial";
  double height = 35.0;   // em size, tenths of a millimetre on paper
  double angle = 0.0;     // tenths of a degree counter-clockwise, on paper
  int justification = 1;  // 1-9, 11-19, see text_layout.h
  int style = 0;
  int pen = 1;
  double widthFactor = 1.0;
  friend bool operator==(const Text&, const Text&) = default;
};

// From its tail p1 to its head p2.
struct Arrow {
  Point p1;
  Point p2;
  double length = 20.0;  // of the head, tenths of a millimetre on paper
  double width = 10.0;
  std::array<int, 3> style = {0, 0, kPenByLayer};
  friend bool operator==(const Arrow&, const Arrow&) = default;
};

struct Symbol {
  std::string name;
  Point at;
  double scale = 1.0;
  double rotation = 0.0;  // degrees counter-clockwise
  bool mirrored = false;  // about its own y axis, before it is turned
  friend bool operator==(const Symbol&, const Symbol&) = default;
};

enum class DimensionKind { kHorizontal, kVertical };

// The dimension line passes through `at`; the arrow's head is at p2.
struct Dimension {
  DimensionKind kind = DimensionKind::kHorizontal;
  Point at;
  Point p1;
  Point p2;
  std::string text;
  friend bool operator==(const Dimension&, const Dimension&) = default;
};

using Geometry = std::variant<Line, Arc, Text, Arrow, Symbol, Dimension, Hatch>;

struct Primitive {
  int layer = 0;
  int pen = 1;  // 1 to 255; 256 by layer
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre on paper
  GroupId group = 0;
  Geometry geometry;
  friend bool operator==(const Primitive&, const Primitive&) = default;
};

// "line", "arc", "text", "arrow", "symbol", "dimension", "hatch".
std::string_view kindName(const Geometry& geometry);

// Calls the function with every defining point: what is moved, snapped to and written.
template <class Function>
void forEachPoint(const Geometry& geometry, const Function& function) {
  struct Visitor {
    const Function& call;
    void operator()(const Line& line) const { call(line.a), call(line.b); }
    void operator()(const Arc& arc) const { call(arc.start), call(arc.centre), call(arc.end); }
    void operator()(const Text& text) const { call(text.at); }
    void operator()(const Arrow& arrow) const { call(arrow.p1), call(arrow.p2); }
    void operator()(const Symbol& symbol) const { call(symbol.at); }
    void operator()(const Dimension& dimension) const { call(dimension.at), call(dimension.p1), call(dimension.p2); }
    void operator()(const Hatch& hatch) const {
      for (const HatchLoop& loop : hatch.loops) {
        for (const HatchCorner& corner : loop) { call(corner.at); }
      }
    }
  };
  std::visit(Visitor{function}, geometry);
}

// The geometry under a transform. Texts and symbols keep their size on paper but turn with it; a mirror
// leaves texts readable. Arcs and bent sides of hatches need a transform that keeps shapes: ask canTransform first.
Geometry transformed(const Geometry& geometry, const Transform& transform);
bool canTransform(const Geometry& geometry, const Transform& transform);

// What it takes in memory, in lines: one, and more where its text is long.
size_t weight(const Geometry& geometry);

// Every number of it is finite.
bool isFinite(const Geometry& geometry);

}  // namespace brevan

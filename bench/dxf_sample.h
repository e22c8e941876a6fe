#pragma once

#include <random>
#include <string>

#include "frame/host/number_text.h"
#include "host/drawing/drawing.h"

namespace bench {

using namespace brevan;

// Lines and arcs with coordinates of full length, two arcs in ten, in groups as parts are.
inline void fill(Drawing& drawing, int primitives) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> coordinate(0.0, 10'000.0);
  const auto point = [&] { return Point{coordinate(random), coordinate(random)}; };
  drawing.beginLoading();
  GroupId group = 0;
  for (int n = 0; n < primitives; ++n) {
    constexpr int kPrimitivesAGroup = 24;
    if (n % kPrimitivesAGroup == 0) { group = drawing.addGroup("BOLTS", "M10_S" + std::to_string(n)); }
    Primitive primitive;
    primitive.group = group;
    primitive.pen = 1 + n / 7 % 5;
    if (n % 10 < 8) {
      primitive.geometry = Line{point(), point()};
    } else {
      primitive.geometry = Arc{point(), point(), point(), n % 2 == 0};
    }
    drawing.load(n + 1, std::move(primitive));
  }
  drawing.endLoading();
}

// The numbers of the drawing's file alone, one a line: what no writer of text can do without.
inline std::string bareNumbers(const Drawing& drawing) {
  std::string out;
  const auto put = [&out](double value) {
    numberText::appendShortest(out, value);
    out += '\n';
  };
  drawing.forEach([&](PrimitiveId, const Primitive& primitive) {
    if (const Line* line = std::get_if<Line>(&primitive.geometry)) {
      put(line->a.x), put(line->a.y), put(line->b.x), put(line->b.y);
    } else if (const Arc* arc = std::get_if<Arc>(&primitive.geometry)) {
      put(arc->centre.x), put(arc->centre.y), put(arcRadius(*arc));
      put(degrees(arcStartAngle(*arc))), put(degrees(angleOf(arc->end - arc->centre)));
    }
  });
  return out;
}

}  // namespace bench

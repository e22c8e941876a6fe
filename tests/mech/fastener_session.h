#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "frame/host/number_text.h"
#include "tests/mech/command_session.h"

// A session that draws fasteners from a library of the test's own, with what tests ask of the strokes.
class FastenerSession : public CommandSession {
 protected:
  using Texts = std::vector<std::string>;
  using Point = brevan::Point;

  static constexpr const char* kSetup =
      "[Setup]\nWeldSymbols=w.drg\nSolidPen=1\nSolidLW=0.50\nHiddenPen=13\nHiddenLT=21\nHiddenLW=0.25\nCenterPen=3\n"
      "CenterLT=4\nCenterLW=0.1\n";
  static constexpr double kThin = 2.5;  // threads
  // The views as screws and holes name them, and the answers of one side view.
  static constexpr const char* kSideOnly = "point 0 0\nmenu \"No Rotation\"\nspace\n";
  static constexpr const char* kPlanOnly = "uncheck \"Draw Side View (elevation)\"\ncheck \"Draw Top View (plan)\"\n";

  // That the last part was ended with the cursor free.
  void expectFreeCursor() {
    const Texts tail(log_.lines.end() - 4, log_.lines.end());
    EXPECT_EQ(tail, (Texts{"macro #PARENT \"A\"", "macro #STARTPAT \"P1\"", "macro #LOCKANG \"U\"",
                           "call gsSetCursorHold 0"}));
  }
  // Pen, line type and width of a stroke.
  static std::string styleOf(const brevan::Primitive& stroke) {
    return std::to_string(stroke.pen) + '/' + std::to_string(stroke.linetype) + '/' +
           numberText::fixed(stroke.width, 1);
  }

  // Runs a command with these edits in its dialog and these answers after it.
  void draw(const std::string& command, const std::string& title, const std::string& edits, const std::string& answers,
            const std::string& before = "") {
    log_.lines.clear();
    play(before + "run " + command + "\ndialog \"Mechanical Ardenix - " + title + "\"\n" + edits + "press \"OK\"\n" +
         answers);
  }

  [[nodiscard]] Texts macros(const std::string& word = "") const {
    Texts found;
    for (const std::string& macro : log_.of("macro")) {
      if (macro.starts_with(word)) { found.push_back(macro); }
    }
    return found;
  }

  static bool same(Point p, Point q) { return std::hypot(p.x - q.x, p.y - q.y) < 5e-5; }

  // Whether there is a line between two points, in any style or in one of this width.
  bool hasLine(Point a, Point b, double width = -1.0) {
    bool found = false;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      const auto* line = std::get_if<brevan::Line>(&primitive.geometry);
      if (line == nullptr || (width >= 0.0 && primitive.width != width)) { return; }
      found = found || (same(line->a, a) && same(line->b, b)) || (same(line->a, b) && same(line->b, a));
    });
    return found;
  }
  void expectLines(std::initializer_list<std::pair<Point, Point>> lines) {
    for (const auto& [a, b] : lines) {
      EXPECT_TRUE(hasLine(a, b)) << a.x << ", " << a.y << " to " << b.x << ", " << b.y;
    }
  }
  bool hasCircle(Point centre, double radius) {
    return std::ranges::any_of(shapes<brevan::Arc>(), [&](const brevan::Arc& arc) {
      return same(arc.start, arc.end) && same(arc.centre, centre) && std::fabs(brevan::arcRadius(arc) - radius) < 5e-5;
    });
  }
  // Whether an arc runs over this point.
  bool hasArcThrough(Point point) {
    return std::ranges::any_of(shapes<brevan::Arc>(), [&](const brevan::Arc& arc) {
      const Point out{point.x - arc.centre.x, point.y - arc.centre.y};
      return std::fabs(std::hypot(out.x, out.y) - brevan::arcRadius(arc)) < 5e-5 &&
             brevan::arcCovers(arc, std::atan2(out.y, out.x));
    });
  }
  // The centre line: drawn last in a side view.
  brevan::Line axis() { return shapes<brevan::Line>().back(); }
};

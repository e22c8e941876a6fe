#include <gtest/gtest.h>

#include <random>

#include "frame/drafting/point.h"
#include "frame/host/number_text.h"
#include "tests/arch/arch_session.h"

namespace {

using ardenix::Point;

// A rectangular house with a window and a door on each face, all four elevations and a gable roof on one, drawn turned
// about the origin.
class TurnedHouse : public ArchSession {
 protected:
  struct Plan {
    double width;
    double depth;
    double away;    // of the elevations
    double window;  // from the left end of a face, as a part of its length
    [[nodiscard]] double length(int face) const { return face % 2 == 0 ? width : depth; }
  };
  struct Drawn {
    std::vector<Point> lines;  // two points each, turned back
    std::vector<std::pair<std::string, Point>> symbols;
    std::vector<double> turns;
  };

  // Face 0 is the south face; `along` runs from its left end as seen from outside, `out` from the house.
  [[nodiscard]] Point at(int face, double along, double out) const {
    const Point corners[] = {{0, 0}, {plan_.width, 0}, {plan_.width, plan_.depth}, {0, plan_.depth}};
    const double direction = ardenix::radians(90.0 * face);
    const Point local = corners[face] + ardenix::turned(Point{along, -out}, direction);
    return ardenix::turned(local, ardenix::radians(angle_));
  }
  static std::string text(Point p) { return numberText::format("%.9f %.9f\n", p.x, p.y); }
  [[nodiscard]] std::string elevation(int face) const {
    const double length = plan_.length(face);
    return "point " + text(at(face, length / 3, 0)) + "point " + text(at(face, length / 2, plan_.away)) + "point " +
           text(at(face, length * plan_.window + 500, -50)) + "point " +
           text(at(face, length * plan_.window - 500, -50)) + "space\npoint " + text(at(face, 0, -plan_.depth / 9)) +
           "point " + text(at(face, length, -plan_.depth / 9)) + "space\n";
  }
  Drawn draw(double angle) {
    angle_ = angle;
    const std::string folder = std::string(BREVAN_DATA) + "/Symbols";
    std::string script = "macro NEWSYMFL \"" + folder + "/Windows/W1200.drg\" \"N\" \"Y\"\nmacro NEWSYMFL \"" + folder +
                         "/Doors/D900.drg\" \"N\" \"Y\"\n";
    std::string rounds = "run ArchDrawElev\ndialog \"Elevation Setup\"\n" + kOk;
    for (int face = 0; face < 4; ++face) {
      script += "line " + text(at(face, 0, 0))
                              .insert(text(at(face, 0, 0)).size() - 1, " " + text(at(face, plan_.length(face), 0)))
                              .append("\n");
      const auto place = [&](const std::string& name, double along) {
        const Point p = at(face, along, 0);
        script += numberText::format("macro ADDSYM \"%s\" [%.9f,%.9f] 1 %.9f\n", name, p.x, p.y, angle + 90.0 * face);
      };
      place("W1200P", plan_.length(face) * plan_.window);
      place("D900P", plan_.length(face) * plan_.window - 1000);
      rounds += elevation(face);
    }
    play(script + rounds + "space\n");
    return turnedBack();
  }
  Drawn turnedBack() {
    Drawn drawn;
    const double back = -ardenix::radians(angle_);
    const auto turn = [back](auto p) { return ardenix::turned(Point{p.x, p.y}, back); };
    for (const auto& line : shapes<brevan::Line>()) {
      drawn.lines.push_back(turn(line.a));
      drawn.lines.push_back(turn(line.b));
    }
    for (const auto& symbol : shapes<brevan::Symbol>()) {
      drawn.symbols.emplace_back(symbol.name, turn(symbol.at));
      drawn.turns.push_back(std::remainder(symbol.rotation - angle_, 360.0));
    }
    return drawn;
  }

  Plan plan_{};
  double angle_ = 0.0;
};

TEST_F(TurnedHouse, IsDrawnAsTheUpright) {
  useSpecs("[SYMBOL]\nSymbolPath=" BREVAN_DATA "/Symbols\n[ELEVATION]\nEavesHeight=2600.000\n");
  std::mt19937 random(21);
  const auto between = [&random](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (const double angle : {30.0, 45.0, 84.0, 200.0, between(0, 360), between(0, 360)}) {
    plan_ = {between(5000, 15000), between(5000, 15000), between(1000, 9000), between(0.3, 0.7)};
    const Drawn upright = draw(0.0);
    const Drawn turned = draw(angle);
    // Four walls, and two edges, the eaves and the ground for each of them.
    ASSERT_EQ(upright.lines.size(), 2U * (4 + 4 * 4));
    ASSERT_EQ(turned.lines.size(), upright.lines.size()) << angle;
    for (size_t n = 0; n < upright.lines.size(); ++n) {
      // The ends of a line may be given the other way round.
      const size_t other = n % 2 == 0 ? n + 1 : n - 1;
      EXPECT_LT(std::min(distance(upright.lines[n], turned.lines[n]), distance(upright.lines[other], turned.lines[n])),
                0.01)
          << angle;
    }
    ASSERT_EQ(upright.symbols.size(), 16U);
    ASSERT_EQ(turned.symbols.size(), upright.symbols.size());
    for (size_t n = 0; n < upright.symbols.size(); ++n) {
      EXPECT_EQ(upright.symbols[n].first, turned.symbols[n].first);
      EXPECT_LT(distance(upright.symbols[n].second, turned.symbols[n].second), 0.01)
          << upright.symbols[n].first << angle;
      EXPECT_NEAR(std::remainder(upright.turns[n] - turned.turns[n], 360.0), 0.0, 1e-4);
    }
  }
}

}  // namespace

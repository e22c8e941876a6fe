#include <gtest/gtest.h>

#include <random>

#include "frame/host/number_text.h"
#include "tests/host/macros/macro_session.h"

// What goes and comes back: commands that undo each other over drawings made at random.
namespace {

using namespace brevan;

class RoundTrips : public MacroSession, public ::testing::WithParamInterface<unsigned> {
 protected:
  RoundTrips() : random_(GetParam()) {
    for (int n = 0; n < 40; ++n) {
      const Point at = any();
      switch (n % 4) {
        case 0: add(Line{at, any()}); break;
        case 1: add(Arc{any(), at, any(), n % 8 == 1}); break;
        case 2: add(Text{at, "T" + std::to_string(n), "Arial", 35.0, whole(0, 359) * 10.0, whole(1, 9)}); break;
        default: add(Arrow{at, any()}); break;
      }
    }
    for (const PrimitiveId id : all()) { drawing().select(id); }
  }
  int whole(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  double real(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random_); }
  Point any() { return {real(-500.0, 500.0), real(-500.0, 500.0)}; }
  static std::string shownPoint(Point p) {
    return "[" + numberText::shortest(p.x) + "," + numberText::shortest(p.y) + "]";
  }
  std::vector<Point> points() {
    std::vector<Point> found;
    drawing().forEach([&found](PrimitiveId, const Primitive& primitive) {
      forEachPoint(primitive.geometry, [&found](Point p) { found.push_back(p); });
    });
    return found;
  }
  void expectBack(const std::vector<Point>& before, const std::string& done) {
    const std::vector<Point> now = points();
    ASSERT_EQ(now.size(), before.size()) << done;
    for (size_t n = 0; n < now.size(); ++n) { ASSERT_LT(length(now[n] - before[n]), 1e-8) << done << " point " << n; }
  }
  void backAndForth(const std::string& there, const std::string& back) {
    const std::vector<Point> before = points();
    macro(there);
    EXPECT_NE(points(), before) << there;
    macro(back);
    expectBack(before, there);
  }
  std::mt19937 random_;
};

TEST_P(RoundTrips, TurningMirroringScalingAndRepeatingComeBack) {
  const std::string about = shownPoint(any());
  const std::string angle = numberText::shortest(real(1.0, 359.0));
  backAndForth("ROTATE " + about + " Y " + angle, "ROTATE " + about + " Y -" + angle);
  const std::string across = "MIRROR " + about + " A " + shownPoint(any()) + " N";
  backAndForth(across, across);
  backAndForth("MIRROR " + about + " Y N", "MIRROR " + about + " Y N");
  const double factor = real(0.2, 5.0);
  const auto scaled = [&about](double k) {
    return "SCALE " + about + " N " + numberText::shortest(k) + " " + numberText::shortest(k);
  };
  backAndForth(scaled(factor), scaled(1.0 / factor));
  const std::string before = json();
  const PrimitiveId last = drawing().lastId();
  macro("REPEAT " + std::to_string(whole(1, 9)) + " Y [0,0] " + shownPoint(any()));
  EXPECT_GT(drawing().lastId(), last);
  drawing().clearSelection();
  for (const PrimitiveId id : all()) {
    if (id > last) { drawing().select(id); }
  }
  macro("DELSELECT");
  EXPECT_EQ(json(), before);
}

INSTANTIATE_TEST_SUITE_P(Random, RoundTrips, ::testing::Range(1U, 9U));

}  // namespace

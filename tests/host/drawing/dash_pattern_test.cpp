#include "host/drawing/dash_pattern.h"

#include <gtest/gtest.h>

#include "host/drawing/line_types.h"
#include "tests/host/drawing/dash_ink.h"

namespace brevan {
namespace {

double runOf(int linetype) {
  const auto pattern = lineType(linetype).pattern;
  return std::accumulate(pattern.begin(), pattern.end(), 0.0);
}

// Calls with every line type that has a pattern and lengths from a quarter of it to many of it.
template <class Law>
void forEachStroke(double shortest, const Law& law) {
  for (int linetype = 2; linetype <= kPatternedLineTypes; ++linetype) {
    for (double runs = shortest; runs < 60.0; runs *= 1.037) {
      SCOPED_TRACE("line type " + std::to_string(linetype) + ", " + std::to_string(runs) + " runs long");
      law(linetype, runs * runOf(linetype));
    }
  }
}

TEST(DashPattern, LiesAlikeBothWaysFromADashInTheMiddleToDashesAtTheEnds) {
  forEachStroke(1.0, [](int linetype, double length) {
    const DashPattern dashes = dashesAlong(linetype, length);
    ASSERT_FALSE(dashes.lengths.empty());
    const double dash = lineType(linetype).pattern.front() * dashes.scale;
    constexpr int kLooks = 200;
    for (int look = 0; look < kLooks; ++look) {
      const double away = (look + 0.5) * length / (2 * kLooks);
      EXPECT_NEAR(inkAt(dashes, length / 2.0 - away), inkAt(dashes, length / 2.0 + away), 1e-9 * length) << away;
    }
    EXPECT_NEAR(inkAt(dashes, length / 2.0), dash / 2.0, 1e-9 * length);
    for (const double within : {0.01, 0.3, 0.6}) {
      EXPECT_GT(inkAt(dashes, within * dash), 0.0) << "the end's dash is a third short at most";
    }
    EXPECT_LT(dashes.scale, 1.42);
    EXPECT_GT(dashes.scale, length < 2.0 * runOf(linetype) ? 0.4 : 0.7);
  });
}

TEST(DashPattern, ClosesRoundACircleWithDashesAtItsQuarters) {
  forEachStroke(2.0, [](int linetype, double length) {
    const DashPattern dashes = dashesAround(linetype, length);
    ASSERT_FALSE(dashes.lengths.empty());
    const double runs = length / (runOf(linetype) * dashes.scale);
    EXPECT_NEAR(runs, std::round(runs), 1e-6);
    for (const double quarter : {0.0, 0.25, 0.5, 0.75}) {
      EXPECT_NEAR(inkAt(dashes, quarter * length), lineType(linetype).pattern.front() * dashes.scale / 2.0,
                  1e-9 * length);
    }
    EXPECT_TRUE(dashes.scale > 0.49 && dashes.scale < 1.5) << dashes.scale;
  });
}

TEST(DashPattern, IsContinuousWhereItHasNoRoomOrNoEnd) {
  const double run = runOf(4);
  for (const double length : {0.0, 0.5 * run, 0.999 * run, 1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(dashesAlong(4, length).lengths.empty()) << length;
  }
  EXPECT_TRUE(dashesAround(4, 1.999 * run).lengths.empty());
  EXPECT_TRUE(dashesAlong(1, 100.0).lengths.empty());
  EXPECT_TRUE(dashesAlong(33, 100.0).lengths.empty());
  const ArcShape quarter = {{50.0, 0.0}, {0.0, 0.0}, {0.0, 50.0}, false};
  EXPECT_EQ(dashesOf(4, quarter), dashesAlong(4, 25.0 * kPi));
}

}  // namespace
}  // namespace brevan

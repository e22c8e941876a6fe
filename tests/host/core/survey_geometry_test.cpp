#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "frame/host/core_services.h"

namespace {

constexpr double kHalfTurn = std::numbers::pi;

double directionTo(double y, double x) {
  double distance = 0.0;
  double direction = 0.0;
  coreSurvJoin(0.0, 0.0, y, x, distance, direction);
  return direction;
}

}  // namespace

TEST(SurveyGeometry, directionsRunClockwiseFromTheYAxis) {
  const double rows[][3] = {{1, 0, 0}, {0, 1, 0.5}, {-1, 0, 1}, {0, -1, 1.5}, {3, 3, 0.25}, {0, 0, 0}};
  for (const auto& [y, x, halfTurns] : rows) { EXPECT_DOUBLE_EQ(directionTo(y, x), halfTurns * kHalfTurn); }
  EXPECT_EQ(directionTo(1, -1e-300), 0.0);  // below a full circle always
  EXPECT_NEAR(directionTo(4, 3), 0.6435011087932844, 1e-15);
}

TEST(SurveyGeometry, polarUndoesJoin) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> coordinate(-3e6, 3e6);
  for (int i = 0; i < 10'000; ++i) {
    double c[6] = {};
    for (double& value : c) { value = coordinate(random); }
    double distance = 0.0;
    double direction = 0.0;
    coreSurvJoin(c[0], c[1], c[2], c[3], distance, direction);
    ASSERT_TRUE(direction >= 0.0 && direction < 2.0 * kHalfTurn);
    coreSurvPolar(c[0], c[1], direction, distance, c[4], c[5]);
    ASSERT_NEAR(std::hypot(c[4] - c[2], c[5] - c[3]), 0.0, 1e-8);
  }
}

TEST(SurveyGeometry, crossingsAndOnWhichSegmentTheyLie) {
  int flag1 = -1;
  int flag2 = -1;
  // The lines from 0, 0 towards 4, 4 and from 0, 4 towards 4, 0 cross at 2, 2; the last rows say how far they reach.
  const double rows[][3] = {{4, 4, 11}, {1, 4, 10}, {4, 1, 1}, {1, 1, 0}};
  for (const auto& [first, second, flags] : rows) {
    const PNT_2D_record point = coreIntersectionLines(0, 0, first, first, 0, 4, second, 4 - second, flag1, flag2);
    EXPECT_NEAR(std::hypot(point.x - 2.0, point.y - 2.0), 0.0, 1e-12);
    EXPECT_EQ(flag1 + 10 * flag2, flags);
  }
  // A corner at survey distance belongs to both of its sides.
  coreIntersectionLines(3000100.1, 60000.3, 3000150.7, 60020.9, 3000150.7, 60020.9, 3000190.3, 60000.1, flag1, flag2);
  EXPECT_EQ(flag1 + 10 * flag2, 11);
}

TEST(SurveyGeometry, noCrossingOfParallelsPointsAndBrokenNumbers) {
  const double kNan = std::nan("");
  const double lines[][8] = {{0, 0, 1, 1, 1, 0, 2, 1},    {0, 0, 1, 1, 2, 2, 3, 3},
                             {1, 1, 1, 1, 0, 0, 5, 0},    {0, 0, 1e308, 1e308, 0, 1, 9, 2},
                             {0, 0, kNan, 1, 0, 1, 1, 0}, {1e15, 1e15, 1e15, 1e15, 0, 0, 1, 1}};
  for (const auto& l : lines) {
    int flag1 = 1;
    int flag2 = 1;
    const PNT_2D_record point = coreIntersectionLines(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], flag1, flag2);
    EXPECT_TRUE(flag1 == 0 && flag2 == 0 && point.x == 0.0 && point.y == 0.0);
    double x = 9.0;
    double y = 9.0;
    EXPECT_EQ(coreIntOnLines(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], x, y), 0);
    EXPECT_EQ(x, 9.0);
  }
}

TEST(SurveyGeometry, degreesMinutesSeconds) {
  const auto radians = [](double degrees) { return degrees * kHalfTurn / 180.0; };
  const double both[][2] = {{10.3, 10.5},
                            {-10.3, -10.5},
                            {0.0001, 1.0 / 3600},
                            {359.59599, 360.0 - 0.1 / 3600},
                            {12.345678, 12.0 + 34.0 / 60 + 56.78 / 3600}};
  for (const auto& [written, degrees] : both) {
    EXPECT_NEAR(coreDmsRad(written), radians(degrees), 1e-12);
    EXPECT_DOUBLE_EQ(coreRadDms(radians(degrees)), written);
  }
  // A hair below a full minute or degree is one, and not 60 of the smaller unit.
  EXPECT_DOUBLE_EQ(coreRadDms(radians(29.9999999)), 30.0);
  EXPECT_DOUBLE_EQ(coreRadDms(radians(29.0 + 29.9999999 / 60)), 29.3);
  EXPECT_FALSE(std::signbit(coreRadDms(-1e-12)));
}

TEST(SurveyGeometry, everyAngleOfWholeSecondsComesBack) {
  for (int second = -400 * 3600; second <= 400 * 3600; second += 7) {
    const int size = std::abs(second);
    const int digits = size / 3600 * 10'000 + size % 3600 / 60 * 100 + size % 60;
    const double written = std::copysign(digits / 1e4, second);
    ASSERT_DOUBLE_EQ(coreRadDms(coreDmsRad(written)), written);
  }
}

TEST(SurveyGeometry, roundsHalfAwayFromZeroAsWritten) {
  const double rows[][3] = {{2.5, 0, 3},      {-2.5, 0, -3},        {1.005, 2, 1.01},          {-1.005, 2, -1.01},
                            {2.675, 2, 2.68}, {1.0049, 2, 1.0},     {0.12345, 4, 0.1235},      {1250, -2, 1300},
                            {1e20, 2, 1e20},  {0.1 + 0.2, 15, 0.3}, {123456.785, 2, 123456.79}};
  for (const auto& row : rows) {
    EXPECT_DOUBLE_EQ(coreDoubleRound(row[0], static_cast<int>(row[1])), row[2]) << row[0];
  }
  EXPECT_FALSE(std::signbit(coreDoubleRound(-0.001, 2)));
  EXPECT_TRUE(std::isnan(coreDoubleRound(std::nan(""), 2)));
}

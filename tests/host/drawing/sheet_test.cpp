#include "host/drawing/sheet.h"

#include <gtest/gtest.h>

#include <tuple>

namespace brevan {
namespace {

constexpr double kMargin = 10.0;

Parameters survey(bool turned) {
  Parameters parameters;
  parameters.setUnit(1000.0);
  parameters.setScale(500.0);
  parameters.setCoordinateSystem(turned ? 0 : 1);
  parameters.setOrientation(turned ? 1 : 0);
  return parameters;
}

Box onSheet(const Sheet& sheet, const Parameters& parameters, const Box& extents) {
  const Transform show = toSheet(sheet, parameters);
  Box shown;
  shown.add(show(extents.low));
  shown.add(show(extents.high));
  return shown;
}

TEST(Sheet, ChosenSheetHoldsTheDrawingInItsMiddle) {
  for (const bool turned : {false, true}) {
    const Parameters parameters = survey(turned);
    for (const double metres : {10.0, 90.0, 100.0, 130.0, 250.0, 400.0, 550.0}) {
      Box extents;
      extents.add(Point{30000.0, 2900000.0});
      extents.add(Point{30000.0 + metres, 2900000.0 + metres * 0.6});
      const Sheet sheet = sheetFor(extents, parameters);
      const Box shown = onSheet(sheet, parameters, extents);
      EXPECT_GE(shown.low.x, kMargin - 1e-6) << metres;
      EXPECT_LE(shown.high.y, sheet.height - kMargin + 1e-6) << metres;
      EXPECT_NEAR(shown.centre().x, sheet.width / 2.0, 1e-6) << metres;
      EXPECT_NEAR(shown.centre().y, sheet.height / 2.0, 1e-6) << metres;
    }
  }
}

TEST(Sheet, SmallestFirstAndLandscapeFirst) {
  const auto sheetOfSize = [](double width, double height) {
    Box extents;
    extents.add(Point{0.0, 0.0});
    extents.add(Point{width, height});
    const Sheet sheet = sheetFor(extents, Parameters());
    return sheet.name + (sheet.width > sheet.height ? " landscape" : " portrait");
  };
  const std::tuple<double, double, std::string> rows[] = {
      {277.0, 190.0, "A4 landscape"}, {277.1, 190.0, "A3 landscape"},  {190.0, 277.0, "A4 portrait"},
      {100.0, 100.0, "A4 landscape"}, {5000.0, 100.0, "A0 landscape"}, {100.0, 5000.0, "A0 portrait"}};
  for (const auto& [width, height, name] : rows) { EXPECT_EQ(sheetOfSize(width, height), name); }
  const Sheet ofNothing = sheetFor(Box(), Parameters());
  EXPECT_TRUE(ofNothing.name == "A4" && isFinite(ofNothing.corner));
}

TEST(Sheet, CornerIsTheLowerLeftOneAsSeen) {
  Sheet sheet = *isoSheet("A3", true);
  sheet.corner = {10.0, 20.0};
  for (const bool turned : {false, true}) {
    const Point corner = toSheet(sheet, survey(turned))(sheet.corner);
    EXPECT_NEAR(length(corner), 0.0, 1e-12);
    const Point right = toSheet(sheet, survey(turned))(sheet.corner + Point{1.0, 0.0});
    EXPECT_NEAR(right.x, turned ? -2.0 : 2.0, 1e-12);
  }
  EXPECT_FALSE(isoSheet("A5", true));
}

}  // namespace
}  // namespace brevan

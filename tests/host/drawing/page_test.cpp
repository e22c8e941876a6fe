#include "host/drawing/page.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "frame/host/core_services.h"
#include "host/drawing/strokes.h"
#include "host/drawing/turned_strokes.h"
#include "host/files/export_options.h"
#include "tests/failure.h"

namespace brevan {
namespace {

// Where its lines stand on the page, in millimetres, and how high its texts are.
struct PageSink : StrokeSink {
  Box lines;
  double textHeight = 0.0;
  double width = 0.0;
  void line(const StrokeStyle& style, Point a, Point b) override {
    lines.add(a);
    lines.add(b);
    width = strokeWidth(style);
  }
  void arc(const StrokeStyle&, const ArcShape&) override {}
  void text(const StrokeStyle&, const TextStroke& text) override { textHeight = text.height; }
  void polygon(const StrokeStyle&, std::span<const Point>) override {}
};

PageSink onPage(const Drawing& drawing, const Page& page) {
  PageSink sink;
  TurnedStrokes turned(sink, page.rotation);
  StrokeWalk walk(drawing, toPage(page, drawing.parameters()), turned, page.zoom);
  drawing.forEach([&walk](PrimitiveId, const Primitive& primitive) { walk.primitive(primitive); });
  return sink;
}

void addFrame(Drawing& drawing, Point corner, double width, double height) {
  drawing.add({.width = 5.0, .geometry = Line{corner, corner + Point{width, 0.0}}});
  drawing.add({.width = 5.0, .geometry = Line{corner, corner + Point{0.0, height}}});
}

bool isStandard(double denominator) {
  const double mantissa = std::pow(10.0, std::log10(denominator) - std::floor(std::log10(denominator) + 1e-12));
  return std::abs(mantissa - 1.0) < 1e-6 || std::abs(mantissa - 2.0) < 1e-6 || std::abs(mantissa - 5.0) < 1e-6;
}

// The next larger standard scale of 1, 2 and 5.
double nextLarger(double denominator) {
  const bool five = std::abs(std::remainder(std::log10(denominator / 5.0), 1.0)) < 1e-6;
  return denominator / (five ? 2.5 : 2.0);
}

Parameters anyParameters(std::mt19937& random) {
  Parameters parameters;
  parameters.setScale(std::array{1.0, 50.0, 1250.0}[random() % 3]);
  if (random() % 2 == 0) {
    parameters.setUnit(1000.0);
    parameters.setCoordinateSystem(0);
    parameters.setOrientation(1);
  }
  return parameters;
}

TEST(Page, ADrawingOfAnySizeStandsWholeInTheMiddleOfItsPaper) {
  std::mt19937 random(17);
  for (int round = 0; round < 300; ++round) {
    Drawing drawing;
    drawing.setParameters(anyParameters(random));
    const double millimetre = drawing.parameters().paperMillimetre();
    const auto size = [&] { return std::pow(10.0, std::uniform_real_distribution<double>(-2.0, 8.0)(random)); };
    const double width = size() * millimetre;
    const double height = size() * millimetre;
    const Point corner = {1e4 * millimetre, -2e4 * millimetre};
    addFrame(drawing, corner, width, height);
    PageOptions options;
    options.rotation = std::array{0.0, 90.0, -30.0, 180.0}[random() % 4];
    const Page page = pageOf(drawing, options);
    const PageSink shown = onPage(drawing, page);
    const std::string what =
        std::to_string(width) + " x " + std::to_string(height) + ", zoom " + std::to_string(page.zoom);
    const Box& lines = shown.lines;
    EXPECT_TRUE(lines.low.x > 9.99 && lines.low.y > 9.99) << what;
    EXPECT_TRUE(lines.high.x < page.sheet.width - 9.99 && lines.high.y < page.sheet.height - 9.99) << what;
    EXPECT_NEAR(lines.centre().x, page.sheet.width / 2.0, 1e-6) << what;
    EXPECT_NEAR(lines.centre().y, page.sheet.height / 2.0, 1e-6) << what;
    EXPECT_EQ(page.zoom == 1.0, page.told.empty()) << what;
    EXPECT_EQ(page.told.find_first_of(".+"), std::string::npos) << "scales are whole: " << page.told;
    EXPECT_DOUBLE_EQ(shown.width, 0.5) << "widths of lines are those on paper";
    if (page.zoom == 1.0) { continue; }
    EXPECT_EQ(page.sheet.name, "A3");
    const double denominator = drawing.parameters().scale() / page.zoom;
    EXPECT_TRUE(isStandard(denominator)) << denominator;
    const double larger = denominator / nextLarger(denominator);
    EXPECT_TRUE(lines.width() * larger > page.sheet.width - 20.0 ||
                lines.height() * larger > page.sheet.height - 20.0 || lines.width() * larger > page.sheet.height - 20.0)
        << what << ": a larger scale fits";
  }
}

TEST(Page, TextsHeadsAndSymbolsKeepTheirProportion) {
  Drawing drawing;
  drawing.addSymbol({"MARK", {{.geometry = Line{{0, 0}, {100, 0}}}}, true, false});
  addFrame(drawing, {}, 12'000.0, 8'000.0);
  drawing.add({.geometry = Text{{500, 500}, "Hall", "Arial", 2500.0}});
  const Page page = pageOf(drawing);
  EXPECT_DOUBLE_EQ(page.zoom, 1.0 / 50.0);
  EXPECT_NEAR(onPage(drawing, page).textHeight, 5.0, 1e-9);
  drawing.add({.geometry = Symbol{"MARK", {12'000.0, 0.0}, 20.0}});
  EXPECT_NEAR(onPage(drawing, page).lines.width(), 240.0 + 2000.0 / 50.0, 1e-9);
}

TEST(Page, WhatIsAskedForGoesBeforeTheRule) {
  Drawing drawing;
  drawing.setParameters([] {
    Parameters parameters;
    parameters.setScale(50.0);
    return parameters;
  }());
  addFrame(drawing, {}, 10'000.0, 5'000.0);  // 200 by 100 mm at its scale
  struct Row {
    std::vector<std::pair<const char*, const char*>> options;
    std::string paper;
    double width;  // of the drawing on paper
  };
  const std::vector<Row> rows = {{{}, "A4", 200.0},
                                 {{{"scale", "1:100"}}, "A4", 100.0},
                                 {{{"scale", "1:20"}}, "A2", 500.0},
                                 {{{"scale", "1:25"}, {"paper", "A1"}}, "A1", 400.0},
                                 {{{"scale", "fit"}}, "A3", 400.0},
                                 {{{"scale", "fit"}, {"paper", "A4"}, {"margin", "5"}}, "A4", 287.0},
                                 {{{"paper", "A0"}}, "A0", 200.0},
                                 {{{"margin", "60"}}, "A3", 200.0},
                                 {{{"window", "0,0,1000,1000"}, {"scale", "fit"}, {"paper", "A4"}}, "A4", 1900.0}};
  for (const Row& row : rows) {
    ExportOptions options;
    for (const auto& [name, value] : row.options) { setExportOption(options, name, value); }
    const Page page = pageOf(drawing, options.page);
    EXPECT_EQ(page.sheet.name, row.paper) << testing::PrintToString(row.options);
    EXPECT_NEAR(onPage(drawing, page).lines.width(), row.width, 1e-6) << testing::PrintToString(row.options);
  }
}

TEST(Page, OptionsThatAreNoneAreRefusedWithTheirRule) {
  for (const std::string option :
       {"scale 1", "scale 0:5", "scale 1:-5", "scale 1:1,5", "scale 1:nan", "scale 1:2:3", "paper A5", "paper ",
        "margin -1", "margin x", "window 1,2,3", "window 1,2,1,4", "window 1,2,3,1e999", "layers A,,B",
        "dxf-version R12", "dpi 9", "dpi 2401", "dpi 150.5", "colour red"}) {
    const size_t blank = option.find(' ');
    ExportOptions options;
    const std::string reason =
        failureOf([&] { setExportOption(options, option.substr(0, blank), option.substr(blank + 1)); });
    EXPECT_NE(reason.find(", got \""), std::string::npos) << option << ": " << reason;
  }
}

TEST(Page, WhatLeavesTheSheetIsToldAndAnEmptyPageRefused) {
  Drawing drawing;
  EXPECT_NE(failureOf([&] { pageOf(drawing); }).find("is empty"), std::string::npos);
  drawing.setSheet(Sheet{"A4", 297.0, 210.0, {1000.0, 1000.0}});
  addFrame(drawing, {1010.0, 1010.0}, 200.0, 100.0);
  EXPECT_EQ(pageOf(drawing).told, "");
  EXPECT_EQ(pageOf(drawing).sheet, *drawing.sheet());
  addFrame(drawing, {1200.0, 990.0}, 200.0, 10.0);
  EXPECT_EQ(pageOf(drawing).told, "it reaches beyond the page, 103 mm to the right, 10 mm below");
  drawing.setSheet(Sheet{"A4", 297.0, 210.0, {5000.0, 0.0}});
  const std::string reason = failureOf([&] { pageOf(drawing); });
  EXPECT_NE(reason.find("it lies from (1010, 990) to (1400, 1110), the page from (5000, 0) to (5297, 210)"),
            std::string::npos)
      << reason;
  // Round the page, but not on it.
  Drawing ring;
  ring.setSheet(Sheet{"A4", 297.0, 210.0, {}});
  ring.add({.geometry = Arc{{500, 100}, {150, 100}, {500, 100}}});
  EXPECT_NE(failureOf([&] { pageOf(ring); }).find("Nothing of the drawing lies on its page"), std::string::npos);
  const int hidden = drawing.addLayer({"Hidden", false, false, 1});
  drawing.add({.layer = hidden, .geometry = Line{{5000, 0}, {5100, 100}}});
  EXPECT_NE(failureOf([&] { pageOf(drawing); }).find("Nothing of the drawing lies"), std::string::npos);
}

TEST(Page, LayersThatAreNamedAreShownAlone) {
  Drawing drawing;
  addFrame(drawing, {}, 5000.0, 10.0);
  const int walls = drawing.addLayer({"Walls", true, false, 1});
  drawing.add({.layer = walls, .geometry = Line{{0, 0}, {100, 50}}});
  PageOptions options;
  options.layers = {"Walls"};
  EXPECT_EQ(pageOf(drawing, options).sheet.name, "A4");
  options.layers = {"Doors"};
  EXPECT_NE(failureOf([&] { pageOf(drawing, options); }).find("no layer \"Doors\""), std::string::npos);
}

}  // namespace
}  // namespace brevan

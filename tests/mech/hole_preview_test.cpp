#include "mech/hole_preview.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "mech/hole_drawer.h"

namespace {

// Keeps what was painted, a line each.
class RecordingCanvas : public dialog::Canvas {
 public:
  explicit RecordingCanvas(int height) : height_(height) {}
  std::vector<std::string> strokes;

  [[nodiscard]] int width() const override { return 200; }
  [[nodiscard]] int height() const override { return height_; }
  void fill(uint32_t colour) override { note("fill", {static_cast<int>(colour)}); }
  void line(int x1, int y1, int x2, int y2, uint32_t, Stroke stroke) override {
    note(stroke == Stroke::kDashDot ? "axis" : "line", {x1, y1, x2, y2});
  }
  void circle(int x, int y, int radius, uint32_t) override { note("circle", {x, y, radius}); }
  void pie(int x, int y, int radius, double start, double sweep, uint32_t) override {
    note("pie", {x, y, radius, static_cast<int>(start), static_cast<int>(sweep)});
  }
  void text(int x, int y, std::string_view text, int, uint32_t, uint32_t) override { note(std::string(text), {x, y}); }
  void expect(std::initializer_list<const char*> wanted) const {
    for (const char* stroke : wanted) { EXPECT_EQ(std::ranges::count(strokes, stroke), 1) << stroke; }
  }

 private:
  void note(std::string word, std::initializer_list<int> numbers) {
    for (const int number : numbers) { word += ' ' + std::to_string(number); }
    strokes.push_back(std::move(word));
  }
  int height_;
};

using ardenix::mech::HoleRange;
using ardenix::mech::HoleRecord;
using ardenix::mech::HoleType;
using ardenix::mech::paintHolePreview;

TEST(HolePreview, ABlindHoleEndsAboveTheFarFace) {
  RecordingCanvas canvas(240);
  paintHolePreview(canvas, {.diameter = 5, .length = 10, .type = HoleType::kDrilled, .range = HoleRange::kBlind});
  canvas.expect({"fill 0", "axis 100 0 100 240", "SIDE 2 2", "line 0 24 200 24", "line 0 216 200 216",
                 "line 76 24 76 120", "line 76 120 76 132", "line 76 132 100 144", "line 124 24 124 120",
                 "line 124 120 124 132", "line 124 132 100 144", "line 76 132 124 132"});
  EXPECT_EQ(canvas.strokes.size(), 12U);
}

TEST(HolePreview, AThroughHoleIsCounterboredAndTapped) {
  RecordingCanvas canvas(250);
  paintHolePreview(canvas, {.diameter = 8,
                            .threadDiameter = 10,
                            .length = 20,
                            .countersinkDepth = 2,
                            .type = HoleType::kTapped,
                            .range = HoleRange::kThrough,
                            .counterboreDiameter = 12,
                            .threadLength = 18});  // 10 pixels a unit, the faces at 25 and 225
  canvas.expect({"line 60 45 60 225", "line 60 45 40 45", "line 40 45 40 25", "line 60 45 140 45", "line 50 45 50 225",
                 "line 50 225 150 225"});
}

TEST(HolePreview, ThePlanIsPaintedAtTheSidesScale) {
  RecordingCanvas canvas(89);
  HoleRecord hole{.diameter = 5,
                  .length = 23,
                  .countersinkDepth = 1,
                  .type = HoleType::kDowel,
                  .range = HoleRange::kThrough};  // 0.8 * 236 / 23: 8.2 pixels a unit
  paintHolePreview(canvas, hole);
  canvas.expect({"axis 100 0 100 89", "axis 0 44 200 44", "PLAN 2 2", "circle 100 44 20", "circle 100 44 28",
                 "pie 100 44 20 90 90", "pie 100 44 20 270 90"});
  hole = {.diameter = 100, .type = HoleType::kDrilled, .range = HoleRange::kThrough};
  RecordingCanvas side(240);
  paintHolePreview(side, hole);
  EXPECT_TRUE(std::ranges::count(side.strokes, "line 60 120 60 120") > 0) << "without a length, 0.8 pixels a unit";
}

}  // namespace

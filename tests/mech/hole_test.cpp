#include "mech/hole_drawer.h"

#include "mech/hole_preview.h"
#include "tests/mech/fastener_session.h"

namespace {

class DrilledHoleTest : public FastenerSession {
 protected:
  // Fields: diameter, thread diameter, length, countersink depth, type, range, counterbore diameter, thread length.
  void drawHole(const std::string& fields, const std::string& edits = "", const std::string& answers = kSideOnly) {
    useLibrary(std::string(kSetup) + "[HOLES]\nHole1=TEST," + fields + '\n');
    draw("MechDrawHoles", "Drilled Holes", edits, answers);
  }
  void drawPlan(const std::string& fields) { drawHole(fields, kPlanOnly, "point 0 0\npoint 0 0\nspace\n"); }
};

TEST_F(DrilledHoleTest, ABlindTappedHoleEndsInItsDrillPoint) {
  drawHole("8.5,10,20,0,1,1,0,15");
  for (const double side : {-1.0, 1.0}) {
    EXPECT_TRUE(hasLine({4.25 * side, 0}, {4.25 * side, -20}));
    EXPECT_TRUE(hasLine({5 * side, 0}, {5 * side, -15}, kThin));
    EXPECT_TRUE(hasLine({4.25 * side, -20}, {0, -22.4537}));
  }
  EXPECT_TRUE(hasLine({-5, -15}, {5, -15}, kThin));
  EXPECT_NEAR(axis().a.y, -26.7037, 5e-5);
  EXPECT_NEAR(axis().b.y, 4.25, 1e-9);
  EXPECT_EQ(groups(), Texts{"HOLES HS1 8"});
}

TEST_F(DrilledHoleTest, AThreadShowsItsEndUnlessItReachesThrough) {
  const struct {
    const char* fields;
    double threadLength;
    bool ends;
  } cases[] = {{"8.5,10,20,0,1,0,0,20", 20, false},
               {"8.5,10,20,0,1,0,0,19", 19, true},
               {"8.5,10,20,1.3,1,0,0,18.7", 18.7, false},
               {"8.5,10,20,0,1,1,0,20", 20, true}};
  for (const auto& [fields, threadLength, ends] : cases) {
    drawHole(fields);
    EXPECT_EQ(hasLine({-5, -threadLength}, {5, -threadLength}), ends) << fields;
  }
}

TEST_F(DrilledHoleTest, ACountersinkOrACounterboreStandsAboveTheBody) {
  drawHole("8,0,20,1,0,0,0");
  expectLines({{{4, -1}, {5, 0}}, {{-4, -1}, {4, -1}}, {{4, -1}, {4, -20}}});
  drawHole("9,0,17,8.6,0,0,15");
  expectLines({{{-7.5, -8.6}, {7.5, -8.6}}, {{7.5, -8.6}, {7.5, 0}}, {{4.5, -8.6}, {4.5, -17}}});
  drawHole("8.5,10,20,1,1,1,0,15");
  EXPECT_TRUE(hasLine({5, -1}, {6, 0})) << "of a tapped hole it widens from the thread";
}

TEST_F(DrilledHoleTest, ThePlanShowsWhatIsSunkAndTapped) {
  drawPlan("9,0,17,8.6,0,0,15");
  EXPECT_TRUE(hasCircle({0, 0}, 4.5));
  EXPECT_TRUE(hasCircle({0, 0}, 7.5));
  EXPECT_TRUE(hasLine({-18, 0}, {18, 0})) << "2.4 radii of the counterbore";
  drawPlan("8.5,10,20,0,1,1,0,15");
  EXPECT_TRUE(hasLine({0, -6}, {0, 6}));
  const brevan::Arc thread = shapes<brevan::Arc>().back();
  EXPECT_NEAR(brevan::arcRadius(thread), 5, 1e-9);
  EXPECT_NEAR(std::fabs(brevan::arcSweep(thread)), std::acos(-1.0) * 310 / 180, 1e-9);
  EXPECT_EQ(groups(), Texts{"HOLES HP1 4"});
}

TEST_F(DrilledHoleTest, ADowelIsBlackenedInTwoQuarters) {
  drawPlan("6,0,12,0,2,0,0");
  const auto lines = shapes<brevan::Line>();
  EXPECT_EQ(lines.size(), 160U);
  for (const brevan::Line& line : lines) {
    for (const Point end : {line.a, line.b}) {
      EXPECT_LE(std::hypot(end.x, end.y), 3 + 1e-9);
      EXPECT_LE(end.x * end.y, 1e-9) << "upper left or lower right";
    }
  }
}

TEST_F(DrilledHoleTest, ItsLastMacrosLeaveTheParentToTheFrame) {
  drawHole("8.5,10,20,0,1,1,0,15", "", "point 0 0\nmenu \"Rotate 90\xC2\xB0\"\nspace\n");
  const Texts sent = macros();
  const Texts head(sent.begin(), sent.begin() + 4);
  EXPECT_EQ(head, (Texts{"#PARENT \"HOLES\"", "#BEGINGROUP \"HS1\"", "#SELECTNAME \"HOLES HS1\"", "#LINKSEL \"HS1\""}));
  const Texts tail(sent.begin() + 4, sent.end());
  EXPECT_EQ(tail, (Texts{"#ROTATE [0.00000000,0.00000000] \"Y\" 90.00000000 [#]", "#PARENT \"A\"", "#STARTPAT \"P1\"",
                         "#LOCKANG \"U\"", "#PARENT \"A\"", "#STARTPAT \"P1\"", "#LOCKANG \"U\""}));
}

// ---- Preview ------------------------------------------------------------------------------------------------

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

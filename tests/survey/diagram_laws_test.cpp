#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "frame/host/number_text.h"
#include "host/drawing/sheet.h"
#include "host/drawing/text_layout.h"
#include "tests/host/drawing/survey_parameters.h"
#include "tests/mech/command_session.h"

// What holds for every diagram; tests/cases/diagrams has what a diagram holds.
namespace {

class DiagramLaws : public CommandSession {
 protected:
  using Box = brevan::Box;
  using Point = brevan::Point;
  using Text = brevan::Text;

  // Traces round corners in metres at 1:500, where a millimetre on paper is half a metre; answers follow.
  void trace(const std::vector<Point>& corners, int orientation = 1, const std::string& answers = "") {
    settings().SetString("SG_DEFAULTS", "SG_DiaramFile", write("job.ini", job_));
    orientation_ = orientation;
    std::string steps = "test survey\nrun SG_TracePolyArea\n";
    for (const Point& at : corners) { steps += numberText::format("point %.6f %.6f\naccept\n", at.x, at.y); }
    play(steps + numberText::format("point %.6f %.6f\n", corners[0].x, corners[0].y) + answers);
  }
  void testStep(const std::string&) override {
    drawing().setParameters(brevan::surveyParameters(500.0, 1000.0, orientation_));
  }
  [[nodiscard]] bool sent(const std::string& word) const {
    return std::ranges::any_of(log_.of("macro"), [&](const auto& macro) { return macro.starts_with(word); });
  }
  Text letter(size_t corner) {
    const std::string wanted(1, static_cast<char>('A' + corner));
    const std::vector<Text> texts = shapes<Text>();
    const auto found = std::ranges::find(texts, wanted, &Text::text);
    EXPECT_NE(found, texts.end()) << wanted;
    return found == texts.end() ? Text() : *found;
  }
  static std::vector<Point> star(int count, double sweep, const std::function<double()>& radius) {
    std::vector<Point> corners;
    for (int n = 0; n < count; ++n) {
      const double angle = sweep * n / count;
      const double r = radius();
      corners.push_back({1050 + r * std::cos(angle), 2050 + r * std::sin(angle)});
    }
    return corners;
  }
  static bool insideOf(const std::vector<Point>& corners, Point p) {
    double turn = 0.0;
    for (size_t n = 0; n < corners.size(); ++n) {
      const Point a = corners[n] - p;
      const Point b = corners[(n + 1) % corners.size()] - p;
      turn += std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
    }
    return std::fabs(turn) > 1.0;
  }

  const std::vector<Point> erf_ = {{1000, 2000}, {1020, 2000}, {1020, 2030}, {1000, 2030}};
  std::string job_ =
      "[DEFAULTS]\nSymbol=Symbols/SurveySymbols.drg\nTitleblock=Survey/SG Diagram Title.drg\nCornerDiam=2.0\n"
      "LettersClear=1\nPolySnipFactor=1.7\n[DATA]\nFigure1=,0,30,60,80,110,140\nFigure2=,2,8,8,5,8,8\n"
      "[TEXT]\nData=unused,-180,-20,2,25,1,Arial,0\n";

 private:
  int orientation_ = 1;
};

TEST_F(DiagramLaws, TextsReadUprightInsideTheSheetAndTheFigureLiesRightOfItsMiddle) {
  for (const int orientation : {0, 1}) {
    trace(erf_, orientation);
    const brevan::Transform onPaper = brevan::toSheet(*drawing().sheet(), drawing().parameters());
    for (const Text& text : shapes<Text>()) {
      EXPECT_EQ(text.angle, 0.0) << text.text;
      const Box box = brevan::textBounds(text, drawing().parameters());
      for (const Point corner : {onPaper(box.low), onPaper(box.high)}) {
        EXPECT_TRUE(corner.x > 10 && corner.x < 200 && corner.y > 10 && corner.y < 287) << text.text;
      }
    }
    EXPECT_LT(distance(onPaper({1010, 2015}), {120, 148.5}), 1e-3) << "15 mm right of the middle";
  }
}

// Letters stand outside the figure, clear of its sides and circles, near their corners, from the south and the north.
TEST_F(DiagramLaws, LettersStandClearOfTheFigure) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> reach(6.0, 38.0);
  for (int n = 0; n < 24; ++n) {
    const std::vector<Point> corners =
        star(3 + n % 6, (n % 2 == 0 ? 2.0 : -2.0) * std::numbers::pi, [&] { return reach(random); });
    trace(corners, n % 4 < 2 ? 1 : 0);
    for (size_t at = 0; at < corners.size(); ++at) {
      const Text text = letter(at);
      const Box box = brevan::textBounds(text, drawing().parameters());
      EXPECT_LT(distance(text.at, corners[at]), 8.0) << n << text.text;
      EXPECT_FALSE(insideOf(corners, {(box.low.x + box.high.x) / 2, (box.low.y + box.high.y) / 2})) << n << text.text;
      for (size_t side = 0; side < corners.size(); ++side) {
        const Point beacon = corners[side];
        const Point nearest{std::clamp(beacon.x, box.low.x, box.high.x), std::clamp(beacon.y, box.low.y, box.high.y)};
        EXPECT_GT(distance(beacon, nearest), 0.5) << n << text.text << " and the circle of " << side;
        for (int step = 0; step <= 2000; ++step) {
          const Point p = beacon + (corners[(side + 1) % corners.size()] - beacon) * (step / 2000.0);
          const bool hit = p.x > box.low.x && p.x < box.high.x && p.y > box.low.y && p.y < box.high.y;
          ASSERT_FALSE(hit) << n << text.text << " and side " << side;
        }
      }
    }
  }
}

// A polygon of so many corners would not fit into one command.
TEST_F(DiagramLaws, AFigureOfManyCornersIsClippedByItsRectangle) {
  for (const int corners : {50, 64}) {
    log_.lines.clear();
    trace(star(corners, 2.0 * std::numbers::pi, [] { return 40.0; }));
    EXPECT_EQ(sent("#POLYSNIP"), corners == 50) << corners;
    EXPECT_EQ(sent("#SNIP \"Y\" \"N\" \"N\""), corners == 64) << corners;
  }
}

// Told once each, before anything is asked; then the paper is the sheet.
TEST_F(DiagramLaws, DamagedSymbolsAndTitleBlockAreTold) {
  const std::string title = write("title.drg", "no drawing");
  const std::string symbols = write("symbols.drg", "no drawing");
  job_ = "[DEFAULTS]\nTitleblock=title.drg\nSymbol=symbols.drg\n[SG_QUESTIONS]\nPropDescr=Erf 1,-95,-220,1,35,4,,0\n";
  trace(erf_, 1, "accept\n");
  const std::vector<std::string> wanted = {"message The Symbol file " + symbols + " cannot be read.",
                                           "message The title block file " + title + " cannot be read."};
  EXPECT_EQ(log_.of("message").size(), 2U);
  const auto question = std::ranges::find(log_.lines, "prompt Property designation");
  for (const std::string& line : wanted) { EXPECT_NE(std::find(log_.lines.begin(), question, line), question) << line; }
  EXPECT_TRUE(shapes<brevan::Symbol>().empty());
}

}  // namespace

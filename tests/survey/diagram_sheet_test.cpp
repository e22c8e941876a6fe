#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "frame/host/number_text.h"
#include "tests/survey/diagram_session.h"

using brevan::Arc;
using brevan::Line;
using brevan::Text;

namespace {

class DiagramSheet : public DiagramSession {
 protected:
  static bool insideOf(const std::vector<Point>& corners, Point p) {
    double turn = 0.0;
    for (size_t n = 0; n < corners.size(); ++n) {
      const Point a = corners[n] - p;
      const Point b = corners[(n + 1) % corners.size()] - p;
      turn += std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
    }
    return std::fabs(turn) > 1.0;
  }
  static void expectNear(Point found, Point wanted, const std::string& what) {
    EXPECT_NEAR(found.x, wanted.x, 1e-3) << what;
    EXPECT_NEAR(found.y, wanted.y, 1e-3) << what;
  }
};

// The erf turns with the orientation; the sheet round it looks the same.
TEST_F(DiagramSheet, IsRightInBothOrientations) {
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,1";
  ini_["TEXT"]["Figure"] = "The figure,-95,-190,1,30,4,Arial,0";
  ini_["TEXT"]["Area"] = "square metres,-95,9999,1,30,4,Arial,0";
  ini_["TEXT"]["Scale"] = "Scale 1:,-95,9999,1,30,4,Arial,0";
  ini_["TEXT"]["AddText1"] = "SIDES_COMMA_ metres,-170,-5,1,25,5,Arial,0";
  for (const int orientation : {0, 1}) {
    SCOPED_TRACE(orientation);
    trace("text \"ERF 7\"\n", orientation);
    ASSERT_TRUE(drawing().sheet());
    EXPECT_EQ(drawing().sheet()->name, "A4");
    const struct {
      const char* row[6];
      double down;
    } rows[] = {{{"AB", "20,00", "90 00 00", "A", "1 000,00", "2 000,00"}, 20.0},
                {{"BC", "30,00", "0 00 00", "B", "1 020,00", "2 000,00"}, 22.75},
                {{"CD", "20,00", "270 00 00", "C", "1 020,00", "2 030,00"}, 25.5},
                {{"DA", "30,00", "180 00 00", "D", "1 000,00", "2 030,00"}, 28.25}};
    const std::vector<double> across = {0, 30, 60, 80, 110, 140};
    const std::vector<int> justifications = {2, 8, 8, 5, 8, 8};
    for (const auto& [row, down] : rows) {
      for (size_t column = 0; column < 6; ++column) {
        const Point wanted = {-180 + across[column], -down};
        const bool found = std::ranges::any_of(shapes<Text>(), [&](const Text& text) {
          return text.text == row[column] && text.justification == justifications[column] && text.pen == 2 &&
                 brevan::distance(fromOrigin(text.at), wanted) < 1e-3;
        });
        EXPECT_TRUE(found) << row[0] << ": " << row[column];
      }
    }
    expectNear(fromOrigin(textReading("ERF 7").at), {-95, -220}, "asked");
    EXPECT_EQ(textReading("ERF 7").style, 4) << "underlined";
    expectNear(fromOrigin(textReading("The figure A B C D ").at), {-95, -190}, "figure");
    expectNear(fromOrigin(textReading("600 square metres").at), {-95, -193.3}, "area");
    expectNear(fromOrigin(textReading("Scale 1:500").at), {-95, -196.6}, "scale");
    expectNear(fromOrigin(textReading("SIDES, metres").at), {-170, -5}, "additional");
    expectNear(fromOrigin(textReading("SIDES").at), {-185, -8.5}, "title block");
    for (const Text& text : shapes<Text>()) {
      EXPECT_EQ(text.angle, 0.0) << text.text << " reads upright";
      const brevan::Box box = brevan::textBounds(text, drawing().parameters());
      for (const Point corner : {onPaper(box.low), onPaper(box.high)}) {
        EXPECT_TRUE(corner.x > 10 && corner.x < 200 && corner.y > 10 && corner.y < 287) << text.text;
      }
    }
    EXPECT_EQ(drawing().layer(drawing().currentLayer())->name, "SG_DIAGRAM");
    // The figure stands 15 mm right of the middle, seen from the south or from the north.
    expectNear(onPaper({1010, 2015}), {120, 148.5}, "figure's middle");
    EXPECT_EQ(onPaper({1020, 2000}).x > onPaper({1000, 2000}).x, orientation == 0);
  }
}

TEST_F(DiagramSheet, BeaconsAreCircledAndLettered) {
  trace();
  const std::vector<Arc> circles = shapes<Arc>();
  ASSERT_EQ(circles.size(), 4U);
  const Point corners[] = {{1000, 2000}, {1020, 2000}, {1020, 2030}, {1000, 2030}};
  for (size_t n = 0; n < 4; ++n) {
    EXPECT_EQ(circles[n].centre, corners[n]);
    EXPECT_NEAR(brevan::arcRadius(circles[n]), 0.5, 1e-9);
    const Text& label = textReading(std::string(1, static_cast<char>('A' + n)));
    EXPECT_EQ(label.at, corners[n]);
    EXPECT_EQ(label.justification, 4);
  }
  for (const Line& line : shapes<Line>()) {
    for (const Point end : {line.a, line.b}) {
      const bool clear = std::ranges::none_of(corners, [&](Point c) { return brevan::distance(c, end) < 0.499; });
      EXPECT_TRUE(clear) << "a boundary ends at the circle";
    }
  }
  ini_["DEFAULTS"]["CornerDiam"] = "0";
  trace();
  EXPECT_TRUE(shapes<Arc>().empty());
  EXPECT_EQ(textReading("A").at, corners[0]);
}

TEST_F(DiagramSheet, NotesGoOnBelowTheTable) {
  ini_["TEXT"]["Beacon"] = "Beacons,-188,9999,1,30,1,Arial,1";
  ini_["TEXT"]["Serv"] = "Servitudes,-188,9999,1,30,1,Arial,1";
  ini_["SG_QUESTIONS"]["BDescr"] = ",-186,0,1,20,1,Arial,0";
  ini_["SG_QUESTIONS"]["ServDet"] = "offered,-186,0,1,20,1,Arial,0";
  ini_["TEXT"]["Notes"] = "Notes,-188,9999,1,30,1,Arial,1";
  ini_["SG_QUESTIONS"]["Note"] = "never asked,-186,0,1,20,1,Arial,0";
  ini_["DEFAULTS"]["ServNotes"] = "1";
  ini_["LINES"] = {{"Line1", "-190,9999,0,9999,3,4"}, {"Line2", "-150,0,-150,9999,1,1"}, {"Line4", "0,0,1,1,1,1"}};
  trace("text \"12 mm peg\"\ntext \"fence, post\"\ntext \" \"\naccept\ntext \"\"\n");
  // Four sides and an empty line of 2.75 mm each, from 20 mm down.
  const double end = -20 - 5 * 2.75;
  expectNear(fromOrigin(textReading("Beacons").at), {-188, end - 3.3}, "heading");
  expectNear(fromOrigin(textReading("12 mm peg").at), {-186, end - 5.5}, "first line");
  expectNear(fromOrigin(textReading("fence, post").at), {-186, end - 7.7}, "second line");
  expectNear(fromOrigin(textReading("Servitudes").at), {-188, end - 11.0}, "next heading");
  expectNear(fromOrigin(textReading("offered").at), {-186, end - 13.2}, "what was offered");
  EXPECT_TRUE(std::ranges::none_of(shapes<Text>(), [](const Text& text) { return text.text == "Notes"; }));
  std::vector<std::pair<Point, Point>> lines;
  drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
    const auto* line = std::get_if<Line>(&primitive.geometry);
    const bool ofFrame = line != nullptr && primitive.layer == 0 && fromOrigin(line->a).x < -140;
    if (ofFrame) { lines.emplace_back(fromOrigin(line->a), fromOrigin(line->b)); }
  });
  ASSERT_EQ(lines.size(), 2U) << "up to the first number that is missing";
  expectNear(lines[0].first, {-190, end}, "line at the table's end");
  expectNear(lines[0].second, {0, end}, "line at the table's end");
  expectNear(lines[1].second, {-150, end}, "down to the table's end");
}

TEST_F(DiagramSheet, NextLinesOfTheFrame) {
  ini_["SG_QUESTIONS"]["PLS"] = ",-60,9999,1,40,1,Arial,0";
  ini_["SG_QUESTIONS"]["CompNr"] = ",-60,9999,1,20,1,Arial,0";
  ini_["SG_QUESTIONS"]["GenPlan"] = ",-60,9999,1,20,1,Arial,0";
  trace(
      "expect prompt \"PLS name\"\ntext \"pls\"\ntext \"c1\"\ntext \"c2\"\ntext \"c3\"\ntext \"c4\"\ntext \"plan\"\n");
  expectNear(fromOrigin(textReading("pls").at), {-60, -4.4}, "below the sheet's top edge");
  expectNear(fromOrigin(textReading("c1").at), {-60, -6.6}, "below the text before");
  expectNear(fromOrigin(textReading("c4").at), {-60, -13.2}, "no more than four are asked for");
  expectNear(fromOrigin(textReading("plan").at), {-60, -15.4}, "below the last of them");
  trace("text \"\"\ntext \"\"\ntext \"plan\"\n");
  expectNear(fromOrigin(textReading("plan").at), {-60, -2.2}, "nothing was drawn before");
  EXPECT_TRUE(std::ranges::none_of(shapes<Text>(), [](const Text& text) { return text.text.empty(); }));
}

TEST_F(DiagramSheet, AdditionalTextsEndAtTheFirstMissing) {
  ini_["TEXT"]["AddText1"] = "";
  ini_["TEXT"]["AddText2"] = "two,-100,-100,1,25,1,Arial,0";
  ini_["TEXT"]["AddText4"] = "four,-100,-110,1,25,1,Arial,0";
  trace();
  EXPECT_EQ(textReading("Default").pen, 8) << "an empty row is the default one, as the setup dialog shows it";
  expectNear(fromOrigin(textReading("two").at), {-100, -100}, "after it");
  EXPECT_TRUE(std::ranges::none_of(shapes<Text>(), [](const Text& text) { return text.text == "four"; }));
}

TEST_F(DiagramSheet, ATableWithoutColumnsIsNotDrawn) {
  ini_["DATA"].erase("Figure2");
  ini_["TEXT"]["Beacon"] = "Beacons,-188,9999,1,30,1,Arial,1";
  ini_["SG_QUESTIONS"]["BDescr"] = ",-186,0,1,20,1,Arial,0";
  trace("text \"12 mm peg\"\ntext \"\"\n");
  EXPECT_TRUE(shapes<Arc>().empty());
  expectNear(fromOrigin(textReading("Beacons").at), {-188, -23.3}, "from where the table would begin");
}

TEST_F(DiagramSheet, ControlPointsBearTheirMarks) {
  ini_["TRIGTSM"] = {{"CtrlPnt1", "0,TSM 14,,1100.25,2200.50"}, {"CtrlPnt2", "1,KLIPKOP,112,-1300.00,2851000.00"}};
  ini_["DEFAULTS"]["PlusSign"] = "1";
  trace();
  const double down = -20 - 5 * 2.75;
  expectNear(fromOrigin(textReading("TSM 14").at), {-120, down}, "name");
  expectNear(fromOrigin(textReading("+1 100,25").at), {-70, down}, "Y");
  expectNear(fromOrigin(textReading("+2 200,50").at), {-40, down}, "X");
  expectNear(fromOrigin(textReading("112").at), {-150, down - 2.75}, "number of the beacon");
  expectNear(fromOrigin(textReading("-1 300,00").at), {-70, down - 2.75}, "Y");
  const auto symbols = shapes<brevan::Symbol>();
  ASSERT_EQ(symbols.size(), 2U);
  EXPECT_EQ(symbols[0].name + symbols[1].name, "WITNESSTRIG");
  expectNear(fromOrigin(symbols[1].at), {-100, down - 2.75}, "in the column of the beacons");
}

TEST_F(DiagramSheet, WithoutSymbolsAndTitleBlockThePaperIsTheSheet) {
  ini_["DEFAULTS"]["Titleblock"] = "none.drg";
  ini_["DEFAULTS"]["Symbol"] = "nothing.drg";
  ini_["TRIGTSM"]["CtrlPnt1"] = "0,TSM 14,,1100.25,2200.50";
  for (const int orientation : {0, 1}) {
    trace("", orientation);
    EXPECT_EQ(log_.of("message"), (std::vector<std::string>{"The Symbol file nothing.drg does not exist.",
                                                            "The title block file none.drg does not exist."}));
    EXPECT_FALSE(sent("#LOAD"));
    expectNear(onPaper(textReading("AB").at), {30, 277}, "from the paper's top right corner");
    EXPECT_TRUE(shapes<brevan::Symbol>().empty());
  }
}

// Told once each, before anything is asked; then the paper is the sheet.
TEST_F(DiagramSheet, DamagedSymbolsAndTitleBlockAreTold) {
  const std::string title = write("job/title.drg", "no drawing");
  const std::string symbols = write("job/symbols.drg", "no drawing");
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,0";
  ini_["TRIGTSM"]["CtrlPnt1"] = "0,TSM 14,,1100.25,2200.50";
  trace("accept\n");
  EXPECT_EQ(log_.of("message"), (std::vector<std::string>{"The Symbol file " + symbols + " cannot be read.",
                                                          "The title block file " + title + " cannot be read."}));
  const auto question = std::ranges::find(log_.lines, "prompt Property designation");
  EXPECT_TRUE(std::none_of(question, log_.lines.end(), [](const auto& line) { return line.starts_with("message"); }));
  expectNear(onPaper(textReading("AB").at), {30, 277}, "from the paper's top right corner");
}

TEST_F(DiagramSheet, AnswersAreDrawnWhole) {
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,0";
  ini_["SG_QUESTIONS"]["BDescr"] = ",-186,0,1,20,1,Arial,0";
  const std::string longest = std::string(1000, 'm') + " and the end 123456789.";
  ASSERT_EQ(longest.size(), 1023U);
  trace("text \"" + longest + "\"\ntext \"" + longest + "\"\ntext \"\"\n");
  textReading(longest);
  textReading(longest, 1);
}

// Back to the question before, with what was typed there; through repeated answers as well.
TEST_F(DiagramSheet, QuestionsCanBeLeftBackwards) {
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,0";
  ini_["SG_QUESTIONS"]["CompNr"] = "first,-60,-100,1,20,1,Arial,0";
  ini_["SG_QUESTIONS"]["ErfNr"] = "corner,-60,-150,1,20,1,Arial,0";
  trace(
      "back\ntext \"Erf 7\"\ntext \"c1\"\ntext \"c2\"\naccept\nback\nback\nback\nback\naccept\naccept\n"
      "text \"c3\"\ntext \" \"\naccept\n");
  const std::vector<std::string> wanted = {"Property designation",
                                           "Property designation",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Bottom right corner text",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Property designation",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Compilation number (Blank to continue)",
                                           "Bottom right corner text"};
  std::vector<std::string> asked = log_.of("prompt");
  asked.erase(asked.begin(), asked.end() - static_cast<std::ptrdiff_t>(wanted.size()));
  EXPECT_EQ(asked, wanted);
  textReading("Erf 7");
  expectNear(fromOrigin(textReading("first").at), {-60, -100}, "offered again, as the row has it");
  expectNear(fromOrigin(textReading("c3").at), {-60, -102.2}, "in place of the second");
  textReading("corner");
  EXPECT_TRUE(std::ranges::none_of(shapes<Text>(), [](const Text& text) { return text.text.starts_with("c1"); }));
}

// A script's Escape leaves its question alone; a reply answers whether the diagram is given up.
TEST_F(DiagramSheet, EscapeAsksOnceWhetherToGiveUp) {
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,0";
  ini_["SG_QUESTIONS"]["ErfNr"] = "corner,-60,-150,1,20,1,Arial,0";
  trace("escape\naccept\n");
  textReading("corner");
  trace("escape\nreply no\nescape\n");
  EXPECT_EQ(log_.of("message"), std::vector<std::string>{"Give up this diagram?"});
  EXPECT_EQ(host().windowNames().size(), 2U);
  trace("accept\nescape\nreply yes\n");
  EXPECT_EQ(host().windowNames(), std::vector<std::string>{"Drawing1"});
  EXPECT_EQ(host().window().name(), "Drawing1");
}

// Letters stand outside the figure, clear of its sides and circles, near their corners, from the south and the north.
TEST_F(DiagramSheet, LettersStandClearOfTheFigure) {
  ini_["DEFAULTS"]["LettersClear"] = "1";
  std::mt19937 random(4);
  std::uniform_real_distribution<double> reach(6.0, 38.0);
  for (int n = 0; n < 24; ++n) {
    const int count = 3 + n % 6;
    std::vector<Point> corners;
    std::string answers;
    for (int at = 0; at <= count; ++at) {
      const double angle = (n % 2 == 0 ? 2.0 : -2.0) * std::numbers::pi * at / count;
      const double radius = reach(random);
      if (at < count) { corners.push_back({1050 + radius * std::cos(angle), 2050 + radius * std::sin(angle)}); }
      answers += numberText::format("point %.6f %.6f\n", corners[at % count].x, corners[at % count].y);
      if (at < count) { answers += "accept\n"; }
    }
    draw("run SG_TracePolyArea\n" + answers, n % 4 < 2 ? 1 : 0);
    for (int at = 0; at < count; ++at) {
      const Text& letter = textReading(std::string(1, static_cast<char>('A' + at)));
      const brevan::Box box = brevan::textBounds(letter, drawing().parameters());
      EXPECT_LT(brevan::distance(letter.at, corners[at]), 8.0) << n << letter.text;
      EXPECT_FALSE(insideOf(corners, {(box.low.x + box.high.x) / 2, (box.low.y + box.high.y) / 2})) << n << letter.text;
      for (int side = 0; side < count; ++side) {
        const Point beacon = corners[side];
        const Point nearest{std::clamp(beacon.x, box.low.x, box.high.x), std::clamp(beacon.y, box.low.y, box.high.y)};
        EXPECT_GT(brevan::distance(beacon, nearest), 0.5) << n << letter.text << " and the circle of " << side;
        for (int step = 0; step <= 2000; ++step) {
          const Point p = beacon + (corners[(side + 1) % count] - beacon) * (step / 2000.0);
          const bool hit = p.x > box.low.x && p.x < box.high.x && p.y > box.low.y && p.y < box.high.y;
          ASSERT_FALSE(hit) << n << letter.text << " and side " << side;
        }
      }
    }
  }
}

TEST_F(DiagramSheet, LargeAreasAreInHectaresWhereTheSettingsSaySo) {
  ini_["TEXT"]["Area"] = "square metres,-95,-200,1,30,4,Arial,0";
  const auto area = [this](const std::string& hectares, double side) {
    ini_["DEFAULTS"]["Hectares"] = hectares;
    draw(numberText::format(
        "run SG_TracePolyArea\npoint 0 0\naccept\npoint %.3f 0\naccept\npoint %.3f 100\naccept\npoint 0 100\naccept\n"
        "point 0 0\n",
        side, side));
  };
  const std::tuple<const char*, double, const char*> rows[] = {
      {"0", 100.0, "10000 square metres"}, {"1", 100.0, "1,0000 hectares"},   {"1", 99.99, "9 999 square metres"},
      {"1", 99.996, "1,0000 hectares"},    {"1", 123.456, "1,2346 hectares"}, {"0", 60.0, "6000 square metres"}};
  for (const auto& [hectares, side, wanted] : rows) {
    area(hectares, side);
    textReading(wanted);
  }
}

// What the setup shows for a row that a file does not hold is no text of a sheet.
TEST_F(DiagramSheet, MissingRowsAndHeadingsOverNothingAreNotDrawn) {
  ini_["SG_QUESTIONS"].clear();
  ini_["TEXT"] = {{"Data", "unused,-180,-20,2,25,1,Arial,0"}};
  ini_["DEFAULTS"]["ServNotes"] = ini_["DEFAULTS"]["AddNotes"] = "1";
  trace();
  EXPECT_TRUE(log_.of("prompt").back().starts_with("Enter next corner"));
  for (const char* heading : {"Beacon", "Serv", "Notes"}) {
    ini_["TEXT"][heading] = std::string(heading) + ",-188,9999,1,30,1,Arial,1";
  }
  for (const char* lines : {"BDescr", "ServDet", "Note"}) { ini_["SG_QUESTIONS"][lines] = ",-186,0,1,20,1,Arial,0"; }
  trace("text \" \"\ntext \"A servitude\"\ntext \"\"\nescape\n");
  const auto drawn = [this](const std::string& wanted) {
    return std::ranges::count(shapes<Text>(), wanted, [](const Text& text) { return text.text; });
  };
  EXPECT_EQ(drawn("Default"), 0);
  EXPECT_EQ(drawn("Beacon"), 0);
  EXPECT_EQ(drawn("Serv"), 1);
  EXPECT_EQ(drawn("Notes"), 0);
  expectNear(fromOrigin(textReading("Serv").at), {-188, -20 - 5 * 2.75 - 3.3}, "directly below the table");
}

}  // namespace

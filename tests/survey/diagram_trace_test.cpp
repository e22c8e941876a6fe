#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "frame/host/number_text.h"
#include "tests/survey/diagram_session.h"

using brevan::Line;
using brevan::Text;

namespace {

class DiagramTrace : public DiagramSession {
 protected:
  [[nodiscard]] std::vector<std::string> windows() { return host().windowNames(); }
  // How far the copied lines reach; those of the title block and the frame are longer.
  brevan::Box surroundings() {
    brevan::Box reached;
    for (const Line& line : shapes<Line>()) {
      if (brevan::distance(line.a, line.b) < 94) { reached.add(line.a), reached.add(line.b); }
    }
    return reached;
  }
};

TEST_F(DiagramTrace, AbandonedTracingLeavesNoWindow) {
  for (const std::string ways : {"escape\n", "space\n", "point 1000 2000\naccept\nspace\n",
                                 "point 1000 2000\naccept\npoint 1020 2000\naccept\nescape\n",
                                 "point 1000 2000\nescape\n", "point 1000 2000\naccept\npoint 1020 2000\nescape\n"}) {
    draw(kErf + ("test note\nrun SG_TracePolyArea\n" + ways));
    EXPECT_EQ(windows(), std::vector<std::string>{"Drawing1"}) << ways;
    EXPECT_EQ(brevan::drawingJson(drawing()), before_) << ways;
  }
}

TEST_F(DiagramTrace, SaysWhyItCannotBegin) {
  draw("test cartesian\nrun SG_TracePolyArea\nrun SG_AdjustDrawing\n");
  EXPECT_EQ(windows().size(), 1U);
  ASSERT_EQ(log_.of("message").size(), 2U);
  EXPECT_TRUE(log_.of("message")[0].starts_with("Incompatible coordinate system|"));
  settings().SetString("SG_DEFAULTS", "SG_DiaramFile", folder() + "/gone.ini");
  draw("run SG_TracePolyArea\n");
  EXPECT_EQ(log_.of("message"), std::vector<std::string>{"Please Load a SG Diagram *.ini file in the Setup dialog."});
  EXPECT_TRUE(log_.of("prompt").empty());
}

TEST_F(DiagramTrace, CornersSnapAndCloseWithinATenth) {
  // The lines' ends are 2.5 m wide at this scale; away from them the cursor is free.
  draw(std::string(kErf) +
       "run SG_TracePolyArea\npoint 1000.4 2000.3\ntext \"T12\"\npoint 1019.8 2000.2\naccept\npoint 1050 2030\ntext "
       "\"H\"\npoint 1050 2030.11\naccept\npoint 1000.2 1999.9\n");
  EXPECT_EQ(textReading("T12").at, (Point{1000, 2000}));
  EXPECT_EQ(textReading("U12").at, (Point{1020, 2000}));
  EXPECT_EQ(textReading("J").at, (Point{1050, 2030.11}));
  EXPECT_EQ(textReading("JT12").justification, 2) << "the last side goes to the first corner";
  EXPECT_EQ(textReading("0,11").justification, 8);

  draw("run SG_TracePolyArea\npoint 0 0\naccept\npoint 30 0\naccept\npoint 30 40\naccept\npoint 0.08 0.05\n");
  EXPECT_EQ(windows().size(), 2U);
  draw(
      "run SG_TracePolyArea\npoint 0 0\naccept\npoint 30 0\naccept\npoint 30 40\naccept\npoint 0.08 0.07\naccept\n"
      "point 0 0\n");
  EXPECT_EQ(textReading("CD").justification, 2) << "0.106 is not close";
}

// Whatever is typed stays a text.
TEST_F(DiagramTrace, NoLabelOrAnswerRunsACommand) {
  ini_["SG_QUESTIONS"]["PropDescr"] = "Erf 1,-95,-220,1,35,4,Arial,0";
  const std::string hostile = R"(A\" [#] #SELECTLAYER \"0\" %s %n)";
  const std::string shown = R"(A" [#] #SELECTLAYER "0" %s %n)";
  draw(std::string(kErf) + "run SG_TracePolyArea\npoint 1000 2000\ntext \"" + hostile +
       "\"\npoint 1020 2000\naccept\npoint 1020 2030\naccept\npoint 1000 2000\ntext \"" + hostile + "\"\n");
  EXPECT_NEAR(fromOrigin(textReading(shown).at).x, -95.0, 1e-3) << "the answer";
  EXPECT_EQ(textReading(shown, 1).at, (Point{1000, 2000})) << "the corner's letter";
  EXPECT_FALSE(sent("#SELECTLAYER"));
}

// Two corners at one place, and a figure of no extent, are drawn like any other.
TEST_F(DiagramTrace, SidesWithoutLength) {
  draw(
      "run SG_TracePolyArea\npoint 50 50\naccept\npoint 80 50\naccept\npoint 80 50\naccept\npoint 80 90\naccept\npoint "
      "50 50\n");
  EXPECT_EQ(textReading("BC").justification, 2);
  EXPECT_EQ(textReading("0,00").justification, 8);
  EXPECT_EQ(textReading("0 00 00").justification, 8);
  for (const char* factor : {"0", "1"}) {
    ini_["DEFAULTS"]["UseOffset"] = factor;
    draw("run SG_TracePolyArea\npoint 50 50\naccept\npoint 50.5 50\naccept\npoint 50.5 50\naccept\npoint 50 50\n");
    EXPECT_EQ(textReading("BC").justification, 2);
  }
}

TEST_F(DiagramTrace, AFigureOfFewerThanThreeCornersIsRefused) {
  for (const auto& [corners, count] : {std::pair("point 50 50\naccept\npoint 50 50\n", "1"),
                                       std::pair("point 50 50\naccept\npoint 80 50\naccept\npoint 50 50\n", "2")}) {
    draw("run SG_TracePolyArea\n" + std::string(corners));
    EXPECT_EQ(windows().size(), 1U);
    EXPECT_EQ(log_.of("message"), std::vector<std::string>{"A figure has three corners at least, this one has " +
                                                           std::string(count) + "."});
  }
}

// As told before the sheet is opened: by how much typed sides miss the first corner, and sides that cross.
TEST_F(DiagramTrace, MisclosureAndCrossingAreTold) {
  draw("run SG_TracePolyArea\npoint 50 50\naccept\npoint 80 50\naccept\npoint 80 90\naccept\npoint 50.04 49.97\n");
  EXPECT_EQ(log_.of("message"),
            std::vector<std::string>{
                "The figure does not close by 0.050: 0.040 in Y, -0.030 in X, 1 in 2400 of its perimeter."});
  draw(
      "run SG_TracePolyArea\npoint 50 50\naccept\npoint 80 90\naccept\npoint 80 50\naccept\npoint 50 90\naccept\n"
      "point 50 50\n");
  EXPECT_EQ(log_.of("message"), std::vector<std::string>{"The figure crosses itself: its sides AB and CD meet."});
}

// A boundary along an arc: the true area, the arc copied and clipped whole, and lines that touch it kept.
TEST_F(DiagramTrace, ArcsOfTheBoundaryAreTakenWhole) {
  ini_["TEXT"]["Area"] = "square metres,-95,-200,1,30,4,Arial,0";
  ini_["DEFAULTS"]["CornerDiam"] = "0";
  ini_["DEFAULTS"]["DelLines"] = "1";
  ini_["DEFAULTS"]["Offset"] = "1";
  ini_["DEFAULTS"]["PolySnipFactor"] = "1.05";
  const double half = std::numbers::pi * 200.0;  // square metres of half a circle of 20 m
  const struct {
    int direction;  // of an arc from the second corner to the third: outwards or inwards
    double area;
  } rows[] = {{0, 2400.0 + half}, {1, 2400.0 - half}};
  for (const auto& [direction, area] : rows) {
    for (const char* useOffset : {"0", "1"}) {
      ini_["DEFAULTS"]["UseOffset"] = useOffset;
      arcs_ = {{{1060, 2000}, {1060, 2020}, {1060, 2040}, direction == 1}};
      draw("line 1000 2000 1060 2000\nline 1060 2040 1000 2040\nline 1000 2040 1000 2000\nline " +
           std::string(direction == 0 ? "1080 2020 1090 2020" : "1040 2020 1030 2020") +
           "\ntest arcs\nrun SG_TracePolyArea\npoint 1000 2000\naccept\npoint 1060 2000\naccept\npoint 1060 "
           "2040\naccept\npoint 1000 2040\naccept\npoint 1000 2000\n");
      ASSERT_EQ(shapes<brevan::Arc>().size(), 1U) << direction << useOffset;
      EXPECT_EQ(shapes<brevan::Arc>()[0], arcs_[0]) << direction << useOffset;
      textReading(numberText::format("%.0f square metres", area));
      EXPECT_EQ(textReading("40,00").justification, 8) << "the straight join stands in the table";
      const auto lines = shapes<Line>();
      EXPECT_TRUE(std::ranges::any_of(lines, [](const Line& line) { return line.a.y == 2020 && line.b.y == 2020; }))
          << "what touches the arc stays";
    }
  }
}

TEST_F(DiagramTrace, WhatDoesNotFitTheSheetIsTold) {
  draw("run SG_TracePolyArea\npoint 0 0\naccept\npoint 100 0\naccept\npoint 100 130\naccept\npoint 0 0\n");
  EXPECT_EQ(log_.of("message"),
            std::vector<std::string>{"The figure takes 200 x 260 mm at 1:500 and does not fit the sheet of 190 x 277 "
                                     "mm. The largest standard scale at which it does is 1:750."});
  ini_["TEXT"]["Data"] = "unused,-180,-265,2,25,1,Arial,0";
  trace();
  EXPECT_EQ(log_.of("message"), std::vector<std::string>{"The data table of 4 sides ends 2 mm below the sheet."});
}

TEST_F(DiagramTrace, SurroundingsAreCopiedAndClippedToARectangle) {
  draw(std::string(kErf) +
       "line 1020 2000 1060 2000\nline 1005 2010 1015 2010\nline 1100 2000 1100 2100\nline 1020 2030 1020 2100\n"
       "test note\n" +
       kTrace);
  // 10 mm at 1:500 round the figure's extents; the title block and the frame are no surroundings.
  const brevan::Box reached = surroundings();
  EXPECT_NEAR(reached.high.x, 1025, 1e-9);
  EXPECT_NEAR(reached.high.y, 2035, 1e-9);
  EXPECT_EQ(shapes<Line>().size(), 4U + 2U + 1U + 4U) << "erf, two neighbours, the line inside, the title block";
  ASSERT_NE(host().goToWindow("Drawing1"), nullptr);
  EXPECT_EQ(brevan::drawingJson(drawing()), before_) << "the traced drawing stays as it was";
}

TEST_F(DiagramTrace, IsolatedLinesGoAndWhatTouchesTheErfStays) {
  ini_["DEFAULTS"]["DelLines"] = "1";
  draw(std::string(kErf) +
       "line 1005 2010 1015 2010\n"       // inside, free
       "line 1021 2010 1025 2010\n"       // outside, free
       "line 1010 2020 1010 2050\n"       // crosses
       "line 1024 2015 1020.0005 2015\n"  // ends at a side, as near as coordinates are printed
       "line 1020.0005 2017 1024 2017\n"  // begins there
       "line 1020 2005 1020 2012\n" +     // lies along a side
       std::string(kTrace));
  EXPECT_EQ(shapes<Line>().size(), 4U + 4U + 4U);
}

TEST_F(DiagramTrace, HiddenAndLockedLayersAreClippedToo) {
  draw(kErf + ("test hide\n" + std::string(kTrace)));
  for (const char* name : {"HIDDEN", "LOCKED"}) {
    EXPECT_NEAR(reach(name).low.x, 995, 1e-9) << name;
    EXPECT_NEAR(reach(name).high.x, 1025, 1e-9) << name;
    const brevan::Layer& layer = *drawing().layer(drawing().layerNamed(name));
    EXPECT_EQ(layer.visible, layer.locked) << name << " is as it was";
  }
  EXPECT_FALSE(drawing().layer(drawing().layerNamed("SG_DIAGRAM"))->locked) << "the diagram's own is open";
}

TEST_F(DiagramTrace, SurroundingsAreClippedToTheFigureScaled) {
  ini_["DEFAULTS"]["UseOffset"] = "0";
  ini_["DEFAULTS"]["PolySnipFactor"] = "1.5";
  draw(std::string(kErf) + "line 1020 2000 1060 2000\nline 1010 2030 1010 2060\n" + kTrace);
  EXPECT_TRUE(sent("#POLYSNIP \"N\" \"N\"  [995.0,1992.5] [1025.0,1992.5] [1025.0,2037.5] [995.0,2037.5] [#] "));
  EXPECT_FALSE(sent("#SNIP \"Y\""));
  const brevan::Box reached = surroundings();
  EXPECT_NEAR(reached.high.x, 1025, 1e-9);
  EXPECT_NEAR(reached.high.y, 2037.5, 1e-9);
}

// A polygon of so many corners would not fit into one command.
TEST_F(DiagramTrace, AFigureOfManyCornersIsClippedByItsRectangle) {
  ini_["DEFAULTS"]["UseOffset"] = "0";
  for (const int corners : {50, 64}) {
    std::string answers;
    for (int n = 0; n <= corners; ++n) {
      const double angle = 2.0 * std::numbers::pi * (n % corners) / corners;
      answers += numberText::format("point %.3f %.3f\n", 1050 + 40 * std::cos(angle), 2050 + 40 * std::sin(angle));
      if (n < corners) { answers += "accept\n"; }
    }
    draw("line 1050 2050 1400 2050\nrun SG_TracePolyArea\n" + answers);
    EXPECT_EQ(sent("#POLYSNIP"), corners == 50) << corners;
    EXPECT_EQ(sent("#SNIP \"Y\" \"N\" \"N\""), corners == 64) << corners;
  }
}

TEST_F(DiagramTrace, AdjustingGivesLinesTheirType) {
  ini_["DEFAULTS"]["LineType"] = "21";
  draw("line 0 0 30 0\nline 0 20 30 20\nrun SG_AdjustDrawing\npoint 10 0.5\npoint 200 200\npoint 20 20\nescape\n");
  EXPECT_EQ(drawing().find(1)->linetype, 21);
  EXPECT_EQ(drawing().find(2)->linetype, 21);
  EXPECT_EQ(log_.of("message"), std::vector<std::string>{"The cad entity you selected is not a line element."});
  EXPECT_TRUE(sent("#EDITLP \"N\" [10.000,0.500] 21 1 0.000 [#]"));
}

}  // namespace

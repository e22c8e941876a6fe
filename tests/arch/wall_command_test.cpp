#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "frame/host/number_text.h"
#include "host/geometry/curve.h"
#include "tests/arch/arch_session.h"

namespace {

const std::string kWallDialog = "dialog \"Wall Setup\"\n";

// Six rows of styles, told apart by their pens 11 to 16; those named in `hidden` are not visible.
std::string styleRows(const std::string& hidden = "", const std::string& pen = "1") {
  std::string text;
  for (char row = '1'; row <= '6'; ++row) {
    text += "," + pen + row + ",2,3.50," + (hidden.find(row) == std::string::npos ? "1" : "0");
  }
  return text;
}

bool nearly(brevan::Point a, brevan::Point b) { return distance(a, b) < 1e-9; }

struct Specs {
  bool internal = false;
  int method = 1;
  int direction = 1;
  int face = 1;
  std::string hidden{};
  std::string ends = "90.00,90.00,1,0";
  std::string pen = "1";  // before each row's digit
};

std::string specs(const Specs& s) {
  const auto n = [](int value) { return std::to_string(value); };
  return "[WALLS]\nParentName=my house\nMethod=" + n(s.method) + "\nDirection=" + n(s.direction) +
         "\nFace=" + n(s.face) + "\nCurrent=1\n[WALL_TYPES]\nWall1=Test,WALLS," + n(s.internal ? 1 : 0) + "," + s.ends +
         styleRows(s.hidden, s.pen) + ",150.00,110.00,50.00,115.00,160.00\n";
}

class Walls : public ArchSession {
 protected:
  void draw(const Specs& s, const std::string& points, const std::string& before = "") {
    useSpecs(specs(s));
    log_.lines.clear();
    play(before + "run ArchDrawWalls\n" + kWallDialog + kOk + points);
  }
  std::string definition() {
    for (const std::string& macro : log_.of("macro")) {
      if (macro.starts_with("PARLLDEF")) { return macro; }
    }
    return "";
  }
  // What is drawn, by pen.
  std::map<int, std::vector<brevan::Curve>> byPen() {
    std::map<int, std::vector<brevan::Curve>> curves;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      if (const auto* line = std::get_if<brevan::Line>(&primitive.geometry)) {
        curves[primitive.pen].push_back(brevan::Segment{line->a, line->b});
      } else if (const auto* arc = std::get_if<brevan::Arc>(&primitive.geometry)) {
        curves[primitive.pen].push_back(brevan::ArcShape{arc->start, arc->centre, arc->end, arc->clockwise});
      }
    });
    return curves;
  }
};

// ---- What the host is told ----------------------------------------------------------------------------------

struct DefinitionCase {
  Specs specs;
  std::string numbers;  // count, then pen and offset of each line
};

class WallDefinition : public Walls, public testing::WithParamInterface<DefinitionCase> {};

TEST_P(WallDefinition, ListsTheVisibleLinesOfTheWall) {
  const auto& [specs, numbers] = GetParam();
  draw(specs, "space\n");
  EXPECT_EQ(definition(), "") << "before the first point nothing is sent";
  draw(specs, "point 5000 5000\nspace\n" + std::string(specs.method == 1 ? "space\n" : ""),
       specs.method == 1 ? "" : "line 0 0 4000 0\nline 4000 0 4000 4000\nline 4000 4000 0 4000\nline 0 4000 0 0\n");
  std::string wanted = "PARLLDEF " + std::to_string(specs.method) + " 90.00 90.00 1 1 0 ";
  std::istringstream words(numbers);
  std::string pen;
  std::string offset;
  words >> pen;
  wanted += pen + " ";
  while (words >> pen >> offset) { wanted += numberText::format("2 %s 3.500000 %s.000000 ", pen, offset); }
  EXPECT_EQ(definition(), wanted);
  const std::string face = specs.face == 1 ? "LINETYPE 2 15" : "LINETYPE 2 12";
  const Texts macros = log_.of("macro");
  EXPECT_EQ(std::ranges::count(macros, face), specs.method);
  EXPECT_EQ(std::ranges::count(macros, "WIDTH 3.500000"), specs.method);
}

// Widths 150, 110, 50, 115, 160 from outside to inside; pens 11 to 16.
INSTANTIATE_TEST_SUITE_P(
    Settings, WallDefinition,
    testing::Values(DefinitionCase{{}, "5 16 160 14 -115 13 -165 12 -275 11 -425"},
                    DefinitionCase{{.direction = 0}, "5 16 -160 14 115 13 165 12 275 11 425"},
                    DefinitionCase{{.face = 0}, "5 11 -150 13 110 14 160 15 275 16 435"},
                    DefinitionCase{{.direction = 0, .face = 0}, "5 11 150 13 -110 14 -160 15 -275 16 -435"},
                    DefinitionCase{{.method = 0}, "5 16 160 14 -115 13 -165 12 -275 11 -425"},
                    DefinitionCase{{.method = 0, .direction = 0}, "5 16 160 14 -115 13 -165 12 -275 11 -425"},
                    DefinitionCase{{.method = 0, .direction = 0, .face = 0}, "5 11 -150 13 110 14 160 15 275 16 435"},
                    DefinitionCase{{.internal = true}, "3 16 160 12 -115 11 -265"},
                    DefinitionCase{{.internal = true, .direction = 0}, "3 16 -160 12 115 11 265"},
                    DefinitionCase{{.internal = true, .face = 0}, "3 11 -150 15 115 16 275"},
                    DefinitionCase{{.hidden = "6"}, "4 14 -115 13 -165 12 -275 11 -425"},
                    DefinitionCase{{.hidden = "34"}, "3 16 160 12 -110 11 -260"},  // a hidden line takes no room
                    DefinitionCase{{.face = 0, .hidden = "16"}, "3 13 110 14 160 15 275"},
                    DefinitionCase{{.hidden = "123456"}, "0"}));

// ---- What is drawn ------------------------------------------------------------------------------------------

const std::string kRoom = "point 0 0\npoint 0 4000\npoint 6000 4000\npoint 6000 0\npoint 0 0\nspace\n";

TEST_F(Walls, ARoomDrawnClockwiseHasEveryFaceAtItsDistanceWithMitredCorners) {
  draw({}, kRoom);
  const auto curves = byPen();
  const std::map<int, double> outwards = {{16, -160}, {15, 0}, {14, 115}, {13, 165}, {12, 275}, {11, 425}};
  ASSERT_EQ(curves.size(), outwards.size());
  for (const auto& [pen, offset] : outwards) {
    ASSERT_EQ(curves.at(pen).size(), 4U) << pen;
    brevan::Box box;
    for (size_t side = 0; side < 4; ++side) {
      const auto& curve = curves.at(pen)[side];
      EXPECT_TRUE(nearly(endOf(curve), startOf(curves.at(pen)[(side + 1) % 4]))) << "corner of pen " << pen;
      box.add(boundsOf(curve));
    }
    EXPECT_TRUE(nearly(box.low, brevan::Point{-offset, -offset})) << pen;
    EXPECT_TRUE(nearly(box.high, brevan::Point{6000 + offset, 4000 + offset})) << pen;
  }
  EXPECT_EQ(groups(), Texts{"MY_HOUSE PLN1 24"});
}

TEST_F(Walls, TheFinishedWallIsOneGroupOnItsLayerAndNothingElseStays) {
  draw({}, kRoom.substr(0, kRoom.size() - 6) + "point 9000 0\npoint 9000 3000\nspace\nspace\n",
       "macro NEWLAYER \"HERE\"\n");
  EXPECT_EQ(groups().size(), 2U);
  EXPECT_TRUE(groups()[1].starts_with("MY_HOUSE PLN2 ")) << groups()[1];
  drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
    EXPECT_EQ(drawing().layer(primitive.layer)->name, "WALLS");
    EXPECT_NE(primitive.group, 0U);
  });
  EXPECT_EQ(drawing().layerNamed("ARCH_SCRATCH_LNK"), -1);
  EXPECT_EQ(drawing().layer(drawing().currentLayer())->name, "WALLS");
  EXPECT_TRUE(drawing().selection().empty());
  host().runMacro("HDIM \"F\" [0,5] [0,0] [9,0] !");
  EXPECT_EQ(groups().size(), 2U);
  EXPECT_EQ(drawing().find(drawing().lastId())->group, 0U) << "what comes later does not join the wall";
  drawing().undo();
  drawing().undo();
  EXPECT_EQ(drawing().count(), 0U);
  EXPECT_EQ(drawing().layerNamed("WALLS"), -1);
  const Texts macros = log_.of("macro");
  const auto first = std::ranges::find(macros, "#SELECTLAYER \"ARCH_SCRATCH_LNK\"");
  ASSERT_LT(first + 4, macros.end());
  EXPECT_EQ(Texts(first, first + 4),
            (Texts{"#SELECTLAYER \"ARCH_SCRATCH_LNK\"", "#LINKSEL \"PLN1\"", "#WSNEWLAY \"WALLS\"", "#PARENT \"A\""}));
}

TEST_F(Walls, EndsAreCutAtTheirAnglesAndClosedOnlyWhereAsked) {
  draw({.hidden = "16", .ends = "45.00,270.00,1,0"}, "point 0 0\npoint 5000 0\nspace\nspace\n");
  const auto closed = byPen();
  for (const auto& [pen, offset] : std::map<int, double>{{14, 115}, {13, 165}, {12, 275}}) {
    EXPECT_TRUE(nearly(startOf(closed.at(pen).front()), brevan::Point{-offset, offset}))
        << pen;  // to the left of travel
    EXPECT_TRUE(nearly(endOf(closed.at(pen).front()), brevan::Point{5000, offset})) << pen;
  }
  double across = 0.0;  // the pieces that close the two ends
  for (const auto& [pen, curves] : closed) {
    for (const auto& curve : curves) { across += lengthOf(curve) < 1000 ? lengthOf(curve) : 0.0; }
  }
  EXPECT_NEAR(across, 275.0 + 275.0 * std::sqrt(2.0), 1e-6);
  draw({.hidden = "16", .ends = "90.00,90.00,0,0"}, "point 0 0\npoint 5000 0\nspace\nspace\n");
  EXPECT_EQ(drawing().count(), 4U);
}

TEST_F(Walls, FilletsRoundTheOutsideOfACorner) {
  draw({.hidden = "16", .ends = "90.00,90.00,0,1"}, "point 0 0\npoint 0 3000\npoint 3000 3000\nspace\nspace\n");
  for (const auto& [pen, offset] : std::map<int, double>{{14, 115}, {13, 165}, {12, 275}}) {
    const auto curves = byPen().at(pen);
    ASSERT_EQ(curves.size(), 3U);
    const auto* corner = std::get_if<brevan::ArcShape>(&curves[1]);
    ASSERT_NE(corner, nullptr);
    EXPECT_NEAR(brevan::arcRadius(*corner), offset, 1e-9);
    EXPECT_TRUE(nearly(corner->centre, brevan::Point{0, 3000}));
    EXPECT_LT(distance(endOf(curves[0]), startOf(curves[1])), 1e-9);
    EXPECT_LT(distance(endOf(curves[1]), startOf(curves[2])), 1e-9);
  }
}

TEST_F(Walls, ATrackedPerimeterGetsItsWallOutsideOrInside) {
  const std::string room = "line 6000 0 0 0\nline 0 0 0 4000\nline 6000 4000 0 4000\nline 6000 4000 6000 0\n";
  for (const int face : {1, 0}) {
    draw({.method = 0, .direction = 0, .face = face, .hidden = "16"}, "point -2000 2000\nspace\n", room);
    EXPECT_EQ(drawing().count(), 4U + 12U);  // the line tracked is a face of the wall already
    brevan::Box box;
    const auto curves = byPen();
    for (const auto& curve : curves.at(face == 1 ? 12 : 15)) { box.add(boundsOf(curve)); }
    const double out = face == 1 ? 275.0 : -275.0;
    EXPECT_TRUE(nearly(box.low, brevan::Point{-out, -out}));
    EXPECT_TRUE(nearly(box.high, brevan::Point{6000 + out, 4000 + out}));
  }
}

TEST_F(Walls, WhatCannotBeDrawnIsToldAndLeavesTheDrawingAsItWas) {
  const std::string refused = "point 0 0\nexpect message \"The wall was not drawn, the status line says why\"\n";
  const std::string start = "macro NEWLAYER \"MINE\"\nmacro LINETYPE 7 3\n";
  draw({.pen = "60"}, refused, start);  // there is no pen 601
  EXPECT_EQ(drawing().layerNamed("WALLS"), -1) << "a layer made for it goes again";
  EXPECT_EQ(drawing().layer(drawing().currentLayer())->name, "MINE");
  EXPECT_EQ(host().window().style().linetype, 7);
  draw({.method = 0}, refused + "space\n", start);  // nothing to track
  EXPECT_EQ(drawing().layer(drawing().currentLayer())->name, "MINE");
  EXPECT_EQ(drawing().layerNamed("ARCH_SCRATCH_LNK"), -1);
  EXPECT_EQ(drawing().count(), 0U);
}

TEST_F(Walls, APointThatIsDeclinedEndsTheCommand) {
  draw({}, "space\n");
  EXPECT_EQ(log_.of("prompt"), Texts{"Indicate starting position of wall (else spacebar to exit)"});
  draw({.method = 0}, "escape\n");
  EXPECT_EQ(log_.of("prompt"), Texts{"Indicate position outside perimeter (else spacebar to exit)"});
  EXPECT_TRUE(groups().empty());
  draw({}, "point 0 0\npoint 0 900\nescape\n");  // in the middle of a wall: what is there is kept
  EXPECT_EQ(groups().size(), 1U);
}

// Every wall type that ships can be drawn, and is as thick as its leaves and cavity.
TEST_F(Walls, AllThatShipAreAsThickAsTheirName) {
  const std::string path = useSpecs(shipped());
  const auto recordOf = [&](int wall) { return value(path, "WALL_TYPES", ("Wall" + std::to_string(wall)).c_str()); };
  int walls = 0;
  for (std::string record; (record = recordOf(walls + 1)) != "missing"; ++walls) {
    const std::string name = record.substr(0, record.find(','));
    play(numberText::format("run ArchDrawWalls\n%spick \"Wall\" \"%s\"\n%s", kWallDialog, name, kOk) +
         "point 0 0\npoint 0 5000\nspace\nspace\n");
    std::set<double> faces;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      const auto& line = std::get<brevan::Line>(primitive.geometry);
      if (primitive.pen == 1 && line.a.x == line.b.x) { faces.insert(line.a.x); }
    });
    ASSERT_EQ(faces.size(), 2U) << name;
    const std::string digits = name.substr(name.find_first_of("123456789"));
    EXPECT_NEAR(*faces.rbegin() - *faces.begin(), std::stod(digits), 0.001) << name;
    EXPECT_EQ(recordOf(walls + 1), record);
  }
  EXPECT_GE(walls, 8);
}

}  // namespace

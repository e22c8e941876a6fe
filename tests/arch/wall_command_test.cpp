#include <gtest/gtest.h>

#include <set>

#include "frame/host/number_text.h"
#include "tests/arch/arch_session.h"

namespace {

const std::string kWallDialog = "dialog \"Wall Setup\"\n";

// Six rows of styles, told apart by their pens 11 to 16; those named in `hidden` are not visible.
std::string styleRows(const std::string& hidden) {
  std::string text;
  for (char row = '1'; row <= '6'; ++row) {
    text += std::string(",1") + row + ",2,3.50," + (hidden.find(row) == std::string::npos ? "1" : "0");
  }
  return text;
}

struct Specs {
  bool internal = false;
  int method = 1;
  int direction = 1;
  int face = 1;
  std::string hidden{};
};

std::string specs(const Specs& s) {
  const auto n = [](int value) { return std::to_string(value); };
  return "[WALLS]\nParentName=my house\nMethod=" + n(s.method) + "\nDirection=" + n(s.direction) +
         "\nFace=" + n(s.face) + "\nCurrent=1\n[WALL_TYPES]\nWall1=Test,WALLS," + n(s.internal ? 1 : 0) +
         ",90.00,90.00,1,0" + styleRows(s.hidden) + ",150.00,110.00,50.00,115.00,160.00\n";
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

// ---- What is drawn: tests/cases/walls has the rest ------------------------------------------------------------

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

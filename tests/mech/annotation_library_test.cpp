#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "frame/host/number_text.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/strokes.h"
#include "host/files/drg_reader.h"
#include "mech/annotation_style.h"
#include "mech/definition_store.h"
#include "mech/tolerance_frame.h"
#include "tests/mech/command_session.h"

namespace {

using brevan::Box;
using brevan::Point;

// Where the ink of a drawing lies: pieces of lines and curves, and the letters of each line of text.
class Ink : public brevan::StrokeSink {
 public:
  std::vector<Point> strokes;  // so close that none slips through a letter
  std::vector<std::pair<std::string, Box>> texts;

  void line(const brevan::StrokeStyle&, Point a, Point b) override {
    constexpr double kStep = 0.05;
    const int pieces = static_cast<int>(std::ceil(brevan::distance(a, b) / kStep)) + 1;
    for (int i = 0; i <= pieces; ++i) { strokes.push_back(a + (b - a) * (static_cast<double>(i) / pieces)); }
  }
  void arc(const brevan::StrokeStyle& style, const brevan::ArcShape& arc) override {
    constexpr int kPieces = 64;
    Point last = arc.start;
    for (int i = 1; i <= kPieces; ++i) {
      const Point next = brevan::arcPointAt(arc, brevan::arcStartAngle(arc) + brevan::arcSweep(arc) * i / kPieces);
      line(style, last, next);
      last = next;
    }
  }
  void text(const brevan::StrokeStyle&, const brevan::TextStroke& text) override {
    constexpr double kBearing = 0.07;  // of the em, at either end of a line
    constexpr double kDescent = 0.2;
    const bool hangs = text.text.find_first_of("gjpqy,;()") != std::string_view::npos;
    const double height = text.height * brevan::capHeight(brevan::faceOf(text.font));
    Box box;
    box.add(text.baseline + Point{kBearing * text.height, hangs ? -kDescent * text.height : 0.0});
    box.add(text.baseline + Point{text.width - kBearing * text.height, height});
    texts.emplace_back(text.text, box);
  }
  void polygon(const brevan::StrokeStyle& style, std::span<const Point> corners) override {
    for (size_t i = 0; i < corners.size(); ++i) { line(style, corners[i], corners[(i + 1) % corners.size()]); }
  }

  // The first text that a stroke crosses; "" where all stand clear.
  [[nodiscard]] std::string crossedText() const {
    for (const auto& [words, box] : texts) {
      for (const Point& point : strokes) {
        if (point.x > box.low.x && point.x < box.high.x && point.y > box.low.y && point.y < box.high.y) {
          return words;
        }
      }
    }
    return "";
  }
  [[nodiscard]] Box bounds() const {
    Box box;
    for (const Point& point : strokes) { box.add(point); }
    for (const auto& [words, letters] : texts) { box.add(letters); }
    return box;
  }
};

Ink inkOf(const brevan::Drawing& drawing) {
  Ink ink;
  brevan::StrokeWalk walk(drawing, {}, ink);
  drawing.forEach([&walk](brevan::PrimitiveId, const brevan::Primitive& primitive) { walk.primitive(primitive); });
  return ink;
}

class AnnotationLibraryTest : public CommandSession {
 protected:
  // A configuration whose symbol files are those that ship.
  static std::string withSymbols(std::string text) {
    const std::string relative = "Symbols\\";
    for (size_t at = 0; (at = text.find(relative, at)) != std::string::npos;) {
      text.replace(at, relative.size(), std::string(BREVAN_DATA) + "/Symbols/");
      at += std::string_view(BREVAN_DATA).size();
    }
    return text;
  }
  static std::string shipped() { return withSymbols(read(std::string(SOURCE_ROOT) + "/data/ISO Mechspecs.ini")); }
  static std::string setup() {
    return withSymbols(
        "[Setup]\nWeldSymbols=Symbols\\MechWelds.drg\nWeldLayer=WELDS\n"
        "WeldSettings=1.000,1,10.0,1,3.0,1.5\n[WELDS]\n");
  }

  // A weld of the library, its symbols and its tail `way` x 40 mm on from the knee at the origin.
  void drawWeld(const std::string& name, int way) {
    const auto x = [way](int on) { return std::to_string(way * on); };
    play("run MechDrawWelds\ndialog \"Mechanical Ardenix - Weld Annotation\"\npick \"Definition\" \"" + name +
         "\"\npress \"OK\"\npoint " + x(-20) + " -20\npoint 0 0\npoint " + x(40) + " 0\npoint " + x(80) + " 0\n");
  }
};

TEST_F(AnnotationLibraryTest, NoTextOfAWeldIsCrossed) {
  const auto path = useLibrary(shipped());
  const auto names = ardenix::mech::DefinitionStore(path).names("WELDS");
  ASSERT_EQ(names.size(), 25U);
  for (const std::string& name : names) {
    for (const int way : {1, -1}) {
      drawWeld(name, way);
      EXPECT_EQ(inkOf(drawing()).crossedText(), "") << name << (way > 0 ? " to the right" : " to the left");
    }
  }
}

TEST_F(AnnotationLibraryTest, NoTextOfAFinishIsCrossed) {
  const auto path = useLibrary(shipped());
  const auto names = ardenix::mech::DefinitionStore(path).names("SURFACE_FINISH");
  ASSERT_EQ(names.size(), 32U);
  for (const std::string& name : names) {
    play("run MechSurfaceFinish\ndialog \"Mech Ardenix - Surface Finish\"\npick \"Definition\" \"" + name +
         "\"\npress \"OK\"\npoint 0 0\n");
    EXPECT_EQ(inkOf(drawing()).crossedText(), "") << name;
  }
}

TEST_F(AnnotationLibraryTest, WhatIsSaidOfASideStandsOnIt) {
  constexpr double kOnLine = 1e-6;
  std::mt19937 random(7);
  const auto below = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
  for (int round = 0; round < 60; ++round) {
    const bool arrow = round % 2 == 0;
    const std::string side = numberText::format("%d,%d,%d", below(16), below(4), below(5));
    const std::string_view form =
        arrow ? "Weld1=W,0,0,0,%s,,,z%d,a5,0.000,0.000,0,0,\n" : "Weld1=W,%s,0,0,0,,s%d,,,0.000,0.000,0,0,\n";
    const std::string weld = numberText::format(form, side, below(9));
    useLibrary(setup() + weld);
    drawWeld("W", round % 4 < 2 ? 1 : -1);
    drawing().forEach([&](brevan::PrimitiveId id, const brevan::Primitive& primitive) {
      if (std::holds_alternative<brevan::Arrow>(primitive.geometry)) { drawing().remove(id); }
    });
    const Box box = inkOf(drawing()).bounds();
    EXPECT_TRUE(arrow ? box.high.y <= kOnLine : box.low.y >= -kOnLine) << weld;
  }
}

TEST_F(AnnotationLibraryTest, TheProgramsSymbolsLieBesideTheFolderOfItsUsers) {
  brevan::FileServices ofUser(folder(), folder() + "/Program/USERS/Ann/USERS");
  brevan::CoreContext context{ofUser, settings(), "", nullptr};
  const brevan::CoreContextBinding binding{context};
  EXPECT_EQ(ardenix::mech::shippedSymbolFile("MechWelds.drg"), folder() + "/Program/Symbols\\MechWelds.drg");
}

// ---- Symbols ------------------------------------------------------------------------------------------------

Ink inkOfSymbol(const std::string& file, const std::string& name) {
  brevan::Drawing all = brevan::openDrg(std::string(BREVAN_DATA) + "/Symbols/" + file);
  const brevan::SymbolDefinition* symbol = all.symbol(name);
  EXPECT_NE(symbol, nullptr) << name;
  brevan::Drawing alone;
  if (symbol == nullptr) { return {}; }
  for (const brevan::Primitive& part : symbol->parts) { alone.add({.geometry = part.geometry}); }
  return inkOf(alone);
}

constexpr double kSlack = 1e-3;

void expectInside(const Box& box, const Box& frame, const std::string& name) {
  EXPECT_TRUE(box.low.x >= frame.low.x - kSlack && box.low.y >= frame.low.y - kSlack &&
              box.high.x <= frame.high.x + kSlack && box.high.y <= frame.high.y + kSlack)
      << name << ' ' << box.low.x << ' ' << box.low.y << ' ' << box.high.x << ' ' << box.high.y;
}

TEST(AnnotationSymbols, WeldsHangOnTheLineClearOfSizesAndLetters) {
  for (const std::string name : {"SQUARE", "V", "BEVEL", "U", "J", "F_BEVEL", "FLARE_V", "FLANGE_EDGE", "FLANGE_CORNER",
                                 "FILLET", "BEAD", "SURFACING", "FUSION", "PLUG", "STUD"}) {
    const Box box = inkOfSymbol("MechWelds.drg", name).bounds();
    expectInside(box, Box{{-1.75, -4.0}, {1.75, 0.0}}, name);
    EXPECT_NEAR(box.high.y, 0.0, kSlack) << name;
    const Box mirrored = inkOfSymbol("MechWelds.drg", '_' + name).bounds();
    expectInside(mirrored, Box{{box.low.x, -box.high.y}, {box.high.x, -box.low.y}}, '_' + name);
    EXPECT_NEAR(mirrored.high.y, -box.low.y, kSlack) << name;
  }
  for (const std::string name : {"BEVEL", "J", "F_BEVEL", "FLANGE_CORNER", "FILLET"}) {
    const Ink ink = inkOfSymbol("MechWelds.drg", name);
    const double left = ink.bounds().low.x;
    const auto upright = std::count_if(ink.strokes.begin(), ink.strokes.end(),
                                       [left](Point point) { return std::fabs(point.x - left) < kSlack; });
    EXPECT_GT(upright, 50) << name << " has its upright stroke left";
  }
  for (const std::string name : {"FLUSH", "CONVEX", "CONCAVE"}) {
    expectInside(inkOfSymbol("MechWelds.drg", name).bounds(), Box{{-1.75, 4.0}, {1.75, 5.0}}, name);
  }
}

TEST(AnnotationSymbols, LaysAndTolerancesFillTheirCells) {
  const auto expectFilled = [](const std::string& file, const std::string& name) {
    const Box box = inkOfSymbol(file, name).bounds();
    expectInside(box, Box{{0.0, 0.0}, {10.0, 10.0}}, name);
    EXPECT_GT(std::max(box.width(), box.height()), 5.0) << name;
  };
  for (const char* name : {"SF_PARALLEL", "SF_PERPENDIC", "SF_CIRCULAR", "SF_RADIAL", "SF_MULTI", "SF_ANGULAR"}) {
    expectFilled("MechSurfaceFinish.drg", name);
  }
  for (int number = 0; number < 24; ++number) {
    expectFilled("MechTolerances.drg", std::string(ardenix::mech::toleranceSymbol(number)));
  }
  EXPECT_EQ(ardenix::mech::toleranceSymbol(24), "");
}

}  // namespace

#include <gtest/gtest.h>

#include <limits>
#include <span>

#include "mech/definition_store.h"
#include "mech/shaft_drawer.h"
#include "tests/host/drawing/dash_ink.h"
#include "tests/mech/command_session.h"

namespace {

using brevan::Arc;
using brevan::Line;
using brevan::Primitive;

constexpr int kAxisPen = 3;
constexpr double kThin = 2.5;      // threads
constexpr double kApart = 1000.0;  // from part to part
constexpr double kPlanBelow = -600.0;

// How many ends of strokes meet nothing in the side view of the definitions whose names end so; the first row
// that fits counts.
struct OpenEnds {
  const char* suffix;
  int ends;
};
// The chamfer's edge at a screw's end stays open in the middle.
constexpr OpenEnds kOfScrews[] = {{"", 2}};
constexpr OpenEnds kNone[] = {{"", 0}};
// Walls and threads begin at the surface, and end in the open where the hole goes through.
constexpr OpenEnds kOfHoles[] = {{"TAPTHRU", 8}, {"", 4}};

struct ShippedKind {
  const char *section, *command, *title, *sideView, *planView;
  const char* turn;  // what answers after the position of a side view
  std::span<const OpenEnds> openEnds;
};

const ShippedKind kShippedKinds[] = {
    {"BOLTS", "MechDrawBolts", "Hex Bolts", "Side View (elevation)", "Top View (plan)", "menu \"No Rotation\"\n",
     kOfScrews},
    {"CAPSCREWS", "MechDrawScrews", "Socket Screws", "Draw Side View (elevation)", "Draw Top View (plan)",
     "menu \"No Rotation\"\n", kOfScrews},
    {"NUTS", "MechDrawNuts", "Nuts", "Draw side view (elevation)", "Draw top view (plan view)", "", kNone},
    {"HOLES", "MechDrawHoles", "Drilled Holes", "Draw Side View (elevation)", "Draw Top View (plan)",
     "menu \"No Rotation\"\n", kOfHoles},
    {"RIVETS", "MechDrawRivets", "Rivets", "Side View (elevation)", "Top View (plan)", "menu \"No Rotation\"\n", kNone},
};

bool same(brevan::Point a, brevan::Point b) { return brevan::distance(a, b) < 5e-5; }

double distanceTo(const Primitive& stroke, brevan::Point point) {
  brevan::Point nearest{std::numeric_limits<double>::infinity(), 0};
  if (const auto* line = std::get_if<Line>(&stroke.geometry)) { nearest = brevan::nearestOnSegment(*line, point); }
  if (const auto* arc = std::get_if<Arc>(&stroke.geometry)) { nearest = brevan::nearestOnArc(*arc, point); }
  return std::hypot(nearest.x - point.x, nearest.y - point.y);
}

std::vector<brevan::Point> endsOf(const Primitive& stroke) {
  if (const auto* line = std::get_if<Line>(&stroke.geometry)) { return {line->a, line->b}; }
  if (const auto* arc = std::get_if<Arc>(&stroke.geometry)) { return {arc->start, arc->end}; }
  return {};
}

int openEnds(const std::vector<Primitive>& view) {
  int open = 0;
  for (size_t i = 0; i < view.size(); ++i) {
    for (const brevan::Point end : endsOf(view[i])) {
      bool met = false;
      for (size_t j = 0; j < view.size() && !met; ++j) { met = j != i && distanceTo(view[j], end) < 1e-6; }
      open += met ? 0 : 1;
    }
  }
  return open;
}

class FastenerLibraryTest : public CommandSession, public ::testing::WithParamInterface<ShippedKind> {
 protected:
  FastenerLibraryTest() : path_(useLibrary(read(std::string(SOURCE_ROOT) + "/data/ISO Mechspecs.ini"))) {}

  // Both views of every definition, side by side, by one script. Fills strokes_: side, plan, side, plan, ...
  void drawAll() {
    const ShippedKind& kind = GetParam();
    names_ = ardenix::mech::DefinitionStore(path_).names(kind.section);
    std::string script;
    for (size_t i = 0; i < names_.size(); ++i) {
      const std::string x = std::to_string(kApart * static_cast<double>(i)) + ' ';
      const std::string plan = "point " + x + std::to_string(kPlanBelow) + '\n';
      const std::string position = "point " + x + "0\n";
      script += std::string("run ") + kind.command + "\ndialog \"Mechanical Ardenix - " + kind.title +
                "\"\npick \"Definition\" \"" + names_[i] + "\"\ncheck \"" + kind.sideView + "\"\ncheck \"" +
                kind.planView + "\"\npress \"OK\"\n" + position + (*kind.turn == '\0' ? position : kind.turn) + plan +
                plan + "space\n";
    }
    play(script);
    drawing().forEachGroup([this](const brevan::Group& group) {
      std::vector<Primitive> strokes;
      for (const auto id : drawing().membersOf(group.id)) { strokes.push_back(*drawing().find(id)); }
      strokes_.push_back(std::move(strokes));
    });
  }

  // The strokes of a side view without its centre line, their axis moved to x = 0.
  std::vector<Primitive> sideView(size_t definition) {
    std::vector<Primitive> view;
    for (Primitive stroke : strokes_.at(2 * definition)) {
      if (stroke.pen == kAxisPen) { continue; }
      const auto moved = brevan::Transform::shift({-kApart * static_cast<double>(definition), 0});
      stroke.geometry = brevan::transformed(stroke.geometry, moved);
      view.push_back(std::move(stroke));
    }
    return view;
  }

  // Threads lie inside a shank and outside a bore.
  static void expectThreadsInTheMaterial(const std::vector<Primitive>& view, const std::string& name) {
    const bool hole = std::string_view(GetParam().section) == "HOLES";
    double thread = hole ? std::numeric_limits<double>::infinity() : 0.0;
    double wall = thread;
    for (const Primitive& stroke : view) {
      const auto* line = std::get_if<Line>(&stroke.geometry);
      if (line == nullptr || line->a.x != line->b.x) { continue; }
      double& reach = stroke.width == kThin ? thread : wall;
      reach = hole ? std::min(reach, std::fabs(line->a.x)) : std::max(reach, std::fabs(line->a.x));
    }
    EXPECT_TRUE(hole ? wall < thread || name.find("TAP") == std::string::npos : thread < wall);
  }

  // At full size and at the scales that parts are drawn at.
  static void expectCentreLinesCrossInDashes(const std::vector<Primitive>& plan, brevan::Point centre, bool isDowel) {
    int crossing = 0;
    for (const Primitive& stroke : plan) {
      const auto* line = std::get_if<Line>(&stroke.geometry);
      if (line == nullptr || stroke.pen != kAxisPen) { continue; }
      ++crossing;
      const double along = brevan::distance(line->a, centre);
      for (const double millimetres : {2.0, 1.0, 0.5, 0.2}) {
        const brevan::DashPattern dashes = brevan::dashesOf(stroke.linetype, *line, millimetres);
        EXPECT_GT(brevan::inkAt(dashes, along * millimetres), 0.0) << "at " << millimetres << ":1";
      }
    }
    EXPECT_EQ(crossing, isDowel ? 0 : 2) << "a dowel's plan is quartered";
  }

  std::string path_;
  std::vector<std::string> names_;
  std::vector<std::vector<Primitive>> strokes_;
};

TEST_P(FastenerLibraryTest, EveryDefinitionIsDrawnWholeSymmetricalAndThreadedInTheMaterial) {
  drawAll();
  ASSERT_EQ(strokes_.size(), 2 * names_.size());
  ASSERT_GE(names_.size(), 50U);
  EXPECT_TRUE(log_.of("message").empty());
  for (size_t i = 0; i < names_.size(); ++i) {
    SCOPED_TRACE(names_[i]);
    const std::vector<Primitive> view = sideView(i);
    const auto row = std::ranges::find_if(GetParam().openEnds,
                                          [&](const OpenEnds& wanted) { return names_[i].ends_with(wanted.suffix); });
    EXPECT_EQ(openEnds(view), row->ends);
    for (const Primitive& stroke : view) {
      if (const auto* line = std::get_if<Line>(&stroke.geometry)) { EXPECT_FALSE(line->a == line->b) << "a dot"; }
      for (const brevan::Point end : endsOf(stroke)) {
        const bool mirrored = std::ranges::any_of(view, [&](const Primitive& other) {
          return std::ranges::any_of(endsOf(other), [&](brevan::Point p) { return same(p, {-end.x, end.y}); });
        });
        EXPECT_TRUE(mirrored) << end.x << ' ' << end.y;
      }
    }
    brevan::Box plan;
    std::vector<Line> lines;
    for (const Primitive& stroke : strokes_[2 * i + 1]) {
      plan.add(drawing().bounds(stroke));
      if (const auto* line = std::get_if<Line>(&stroke.geometry)) { lines.push_back(*line); }
    }
    for (const Line& line : lines) {
      const brevan::Point a = plan.centre() * 2.0 - line.a;
      const brevan::Point b = plan.centre() * 2.0 - line.b;
      EXPECT_TRUE(std::ranges::any_of(lines, [&](const Line& other) {
        return (same(other.a, a) && same(other.b, b)) || (same(other.a, b) && same(other.b, a));
      })) << "half a turn brings the plan onto itself";
    }
    EXPECT_TRUE(same(plan.centre(), {kApart * static_cast<double>(i), kPlanBelow}));
    expectCentreLinesCrossInDashes(strokes_[2 * i + 1], plan.centre(), names_[i].ends_with("DOWEL"));
    expectThreadsInTheMaterial(view, names_[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(Shipped, FastenerLibraryTest, ::testing::ValuesIn(kShippedKinds),
                         [](const auto& kind) { return std::string(kind.param.section); });

class ShaftLibraryTest : public CommandSession {};

TEST_F(ShaftLibraryTest, EveryShaftIsSoundAndDrawnClosedAndSymmetrical) {
  const std::string path = useLibrary(read(std::string(SOURCE_ROOT) + "/data/ISO Mechspecs.ini"));
  const ardenix::mech::DefinitionStore store(path);
  std::vector<std::string> names = store.names("SHAFTS");
  ASSERT_EQ(names.front(), "EMPTY SHAFT");
  names.erase(names.begin());
  ASSERT_GE(names.size(), 15U);
  std::string script;
  for (size_t i = 0; i < names.size(); ++i) {
    const std::string point = "point " + std::to_string(kApart * static_cast<double>(i)) + " 0\n";
    script.append("run MechDrawShafts\ndialog \"Mechanical Ardenix - Shafts\"\npick \"Definition\" \"")
        .append(names[i] + "\"\npress \"OK\"\n")
        .append(point)
        .append(point)
        .append("space\n");
  }
  play(script);
  EXPECT_TRUE(log_.of("message").empty());
  size_t drawn = 0;
  drawing().forEachGroup([&](const brevan::Group& group) {
    SCOPED_TRACE(names.at(drawn));
    const auto sections = ardenix::mech::readShaft(store.file(), names.at(drawn));
    brevan::Box outline;
    std::vector<Primitive> view;
    for (const auto id : drawing().membersOf(group.id)) {
      if (drawing().find(id)->pen == kAxisPen) { continue; }
      view.push_back(*drawing().find(id));
      outline.add(drawing().bounds(view.back()));
    }
    double diameter = 0.0;
    for (const auto& section : sections) { diameter = std::max(diameter, section.diameter); }
    EXPECT_EQ(openEnds(view), 0);
    EXPECT_NEAR(outline.width(), ardenix::mech::Shaft{.sections = sections}.length(), 1e-9);
    EXPECT_NEAR(outline.height(), diameter, 1e-9);
    EXPECT_TRUE(same(outline.centre(), {kApart * static_cast<double>(drawn) + outline.width() / 2.0, 0.0}));
    ++drawn;
  });
  EXPECT_EQ(drawn, names.size());
}

}  // namespace

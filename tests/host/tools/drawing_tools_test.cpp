#include "host/tools/drawing_tools.h"

#include <gtest/gtest.h>

#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

class Tools : public HostSession {
 protected:
  // Runs a tool with a script's answers; what was drawn before stays.
  void use(const std::string& name, const std::string& answers) {
    Drawing kept = std::move(drawing());
    start(answers);
    window().setDrawing(std::move(kept));
    for (const PrimitiveId id : selected_) { drawing().select(id); }
    host().runTool(name, drawingTool(name)->run);
    EXPECT_FALSE(answersLeft()) << name;
  }
  std::vector<Line> lines() {
    std::vector<Line> found;
    drawing().forEach([&](PrimitiveId, const Primitive& primitive) {
      if (const auto* line = std::get_if<Line>(&primitive.geometry)) { found.push_back(*line); }
    });
    return found;
  }
  PrimitiveId draw(Geometry geometry) { return window().addPlain(std::move(geometry)); }
  std::vector<PrimitiveId> selected_;
};

TEST_F(Tools, DrawWhatTheUserPoints) {
  use("line", "point 0 0\npoint 10 0\npoint 10 0\npoint 10 5\nspace\nspace\n");
  EXPECT_EQ(lines(), (std::vector<Line>{{{0, 0}, {10, 0}}, {{10, 0}, {10, 5}}}));
  use("rectangle", "point 20 0\npoint 30 8\n");
  EXPECT_EQ(lines().size(), 6U);
  EXPECT_EQ(drawing().membersOf(drawing().lastGroup()).size(), 4U);
  use("circle", "point 50 50\npoint 53 54\nspace\n");
  EXPECT_EQ(std::get<Arc>(drawing().find(drawing().lastId())->geometry), (Arc{{53, 54}, {50, 50}, {53, 54}}));
  use("text", "point 1 2\ntext \"Plan\"\nspace\n");
  EXPECT_EQ(std::get<Text>(drawing().find(drawing().lastId())->geometry).text, "Plan");
  const size_t before = drawing().count();
  use("arc", "point 0 0\npoint 5 0\npoint 10 0\n");  // on one line
  use("line", "point 0 0\nescape\n");
  EXPECT_EQ(drawing().count(), before);
}

TEST_F(Tools, PartsAreMadeAndTakenApart) {
  selected_ = {draw(Line{{0, 0}, {10, 0}}), draw(Line{{100, 0}, {110, 0}})};
  const std::string before = json();
  use("group", "text \"Frame\"\n");
  const GroupId frame = drawing().newestGroup("", "Frame");
  EXPECT_EQ(drawing().membersOf(frame), selected_);
  use("ungroup", "");
  EXPECT_TRUE(drawing().membersOf(frame).empty());
  drawing().undo();
  EXPECT_EQ(drawing().membersOf(frame), selected_);
  drawing().undo();
  EXPECT_EQ(json(), before);
}

TEST_F(Tools, ATurnTakesWhatIsSelectedAndIsOneStepOfUndo) {
  const PrimitiveId first = draw(Line{{0, 0}, {10, 0}});
  draw(Line{{100, 0}, {110, 0}});
  selected_ = {first};
  const std::string before = json();
  use("rotate", "point 0 0\npoint 1 0\npoint 0 7\n");
  EXPECT_EQ(lines()[0], (Line{{0, 0}, {0, 10}}));
  EXPECT_EQ(lines()[1], (Line{{100, 0}, {110, 0}}));
  EXPECT_TRUE(drawing().isSelected(first));
  drawing().undo();
  EXPECT_EQ(json(), before);
  use("copy", "point 0 0\npoint 0 20\npoint 0 40\nspace\n");
  EXPECT_EQ(lines().size(), 4U);
  use("erase", "");
  EXPECT_EQ(lines().size(), 3U);
}

TEST_F(Tools, ItemsArePickedByPointAndWindowAndLockedOnesNever) {
  draw(Line{{0, 0}, {10, 0}});
  draw(Line{{50, 50}, {60, 55}});
  draw(Line{{50, 50}, {60, 500}});  // reaches out of the window
  lockLayer("0", true, true);
  use("erase", "point 5 0\npoint 1 1\nspace\n");  // the second corner of a window in which everything is locked
  EXPECT_EQ(lines().size(), 3U);
  lockLayer("0", true, false);
  use("erase", "point 5 0\npoint 40 40\npoint 70 70\nspace\n");
  EXPECT_EQ(lines(), (std::vector<Line>{{{50, 50}, {60, 500}}}));
  use("erase", "point 70 70\npoint 40 40\nspace\n");  // from right to left: what it touches, too
  EXPECT_TRUE(lines().empty());
}

TEST_F(Tools, TrimCutsBetweenNeighbours) {
  draw(Line{{0, 0}, {100, 0}});
  draw(Line{{20, -50}, {20, 50}});
  draw(Line{{70, -50}, {70, 50}});
  use("trim", "point 40 0\nspace\n");
  EXPECT_EQ(lines().size(), 4U);
  EXPECT_EQ(lines()[2], (Line{{0, 0}, {20, 0}}));
  EXPECT_EQ(lines()[3], (Line{{70, 0}, {100, 0}}));
  use("trim", "point 90 0\nspace\n");
  EXPECT_EQ(lines().size(), 4U) << "nothing crosses what is left";
  draw(Arc{{25, 200}, {15, 200}, {25, 200}});
  draw(Line{{15, 150}, {15, 250}});
  for (const bool onTheLeft : {false, true}) {  // of the line that halves the circle
    use("trim", onTheLeft ? "point 6 196\nspace\n" : "point 25 200\nspace\n");
    const Arc& kept = std::get<Arc>(drawing().find(drawing().lastId())->geometry);
    EXPECT_TRUE(arcCovers(kept, kPi) != onTheLeft && arcCovers(kept, 0.0) == onTheLeft);
    EXPECT_NEAR(std::abs(arcSweep(kept)), kPi, 1e-9);
    drawing().undo();
  }
}

}  // namespace

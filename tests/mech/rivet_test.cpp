#include "mech/rivet_drawer.h"

#include "tests/mech/fastener_session.h"

namespace {

enum RivetHead { kSnapHead, kPanHead, kMushroomHead, kFlatHead, kCountersunkHead };

class RivetTest : public FastenerSession {
 protected:
  // A rivet of 4 mm with a shank of 12, heads 7 wide and 2 high.
  void drawRivet(RivetHead left, RivetHead right, const std::string& edits = "",
                 const std::string& answers = "point 0 0\nmenu \"No Rotation\"\nspace\n") {
    useLibrary(std::string(kSetup) + "[RIVETS]\nBolt1=R4,4,2,7," + std::to_string(left) + ",12,2,7," +
               std::to_string(right) + '\n');
    draw("MechDrawRivets", "Rivets", edits, answers);
  }
};

TEST_F(RivetTest, HeadsStandOnBothFacesOfWhatIsJoined) {
  const struct {
    RivetHead head;
    double top;  // half the width of the flat top, 0 for a crown
  } cases[] = {{kSnapHead, 0}, {kMushroomHead, 0}, {kPanHead, 3.0}, {kFlatHead, 3.5}};
  for (const auto& [head, top] : cases) {
    drawRivet(head, head);
    for (const double face : {0.0, -12.0}) {
      const double apex = face == 0.0 ? 2.0 : -14.0;
      EXPECT_TRUE(hasLine({-3.5, face}, {3.5, face})) << head;
      if (top == 0.0) {
        EXPECT_TRUE(hasArcThrough({0, apex})) << head;
        EXPECT_FALSE(hasArcThrough({0, 2 * face - apex})) << "the crown lies outside";
      } else {
        EXPECT_TRUE(hasLine({-top, apex}, {top, apex})) << head;
        EXPECT_TRUE(hasLine({3.5, face}, {top, apex})) << head;
      }
    }
    EXPECT_TRUE(hasLine({2, 0}, {2, -12})) << head;
    EXPECT_NEAR(axis().a.y, -12 - (0.8 + 7), 1e-9);
    EXPECT_NEAR(axis().b.y, 0.8 + 7, 1e-9);
  }
}

TEST_F(RivetTest, ACrownHigherThanItsRadiusIsMoreThanAHalfCircle) {
  useLibrary(std::string(kSetup) + "[RIVETS]\nBolt1=R4,4,5,7,0,12,5,7,0\n");
  draw("MechDrawRivets", "Rivets", "", "point 0 0\nmenu \"No Rotation\"\nspace\n");
  for (const Point apex : {Point{0, 5}, Point{0, -17}}) { EXPECT_TRUE(hasArcThrough(apex)) << apex.y; }
  for (const brevan::Arc& arc : shapes<brevan::Arc>()) { EXPECT_GT(std::fabs(brevan::arcSweep(arc)), std::acos(-1.0)); }
}

TEST_F(RivetTest, CountersunkHeadsTakeTheirPartOfTheShank) {
  drawRivet(kCountersunkHead, kCountersunkHead);
  expectLines({{{2, -2}, {2, -10}}, {{3.5, 0}, {2, -2}}, {{-3.5, -12}, {-2, -10}}});
  EXPECT_NEAR(axis().a.y, -10 - 7.8, 1e-9);
  drawRivet(kCountersunkHead, kSnapHead);
  EXPECT_TRUE(hasLine({2, -2}, {2, -12}));
}

TEST_F(RivetTest, ThePlanShowsTheShankHiddenBelowItsWiderHead) {
  drawRivet(kSnapHead, kFlatHead,
            "uncheck \"Side View (elevation)\"\ncheck \"Top View (plan)\"\nset \"RHS/Head dia\" 9\n",
            "dialog \"Save Changes to Rivet?\"\npress \"Cancel\"\npoint 0 0\npoint 0 0\nspace\n");
  EXPECT_TRUE(hasCircle({0, 0}, 4.5));
  EXPECT_TRUE(hasLine({-9.5, 0}, {9.5, 0}));
  Texts styles;
  drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
    const auto* arc = std::get_if<brevan::Arc>(&primitive.geometry);
    if (arc == nullptr || brevan::arcRadius(*arc) > 2.1) { return; }
    styles.push_back(styleOf(primitive));
  });
  EXPECT_EQ(styles, Texts{"1/21/2.5"}) << "the head's pen, the hidden line's type and width";
  EXPECT_EQ(groups(), Texts{"RIVETS RP1 4"});
}

TEST_F(RivetTest, AlignsToTheEdgeItJoins) {
  useLibrary(std::string(kSetup) + "[RIVETS]\nBolt1=R4,4,2,7,0,12,2,7,0\n");
  draw("MechDrawRivets", "Rivets", "check \"Automatically align the side view\"\n", "point 60 -3\nspace\n",
       "line 20 0 120 0\n");
  EXPECT_EQ(log_.of("prompt").front(), "Indicate the position of the Rivet side view (auto-align)");
  EXPECT_NEAR(axis().a.y, -19.8, 1e-6);
  draw("MechDrawRivets", "Rivets", "", "point 60 90\nmenu \"No Rotation\"\nspace\n");
  EXPECT_NE(std::ranges::find(log_.lines,
                              "call gsSetPrompt No line found nearby to align this rivet to. Please specify rotation "
                              "manually."),
            log_.lines.end());
}

}  // namespace

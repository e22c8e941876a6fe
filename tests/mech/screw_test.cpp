#include "mech/screw_drawer.h"

#include "tests/mech/fastener_session.h"

namespace {

// The fields after the name: head diameter and height, diameter, length, shank, minor and shoulder diameter, key.
constexpr const char* kM8 = "13,5,8,30,10,6.47,8,6";

class SocketScrewTest : public FastenerSession {
 protected:
  void drawScrew(const std::string& fields, int head, int key, const std::string& edits = "",
                 const std::string& answers = kSideOnly) {
    useLibrary(std::string(kSetup) + "[CAPSCREWS]\nBolt1=TEST," + fields + ',' + std::to_string(head) + ',' +
               std::to_string(key) + '\n');
    draw("MechDrawScrews", "Socket Screws", edits, answers);
  }
};

TEST_F(SocketScrewTest, ACylindricalHeadStandsOnItsShaft) {
  drawScrew(kM8, 0, 0);
  EXPECT_TRUE(hasLine({-6.5, 0}, {6.5, 0}));
  EXPECT_TRUE(hasLine({6.5, 0}, {6.5, 4.5})) << "nine tenths of the head are straight";
  EXPECT_TRUE(hasLine({6.5, 4.5}, {6.5 - 2.2517, 5}));
  EXPECT_TRUE(hasLine({4, -10}, {4, -29.235})) << "the thread begins where the shank ends";
  EXPECT_TRUE(hasLine({4, -29.235}, {3.235, -30}));
  EXPECT_TRUE(hasLine({3.235, -10}, {3.235, -30}, kThin));
  EXPECT_TRUE(hasLine({4, -29.235}, {1.2, -29.235}));
  EXPECT_NEAR(axis().a.y, -31.6, 1e-9);
  EXPECT_NEAR(axis().b.y, 1.6 + 5, 1e-9);
  EXPECT_EQ(groups(), Texts{"SCREWS SS1 20"});
}

TEST_F(SocketScrewTest, ACountersunkHeadLiesInTheMaterial) {
  drawScrew("16,4,8,30,10,6.47,8,5", 1, 0);
  expectLines({{{-8, 0}, {8, 0}}, {{4, -4}, {8, 0}}});
  EXPECT_TRUE(hasLine({4, -4}, {4, -14})) << "the shoulder";
  EXPECT_TRUE(hasLine({3.235, -34}, {-3.235, -34}));
  EXPECT_NEAR(axis().a.y, -35.6, 1e-9);
  EXPECT_NEAR(axis().b.y, 1.6, 1e-9);
}

TEST_F(SocketScrewTest, RoundedHeadsRiseToTheirHeight) {
  drawScrew(kM8, 2, 0);
  EXPECT_TRUE(hasArcThrough({0, 5}));
  EXPECT_TRUE(hasArcThrough({6.5, 2.5}));
  drawScrew(kM8, 3, 0);
  EXPECT_TRUE(hasArcThrough({0, 2.5}));
  EXPECT_TRUE(hasArcThrough({6.5, 0}));
  EXPECT_TRUE(hasLine({4, -2.5}, {6.5, 0})) << "half of it is sunk";
}

TEST_F(SocketScrewTest, ASetScrewIsThreadedOverAllItsLength) {
  drawScrew("6,1.5,6,10,4,4.773,6,3", 4, 0);
  expectLines({{{3, -8.5}, {1.5, -10}}, {{3, -0.6135}, {3, -8.5}}, {{2.3865, 0}, {3, -0.6135}}});
  EXPECT_TRUE(hasLine({2.3865, 0}, {2.3865, -9.1135}, kThin));
  EXPECT_NEAR(axis().a.y, -12.7, 1e-9);
  EXPECT_NEAR(axis().b.y, 1.2, 1e-9) << "a fifth of the diameter above the screw";
}

// The mouth of the slot for each head: where its edges meet the outline.
TEST_F(SocketScrewTest, ASlotOpensTheHeadFromItsTop) {
  constexpr const char* kSlotted = "13,5,8,30,10,6.47,8,2";
  const double dome = 9.7 - std::sqrt(9.7 * 9.7 - 1.0);  // the crown's radius is 9.7: (6.5^2 + 2.5^2) / (2 * 2.5)
  const struct {
    int head;
    double mouth;
  } cases[] = {{0, 5.0}, {1, 0.0}, {2, 5.0 - dome}, {3, 2.5 - dome}, {4, 0.0}};
  for (const auto& [head, mouth] : cases) {
    drawScrew(kSlotted, head, 1);
    for (const double side : {-1.0, 1.0}) { EXPECT_TRUE(hasLine({side, mouth}, {side, mouth - 2})) << head; }
    EXPECT_TRUE(hasLine({-1, mouth - 2}, {1, mouth - 2})) << head;
    for (const brevan::Line& line : shapes<brevan::Line>()) {
      const bool acrossMouth = same({0, line.a.y}, {0, mouth}) && line.a.y == line.b.y && line.a.x * line.b.x < 0;
      EXPECT_FALSE(acrossMouth) << "nothing closes the slot of head " << head;
    }
  }
}

TEST_F(SocketScrewTest, KeysShowInThePlan) {
  const std::string plan = "point 20 10\npoint 20 10\nspace\n";
  drawScrew(kM8, 0, 0, kPlanOnly, plan);
  EXPECT_TRUE(hasCircle({20, 10}, 6.5));
  EXPECT_TRUE(hasLine({20 + 6 / std::sqrt(3), 10}, {20 + 3 / std::sqrt(3), 13})) << "flats above and below";
  EXPECT_EQ(groups(), Texts{"SCREWS SP1 9"});
  drawScrew("13,5,8,30,10,6.47,8,2", 0, 1, kPlanOnly, plan);
  EXPECT_TRUE(hasLine({20 - std::sqrt(41.25), 11}, {20 + std::sqrt(41.25), 11})) << "from side to side of the head";
  drawScrew(kM8, 0, 2, kPlanOnly, plan);
  EXPECT_EQ(shapes<brevan::Arc>().size(), 5U);
  for (const brevan::Arc& arc : shapes<brevan::Arc>()) {
    if (same(arc.start, arc.end)) { continue; }
    EXPECT_NEAR(brevan::arcRadius(arc), 1.0, 1e-9);
    EXPECT_NEAR(std::fabs(brevan::arcSweep(arc)), std::acos(0.0), 1e-9) << "the arms join in quarter circles";
  }
}

TEST_F(SocketScrewTest, ASetScrewShowsItsThreadInThePlan) {
  drawScrew("6,1.5,6,10,0,4.773,6,3", 4, 0, kPlanOnly, "point 0 0\npoint 0 0\nspace\n");
  EXPECT_TRUE(hasCircle({0, 0}, 3));
  const brevan::Arc thread = shapes<brevan::Arc>().back();
  EXPECT_NEAR(brevan::arcRadius(thread), 2.3865, 1e-9);
  EXPECT_FALSE(hasArcThrough({2.3865 * std::sqrt(0.5), 2.3865 * std::sqrt(0.5)})) << "open at the upper right";
  EXPECT_TRUE(hasArcThrough({-2.3865, 0}));
}

TEST_F(SocketScrewTest, TurnsRepeatsAndNamesAsEveryFastener) {
  drawScrew(kM8, 0, 0, "check \"Draw Top View (plan)\"\nset \"Number =\" 3\nset \"Repeat value\" 20\n",
            "point 0 0\nmenu \"Rotate 90\xC2\xB0\"\npoint 0 50\npoint 60 0\npoint 70 0\npoint 60 90\nspace\n");
  EXPECT_EQ(groups(), (Texts{"SCREWS SS1 60", "SCREWS SP1 27"}));
  const Texts prompts = log_.of("prompt");
  ASSERT_EQ(prompts.size(), 6U);
  EXPECT_EQ(prompts[0], "Indicate the position of the Screw side view");
  EXPECT_EQ(prompts[2], "Indicate start position of cap screw linear repeat for plan view");
  EXPECT_EQ(prompts[3], "Enter a point on the cap screw plan view center line for rotation");
}

}  // namespace

#include "arch/spec_store.h"

#include <gtest/gtest.h>

#include "arch/plan_geometry.h"
#include "host/window/silent_user.h"
#include "tests/arch/arch_session.h"

namespace {

using ardenix::arch::ArchSpecStore;

class SpecStore : public ArchSession {
 protected:
  CCadWindow& view() { return host_.window(); }

  dialog::Dialog box_{"box"};
  dialog::DropDownHandle list_ = addDropDown(box_, {.caption = "List"});

 private:
  brevan::SilentUser user_;
  brevan::Host host_{brevan::HostParts{user_, files(), settings(), nullptr, ""}};
};

TEST_F(SpecStore, OffersEachLayerOnce) {
  const std::string path = write("layers.ini",
                                 "[WALL_TYPES]\nWall1=A,OUTER\nWall2=B,INNER\nWall3=C,OUTER\n"
                                 "[ROOFLN]\nLayer=EAVES\n");
  view().gsAddLayer("INNER");
  const ArchSpecStore store(path, view());
  EXPECT_EQ(store.layersAndWallLayers(), (Texts{"0", "INNER", "OUTER"}));
  EXPECT_EQ(store.layersAndSetting("ROOFLN", "Layer"), (Texts{"0", "INNER", "EAVES"}));
  EXPECT_EQ(store.layersAnd("INNER"), (Texts{"0", "INNER"}));
}

TEST(PlanGeometry, TurnsAndSnapsDirections) {
  using namespace ardenix;
  using namespace ardenix::arch;
  for (const auto& [degrees, quarter] : std::initializer_list<std::pair<double, int>>{
           {0, 0}, {84.9, 0}, {85, 90}, {174, 90}, {175, 180}, {264.59, 180}, {265, 270}, {354, 270}, {355, 360}}) {
    EXPECT_EQ(snapQuadrant(degrees), quarter) << degrees;
  }
  for (int degrees = -1000; degrees <= 1000; ++degrees) {
    const int normal = normaliseDegrees(degrees);
    EXPECT_TRUE(normal >= 0 && normal < 360 && (normal - degrees) % 360 == 0) << degrees;
  }
  EXPECT_NEAR(addDegrees(radians(350), 20), radians(10), 1e-12);
  EXPECT_NEAR(addDegrees(radians(270), 90), 0.0, 1e-12);  // a full turn is none
  EXPECT_NEAR(addDegrees(radians(10), 1000), radians(290), 1e-12);
}

TEST(PlanGeometry, FindsTheFootOfAPerpendicular) {
  using namespace ardenix;
  using namespace ardenix::arch;
  const Point foot = footOfPerpendicular({3, 10}, {1, 1}, {9, 5});
  EXPECT_NEAR((foot.x - 1) * 4, (foot.y - 1) * 8, 1e-12);         // on the line
  EXPECT_NEAR((3 - foot.x) * 8 + (10 - foot.y) * 4, 0.0, 1e-12);  // square to it
  EXPECT_TRUE(nearlyEqual(footOfPerpendicular({5, 5}, {2, 3}, {2, 3}), Point{2, 3}));
  EXPECT_TRUE(samePoint(1e9, 0, 1e9 + 1e-4, 1e-13));
  EXPECT_FALSE(samePoint(1, 0, 1 + 1e-11, 0));
}

}  // namespace

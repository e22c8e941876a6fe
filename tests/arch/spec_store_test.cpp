#include "arch/spec_store.h"

#include <gtest/gtest.h>

#include <random>

#include "arch/plan_geometry.h"
#include "frame/records.h"
#include "host/window/silent_user.h"
#include "tests/arch/arch_session.h"

namespace {

using ardenix::ArchSpecStore;

class SpecStore : public ArchSession {
 protected:
  CCadWindow& view() { return host_.window(); }

  dialog::Dialog box_{"box"};
  dialog::DropDownHandle list_ = addDropDown(box_, {.caption = "List"});

 private:
  brevan::SilentUser user_;
  brevan::Host host_{brevan::HostParts{user_, files(), settings(), nullptr, ""}};
};

// Adding and removing at random does to the file what it does to a plain list of records.
TEST_F(SpecStore, NumbersEveryListWithoutGapsWhateverIsAddedAndRemoved) {
  std::mt19937 random(5);
  for (const std::string_view section :
       {ardenix::kWallTypes, ardenix::kTreads, ardenix::kRailings, ardenix::kBuildingStandards}) {
    const std::string path = write("lists.ini", "; kept\n[OTHER]\nBldgStd9=x\n");
    ArchSpecStore store(path, view());
    store.loadNames(list_, section);
    Texts records;
    for (int round = 0; round < 120; ++round) {
      if (records.empty() || random() % 5 < 3) {
        records.push_back("R" + std::to_string(round) + ",1,2");
        store.addRecord(records.back(), list_, section);
        EXPECT_EQ(list_.selected(), list_.count() - 1);
      } else {
        const int selection = static_cast<int>(random() % records.size());
        records.erase(records.begin() + selection);
        store.removeRecord(selection, list_, section);
        EXPECT_EQ(list_.selected(), records.empty() ? -1 : std::max(selection - 1, 0));
      }
      ASSERT_EQ(store.count(section), static_cast<int>(records.size()));
      ASSERT_EQ(list_.count(), store.count(section));
    }
    const ArchSpecStore again(path, view());
    for (size_t n = 0; n < records.size(); ++n) {
      EXPECT_EQ(again.readRecord(section, static_cast<int>(n) + 1), records[n]);
      EXPECT_EQ(list_.items()[n], ardenix::recordName(records[n]));
    }
    const std::string file = read(path);
    EXPECT_EQ(std::ranges::count(file, '='), static_cast<long>(records.size()) + 1) << "keys of removed records stay";
    EXPECT_TRUE(file.starts_with("; kept\n[OTHER]\nBldgStd9=x\n"));
  }
}

TEST_F(SpecStore, AnEmptyValueEndsAListAndASelectionOutsideRemovesNothing) {
  const std::string path = write("gap.ini", "[WALL_TYPES]\nWall1=A\nWall2=\nWall3=C\n");
  const std::string before = read(path);
  ArchSpecStore store(path, view());
  EXPECT_EQ(store.count(ardenix::kWallTypes), 1);
  store.loadNames(list_, ardenix::kWallTypes);
  EXPECT_EQ(list_.items(), Texts{"A"});
  store.removeRecord(-1, list_, ardenix::kWallTypes);
  store.removeRecord(1, list_, ardenix::kWallTypes);
  EXPECT_EQ(read(path), before);
  for (const char* name : {"D", "E"}) { store.addRecord(name, list_, ardenix::kWallTypes); }
  EXPECT_EQ(list_.items(), (Texts{"A", "D", "E"}));
  store.loadNames(list_, ardenix::kWallTypes);
  EXPECT_EQ(list_.items(), (Texts{"A", "D", "E", "C"})) << "what stood behind the gap is not overwritten";
}

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
  const Point foot = footOfPerpendicular({3, 10}, {1, 1}, {9, 5});
  EXPECT_NEAR((foot.x - 1) * 4, (foot.y - 1) * 8, 1e-12);         // on the line
  EXPECT_NEAR((3 - foot.x) * 8 + (10 - foot.y) * 4, 0.0, 1e-12);  // square to it
  EXPECT_TRUE(nearlyEqual(footOfPerpendicular({5, 5}, {2, 3}, {2, 3}), Point{2, 3}));
  EXPECT_TRUE(samePoint(1e9, 0, 1e9 + 1e-4, 1e-13));
  EXPECT_FALSE(samePoint(1, 0, 1 + 1e-11, 0));
}

}  // namespace

#include "mech/definition_store.h"

#include <gtest/gtest.h>

#include "mech/bolt_drawer.h"
#include "mech/definition_kinds.h"
#include "mech/hole_drawer.h"
#include "mech/line_style.h"
#include "mech/nut_drawer.h"
#include "mech/rivet_drawer.h"
#include "mech/screw_drawer.h"
#include "tests/core_fixture.h"

namespace ardenix::mech {
namespace {

using Names = std::vector<std::string>;

class DefinitionStoreTest : public CoreFixture {
 protected:
  std::string library(int count, std::string_view section = "BOLTS", std::string_view prefix = "Bolt") const {
    std::string text = "; my bolts\r\n[Setup]\r\nWeldSymbols=w.drg\r\n[" + std::string(section) + "]\r\n";
    for (int n = 1; n <= count; ++n) {
      text += std::string(prefix) + std::to_string(n) + "=D" + std::to_string(n) + ",1.000\r\n";
    }
    return write("library.ini", text);
  }
};

TEST_F(DefinitionStoreTest, EveryKindCountsItsOwnKeys) {
  for (const DefinitionKind& kind : definitionKinds()) {
    const DefinitionStore store(library(3, kind.section, kind.keyPrefix));
    for (const DefinitionKind& other : definitionKinds()) {
      EXPECT_EQ(store.count(other.section), other.section == kind.section ? 3 : 0);
    }
    EXPECT_EQ(store.names(kind.section), (Names{"D1", "D2", "D3"}));
  }
}

TEST_F(DefinitionStoreTest, ADeletedDefinitionLeavesItsLastKeyEmpty) {
  const std::string path = library(3, "NUTS", "Nut");
  DefinitionStore store(path);
  store.remove("NUTS", 0);
  EXPECT_TRUE(read(path).ends_with("Nut1=D2,1.000\r\nNut2=D3,1.000\r\nNut3=\r\n"));
  store.setCurrent("NUTS", 1);
  store.flush();
  EXPECT_EQ(DefinitionStore(path).current("NUTS"), 1);
}

TEST_F(DefinitionStoreTest, DrawingsTakeLineStylesInTenthsOfAMillimetre) {
  const DefinitionStore store(write("styles.ini", "[Setup]\nSolidLW=0.25\nSolidPen=7\nCenterLT=4\n"));
  const LineStyle solid = lineStyle(store, LineKind::kSolid);
  EXPECT_TRUE(solid.pen == 7 && solid.linetype == 1 && solid.width == 2.5);
  EXPECT_EQ(lineStyle(store, LineKind::kCentre).linetype, 4);
  const LineStyle hidden = lineStyle(store, LineKind::kHidden);
  EXPECT_TRUE(hidden.linetype == 1 && hidden.width == 0.0) << "what the setup dialog would offer is not what is drawn";
}

TEST(RecordFormat, MissingFieldsHaveTheirOwnValues) {
  EXPECT_EQ(writeRecord("B", readRecord("name only", boltFields()), boltFields()),
            "B,0.000,0.000,0.000,0.000,0.000,0.000");
  const auto hole = [](const char* text) { return readRecord(text, holeFields()); };
  EXPECT_EQ(hole("H,8.5,10.0,20.0,1.5,1,1,0.0").threadLength, 18.5) << "threaded below its countersink";
  EXPECT_EQ(hole("H,8.5,10.0,20.0,1.5,1,1,0.0,15.0").threadLength, 15.0);
  EXPECT_EQ(hole("H,8.5,10.0,20.0,1.5,1.7,1,0.0,15.0").type, HoleType::kTapped) << "a number is cut to an index";
}

// Every number of the shipped library stays at its place when its record is read and written again.
TEST(RecordFormat, ShippedRecordsAreWrittenAsTheyStand) {
  const DefinitionStore store(SOURCE_ROOT "/data/ISO Mechspecs.ini");
  const auto same = [&store](std::string_view section, auto fields) {
    for (int n = 1; n <= store.count(section); ++n) {
      const std::string text = *store.record(section, n);
      EXPECT_EQ(writeRecord(recordName(text), readRecord(text, fields), fields), text);
    }
  };
  same("BOLTS", boltFields());
  same("CAPSCREWS", screwFields());
  same("NUTS", nutFields());
  same("HOLES", holeFields());
  same("RIVETS", rivetFields());
}

}  // namespace
}  // namespace ardenix::mech

#include "mech/definition_store.h"

#include <gtest/gtest.h>

#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "mech/bolt_drawer.h"
#include "mech/definition_kinds.h"
#include "mech/hole_drawer.h"
#include "mech/line_style.h"
#include "mech/part_drawer.h"
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

// What the shipped library holds stays at its place when its record is read and written again.
TEST_F(DefinitionStoreTest, ShippedRecordsAreWrittenAsTheyStand) {
  const DefinitionStore store(SOURCE_ROOT "/data/ISO Mechspecs.ini");
  brevan::SilentUser user;
  brevan::Host host({user, files(), settings(), nullptr, ""});
  for (const DefinitionKind& kind : definitionKinds()) {
    const auto drawer = kind.drawer(host.window(), store);
    EXPECT_GT(store.count(kind.section), 0) << kind.section;
    for (int n = 1; n <= store.count(kind.section); ++n) {
      const std::string text = *store.record(kind.section, n);
      drawer->takeRecord(text);
      EXPECT_EQ(drawer->recordText(recordName(text)), text) << kind.section;
    }
  }
}

}  // namespace
}  // namespace ardenix::mech

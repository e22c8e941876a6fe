#include "mech/definition_store.h"

#include <gtest/gtest.h>

#include "mech/definition_kinds.h"
#include "mech/line_style.h"
#include "mech/record_format.h"
#include "tests/core_fixture.h"

namespace ardenix {
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
  EXPECT_EQ(definitionKind("NUTS").keyPrefix, "Nut");
  EXPECT_EQ(definitionKind("RIVETS").keyPrefix, "Bolt");
}

TEST_F(DefinitionStoreTest, AGapEndsTheList) {
  DefinitionStore store(write("gap.ini", "[BOLTS]\nBolt1=A\nBolt2=\nBolt3=C\nBolt4=D\n"));
  EXPECT_EQ(store.count("BOLTS"), 1);
  EXPECT_EQ(store.names("BOLTS"), Names{"A"});
  store.append("BOLTS", "B,2.000");
  EXPECT_EQ(store.record("BOLTS", 2), "B,2.000") << "a new record takes the first free number";
  EXPECT_EQ(DefinitionStore(store.file().FileName()).names("BOLTS"), (Names{"A", "B", "C", "D"}));
}

TEST_F(DefinitionStoreTest, RemovingMovesTheLaterOnesUpAndIsOnDisk) {
  for (int index = 0; index < 4; ++index) {
    const std::string path = library(4);
    DefinitionStore(path).remove("BOLTS", index);
    Names expected{"D1", "D2", "D3", "D4"};
    expected.erase(expected.begin() + index);
    const DefinitionStore again(path);
    EXPECT_EQ(again.names("BOLTS"), expected);
    EXPECT_EQ(again.count("BOLTS"), 3);
    EXPECT_NE(read(path).find("Bolt4=\r\n"), std::string::npos) << "the last key stays, empty";
    EXPECT_TRUE(read(path).starts_with("; my bolts\r\n[Setup]\r\nWeldSymbols=w.drg\r\n"));
  }
}

TEST_F(DefinitionStoreTest, RemovingAllOneByOneAndOutsideTheListIsSafe) {
  const std::string path = library(3);
  DefinitionStore store(path);
  for (const int index : {-1, 3, 1000}) { store.remove("BOLTS", index); }
  EXPECT_EQ(store.count("BOLTS"), 3);
  for (int left = 2; left >= 0; --left) {
    store.remove("BOLTS", 0);
    EXPECT_EQ(store.count("BOLTS"), left);
  }
  store.remove("BOLTS", 0);
  store.append("BOLTS", "New,1.000");
  EXPECT_EQ(DefinitionStore(path).names("BOLTS"), Names{"New"});
}

TEST_F(DefinitionStoreTest, RecordsReachTheDiskAtOnceSingleKeysOnFlush) {
  const std::string path = library(1);
  DefinitionStore store(path);
  store.put("BOLTS", 1, "Other,5.000");
  EXPECT_NE(read(path).find("Bolt1=Other,5.000\r\n"), std::string::npos);
  store.setCurrent("BOLTS", 1);
  EXPECT_EQ(DefinitionStore(path).current("BOLTS"), 0);
  store.flush();
  EXPECT_EQ(DefinitionStore(path).current("BOLTS"), 1);
}

TEST_F(DefinitionStoreTest, DrawingsTakeLineStylesInTenthsOfAMillimetre) {
  const DefinitionStore store(write("styles.ini", "[Setup]\nSolidLW=0.25\nSolidPen=7\nCenterLT=4\n"));
  const LineStyle solid = lineStyle(store, LineKind::kSolid);
  EXPECT_EQ(solid.pen, 7);
  EXPECT_EQ(solid.linetype, 1);
  EXPECT_DOUBLE_EQ(solid.width, 2.5);
  EXPECT_EQ(lineStyle(store, LineKind::kCentre).linetype, 4);
  const LineStyle hidden = lineStyle(store, LineKind::kHidden);
  EXPECT_EQ(hidden.linetype, 1) << "what the setup dialog would offer is not what is drawn";
  EXPECT_EQ(hidden.width, 0.0);
}

TEST(RecordFormat, WhatIsWrittenReadsBack) {
  for (const auto& fields : {boltFields(), screwFields(), nutFields(), holeFields(), rivetFields()}) {
    std::vector<double> values;
    for (const RecordField& field : fields) {
      const double n = static_cast<double>(values.size());
      values.push_back(field.format == "%d" ? n : n * 1.25 + 0.5);
    }
    const std::string record = writeRecord("M 10\xB0", values, fields);
    EXPECT_EQ(recordName(record), "M 10\xB0");
    EXPECT_EQ(readRecord(record, fields), values) << record;
    EXPECT_EQ(readRecord("name only", fields), std::vector<double>(fields.size(), 0.0));
  }
  EXPECT_EQ(writeRecord("M10", std::vector<double>{17, 6.4, 10, 40, 26, 8.16}, boltFields()),
            "M10,17.000,6.400,10.000,40.000,26.000,8.160");
  EXPECT_EQ(writeRecord("R", std::vector<double>{5, 3, 9, 2, 20, 3, 9, 4}, rivetFields()),
            "R,5.000,3.000,9.000,2,20.000,3.000,9.000,4");
}

TEST(RecordFormat, AHoleWithoutAThreadLengthIsThreadedBelowItsCountersink) {
  EXPECT_EQ(readHoleRecord("H,8.5,10.0,20.0,1.5,1,1,0.0").back(), 18.5);
  EXPECT_EQ(readHoleRecord("H,8.5,10.0,20.0,1.5,1,1,0.0,15.0").back(), 15.0);
  EXPECT_EQ(readHoleRecord("H,8.5,10.0,20.0,1.5,1.7,1,0.0,15.0")[4], 1.0) << "a number is cut to an index";
}

}  // namespace
}  // namespace ardenix

#include "frame/record_store.h"

#include <gtest/gtest.h>

#include "tests/core_fixture.h"

namespace ardenix {
namespace {

using Texts = std::vector<std::string>;

constexpr RecordList kPlain = {.section = "PLAIN", .keyPrefix = "Record"};
constexpr RecordList kKeeping = {.section = "KEEPING", .keyPrefix = "Record", .keepsKeyOfLastRecord = true};
constexpr RecordList kLate = {.section = "LATE", .keyPrefix = "Late", .countedOnOpening = false};
constexpr RecordList kLists[] = {kPlain, kKeeping, kLate};

class RecordStoreTest : public CoreFixture {
 protected:
  static RecordStore open(const std::string& path) { return {path, {std::begin(kLists), std::end(kLists)}}; }
  // One record, a gap, two more behind it.
  std::string gapped(std::string_view section) const {
    return write("gap.ini", "[" + std::string(section) + "]\nRecord1=A\nRecord2=\nRecord3=C\nRecord4=D\n");
  }
};

TEST_F(RecordStoreTest, RemovingLeavesTheLastKeyEmptyOrDeletesItAsTheFormatHasIt) {
  const std::string path = write("three.ini", "[PLAIN]\nRecord1=A\nRecord2=B\n[KEEPING]\nRecord1=A\nRecord2=B\n");
  RecordStore store = open(path);
  for (const RecordList& list : {kPlain, kKeeping}) { store.remove(list.section, 0); }
  EXPECT_EQ(read(path), "[PLAIN]\nRecord1=B\n[KEEPING]\nRecord1=B\nRecord2=\n");
}

TEST_F(RecordStoreTest, AnEmptyValueEndsAListAndWhatStandsBehindItIsNeverOverwritten) {
  for (const RecordList& list : {kPlain, kKeeping}) {
    const std::string path = gapped(list.section);
    const std::string before = read(path);
    RecordStore store = open(path);
    EXPECT_EQ(store.names(list.section), Texts{"A"});
    for (const int outside : {-1, 1, 1000}) { store.remove(list.section, outside); }
    EXPECT_EQ(read(path), before);
    store.append(list.section, "B,2.000");
    EXPECT_EQ(store.record(list.section, 2), "B,2.000") << "a new record takes the first free number";
    EXPECT_EQ(open(path).names(list.section), (Texts{"A", "B", "C", "D"}));
    store.append(list.section, "E");
    EXPECT_EQ(store.names(list.section), (Texts{"A", "B", "E", "C", "D"}));
    EXPECT_EQ(store.count(list.section), 3) << "the list that a dialog shows";
  }
}

TEST_F(RecordStoreTest, AListThatIsCountedLateIsCountedWhenItsNamesAreLoaded) {
  RecordStore store = open(write("late.ini", "[LATE]\nLate1=A\nLate2=B\n"));
  EXPECT_EQ(store.count("LATE"), 0);
  EXPECT_EQ(store.loadNames("LATE"), (Texts{"A", "B"}));
  EXPECT_EQ(store.count("LATE"), 2);
}

TEST_F(RecordStoreTest, RecordsReachTheDiskAtOnceSingleKeysOnFlush) {
  const std::string path = write("one.ini", "[PLAIN]\nRecord1=A\n");
  RecordStore store = open(path);
  store.file().WriteInt("PLAIN", "Current", 1);
  EXPECT_EQ(read(path), "[PLAIN]\nRecord1=A\n");
  store.flush();
  EXPECT_NE(read(path).find("Current=1"), std::string::npos);
  store.put("PLAIN", 1, "Other,5.000");
  EXPECT_NE(read(path).find("Record1=Other,5.000\n"), std::string::npos);
  store.eraseSection("PLAIN");
  EXPECT_EQ(open(path).count("PLAIN"), 0);
}

}  // namespace
}  // namespace ardenix

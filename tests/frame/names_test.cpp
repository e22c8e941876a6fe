#include "frame/names.h"

#include <gtest/gtest.h>

#include "frame/drafting/group_counter.h"
#include "frame/drafting/macro_texts.h"
#include "host/macros/lexer.h"

namespace ardenix {
namespace {

TEST(NameCleaning, KeepsWhatGroupNamesMayHoldAndReportsTheRest) {
  struct {
    std::string given;
    std::string cleaned;
    int result;
  } cases[] = {
      {" my wall 2 ", "MY_WALL_2", -1},
      {"WALL", "WALL", 0},
      {"  a-b$c_d|9\t", "A-B$C_D|9", 0},
      {"   ", "_", -1},
      {"", "_", -1},
      {"30\xB0 \"x\"", "30___X_", -1},
      {std::string(40, 'a'), std::string(31, 'A'), 0},
      {std::string(30, 'a') + " b", std::string(30, 'A'), 0},  // cut first, then trimmed
  };
  for (const auto& [given, cleaned, result] : cases) {
    std::string name = given;
    EXPECT_EQ(cleanName(name, true), result) << given;
    EXPECT_EQ(name, cleaned);
    EXPECT_EQ(cleanName(name, true), 0) << "a cleaned name is clean";
  }
  std::string mixed = "Bolt m8";
  EXPECT_EQ(cleanName(mixed, false), -1);
  EXPECT_EQ(mixed, "Bolt_m8");
}

std::string nextName(std::string_view prefix, std::string_view parent = "TREADS") {
  GroupCounter counter(parent, prefix);
  const std::pair<std::string_view, std::string_view> groups[] = {
      {"TREADS", "NTH1"},         {"TREADS", "NTH3"},
      {"TREADS", "EST2"},         {"TREADS", "NTHX2"},
      {"RAILS", "NTH9"},          {"TREADS", "NTH"},
      {"TREADS", "W21"},          {"TREADS", "nth7"},
      {"TREADS", "SOUTH_SIDE_9"}, {"TREADS", "BIG99999999999999999999999999"}};
  for (const auto& [groupParent, name] : groups) { counter.see(groupParent, name); }
  return counter.nextName();
}

TEST(GroupNumbering, CountsOnWithinParentAndPrefix) {
  // W21 is W's twenty-first, not W2's first; a number that no name of ours can hold does not count.
  const std::pair<const char*, const char*> rows[] = {{"NTH", "NTH4"},
                                                      {"nth", "NTH4"},
                                                      {"EST", "EST3"},
                                                      {"NTHX", "NTHX3"},
                                                      {"NEW", "NEW1"},
                                                      {"W2", "W21"},
                                                      {"SOUTH_SIDE_", "SOUTH_SIDE_10"},
                                                      {"BIG", "BIG1"},
                                                      {"A_NAME_OF_18_CHAR_", "A_NAME_OF_18_CH"}};
  for (const auto& [prefix, name] : rows) { EXPECT_EQ(nextName(prefix), name); }
  EXPECT_EQ(nextName("NTH", "rails"), "NTH10");
}

TEST(MacroTexts, PrintPointsWithEightDecimals) {
  using namespace macroText;
  EXPECT_EQ(rotateOnto({10, 0}, {1, -2.5}, {0, 1.0 / 3}),
            "#ROTATE [10.00000000,0.00000000] \"N\" [1.00000000,-2.50000000] [0.00000000,0.33333333] [#]");
  EXPECT_EQ(rotate({0, 0}, 90), "#ROTATE [0.00000000,0.00000000] \"Y\" 90.00000000 [#]");
  EXPECT_EQ(move({1, 2}, {3, 4}), "#MOVE [1.00000000,2.00000000] [3.00000000,4.00000000]");
  EXPECT_EQ(repeatLinear(3, {0, 0}, {5, 0}), "#REPEAT 3 \"Y\" [0.00000000,0.00000000] [5.00000000,0.00000000] [#]");
  EXPECT_EQ(repeatPolar(5, {0, 0}, 60), "#REPEAT 5 \"N\" [0.00000000,0.00000000] 60.00000000");
  EXPECT_EQ(lockAngle(45), "#LOCKANG \"K\" 45.00000000 [#]");
  EXPECT_EQ(lockOntoLine({1, 2}), "#LOCKANG L [1.00000000,2.00000000]");
}

// The host reads a name back as it was sent, whatever bytes it holds; no second argument appears.
TEST(MacroTexts, NoNameEndsItsQuotes) {
  EXPECT_EQ(macroText::selectName("BOLTS", "M10_S1"), "#SELECTNAME \"BOLTS M10_S1\"");
  std::string everyByte;
  for (int c = 1; c < 256; ++c) { everyByte += static_cast<char>(c); }
  const std::string hostile[] = {"A\" #DELSELECT \"", "\"", "\"\"", "[#]", "a\\", "%s%n", everyByte};
  for (const std::string& name : hostile) {
    for (const std::string& macro :
         {macroText::parent(name), macroText::beginGroup(name), macroText::linkSelection(name)}) {
      const brevan::MacroLine line = brevan::readMacroLine(macro);
      ASSERT_EQ(line.arguments.size(), 1U) << macro;
      EXPECT_EQ(line.arguments[0].text, name);
    }
  }
}

}  // namespace
}  // namespace ardenix

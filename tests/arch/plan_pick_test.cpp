#include "arch/elevation_view.h"
#include "arch/plan_symbol.h"

#include <gtest/gtest.h>

namespace {

using namespace ardenix::arch;

TEST(ElevationViews, AQuarterBeginsFiveDegreesEarly) {
  const auto nameAt = [](double degrees) { return kElevationViews[viewTowards(ardenix::radians(degrees))].name; };
  struct Row {
    std::string_view name;
    double first, last;
  };
  for (const auto& [name, first, last] :
       {Row{"North", 0, 84.999}, Row{"East", 85, 174.999}, Row{"South", 175, 264.999}, Row{"West", 265, 354.999}}) {
    EXPECT_EQ(nameAt(first), name) << first;
    EXPECT_EQ(nameAt(last), name) << last;
  }
  EXPECT_EQ(nameAt(355), "North");
  EXPECT_EQ(nameAt(359.99999999), "North");
}

TEST(PlanSymbols, AreNamedByTheFirstTextInApostrophes) {
  const auto window = symbolIn("SYMBOL 'W1200 W1200P'");
  ASSERT_TRUE(window);
  EXPECT_EQ(window->file, "W1200");
  EXPECT_EQ(window->name, "W1200P");
  for (const char* nameless : {"LINE", "SYMBOL 'W1200'", "SYMBOL 'W1200 W1200P", "SYMBOL ' W1200P'", "SYMBOL 'W1200 '",
                               "SYMBOL 'my windows W1200P'", "'"}) {
    EXPECT_FALSE(symbolIn(nameless)) << nameless;
  }
}

}  // namespace

#include "host/core/fields.h"

#include <gtest/gtest.h>

#include <string>

#include "frame/host/core_services.h"

TEST(Fields, countedFromOneWithDefaultsForMissingOnes) {
  const struct {
    const char* record;
    int index;
    char separator;
    const char* text;
    int size = 32;
  } rows[] = {{"M10,17.000,", 1, ',', "M10"},  {"M10,17.000,", 2, ',', "17.000"},
              {"M10,17.000,", 3, ',', ""},     {"M10,17.000,", 4, ',', "default"},
              {"M10", 0, ',', "default"},      {"", 1, ',', ""},
              {"M10,17.000", 2, ',', "17", 3}, {"  10   20 ", 1, ' ', "10"},
              {"  10   20 ", 2, ' ', "20"},    {"  10   20 ", 3, ' ', "default"},
              {"", 1, ' ', "default"}};
  for (const auto& row : rows) {
    std::string buffer(40, '#');
    const auto length = coreGetField(row.record, "default", buffer.data(), row.size, row.index, row.separator);
    EXPECT_EQ(buffer.substr(0, static_cast<size_t>(length) + 1), row.text + std::string(1, '\0')) << row.record;
    EXPECT_EQ(buffer[static_cast<size_t>(row.size)], '#');
  }
}

TEST(Fields, numbersAreReadLenientlyAndFinite) {
  const char* whole = "10.7,-2.9,x,,1e99, 7mm";
  const int expected[] = {-1, 10, -2, -1, -1, -1, 7, -1};
  for (int index = 0; index < 8; ++index) { EXPECT_EQ(coreGetFieldInt(whole, -1, index, ','), expected[index]); }
  EXPECT_EQ(coreGetFieldDouble("1.5mm,nan,inf,1e400", 8.0, 1, ','), 1.5);
  for (const int index : {2, 3, 4, 5}) { EXPECT_EQ(coreGetFieldDouble("1.5mm,nan,inf,1e400", 8.0, index, ','), 8.0); }
  for (const char* text : {"1", " -2.5 ", "+3", "1e3", "\t.5"}) { EXPECT_EQ(coreIsNumeric(text), 1) << text; }
  for (const char* text : {"", " ", "1,5", "1.5mm", "+-1", "nan", "1e400", "--1", "0x10"}) {
    EXPECT_EQ(coreIsNumeric(text), 0) << text;
  }
}

TEST(Fields, cutCopiesStayInTheBuffer) {
  char buffer[4] = {'#', '#', '#', '#'};
  coreStrncpy(buffer, "abcdef", 3);
  coreStrncpy(buffer, "xyz", 0);
  EXPECT_EQ(std::string(buffer, 4), std::string("ab\0#", 4));
  std::string text = " \t a b \t";
  coreTrimStr(text);
  EXPECT_EQ(text, "a b");
}

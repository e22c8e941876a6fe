#include "host/core/fields.h"

#include <gtest/gtest.h>

#include <string>

#include "frame/host/core_services.h"

namespace {

std::string field(std::string_view record, int index, char separator, int size = 32) {
  std::string buffer(40, '#');
  const int length = coreGetField(record, "default", buffer.data(), size, index, separator);
  EXPECT_EQ(buffer[static_cast<size_t>(length)], '\0');
  EXPECT_EQ(buffer[static_cast<size_t>(size)], '#');
  return buffer.substr(0, static_cast<size_t>(length));
}

}  // namespace

TEST(Fields, countedFromOneWithDefaultsForMissingOnes) {
  EXPECT_EQ(field("M10,17.000,", 1, ','), "M10");
  EXPECT_EQ(field("M10,17.000,", 2, ','), "17.000");
  EXPECT_EQ(field("M10,17.000,", 3, ','), "");
  EXPECT_EQ(field("M10,17.000,", 4, ','), "default");
  EXPECT_EQ(field("M10", 0, ','), "default");
  EXPECT_EQ(field("", 1, ','), "");
  EXPECT_EQ(field("M10,17.000", 2, ',', 3), "17");
}

TEST(Fields, runsOfBlanksSeparateOnce) {
  EXPECT_EQ(field("  10   20 ", 1, ' '), "10");
  EXPECT_EQ(field("  10   20 ", 2, ' '), "20");
  EXPECT_EQ(field("  10   20 ", 3, ' '), "default");
  EXPECT_EQ(field("", 1, ' '), "default");
}

TEST(Fields, numbersAreReadLenientlyAndFinite) {
  EXPECT_EQ(coreGetFieldInt("10.0,-2.9,x,,1e99, 7mm", -1, 1, ','), 10);
  EXPECT_EQ(coreGetFieldInt("10.0,-2.9,x,,1e99, 7mm", -1, 2, ','), -2);
  for (const int index : {3, 4, 5, 9}) { EXPECT_EQ(coreGetFieldInt("10.0,-2.9,x,,1e99, 7mm", -1, index, ','), -1); }
  EXPECT_EQ(coreGetFieldInt("10.0,-2.9,x,,1e99, 7mm", -1, 6, ','), 7);
  EXPECT_EQ(coreGetFieldDouble("1.5mm,nan,inf,1e400", 8.0, 1, ','), 1.5);
  for (const int index : {2, 3, 4, 5}) { EXPECT_EQ(coreGetFieldDouble("1.5mm,nan,inf,1e400", 8.0, index, ','), 8.0); }
}

TEST(Fields, numericTexts) {
  for (const char* text : {"1", " -2.5 ", "+3", "1e3", "\t.5"}) { EXPECT_EQ(coreIsNumeric(text), 1) << text; }
  for (const char* text : {"", " ", "1,5", "1.5mm", "+-1", "nan", "1e400", "--1", "0x10"}) {
    EXPECT_EQ(coreIsNumeric(text), 0) << text;
  }
}

TEST(Fields, cutCopiesStayInTheBuffer) {
  char buffer[4] = {'#', '#', '#', '#'};
  coreStrncpy(buffer, "abcdef", 3);
  EXPECT_EQ(std::string(buffer, 4), std::string("ab\0#", 4));
  coreStrncpy(buffer, "xyz", 0);
  EXPECT_EQ(buffer[0], 'a');
  std::string text = " \t a b \t";
  coreTrimStr(text);
  EXPECT_EQ(text, "a b");
}

#include "mech/table_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "mech/labelled_holes.h"

namespace {

using namespace ardenix::mech;

std::string randomText(std::mt19937& random, std::string_view characters) {
  std::string text(random() % 6, ' ');
  for (char& c : text) { c = characters[random() % characters.size()]; }
  return text;
}

TEST(TableText, WhatIsWrittenReadsBack) {
  std::mt19937 random(7);
  for (int round = 0; round < 5000; ++round) {
    TableRow row(1 + random() % 5);
    for (std::string& field : row) { field = randomText(random, "a\",; \t"); }
    const std::string line = joinedFields(row);
    EXPECT_EQ(splitFields(line, separatorOf(line)), row) << line;
  }
}

TEST(LabelledHoles, LabelsAreInTheOrderOfTheirNumbers) {
  std::mt19937 random(8);
  std::vector<std::string> labels = {"A10", "B1", "A2", "A1", "A", "A2b", "A02"};
  for (int more = 0; more < 100; ++more) { labels.push_back(randomText(random, "AB019")); }
  std::ranges::sort(labels, comesBefore);
  const auto place = [&labels](std::string_view label) { return std::ranges::find(labels, label); };
  EXPECT_TRUE(place("A") < place("A1") && place("A1") < place("A2") && place("A2b") < place("A10"));
  EXPECT_TRUE(place("A10") < place("B1"));
  for (size_t first = 0; first < labels.size(); ++first) {
    for (size_t later = first + 1; later < labels.size(); ++later) {
      EXPECT_FALSE(comesBefore(labels[later], labels[first])) << labels[first] << ' ' << labels[later];
    }
  }
}

}  // namespace

#include "survey/label_sequences.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace ardenix::survey;

namespace {

using Sequence = std::string (*)(std::string_view);

void expectRows(Sequence sequence, std::initializer_list<std::pair<const char*, const char*>> rows) {
  for (const auto& [label, next] : rows) { EXPECT_EQ(sequence(label), next) << label; }
}

TEST(LabelSequences, StepTheirOwnPart) {
  expectRows(nextDigitsThenLetters, {{"12A", "12B"},
                                     {"12Z", "13A"},
                                     {"12z", "13a"},
                                     {"H", "J"},
                                     {"N", "P"},
                                     {"Z", "1A"},
                                     {"9Z", "10A"},
                                     {"h", "j"},
                                     {"0A", "0B"},
                                     {"007A", "7B"},
                                     {"99999999999999999999Z", "100000000000000000000A"},
                                     {"12", "13"},
                                     {"RM9", "RM10"},
                                     {"T0", "T1"},
                                     {"", "A"}});
  expectRows(nextLettersThenDigits, {{"A", "B"},
                                     {"H", "J"},
                                     {"Z", "A1"},
                                     {"z", "a1"},
                                     {"B1", "C1"},
                                     {"Z1", "A2"},
                                     {"Z9", "A10"},
                                     {"TZ", "TA1"},
                                     {"Z1A", "A1B"},
                                     {"n7", "p7"},
                                     {"12", "13"},
                                     {"", "1"}});
  expectRows(nextPrefixAndNumber,
             {{"ERF12", "ERF13"}, {"A", "A1"}, {"7", "8"}, {" ERF 99 ", "ERF100"}, {"ERF 12/3", "ERF13"}, {"", "1"}});
}

// 24 letters, none of which reads as a digit, and then the number.
TEST(LabelSequences, NeverOfferALetterThatReadsAsADigit) {
  std::set<std::string> seen;
  std::string label = "A";
  for (int n = 0; n < 24 * 12; ++n) {
    EXPECT_TRUE(seen.insert(label).second) << label << " is offered twice";
    EXPECT_EQ(label.find_first_of("OI"), std::string::npos) << label;
    label = nextLettersThenDigits(label);
  }
  EXPECT_EQ(label, "A12");
}

}  // namespace

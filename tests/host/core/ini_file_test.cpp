#include "host/core/ini_file.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>

#include "frame/host/core_services.h"
#include "tests/host/core/line_ends.h"

using namespace brevan;

namespace {

// Windows line ends with a stray one, comments, odd spacing, doubles, lines that are no entries, no last
// line end.
const std::string kNasty =
    "\xA9 preface, key=before any section\r\n"
    "; the house's bolts\r\n"
    "[Setup]   ; with a remark\r\n"
    "  SolidLT =  1  \r\n"
    "HiddenLT\t=21\r\n"
    "\r\n"
    "[ Bolts ]\r\n"
    "Current=0\n"
    "Bolt1=M8, 13.000 ,5.300\r\n"
    ";Bolt1=commented out\r\n"
    "bolt2 = \"M 10\" \r\n"
    "no entry at all\r\n"
    "=no key\r\n"
    "BOLT1=a double that nobody sees\r\n"
    "Empty=\r\n"
    "\r\n"
    "\r\n"
    "; nuts follow\r\n"
    "[NUTS]\r\n"
    "[bolts]\r\n"
    "Bolt9=hidden by the first section of the name\r\n"
    "[Last]\r\n"
    "end = x";

std::string edited(const std::function<void(IniFile&)>& edit) {
  IniFile file = IniFile::parse(kNasty);
  edit(file);
  std::string bytes = file.bytes();
  EXPECT_EQ(IniFile::parse(bytes).entries(), file.entries());
  return bytes;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

}  // namespace

TEST(IniFile, looksUpWithoutCaseAndTheFirstCounts) {
  const IniFile file = IniFile::parse(kNasty);
  const std::map<std::pair<std::string, std::string>, std::string> expected = {
      {{"setup", "SOLIDLT"}, "1"},       {{"BOLTS", "bolt1"}, "M8, 13.000 ,5.300"}, {{"Bolts", "Bolt2"}, "\"M 10\""},
      {{" Bolts ", " empty "}, ""},      {{"Bolts", "Bolt9"}, "<missing>"},         {{"Last", "End"}, "x"},
      {{"NUTS", "Nut1"}, "<missing>"},   {{"", "\xA9 preface, key"}, "<missing>"},  {{"Bolts", ""}, "<missing>"},
      {{"Bolts", ";Bolt1"}, "<missing>"}};
  for (int round = 0; round < 4; ++round) {  // searched at first, indexed later
    for (const auto& [name, value] : expected) {
      EXPECT_EQ(file.lookup(name.first, name.second).value_or("<missing>"), value) << name.first << " " << name.second;
    }
  }
}

TEST(IniFile, editsTouchOnlyTheLinesThatHadToChange) {
  EXPECT_EQ(edited([](IniFile&) {}), kNasty);
  EXPECT_EQ(edited([](IniFile& f) { f.set("setup", "solidlt", "4"); }),
            replaced(kNasty, "  SolidLT =  1  \r\n", "  SolidLT =  4  \r\n"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("Bolts", "Empty", "  now  "); }), replaced(kNasty, "Empty=", "Empty=now"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("Bolts", "Bolt2", ""); }), replaced(kNasty, "\"M 10\" \r\n", " \r\n"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("Last", "end", "y"); }), replaced(kNasty, "end = x", "end = y"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("Bolts", "Bolt3", "M12"); }),
            replaced(kNasty, "Empty=\r\n", "Empty=\r\nBolt3=M12\r\n"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("nuts", "Nut1", "M8"); }),
            replaced(kNasty, "[NUTS]\r\n", "[NUTS]\r\nNut1=M8\r\n"));
  EXPECT_EQ(edited([](IniFile& f) { f.set("Last", "more", "1"); }), kNasty + "\r\nmore=1\r\n");
  EXPECT_EQ(edited([](IniFile& f) { f.set("New", "a", "1"); }), kNasty + "\r\n\r\n[New]\r\na=1\r\n");
  EXPECT_EQ(edited([](IniFile& f) { f.deleteKey("Bolts", "Bolt1"); }),
            replaced(replaced(kNasty, "Bolt1=M8, 13.000 ,5.300\r\n", ""), "BOLT1=a double that nobody sees\r\n", ""));
  EXPECT_EQ(edited([](IniFile& f) { f.eraseSection("NUTS"); }), replaced(kNasty, "[NUTS]\r\n", ""));
  EXPECT_EQ(edited([](IniFile& f) {
              f.deleteKey("Last", "end");
              f.set("Last", "other", "2");
            }),
            replaced(kNasty, "end = x", "other=2\r\n"));
}

TEST(IniFile, erasedSectionLeavesNothingBehindButTheNextHeadingsRemarks) {
  const std::string bytes = edited([](IniFile& f) {
    f.set("Bolts", "Bolt1", "changed");
    f.set("Bolts", "Bolt7", "added");
    f.deleteKey("Bolts", "Current");
    f.eraseSection("BOLTS");
    EXPECT_EQ(f.lookup("Bolts", "Bolt1"), std::nullopt);
    EXPECT_EQ(f.lookup("Bolts", "Bolt9"), std::nullopt);
  });
  const size_t first = kNasty.find("[ Bolts ]");
  const size_t second = kNasty.find("[bolts]");
  EXPECT_EQ(bytes,
            kNasty.substr(0, first) + "; nuts follow\r\n[NUTS]\r\n" + kNasty.substr(kNasty.find("[Last]", second)));
  IniFile file = IniFile::parse("[A]\nx=1\n[B]\ny=");
  file.set("B", "y", "2");
  file.eraseSection("B");
  EXPECT_EQ(file.bytes(), "[A]\nx=1\n");
}

TEST(IniFile, changesThatAreTakenBackAreNone) {
  IniFile file = IniFile::parse(kNasty);
  file.set("Setup", "SolidLT", "9");
  file.set("Setup", "SolidLT", "1");
  file.set("Bolts", "Bolt44", "x");
  file.deleteKey("bolts", "BOLT44");
  file.deleteKey("bolts", "never there");
  file.eraseSection("never there");
  EXPECT_FALSE(file.changed());
  EXPECT_EQ(file.bytes(), kNasty);
}

TEST(IniFile, keepsEveryKindOfLineEndAndTheByteOrderMark) {
  for (const std::string lineEnd : {"\n", "\r", "\r\n"}) {
    IniFile file = IniFile::parse(withLineEnds("[A]\nx=1\n\n[B]\n", lineEnd));
    file.set("A", "y", "2");
    EXPECT_EQ(file.bytes(), withLineEnds("[A]\nx=1\ny=2\n\n[B]\n", lineEnd));
  }
  IniFile marked = IniFile::parse("\xEF\xBB\xBF[Gr\xC3\xB6\xC3\x9F\x65]\nx=\xC3\xB6\n");
  EXPECT_EQ(marked.lookup("GR\xD6\xDF\x45", "x"), "\xF6");
  marked.set("Gr\xF6\xDF\x65", "x", "\x80");
  EXPECT_EQ(marked.bytes(), "\xEF\xBB\xBF[Gr\xC3\xB6\xC3\x9F\x65]\nx=\xE2\x82\xAC\n");
  IniFile empty;
  empty.set("A", "x", "1");
  EXPECT_EQ(empty.bytes(), "[A]\r\nx=1\r\n");
}

TEST(IniFile, refusesTextsThatWouldNotReadBack) {
  IniFile file = IniFile::parse(kNasty);
  const std::vector<std::array<std::string, 3>> bad = {
      {"A", "k", "a\nb"},   {"A", "k", "a\rb"}, {"A", "k", std::string("a\0b", 3)},
      {"A", "k=1", "x"},    {"A", "", "x"},     {"A", " ", "x"},
      {"A", ";k", "x"},     {"A", "[k", "x]"},  {"A]", "k", "x"},
      {"A\n[B]", "k", "x"}, {"A", "k\n", "x"},  {"A", "k", std::string(kMaxLineBytes, 'x')}};
  for (const auto& [section, key, value] : bad) { EXPECT_THROW(file.set(section, key, value), HostFailure) << key; }
  EXPECT_FALSE(file.changed());
}

#include <gtest/gtest.h>

#include "survey/control_listings.h"
#include "tests/mech/command_session.h"

namespace ardenix::survey {

namespace {

using Texts = std::vector<std::string>;

const std::string kAccept = "press \"OK\"\n";

// A line with texts at columns counted from 1.
std::string columns(const std::vector<std::pair<size_t, std::string>>& texts) {
  std::string line;
  for (const auto& [column, text] : texts) {
    line.resize(std::max(line.size(), column - 1), ' ');
    line += text;
  }
  return line;
}

// Y, X and height end in decimal marks at 39, 51 and 60.
std::string beaconLine(const std::string& number, const std::string& name, const std::string& y, const std::string& x) {
  const auto before = [](size_t mark, const std::string& text) { return mark - text.find_first_of(".,"); };
  return columns(
      {{3, number}, {8, name}, {before(39, y), y}, {before(51, x), x}, {57, "123" + y.substr(y.size() - 3, 1) + "4"}});
}

std::string entries(const std::vector<ListedPoint>& points) {
  std::string all;
  for (const ListedPoint& point : points) { all += point.key + '=' + point.value + '\n'; }
  return all;
}

const std::string kSquareLine = columns({{36, "   RSA   3418"}, {49, " "}});

TEST(ControlListings, BeaconsAreReadByTheColumnsOfTheirMarks) {
  const Texts lines = {"CO-ORDINATES OF BEACONS",
                       beaconLine("12", "Before any square", "1.00", "2.00"),
                       kSquareLine + "  ",
                       beaconLine("123", "Kloof Nek", "-12345.67", "3712345.60"),
                       columns({{36, "   RSA   9999"}, {60, "."}}),  // as long as a point's, and so no square
                       beaconLine("7", "Comma", "12345,67", "3712345,60"),
                       beaconLine("8", "Nowhere", "0.00", "3712345.60"),
                       beaconLine("9", "", "1.00", "3712345.60"),
                       beaconLine("10", "Mixed", "1.00", "3712345,60"),
                       std::string(80, '.'),
                       std::string(70, ' '),
                       ""};
  EXPECT_EQ(entries(beaconsOfListing(lines)),
            "Before any square /12=1,1.00,2.00\nKloof Nek 3418/123=1,-12345.67,3712345.60\n"
            "Comma 3418/7=1,12345.67,3712345.60\n");
}

TEST(ControlListings, MarksAndTablesKeepWhatIsComplete) {
  EXPECT_EQ(
      entries(marksOfListing({columns({{1, "TSM 14"}, {26, "-45.10"}, {35, "2851655,31"}, {46, "1234.5"}, {60, " "}}),
                              columns({{1, "TSM 15"}, {27, "45.10"}, {34, "2851655.31"}, {46, "1234.5"}, {60, " "}})})),
      "TSM 15=45.10,2851655.31\n")
      << "marks of one kind only";
  EXPECT_EQ(entries(beaconsOfTable(
                {"Kop,3418/1,1.5,2.5", "Plain,,1.5,2.5", ",1,1.5,2.5", "Zero,1,0.00,2.5", "a,b,c", "A,1,x,2"})),
            "Kop 3418/1=1,1.5,2.5\nPlain=0,1.5,2.5\n");
  EXPECT_EQ(entries(marksOfTable({"TSM 1,1.5,2.5", "TSM 2,1.5", "TSM 3,1,2,3"})), "TSM 1=1.5,2.5\n");
}

class ControlPoints : public CommandSession {
 protected:
  const std::string store_ =
      "; mine\n[TRIG]\nKlipkop 3418/112=1,43870.65,2849203.44\nLone=0,1.00,2.00\n[TSM]\nTSM 9=5.00,6.00\n";

  std::string path_;

  // A visit of the control points of a settings file.
  void visit(const std::string& section, const std::string& steps, const std::string& end = "press \"OK\"\n") {
    path_ = write("job.ini", "[INIFILE]\nMode=0\n[TRIGTSM]\n" + section);
    settings().SetString("SG_DEFAULTS", "SG_DiaramFile", path_);
    play("run SG_DiagramEditor\ndialog \"*\"\npress \"Control coords\"\ndialog \"Control Coordinates\"\n" + steps +
         end);
  }
  std::string stored(const std::string& key) const { return TINIFile(path_).ReadString("TRIGTSM", key, "-"); }
};

TEST_F(ControlPoints, AreChosenFromTheStoreOrTypedAndKeptInBoth) {
  const std::string store = write("points.ini", store_);
  visit("TrigINI=points.ini\nCtrlPnt1=1,Klipkop,3418/112,1.00,1.00\n",
        "expect \"Control point 1/Name\" \"Klipkop 3418/112\"\nexpect \"Control point 1/No\" \"3418/112\"\n"
        "expect \"Control point 1/Y\" 43870.65\nexpect \"Control point 2/No\" hidden\n"
        "pick \"Control point 2/Category\" \"Trigonometrical Beacon\"\n"
        "expect \"Control point 2/Name\" \"Klipkop 3418/112\"\nset \"Control point 2/Name\" \"New, one\"\n"
        "set \"Control point 2/No\" \"3418/7\"\nset \"Control point 2/Y\" -1.5\nset \"Control point 2/X\" 2.5\n" +
            kAccept);
  EXPECT_EQ(stored("CtrlPnt1"), "1,Klipkop,3418/112,43870.65,2849203.44");
  EXPECT_EQ(stored("CtrlPnt2"), "1,New  one,3418/7,-1.50,2.50");
  const TINIFile file(store);
  EXPECT_EQ(file.ReadString("TRIG", "New  one 3418/7", ""), "1,-1.50,2.50");
  EXPECT_TRUE(read(store).starts_with("; mine\n[TRIG]\nKlipkop 3418/112=1,43870.65,2849203.44\n"));
  EXPECT_EQ(stored("TrigINI"), "points.ini");
}

TEST_F(ControlPoints, ListingsFillTheStoreOnlyWithOk) {
  const std::string store = write("points.ini", store_);
  const std::string listing =
      write("list.txt", kSquareLine + "  \n" + beaconLine("4", "Kloof", "12345,67", "3712345,60") + "\n");
  const std::string table = write("marks.csv", "TSM 8,7.00,8.00\n");
  const std::string steps =
      "press \"Trig lists\"\nfile \"" + listing +
      "\"\npick \"Control point 1/Name\" \"Kloof 3418/4\"\nexpect \"Control point 1/Y\" 12345.67\n"
      "press \"Tsm lists\"\nfile \"" +
      table +
      "\"\nexpect \"Control point 2/Name\" \"TSM 9\"\n"
      "pick \"Control point 2/Name\" \"TSM 8\"\n";
  visit("TrigINI=" + store + "\n", steps + "press \"Cancel\"\n");
  EXPECT_EQ(read(store), store_);
  EXPECT_EQ(stored("CtrlPnt2"), "0,,,0.00,0.00");
  visit("TrigINI=" + store + "\n", steps + kAccept);
  EXPECT_EQ(TINIFile(store).ReadString("TRIG", "Kloof 3418/4", ""), "1,12345.67,3712345.60");
  EXPECT_EQ(stored("CtrlPnt2"), "0,TSM 8,,7.00,8.00");
}

TEST_F(ControlPoints, TheFilterSaysHowAFileIsRead) {
  const std::string table = write("marks.txt", "TSM 8,7.00,8.00\n");
  const std::string listing =
      write("list.csv", columns({{1, "TSM 15"}, {27, "45.10"}, {34, "2851655.31"}, {46, "1234.5"}, {60, " "}}));
  visit("TrigINI=points.ini\n",
        "press \"Tsm lists\"\nfile \"" + table + "\" as \"Comma delimited\"\npress \"Tsm lists\"\nfile \"" + listing +
            "\" as \"CDSM TSM listing (*.txt)\"\nexpect \"Control point 1/Name\" items \"TSM 8\" \"TSM 15\"\n" +
            kAccept);
}

// It never bears the coordinates of the point shown before; typed ones mend it.
TEST_F(ControlPoints, ADamagedRecordIsNamedAndRefused) {
  const std::string store = write("points.ini", "[TSM]\nTSM 8=7.00,8.00\nTSM 9=five,6.00\n");
  const std::string first = "TrigINI=points.ini\nCtrlPnt1=0,TSM 8,,7.00,8.00\n";
  const std::string damaged = store + ": the record of \"TSM 9\" has no coordinates that can be read.";
  const std::string choose =
      "pick \"Control point 1/Name\" \"TSM 9\"\nexpect \"Control point 1/Y\" 0.00\nexpect \"Control point 1/X\" "
      "0.00\npress \"OK\"\n";
  visit(first, choose + "press \"Cancel\"\n");
  EXPECT_EQ(log_.of("message"), (Texts{damaged, damaged})) << "chosen, and OK";
  EXPECT_EQ(stored("CtrlPnt1"), "0,TSM 8,,7.00,8.00");
  visit(first, choose + "set \"Control point 1/Y\" 5.5\nset \"Control point 1/X\" 6\n" + kAccept);
  EXPECT_EQ(stored("CtrlPnt1"), "0,TSM 9,,5.50,6.00");
  EXPECT_EQ(TINIFile(store).ReadString("TSM", "TSM 9", ""), "5.50,6.00");
}

TEST_F(ControlPoints, ADamagedRecordOfTheSettingsStaysUntilItIsMended) {
  for (const std::string record : {"0,TSM 14,,abc,2200.50", "0,TSM 14"}) {
    visit("TrigINI=points.ini\nCtrlPnt1=" + record + "\n", "press \"Cancel\"\n");
    EXPECT_EQ(stored("CtrlPnt1"), record);
    visit("TrigINI=points.ini\nCtrlPnt1=" + record + "\n",
          "set \"Control point 1/Y\" 5\nset \"Control point 1/X\" 6\n" + kAccept);
    EXPECT_EQ(stored("CtrlPnt1"), "0,TSM 14,,5.00,6.00");
  }
}

TEST_F(ControlPoints, WithoutAStoreNothingIsChosen) {
  const std::string other = write("other.ini", "[TSM]\nOnly=1.00,2.00\n");
  visit("", "press \"Tsm lists\"\n" + kAccept + "press \"...\"\nfile \"" + other + "\"\nexpect \"Storage file\" \"" +
                other +
                "\"\nexpect \"Control point 1/Name\" \"Only\"\npress \"Trig lists\"\n"
                "file \"" +
                folder() + "/none.txt\"\n" + kAccept);
  const std::string need = "Ini file needed|First load or create a new setup ini file.";
  EXPECT_EQ(log_.of("message"), (Texts{need, need, "File read error|File does not exist."}));
  EXPECT_EQ(stored("TrigINI"), other);
  EXPECT_EQ(stored("CtrlPnt1"), "0,Only,,1.00,2.00");
}

}  // namespace

}  // namespace ardenix::survey

#include <gtest/gtest.h>

#include "arch/building_standard.h"
#include "arch/symbol_folder.h"
#include "frame/host/number_text.h"
#include "tests/arch/arch_session.h"

namespace {

const std::string kArchSetup = "run DisplayArchSetup\ndialog \"Architectural Setup\"\n";
const std::string kSetWalls = "run ArchSetWalls\ndialog \"Wall Setup\"\n";
const std::string kStandards = "press \"Set\"\ndialog \"Building Standards Setup\"\n";
const std::string kThreeStandards =
    "; kept\n[BLDG_STD]\nCurrent=2\n[BLDG_STD_TYPES]\nBldgStd1=One,190.00,250.00,800.00,20.00,100.00\n"
    "BldgStd2=Two,180.00\nBldgStd3=Three,170.00,280.00,1000.00,25.00,90.00\n";

// The setup is followed by the symbol library, which needs a folder.
const std::string kNoSymbols =
    "expect message \"Symbol file not found, please set file path, else press cancel in next dialog to exit this "
    "function\"\ndialog \"Architectural Setup\"\n";

class ArchSetup : public ArchSession {
 protected:
  // Looks at the wall types of the file that is found; returns the path remembered then.
  std::string wallsFrom(const std::string& answers) {
    play(kSetWalls + answers + kCancel);
    return remembered();
  }
};

// ---- Where the specification file is ------------------------------------------------------------------------

TEST_F(ArchSetup, WithoutAFileEveryCommandEndsAfterOneMessage) {
  for (const std::string command : {"ArchSetWalls", "ArchDrawWalls"}) {
    log_.lines.clear();
    play("run " + command + "\nexpect message \"" + kNoFile + "\"\n");
    EXPECT_EQ(log_.lines, Texts{std::string("message ") + kNoFile});
  }
  EXPECT_EQ(remembered(), "nothing");
  log_.lines.clear();
  play(kArchSetup + "expect \"Initialization file path\" \"<none>\"\nexpect \"Symbol file path\" \"<none>\"\n" +
       "press \"Set\"\nexpect message \"" + kNoFile + "\"\n" + kCancel);
  EXPECT_EQ(log_.of("dialog"), Texts{"Architectural Setup"});
}

TEST_F(ArchSetup, AForeignNameIsIgnoredAndTheDefaultFileTakenAndRemembered) {
  const std::string usual = write("ArchSpecs.ini", "[WALL_TYPES]\nWall1=Usual\n");
  write("Mine.ini", "[WALL_TYPES]\nWall1=Foreign\n");
  for (const char* foreign : {"Mine.ini", "archspecs.ini"}) {  // which is found, but not by its own spelling
    settings().SetString("ArchitecturalTools", "SpecFile", folder() + "/" + foreign);
    EXPECT_EQ(wallsFrom("expect \"Wall\" items \"Usual\"\n"), usual);
  }
  const std::string mine = useSpecs("[WALL_TYPES]\nWall1=Mine\n", "My ArchSpecs.ini.old.ini");
  EXPECT_EQ(wallsFrom("expect \"Wall\" items \"Mine\"\n"), mine);
  settings().SetString("ArchitecturalTools", "SpecFile", folder() + "/gone/ArchSpecs.ini");
  EXPECT_EQ(wallsFrom("expect \"Wall\" items \"Usual\"\n"), usual);
}

TEST_F(ArchSetup, TheFileIsReadAfreshByEveryCommand) {
  const std::string path = useSpecs("[WALL_TYPES]\nWall1=First\n");
  play(kSetWalls + "expect \"Wall\" items \"First\"\n" + kCancel);
  write("My ArchSpecs.ini", "[WALL_TYPES]\nWall1=Second\n");
  play(kSetWalls + "expect \"Wall\" items \"Second\"\n" + kCancel);
}

TEST_F(ArchSetup, OkRemembersBothPathsAndCancelNothing) {
  std::filesystem::create_directories(folder() + "/Mine");
  const std::string first = useSpecs("; kept\n[SYMBOL]\nSymbolPath=gone\n");
  const std::string second = write("Other ArchSpecs.ini", "");
  const std::string before = read(first);
  const std::string edits = "expect \"Symbol file path\" \"<none>\"\npress \"Browse file\"\nfile \"" + second +
                            "\"\npress \"Browse folder\"\nfile \"" + folder() + "/Mine\"\n";
  play(kArchSetup + edits + kCancel);
  EXPECT_EQ(remembered(), first);
  EXPECT_EQ(read(first), before);
  play(kArchSetup + "press \"Browse folder\"\ncancel\n" + kOk + kNoSymbols + kCancel);
  EXPECT_EQ(read(first), before) << "a folder out of reach is not forgotten";
  play(kArchSetup + edits + "expect \"Initialization file path\" \"" + second + "\"\n" + kOk + kNoSymbols + kCancel);
  EXPECT_EQ(remembered(), second);
  EXPECT_EQ(value(first, "SYMBOL", "SymbolPath"), folder() + "/Mine");
  EXPECT_TRUE(read(first).starts_with("; kept\n"));
}

TEST_F(ArchSetup, AFileThatIsNoTextCanBeReplacedByAnother) {
  useSpecs(std::string("[A]\0B", 5));
  const std::string good = write("Good ArchSpecs.ini", "");
  play(kArchSetup + "press \"Browse file\"\nfile \"" + good + "\"\n" + kOk + kNoSymbols + kCancel);
  EXPECT_EQ(remembered(), good);
  EXPECT_EQ(log_.of("message").size(), 2U) << "the file, and that it names no symbol folder";
}

// ---- Building standards, whose list of records is the same as that of the walls ---------------------------------

TEST_F(ArchSetup, ShowsTheCurrentStandardWithTheUsualLimitsForMissingFields) {
  const std::string path = useSpecs(kThreeStandards);
  play(kArchSetup + kStandards +
       "expect \"Building standard\" items \"One\" \"Two\" \"Three\"\nexpect \"Building standard\" \"Two\"\n"
       "expect \"Maximum rise\" \"180.00\"\nexpect \"Minimum going\" \"250.00\"\n"
       "expect \"Minimum tread width\" \"750.00\"\nexpect \"Minimum nosing width\" \"25.00\"\n"
       "expect \"Minimum ballustrade spacing\" \"100.00\"\npick \"Building standard\" \"Three\"\n"
       "expect \"Minimum tread width\" \"1000.00\"\nset \"Minimum going\" 300\n" +
       kCancel + kCancel);
  EXPECT_EQ(read(path), kThreeStandards);
  play(kArchSetup + kStandards + "pick \"Building standard\" \"Three\"\nset \"Minimum going\" 300.128\n" + kOk +
       kCancel);
  EXPECT_EQ(value(path, "BLDG_STD", "Current"), "3");
  EXPECT_EQ(value(path, "BLDG_STD_TYPES", "BldgStd3"), "Three,170.00,300.13,1000.00,25.00,90.00");
  EXPECT_EQ(value(path, "BLDG_STD_TYPES", "BldgStd2"), "Two,180.00");
}

TEST_F(ArchSetup, NamesAreSavedWithoutTheBlanksAroundThem) {
  const std::string path = useSpecs(
      "[BLDG_STD]\nCurrent=1\n[BLDG_STD_TYPES]\nBldgStd1=One ,180\n[WALLS]\nCurrent=1\n[WALL_TYPES]\nWall1=Thin ,W\n");
  play(kArchSetup + kStandards + kOk + kCancel + "run ArchSetWalls\ndialog \"Wall Setup\"\n" + kOk);
  EXPECT_TRUE(value(path, "BLDG_STD_TYPES", "BldgStd1").starts_with("One,180.00,"));
  EXPECT_TRUE(value(path, "WALL_TYPES", "Wall1").starts_with("Thin,W,"));
}

// What commands ask of the standard and of the symbol folder, run as a command would.
class ArchServices : public ArchSession {
 protected:
  void testStep(const std::string& name) override {
    const ardenix::Services services{.mainFrame = &host().mainFrame()};
    ardenix::arch::ArchToolset toolset(&host().window(), services);
    toolset.open(path_);
    if (name == "symbols") {
      symbols_ = ardenix::arch::resolveSymbolFolder(toolset).value_or("cancelled");
      return;
    }
    const ardenix::arch::BuildingStandard standard(toolset.store(), services.mainFrame);
    checked_.push_back(standard.checkMinimum(240, 250, "Going"));
    checked_.push_back(standard.checkMinimum(240, 250, "Going"));
    checked_.push_back(standard.checkMinimum(250, 250, "Going"));
    checked_.push_back(standard.checkMaximum(200.5, 200, "Rise"));
    checked_.push_back(standard.checkMaximum(200, 200, "Rise"));
  }
  std::string path_ = useSpecs(kThreeStandards);
  std::vector<double> checked_;
  std::string symbols_;
};

TEST_F(ArchServices, AStandardReplacesWhatMissesItIfTheUserAgrees) {
  play("test limits\nreply yes\nreply no\nreply yes\n");
  EXPECT_EQ(checked_, (std::vector<double>{250, 240, 250, 200, 200}));
  EXPECT_EQ(
      log_.of("message"),
      (Texts{"Check Building Standard|Going of 240.00 is less than Two, replace  with minimum standard value 250.00 ?",
             "Check Building Standard|Going of 240.00 is less than Two, replace  with minimum standard value 250.00 ?",
             "Check Building Standard|Rise of 200.50 exceeds Two, replace with maximum standard value 200.00 ?"}));
}

TEST_F(ArchServices, TheSymbolFolderIsTheFilesOwnElseTheDefaultElseTheUsersChoice) {
  const std::string before = read(path_);
  play("test symbols\n" + kNoSymbols + "set \"Symbol file path\" \"nowhere\"\n" + kOk + kNoSymbols + kCancel);
  EXPECT_EQ(symbols_, "cancelled");
  std::filesystem::create_directories(folder() + "/Chosen");
  play("test symbols\n" + kNoSymbols + "set \"Symbol file path\" \"Chosen\"\n" + kOk + "test symbols\n");
  EXPECT_EQ(symbols_, "Chosen");
  write("My ArchSpecs.ini", before);
  std::filesystem::create_directories(folder() + "/Symbols");
  play("test symbols\n");
  EXPECT_EQ(symbols_, folder() + "/Symbols");
  EXPECT_EQ(value(path_, "SYMBOL", "SymbolPath"), symbols_);
}

TEST_F(ArchServices, TheDefaultSymbolFolderLiesAboveTheUsersOwnFolders) {
  for (const auto& [data, symbols] : std::initializer_list<std::pair<std::string, std::string>>{
           {"/srv/cad/USERS/ann/USERS/data", "/srv/cad/Symbols"}, {"/srv/Users/data", "/srv/Users/data/Symbols"}}) {
    brevan::FileServices elsewhere(data, data);
    brevan::CoreContext context{elsewhere, settings(), "", nullptr};
    const brevan::CoreContextBinding binding(context);
    EXPECT_EQ(ardenix::arch::defaultSymbolFolder(), symbols);
  }
}

TEST_F(ArchSetup, SavingAStandardThatShipsChangesNothingButWhichIsCurrent) {
  const std::string path = useSpecs(shipped());
  std::string wanted = shipped();
  const std::string standards = kArchSetup + kStandards;
  for (const auto& [name, number] : std::initializer_list<std::pair<const char*, char>>{
           {"DIN 18065", '3'}, {"Approved Document K", '2'}, {"SANS 10400-M", '1'}}) {
    play(numberText::format("%spick \"Building standard\" \"%s\"\n%s%s", standards, name, kOk, kCancel));
    wanted[wanted.find("[BLDG_STD]\nCurrent=") + 19] = number;
    EXPECT_EQ(read(path), wanted);
  }
}

}  // namespace

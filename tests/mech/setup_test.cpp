#include <dlfcn.h>
#include <gtest/gtest.h>

#include "tests/mech/command_session.h"

namespace {

using Texts = std::vector<std::string>;

constexpr const char* kMissing = "Mechanical Ardenix configuration file cannot be found, or is incorrectly specified!";
const std::string kSetupDialog = "dialog \"Mechanical Ardenix - Setup\"\n";
const std::string kCancel = "press \"Cancel\"\n";
const std::string kBoltsDialog = "dialog \"Mechanical Ardenix - Hex Bolts\"\n";
const std::string kValid =
    "[Setup]\nWeldSymbols=w.drg\nSolidLT=2\nSolidPen=7\nSolidLW=0.35\n[BOLTS]\nBolt1=Mine,1,1,1,1,1,1\n";

class SetupTest : public CommandSession {
 protected:
  std::string remembered() { return CommandSession::remembered("MechanicalTools", "SpecFile"); }
  void testStep(const std::string& name) override {
    if (name == "rewrite") { write("library.ini", "[Setup]\nWeldSymbols=\n[BOLTS]\nBolt1=Later,1,1,1,1,1,1\n"); }
  }
};

// ---- Finding the file ---------------------------------------------------------------------------------------

TEST_F(SetupTest, WithoutAFileADrawingCommandAsksTwiceAndEndsQuietly) {
  play("run MechDrawBolts\nexpect message \"" + std::string(kMissing) + "\"\n" + kSetupDialog +
       "expect \"Configuration file\" \"<none>\"\n" + kCancel + "expect message \"" + kMissing + "\"\n" + kSetupDialog +
       kCancel);
  EXPECT_EQ(drawing().count(), 0U);
  EXPECT_EQ(remembered(), "nothing");
}

TEST_F(SetupTest, OffersTheDefaultFileOfTheDataFolder) {
  const std::string path = write("ISO Mechspecs.ini", kValid);
  play("run MechDrawBolts\n" + kSetupDialog + "expect \"Configuration file\" \"" + path + "\"\npress \"OK\"\n" +
       kBoltsDialog + "expect \"Definition\" \"Mine\"\n" + kCancel);
  EXPECT_EQ(remembered(), path);
  EXPECT_EQ(log_.of("message"), Texts{kMissing});
}

TEST_F(SetupTest, AFileWithoutWeldSymbolsIsUsedAfterAWarning) {
  useLibrary("[BOLTS]\nBolt1=Mine,1,1,1,1,1,1\n");
  play("run MechDrawBolts\n" + kBoltsDialog + "expect \"Definition\" \"Mine\"\n" + kCancel);
  EXPECT_EQ(log_.of("message"),
            Texts{"The specified Mechanical Ardenix configuration file does not appear to be valid!"});
}

TEST_F(SetupTest, AnnotationSetupMakesALibraryOfAnyFile) {
  useLibrary("[Setup]\n");
  const std::string dialog = "run MechAnnotationSetup\ndialog \"Mechanical Ardenix - Annotation Setup\"\n";
  play(dialog + "set \"Welds Symbol file\" \"mine.drg\"\npress \"OK\"\nnew \"other\"\n" + dialog +
       "expect \"Welds Symbol file\" \"mine.drg\"\npress \"Cancel\"\n");
  EXPECT_EQ(
      log_.of("message"),
      (Texts{"The specified Mechanical Ardenix configuration file does not appear to be valid!",
             "The specified Mechanical Ardenix configuration file seems to be invalid!\nPlease check that the path "
             "to the configuration file is specified correctly in the Mechanical Ardenix Setup dialog."}));
}

TEST_F(SetupTest, IsReadOnceForEachView) {
  useLibrary(kValid);
  const std::string visit = "run MechDrawBolts\n" + kBoltsDialog;
  play(visit + kCancel + "test rewrite\n" + visit + "expect \"Definition\" \"Mine\"\n" + kCancel + "new \"other\"\n" +
       visit + "expect \"Definition\" \"Later\"\n" + kCancel);
}

// ---- The dialog ---------------------------------------------------------------------------------------------

TEST_F(SetupTest, ShowsWhatIsOfferedForMissingKeysAndWritesAllOfThem) {
  const std::string path = useLibrary("; kept\n[Setup]\nWeldSymbols=\nSolidLT=2\n");
  play("run DisplayMechSetup\n" + kSetupDialog +
       "expect \"Solid line type\" 2\nexpect \"Hidden line type\" 21\nexpect \"Center line type\" 4\n"
       "expect \"Hidden pen\" 13\nexpect \"Solid width\" 0.2\nexpect \"Annotation Setup...\" enabled\n"
       "set \"Hidden width\" 0.355\npress \"Center pen\"\npen 9\npress \"OK\"\n");
  EXPECT_EQ(read(path).substr(0, 37), "; kept\n[Setup]\nWeldSymbols=\nSolidLT=2");
  const TINIFile file(path);
  Texts values;
  for (const char* kind : {"Solid", "Hidden", "Center"}) {
    for (const char* what : {"LT", "Pen", "LW"}) {
      values.push_back(file.ReadString("Setup", std::string(kind) + what, "missing"));
    }
  }
  EXPECT_EQ(values, (Texts{"2", "1", "0.20", "21", "13", "0.35", "4", "9", "0.10"}));
}

TEST_F(SetupTest, CancelWritesNothingButKeepsAFilePickedMeanwhile) {
  const std::string path = useLibrary(kValid);
  const std::string before = read(path);
  const std::string other =
      write("other.ini", "[Setup]\nWeldSymbols=\nHiddenPen=5\nHiddenLW=0.7\n[BOLTS]\nBolt1=Other,1,1,1,1,1,1\n");
  play("run DisplayMechSetup\n" + kSetupDialog + "set \"Solid width\" 3\npress \"...\"\nfile \"" + other +
       "\"\nexpect \"Hidden pen\" 5\nexpect \"Solid line type\" 1\nexpect \"Hidden width\" 0.0\nexpect \"Solid width\" "
       "3.0\n" +
       kCancel + "run MechDrawBolts\n" + kBoltsDialog + "expect \"Definition\" \"Other\"\n" + kCancel);
  EXPECT_EQ(read(path), before);
  EXPECT_EQ(remembered(), path);
}

TEST_F(SetupTest, AnInvalidPickIsToldAndABadPathKeepsTheDialogOpen) {
  const std::string path = useLibrary(kValid);
  const std::string invalid = write("invalid.ini", "[Setup]\nSolidPen=9\n");
  play("run DisplayMechSetup\n" + kSetupDialog + "press \"...\"\nfile \"" + invalid + "\"\nexpect \"Solid pen\" 7\n" +
       "set \"Configuration file\" \"gone.ini\"\npress \"OK\"\nset \"Configuration file\" \"<none>\"\npress \"OK\"\n" +
       "press \"...\"\ncancel\n" + kCancel);
  const char* bad = "You must specify a valid Mechanical Ardenix configuration filename!";
  EXPECT_EQ(log_.of("message"),
            (Texts{"This does not appear to be a valid Mechanical Ardenix configuration file!", bad, bad}));
  EXPECT_EQ(remembered(), path);
}

TEST_F(SetupTest, HelpThatCannotBeOpenedIsTold) {
  useLibrary(kValid);
  play("run DisplayMechSetup\n" + kSetupDialog + "help\nhelp\n" + kCancel + "run MechDrawBolts\n" + kBoltsDialog +
       "help \"Length\"\n" + kCancel);
  EXPECT_EQ(log_.of("message"), Texts(3, "Unable to open help file"));
}

// ---- The module as its host sees it -------------------------------------------------------------------------

TEST_F(SetupTest, TheModuleListsWhatItExportsAndKnowsItsVersion) {
  play("");
  const brevan::Module& module = *host().module();
  EXPECT_TRUE(module.version().starts_with("6.40 (Build ")) << module.version();
  ASSERT_FALSE(module.commands().empty());
  for (const CommandRow& row : module.commands()) {
    const std::string_view name = row.name;
    const auto family = name.starts_with("SG_")                       ? CommandFamily::kSurvey
                        : name.find("Arch") != std::string_view::npos ? CommandFamily::kArchitectural
                                                                      : CommandFamily::kMechanical;
    EXPECT_TRUE(row.family == family && row.takesView == (family == CommandFamily::kSurvey)) << name;
    EXPECT_TRUE(*row.caption != '\0' && module.command(row.name) == &row) << name;
  }
}

TEST_F(SetupTest, UnloadingTheModuleReleasesIt) {
  useLibrary(kValid);
  play("run MechDrawBolts\n" + kBoltsDialog + kCancel);
  const std::string path = modulePath();
  void* loaded = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(loaded, nullptr);
  dlclose(loaded);
  closeHost();
  EXPECT_EQ(dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

}  // namespace

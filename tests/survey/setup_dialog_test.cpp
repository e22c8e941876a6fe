#include <gtest/gtest.h>

#include <filesystem>

#include "survey/settings_keys.h"
#include "tests/mech/command_session.h"

namespace ardenix::survey {

namespace {

using Texts = std::vector<std::string>;

const std::string kOk = "press \"OK\"\n";
const std::string kCancel = "press \"Cancel\"\n";

// Lines that differ, those of the second only after those of the first.
Texts differingLines(const std::string& before, const std::string& after) {
  std::istringstream old(before);
  std::istringstream now(after);
  Texts differing;
  std::string a;
  std::string b;
  while (std::getline(old, a) && std::getline(now, b)) {
    if (a != b) { differing.push_back(b); }
  }
  while (std::getline(now, b)) { differing.push_back(b); }
  return differing;
}

class SurveySetup : public CommandSession {
 protected:
  std::string use(const std::string& content, const std::string& key = "SG_DiaramFile") {
    std::string path = write("job.ini", content);
    settings().SetString("SG_DEFAULTS", key, path);
    return path;
  }
  std::string remembered(const std::string& key = "SG_DiaramFile") {
    return CommandSession::remembered("SG_DEFAULTS", key);
  }
  // A visit of the diagram setup.
  void visit(const std::string& steps) { play("run SG_DiagramEditor\ndialog \"*\"\n" + steps); }
  void visitOptions(const std::string& steps) { visit("press \"Options\"\ndialog \"Diagram options\"\n" + steps); }
  static std::string shipped(const std::string& name) { return read(std::string(BREVAN_DATA) + '/' + name); }
};

struct ShippedFile {
  const char *command, *key, *file;
  SurveyMode mode;
};

const ShippedFile kShipped[] = {
    {"SG_DiagramEditor", "SG_DiaramFile", "SG Diagram.ini", SurveyMode::kDiagram},
    {"SG_GenplanEditor", "SG_GenPlanFile", "General Plan.ini", SurveyMode::kGeneralPlan},
    {"SG_SectionEditor", "SG_SectionalFile", "Sectional Plan.ini", SurveyMode::kSectionalPlan},
};

// ---- Files --------------------------------------------------------------------------------------------------------

TEST_F(SurveySetup, ShippedSettingsAreCompleteAndComeThroughTheDialogByteForByte) {
  for (const ShippedFile& row : kShipped) {
    const std::string path = use(shipped(row.file), row.key);
    play("run " + std::string(row.command) + "\ndialog \"*\"\n" + kOk);
    EXPECT_EQ(read(path), shipped(row.file)) << row.file;
    EXPECT_EQ(remembered(row.key), path);
    const TINIFile file(path);
    for (const auto& sheet : textSheets(row.mode)) {
      for (const auto& text : sheet.rows) {
        EXPECT_NE(file.ReadString(sheet.section, text.key, ""), "") << row.file << ' ' << text.key;
      }
    }
    for (const auto& drawing : templateRows(row.mode)) {
      const std::string named = file.ReadString(templateSection(row.mode), drawing.key, "");
      EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(BREVAN_DATA) / named)) << named;
    }
  }
}

TEST_F(SurveySetup, AChangedCellChangesItsLineAlone) {
  const std::string before = "; of the office\r\nOdd line\r\n" + shipped("SG Diagram.ini") + "[OTHER]\nKey=1\n";
  const std::string path = use(before);
  visit(
      "cell \"Settings\" 4 \"Default Text\" \"Erf 5, Portion 2\"\ntab \"Lines\"\n"
      "cell \"Settings\" 2 \"LT\" \"3\"\n" +
      kOk);
  EXPECT_EQ(differingLines(before, read(path)),
            (Texts{"District=Erf 5_COMMA_ Portion 2,-95,-235,1,25,4,Arial,0", "Line2=-190,9999,-50,9999,1,3"}));
}

TEST_F(SurveySetup, CancelWritesNothingOptionsIncluded) {
  const std::string path = use(shipped("SG Diagram.ini"));
  visit(
      "cell \"Settings\" 1 \"Default Text\" \"x\"\npress \"Options\"\ndialog \"Diagram options\"\n"
      "check \"Delete isolated lines.\"\n" +
      kOk + kCancel);
  EXPECT_EQ(read(path), shipped("SG Diagram.ini"));
  visitOptions("check \"Delete isolated lines.\"\n" + kOk + kOk);
  EXPECT_EQ(differingLines(shipped("SG Diagram.ini"), read(path)), Texts{"DelLines=1"});
}

TEST_F(SurveySetup, WithoutAFileNothingButLoadAndSaveAsWorks) {
  visit(
      "expect \"OK\" disabled\npress \"Options\"\nexpect message \"First load an *.ini file in the Setup dialog.\"\n"
      "press \"Control coords\"\nexpect message \"First load an *.ini file in the Setup dialog.\"\n"
      "press \"Load\"\ncancel\nexpect \"OK\" disabled\n" +
      kCancel);
  EXPECT_EQ(remembered(), "nothing");
  EXPECT_EQ(log_.of("dialog").back(), "SG Diagram setup: <None>");
}

TEST_F(SurveySetup, AFileOfAnotherModeIsTakenOnlyWhenTheUserSaysSo) {
  const std::string path = use(shipped("SG Diagram.ini"));
  const std::string other = write("plan.ini", shipped("General Plan.ini"));
  const std::string load = "press \"Load\"\nfile \"" + other + "\"\n";
  visit(load + "reply no\nexpect \"Settings\" 1 \"Default Text\" \"Erf 1\"\n" + kOk);
  EXPECT_EQ(log_.of("message"), Texts{"The file being loaded,\n" + other +
                                      "\nis marked for General Plan setup.\nContinuing will cause this file to be "
                                      "marked for SG Diagram setup.\nContinue?"});
  EXPECT_EQ(remembered(), path);
  EXPECT_EQ(read(other), shipped("General Plan.ini"));
  visit(load + "reply yes\nexpect \"Settings\" 1 \"Default Text\" \"Default\"\n" + kOk);
  EXPECT_EQ(remembered(), other);
  const TINIFile file(other);
  EXPECT_EQ(file.ReadString("INIFILE", "Mode", ""), "0");
  EXPECT_EQ(file.ReadString("GP_QUESTIONS", "GenPlanNr", ""), "GENERAL PLAN No.,0,0,1,80,4,Arial,0") << "what it held";
  visit("press \"Load\"\nfile \"" + write("bare.ini", "[TEXT]\n") + "\"\n" + kOk);
  EXPECT_EQ(log_.of("message").size(), 2U) << "a file without a mode is taken unasked";
}

TEST_F(SurveySetup, SaveAsTakesTheChangesAlongAndLeavesTheOldFile) {
  const std::string path = use("; mine\n" + shipped("SG Diagram.ini"));
  const std::string copy = write("copy.ini", "[OLD]\nKey=1\n");
  const std::string saveAs = "press \"Save As\"\nfile \"" + copy + "\"\n";
  visit(saveAs + "reply no\n" + kCancel);
  EXPECT_EQ(log_.of("message"), Texts{"The file " + copy + " already exists\nDo you want to overwrite it?"});
  EXPECT_EQ(read(copy), "[OLD]\nKey=1\n");
  visit("press \"Options\"\ndialog \"*\"\nset \"Corner point diameter (mm)\" 3.5\n" + kOk +
        "cell \"Settings\" 7 \"Pen\" \"4\"\n" + saveAs + "reply yes\n" + kCancel);
  EXPECT_EQ(read(path), "; mine\n" + shipped("SG Diagram.ini"));
  EXPECT_EQ(differingLines(read(path), read(copy)), (Texts{"CornerDiam=3.500", "PLS=Name,-95,-247,4,25,1,Arial,0"}));
  EXPECT_EQ(remembered(), path) << "only OK makes it the host's";
}

// The fault suite has every failure of a file that is there.
TEST_F(SurveySetup, AFileThatCannotBeReadOrWrittenIsTold) {
  const std::string path = use(shipped("SG Diagram.ini"));
  const std::string damaged = write("damaged.ini", std::string("[TEXT]\n\0\0", 9));
  visit("press \"Load\"\nfile \"" + damaged +
        "\"\nexpect \"Settings\" 1 \"Default Text\" \"Erf 1\"\npress \"Save As\"\nfile \"" + damaged + "/new.ini\"\n" +
        kOk);
  ASSERT_EQ(log_.of("message").size(), 2U);
  EXPECT_NE(log_.of("message")[0].find("damaged.ini"), std::string::npos);
  EXPECT_NE(log_.of("message")[1].find("new.ini"), std::string::npos);
  EXPECT_EQ(remembered(), path);
}

// ---- Sheets -------------------------------------------------------------------------------------------------------

TEST_F(SurveySetup, AdditionalTextsAndLinesAreNumberedAnewWhenARowGoes) {
  const std::string path = use("[INIFILE]\nMode=0\n");
  const std::string row = "cell \"Settings\" ";
  visit("tab \"Text\"\n" + row + "8 \"Default Text\" \"one\"\n" + row + "9 \"Default Text\" \"two\"\n" + row +
        "10 \"Default Text\" \"three\"\ntab \"Lines\"\n" + row + "1 \"End Ver Coord (mm)\" \"lf\"\n" + row +
        "3 \"Start Hor Coord (mm)\" \"7\"\n" + kOk);
  const auto keys = [&](const std::string& section, const std::string& key) {
    const TINIFile file(path);
    Texts values;
    for (int number = 1; number < 5; ++number) {
      values.push_back(file.ReadString(section, key + std::to_string(number), "-"));
    }
    return values;
  };
  EXPECT_EQ(keys("LINES", "Line"), (Texts{",,,9999,,", "7,,,,,", "-", "-"})) << "an empty line is closed up";
  visit(
      "tab \"Text\"\nclick \"Settings\" 9 \"Font\"\nexpect message \"Delete this row?\"\nreply no\n"
      "click \"Settings\" 9 \"Font\"\nreply yes\nexpect \"Settings\" 9 \"Default Text\" \"three\"\n"
      "click \"Settings\" 2 \"Font\"\nclick \"Settings\" 10 \"Font\"\ntab \"Lines\"\n"
      "expect \"Settings\" 1 \"End Ver Coord (mm)\" \"LF\"\n" +
      kOk);
  EXPECT_EQ(keys("TEXT", "AddText"), (Texts{"one,0,0,8,30,2,Arial,0", "three,0,0,8,30,2,Arial,0", "-", "-"}));
}

TEST_F(SurveySetup, CellsTakeWhatTheirColumnHolds) {
  const std::string path = use(shipped("SG Diagram.ini"));
  const auto refused = [](const std::string& column, const std::string& text) {
    return "cell \"Settings\" 1 \"" + column + "\" \"" + text + "\"\n";
  };
  visit(refused("Hor Coord (mm)", "1,2,3") + refused("Ver Coord (mm)", "nan") + refused("Size", "2.5") +
        refused("Lorg", "20") + refused("Font", "Arial,5") + "cell \"Settings\" 1 \"Hor Coord (mm)\" \"-1,5\"\n" +
        "cell \"Settings\" 1 \"Ver Coord (mm)\" \"LF\"\ncell \"Settings\" 1 \"Lorg\" \"\"\n" +
        "cell \"Settings\" 1 \"Underline\" \"1\"\nclick \"Settings\" 1 \"Pen\"\npen 12\npress \"Settings\" 1 "
        "\"Pen\"\ncancel\n" +
        kOk);
  EXPECT_EQ(log_.of("message"), (Texts{"\"Hor Coord (mm)\" takes a number from -10000 to 10000 or LF, got \"1,2,3\".",
                                       "\"Ver Coord (mm)\" takes a number from -10000 to 10000 or LF, got \"nan\".",
                                       "\"Size\" takes a whole number from 0 to 10000 or LF, got \"2.5\".",
                                       "\"Lorg\" takes a whole number from 1 to 9 or 11 to 19 or LF, got \"20\".",
                                       "\"Font\" cannot hold a comma, got \"Arial,5\"."}));
  EXPECT_EQ(differingLines(shipped("SG Diagram.ini"), read(path)), Texts{"PropDescr=Erf 1,-1.5,9999,12,35,,Arial,1"});
}

TEST_F(SurveySetup, TheDataTableIsReadWhereItStands) {
  use("[TEXT]\nData=\n[DATA]\nData=here,1,2,3,4,5,Arial,0\nFigure1=,1,2,3,4,5,6\n");
  visit(
      "tab \"Text\"\nexpect \"Settings\" 7 \"Default Text\" \"here\"\ntab \"Data Table\"\n"
      "expect \"Settings\" 1 \"Hor Coord (mm)\" \"\"\n" +
      kCancel);
  const std::string path = use("[DATA]\nFigure1=,1,2,3,4,5,6\nFigure2=,7,8,9,1,2,3\n");
  visit("tab \"Data Table\"\nexpect \"Settings\" 6 \"Hor Coord (mm)\" \"6\"\ncell \"Settings\" 6 \"Lorg\" \"8\"\n" +
        kOk);
  EXPECT_EQ(TINIFile(path).ReadString("DATA", "Figure2", ""), ",7,8,9,1,2,8");
}

TEST_F(SurveySetup, DrawingsAreChosenByTheirButtonAndKeptInFull) {
  const std::string path = use(shipped("Sectional Plan.ini"), "SG_SectionalFile");
  const std::string drawing = write("a drawing with quite a long name of its own, to be shortened.drg", "");
  play(
      "run SG_SectionEditor\ndialog \"*\"\nexpect \"Control coords\" hidden\npress \"Template drawing files\" 4 "
      "\"Path\"\nfile \"" +
      drawing +
      "\"\npress \"Template drawing files\" 1 \"Path\"\ncancel\ntab \"Floor Names\"\n"
      "cell \"Settings\" 6 \"Floor Name\" \"\"\n" +
      kOk);
  EXPECT_EQ(differingLines(shipped("Sectional Plan.ini"), read(path)), Texts{"PqSheet=" + drawing});
  EXPECT_EQ(TINIFile(path).ReadString("FLOORNAMES", "FloorName6", "gone"), "gone");
}

// ---- Options ------------------------------------------------------------------------------------------------------

TEST_F(SurveySetup, OptionsOfferTheirDefaultsAndKeepThem) {
  const std::string path = use("[INIFILE]\nMode=0\n");
  visitOptions(
      "expect \"Decimal\" \",\"\nexpect \"Thousand\" \"Space\"\nexpect \"Bearing\" \"Space\"\n"
      "expect \"Snip surrounding data\" \"Offset to a bounding box\"\nexpect \"PolySnipFactor\" disabled\n"
      "expect \"Offset\" 5\nexpect \"Offshoot linetype\" 21\nexpect \"Layer Name\" \"SG_DIAGRAM\"\n"
      "expect \"Corner point diameter (mm)\" 2\n" +
      kOk + kOk);
  const TINIFile file(path);
  Texts values;
  for (const char* key : {"Decimal", "Thousand", "Bearing", "RoundBearing", "PlusSign", "AddNotes", "ServNotes",
                          "UseOffset", "Offset", "PolySnipFactor", "DelLines", "Layer", "LineType", "CornerDiam"}) {
    values.push_back(file.ReadString("DEFAULTS", key, "missing"));
  }
  EXPECT_EQ(values, (Texts{"C", "S", "S", "1", "1", "0", "0", "1", "5", "1.700", "1", "SG_DIAGRAM", "21", "2.000"}));
}

TEST_F(SurveySetup, AnUnknownSeparatorSetsAllThreeBoxesAtItsTurn) {
  use("[DEFAULTS]\nDecimal=P\nThousand=x\nBearing=M\n");
  visitOptions("expect \"Decimal\" \",\"\nexpect \"Thousand\" \"Space\"\nexpect \"Bearing\" \"-\"\n" + kCancel +
               kCancel);
  use("[DEFAULTS]\nDecimal=P\nThousand=N\nBearing=\n");
  visitOptions("expect \"Decimal\" \",\"\nexpect \"Thousand\" \"Space\"\nexpect \"Bearing\" \"Space\"\n" + kCancel +
               kCancel);
}

TEST_F(SurveySetup, TheMultiplicationFactorIsAboveOne) {
  const std::string path = use("[DEFAULTS]\nUseOffset=0\nPolySnipFactor=2.5\n");
  visitOptions(
      "expect \"Offset\" disabled\nset \"PolySnipFactor\" 1\n" + kOk +
      "expect focus \"PolySnipFactor\"\nset \"PolySnipFactor\" 1.001\npick \"Bearing\" \"\xC2\xB0 '  \\\"\"\n" + kOk +
      kOk);
  EXPECT_EQ(log_.of("message"), Texts{"Factor|Error: Multiplication factor must be greater than 1."});
  EXPECT_EQ(TINIFile(path).ReadString("DEFAULTS", "PolySnipFactor", ""), "1.001");
  EXPECT_EQ(TINIFile(path).ReadString("DEFAULTS", "Bearing", ""), "D");
}

TEST_F(SurveySetup, OptionsOfTheOtherModesAreTheirOwn) {
  const std::string plan = use(shipped("General Plan.ini"), "SG_GenPlanFile");
  play(
      "run SG_GenplanEditor\ndialog \"*\"\npress \"Options\"\ndialog \"General Plan Options\"\n"
      "set \"Block corner diameter (mm)\" 1.5\npick \"Dimensions\" \"Bearing Only\"\n"
      "check \"Separate text for bearing + distance\"\n" +
      kOk + kOk);
  EXPECT_EQ(differingLines(shipped("General Plan.ini"), read(plan)),
            (Texts{"BlockDiam=1.500", "DimSetting=2.000", "Multiline=1"}));
  const std::string sections = use(shipped("Sectional Plan.ini"), "SG_SectionalFile");
  play(
      "run SG_SectionEditor\ndialog \"*\"\npress \"Options\"\ndialog \"Sectional Title Options\"\n"
      "press \"Temporary colour while tracing figure\"\npen 6\nset \"Layer for text\" \"WORDS\"\n" +
      kOk + kOk);
  EXPECT_EQ(differingLines(shipped("Sectional Plan.ini"), read(sections)), (Texts{"TracePen=6", "TxtLayer=WORDS"}));
}

}  // namespace

}  // namespace ardenix::survey

#include <gtest/gtest.h>

#include "frame/host/number_text.h"
#include "frame/names.h"
#include "tests/arch/arch_session.h"

namespace {

const std::string kWallSetup = "run ArchSetWalls\ndialog \"Wall Setup\"\n";
const std::string kAddNamed = "press \"Add\"\ndialog \"Ardenix - Add New Item\"\nset \"Name for new wall\" ";

const std::string kOuter =
    "Outer,OUTER,0,90.00,45.00,1,0,11,2,3.50,1,12,1,5.00,1,13,3,2.50,1,14,4,2.50,0,15,1,5.00,1,16,21,1.80,1,"
    "150.00,110.00,50.00,115.00,160.00";
const std::string kInner =
    "Inner,INNER,1,90.00,90.00,0,1,1,1,0.00,0,2,1,3.50,1,3,1,0.00,1,4,1,0.00,1,5,1,3.50,1,6,1,0.00,0,"
    "10.00,20.00,30.00,90.00,40.00";
const std::string kWallSettings = "; kept\n[WALLS]\nParentName=HOUSE\nMethod=1\nDirection=1\nFace=1\nCurrent=1\n";
const std::string kTwoWalls = kWallSettings + "[WALL_TYPES]\nWall1=" + kOuter + "\nWall2=" + kInner + "\n";

class WallDialog : public ArchSession {
 protected:
  std::string path_ = useSpecs(kTwoWalls);
  std::string record(int number) { return value(path_, "WALL_TYPES", ("Wall" + std::to_string(number)).c_str()); }
  std::string setting(const char* key) { return value(path_, "WALLS", key); }
};

TEST_F(WallDialog, ShowsTheCurrentTypeAndSavesItUnchanged) {
  play("macro NEWLAYER \"MINE\"\n" + kWallSetup +
       "expect \"Wall\" items \"Outer\" \"Inner\"\nexpect \"Wall\" \"Outer\"\nexpect \"Wall layer\" \"OUTER\"\n"
       "expect \"Wall layer\" items \"0\" \"MINE\" \"OUTER\" \"INNER\"\nexpect \"Drawing method\" \"Draw fresh\"\n"
       "expect \"Justification\" \"Outside\"\nexpect \"Drawing direction\" \"Clockwise\"\n"
       "expect \"Wall type\" \"External\"\nexpect \"Start angle\" \"90.00\"\nexpect \"End angle\" \"45.00\"\n"
       "expect \"Close off ends\" 1\nexpect \"Fillet corners\" 0\nexpect \"External foundation width\" \"150.00\"\n"
       "expect \"Cavity width\" \"50.00\"\nexpect \"Internal wall width\" \"115.00\"\n"
       "expect \"Layers\" 1 \"Pen\" 11\nexpect \"Layers\" 6 \"Line Type\" 21\nexpect \"Layers\" 6 \"Line Width\" "
       "\"1.80\"\n"
       "expect \"Layers\" 4 \"Vis\" \"No\"\nexpect \"Layers\" 5 \"Vis\" \"Yes\"\nexpect \"Wall width\" hidden\n" +
       kCancel);
  EXPECT_EQ(read(path_), kTwoWalls);
  play(kWallSetup + kOk);
  EXPECT_EQ(read(path_), kWallSettings + "ExternalWall=1\n[WALL_TYPES]\nWall1=" + kOuter + "\nWall2=" + kInner + "\n");
  const std::string once = read(path_);
  play(kWallSetup + kOk);
  EXPECT_EQ(read(path_), once);
}

TEST_F(WallDialog, TheInternalLayoutSetsItsOwnWidthsAndRowsAlone) {
  play(kWallSetup +
       "pick \"Wall\" \"Inner\"\nexpect \"Wall type\" \"Internal\"\nexpect \"Cavity width\" hidden\n"
       "expect \"External foundation width\" \"10.00\"\nset \"External foundation width\" 11\n"
       "set \"Wall width\" 95\nset \"Internal foundation width\" 41\n"
       "cell \"Layers\" 3 \"Pen\" \"7\"\nrightclick \"Layers\" 4 \"Vis\"\n" +
       kOk);
  EXPECT_EQ(record(2),
            "Inner,INNER,1,90.00,90.00,0,1,1,1,0.00,0,2,1,3.50,1,3,1,0.00,1,4,1,0.00,1,7,1,3.50,1,6,1,0.00,1,"
            "11.00,20.00,30.00,95.00,41.00");
  EXPECT_EQ(record(1), kOuter);
  EXPECT_EQ(setting("Current") + setting("InternalWall") + setting("ExternalWall"), "22missing");
  // The other layout shows what the record holds, not what was typed into this one.
  play(kWallSetup +
       "set \"Wall width\" 1\npick \"Wall type\" \"External\"\nexpect \"Internal wall width\" \"95.00\"\n" + kOk);
  EXPECT_EQ(setting("InternalWall") + setting("ExternalWall"), "22");
  EXPECT_TRUE(record(2).starts_with("Inner,INNER,0,")) << record(2);
}

TEST_F(WallDialog, GridCellsTakeWhatFitsThemAndTheMouseChoosesPensAndVisibility) {
  play(kWallSetup +
       "rightclick \"Layers\" 2 \"Pen\"\npen 33\nrightclick \"Layers\" 1 \"Pen\"\ncancel\n"
       "expect \"Layers\" 2 \"Pen\" 33\nexpect \"Layers\" 1 \"Pen\" 11\n"
       "rightclick \"Layers\" 1 \"Vis\"\nrightclick \"Layers\" 2 \"Vis\"\nrightclick \"Layers\" 5 \"Vis\"\n"
       "expect \"Layers\" 1 \"Vis\" \"No\"\nexpect \"Layers\" 2 \"Vis\" \"Yes\"\n"
       "cell \"Layers\" 3 \"Line Type\" \"999\"\ncell \"Layers\" 3 \"Line Width\" \"0,355\"\n"
       "cell \"Layers\" 4 \"Vis\" \"Yes\"\n" +
       kOk);
  EXPECT_EQ(record(1),
            "Outer,OUTER,0,90.00,45.00,1,0,11,2,3.50,0,33,1,5.00,1,13,999,0.35,1,14,4,2.50,1,15,1,5.00,1,16,21,1.80,1,"
            "150.00,110.00,50.00,115.00,160.00");
  for (const char* refused : {"1 \"Pen\" \"0\"", "1 \"Pen\" \"257\"", "1 \"Pen\" \"red\"", "1 \"Line Type\" \"0\"",
                              "1 \"Line Type\" \"1000\"", "1 \"Line Width\" \"72.5\"", "1 \"Line Width\" \"-1\"",
                              "1 \"Line Width\" \"\"", "2 \"Vis\" \"No\"", "1 \"Vis\" \"Maybe\"", "7 \"Pen\" \"1\""}) {
    const std::string before = read(path_);
    EXPECT_THROW(play(numberText::format("%scell \"Layers\" %s\n%s", kWallSetup, refused, kOk)), std::exception)
        << refused;
    EXPECT_EQ(read(path_), before) << refused;
  }
}

TEST_F(WallDialog, TrackingTakesItsDirectionFromTheJustification) {
  play(kWallSetup +
       "pick \"Drawing method\" \"Track line or perimeter\"\nexpect \"Drawing direction\" \"Anticlockwise\"\n"
       "expect \"Drawing direction\" disabled\nexpect \"Anticlockwise picture\" shown\n"
       "expect \"Clockwise picture\" hidden\npick \"Justification\" \"Inside\"\n"
       "expect \"Drawing direction\" \"Clockwise\"\npick \"Justification\" \"Outside\"\n"
       "pick \"Drawing method\" \"Draw fresh\"\nexpect \"Drawing direction\" enabled\n"
       "expect \"Drawing direction\" \"Anticlockwise\"\npick \"Justification\" \"Inside\"\n"
       "expect \"Drawing direction\" \"Anticlockwise\"\npick \"Drawing method\" \"Track line or perimeter\"\n"
       "pick \"Justification\" \"Outside\"\n" +
       kOk);
  EXPECT_EQ(setting("Method") + setting("Direction") + setting("Face"), "001");
  play(kWallSetup + "expect \"Drawing method\" \"Track line or perimeter\"\nexpect \"Drawing direction\" disabled\n" +
       kCancel);
}

TEST_F(WallDialog, SelectingATypeKeepsHowWallsAreDrawn) {
  play(kWallSetup +
       "pick \"Justification\" \"Inside\"\npick \"Drawing direction\" \"Anticlockwise\"\npick \"Wall\" \"Inner\"\n"
       "expect \"Justification\" \"Inside\"\nexpect \"Drawing direction\" \"Anticlockwise\"\n"
       "expect \"Fillet corners\" 1\nexpect \"Wall layer\" \"INNER\"\n" +
       kCancel);
}

TEST_F(WallDialog, AddingTakesWhatIsShownUnderItsNewName) {
  play(kWallSetup + "set \"Wall layer\" \"ground floor walls\"\nset \"Cavity width\" 75\n" + kAddNamed +
       "\"Third, wide\"\n" + kOk +
       "expect \"Wall\" \"Third  wide\"\nexpect \"Cavity width\" \"75.00\"\nexpect \"Wall layer\" "
       "\"GROUND_FLOOR_WALLS\"\n" +
       kCancel);
  EXPECT_EQ(record(3).substr(0, 37), "Third  wide,GROUND_FLOOR_WALLS,0,90.0");
  EXPECT_EQ(record(1), kOuter);
  EXPECT_EQ(setting("Current"), "1");
  play(kWallSetup + "set \"Wall layer\" \"" + std::string(40, 'x') + "\"\n" + kOk);
  EXPECT_EQ(record(1).substr(0, 38), "Outer," + std::string(31, 'X') + ",");
}

TEST_F(WallDialog, DeletingMovesTheLaterTypesDown) {
  play(kWallSetup +
       "press \"Delete\"\nexpect \"Wall\" items \"Inner\"\nexpect \"Wall\" \"Inner\"\nexpect \"Wall width\" "
       "\"90.00\"\n" +
       kCancel);
  EXPECT_EQ(record(1), kInner);
  EXPECT_EQ(record(2), "missing");
  EXPECT_EQ(setting("Current"), "1");
  play(kWallSetup + "press \"Delete\"\npress \"Delete\"\n" + kCancel);
  EXPECT_EQ(record(1), "missing");
  EXPECT_TRUE(read(path_).starts_with("; kept\n"));
}

// ---- What cannot be saved ------------------------------------------------------------------------------------

TEST_F(WallDialog, TheFirstTypeIsShownWhereTheFileNamesNoneThatIsThere) {
  for (const std::string current : {"", "Current=0\n", "Current=3\n", "Current=-1\n"}) {
    path_ = useSpecs("[WALLS]\n" + current + "[WALL_TYPES]\nWall1=" + kOuter + "\nWall2=" + kInner + "\n");
    play(kWallSetup + "expect \"Wall\" \"Outer\"\nexpect \"Cavity width\" \"50.00\"\n" + kOk);
    EXPECT_EQ(setting("Current") + record(1), "1" + kOuter) << current;
    EXPECT_EQ(value(path_, "WALL_TYPES", "Wall0"), "missing") << current;
  }
}

TEST_F(WallDialog, WithoutATypeOkAsksForOne) {
  const std::string refused =
      kOk + "expect message \"There is no wall type yet. Press Add to save what is shown as the first one.\"\n";
  for (const std::string content : {"", "[WALLS]\nCurrent=7\n[WALL_TYPES]\n"}) {
    path_ = useSpecs(content);
    play("run ArchDrawWalls\ndialog \"Wall Setup\"\nexpect \"Wall\" items\n" + refused + "set \"Wall\" \"My wall\"\n" +
         refused + kCancel);
    EXPECT_EQ(read(path_), content);
    EXPECT_EQ(log_.of("prompt"), Texts{});
    play(kWallSetup + "set \"Wall width\" 110\n" + kAddNamed + "\"First\"\n" + kOk + kOk);
    EXPECT_EQ(setting("Current") + record(1).substr(0, 8), "1First,_,");
  }
  path_ = useSpecs(kTwoWalls);
  play(kWallSetup + "press \"Delete\"\npress \"Delete\"\n" + refused + kCancel);
}

// tests/cases/walls has the limits themselves.
TEST_F(WallDialog, AnAngleThatCannotBeCutIsNotAddedEither) {
  play(kWallSetup + "set \"End angle\" 180\npress \"Add\"\n" +
       "expect message \"A wall's end is cut at 1 to 179 degrees, or 181 to 359.\"\nexpect focus \"End angle\"\n" +
       kCancel);
  EXPECT_EQ(read(path_), kTwoWalls);
}

TEST_F(WallDialog, ALayerThatComesAndGoesHoldsNoWalls) {
  for (const std::string layer : {"arch scratch lnk", "ARCH_SCRATCH_RPT", "Mech_Scratch", "MECH_SCRATCH_LNK"}) {
    std::string name = layer;
    ardenix::cleanName(name, true);
    play(kWallSetup + "set \"Wall layer\" \"" + layer + "\"\n" + kOk + "expect message \"The layer \\\"" + name +
         "\\\" holds parts in the making only.\"\n" + kCancel);
    EXPECT_EQ(read(path_), kTwoWalls) << layer;
  }
}

// ---- Names -------------------------------------------------------------------------------------------------

TEST_F(WallDialog, ANameTypedOverTheOldOneIsSaved) {
  play(kWallSetup + "set \"Wall\" \" Garden, low \"\nexpect \"Cavity width\" \"50.00\"\n" + kOk);
  EXPECT_TRUE(record(1).starts_with("Garden  low,OUTER,0,")) << record(1);
  EXPECT_EQ(record(2), kInner);
  play(kWallSetup + "set \"Wall\" \" , \"\n" + kOk + "expect message \"Invalid name! Please try again.\"\n" + kCancel);
}

// Neither a name that passes through another's on its way nor what was set meanwhile is lost.
TEST_F(WallDialog, TypingThroughAnotherNameChoosesNothing) {
  play(kWallSetup + "set \"Cavity width\" 75\ntype \"Wall\" \"Inner leaf\"\nexpect \"Cavity width\" \"75.00\"\n" + kOk);
  EXPECT_TRUE(record(1).starts_with("Inner leaf,OUTER,0,")) << record(1);
  EXPECT_NE(record(1).find(",150.00,110.00,75.00,"), std::string::npos);
  EXPECT_EQ(setting("Current") + record(2), "1" + kInner);
}

TEST_F(WallDialog, TheWholeNameOfAnotherTypeChoosesIt) {
  play(kWallSetup + "set \"Wall\" \"Inner\"\nexpect \"Wall width\" \"90.00\"\n" + kOk);
  EXPECT_EQ(setting("Current") + record(1) + record(2), "2" + kOuter + kInner);
  play(kWallSetup +
       "set \"Wall\" \"Gone\"\npress \"Delete\"\nexpect \"Wall\" \"Outer\"\nexpect \"Wall\" items \"Outer\"\n" +
       kCancel);
}

}  // namespace

#include "mech/record_dialog.h"

#include <gtest/gtest.h>

#include "host/scripts/script_syntax.h"
#include "tests/mech/command_session.h"

namespace {

using Texts = std::vector<std::string>;

const std::string kSetupLines = "[Setup]\nWeldSymbols=w.drg\n";
const std::string kBoltLines =
    "[BOLTS]\nCurrent=1\nBolt1=M8,13.000,5.300,8.000,40.000,22.000,6.470\n"
    "Bolt2=M10,17.000,6.400,10.000,40.000,26.000,8.160\nBolt3=M12,19.000,7.500,12.000,60.000,30.000,9.850\n";

class DefinitionDialogTest : public CommandSession {
 protected:
  DefinitionDialogTest() { path_ = useLibrary(kSetupLines + kBoltLines); }

  // Opens the bolt dialog, does what the script says and closes it with Cancel.
  void visit(const std::string& script) {
    log_.lines.clear();
    play("run MechDrawBolts\n" + kOpen + script + "press \"Cancel\"\n");
  }
  [[nodiscard]] Texts names() const { return ardenix::mech::DefinitionStore(path_).names("BOLTS"); }
  [[nodiscard]] std::string record(int n) const {
    return ardenix::mech::DefinitionStore(path_).record("BOLTS", n).value_or("");
  }
  [[nodiscard]] static std::string named(const std::string& name) {
    return "dialog \"Ardenix - Add New Item\"\nset \"Name for new Bolt\" \"" + name + "\"\npress \"OK\"\n";
  }

  void testStep(const std::string&) override { write("library.ini", kTheirs); }

  static inline const std::string kTheirs = kSetupLines + "[BOLTS]\nBolt1=Theirs,1,1,1,1,1,1\n; written meanwhile\n";
  static inline const std::string kOpen = "dialog \"Mechanical Ardenix - Hex Bolts\"\n";
  static inline const std::string kAsk = "dialog \"Save Changes to Bolt?\"\n";
  static inline const std::string kSave = kAsk + "pick \"Choice\" \"Save the changes\"\npress \"OK\"\n";
  static inline const std::string kSaveNew =
      kAsk + "pick \"Choice\" \"Save the changes as a new definition\"\npress \"OK\"\n";
  static inline const std::string kDiscard =
      kAsk + "pick \"Choice\" \"Leave the definition as it was (discard the changes)\"\npress \"OK\"\n";
  static inline const std::string kNoName = "dialog \"Ardenix - Add New Item\"\npress \"Cancel\"\n";
  std::string path_;
};

TEST_F(DefinitionDialogTest, OpensOnTheDefinitionLastUsed) {
  visit(
      "expect \"Definition\" \"M10\"\nexpect \"Definition\" items \"M8\" \"M10\" \"M12\"\n"
      "expect \"Head size\" 17.0\nexpect \"Minor Dia\" 8.16\nexpect \"Side View (elevation)\" 1\n"
      "expect \"Polar value\" disabled\npick \"Repeat\" \"Polar\"\nexpect \"Polar value\" enabled\n");
}

TEST_F(DefinitionDialogTest, CancelWritesNothingOfTheEdits) {
  const std::string before = read(path_);
  visit("set \"Length\" 55\ncheck \"Top View (plan)\"\nset \"Number =\" 7\n");
  EXPECT_EQ(read(path_), before);
}

TEST_F(DefinitionDialogTest, OkWritesOptionsAndCurrentOnly) {
  play("run MechDrawBolts\n" + kOpen +
       "pick \"Definition\" \"M12\"\ncheck \"Top View (plan)\"\npick \"Draw shaft as:\" \"Hidden line\"\n"
       "set \"Number =\" 4\nset \"Repeat value\" 25\npick \"Repeat\" \"Polar\"\npick \"Polar value\" \"PCD\"\n"
       "press \"OK\"\nspace\n");
  const ardenix::mech::DefinitionStore store(path_);
  const Texts keys = {"DrawElev", "DrawPlan", "AutoAlignElev", "HeadLT", "ShaftLT", "BoltRepeat"};
  Texts values;
  for (const std::string& key : keys) { values.push_back(store.file().ReadString("Defaults", key, "missing")); }
  EXPECT_EQ(values, (Texts{"1", "1", "0", "0", "1", "25.000000,4,-1"}));
  EXPECT_EQ(store.current("BOLTS"), 2);
  EXPECT_EQ(record(3), "M12,19.000,7.500,12.000,60.000,30.000,9.850");
  visit(
      "expect \"Definition\" \"M12\"\nexpect \"Repeat\" \"Polar\"\nexpect \"Polar value\" \"PCD\"\n"
      "expect \"Number =\" 4\nexpect \"Repeat value\" 25.0\n");
}

// ---- Edits that were not saved ------------------------------------------------------------------------------

TEST_F(DefinitionDialogTest, AnEditIsSavedDroppedOrKeptAsNew) {
  visit("set \"Length\" 55\npick \"Definition\" \"M8\"\n" + kSave +
        "expect \"Length\" 40.0\nset \"Length\" 99\npick \"Definition\" \"M12\"\n" + kDiscard +
        "expect \"Length\" 60.0\nset \"Length\" 70\npick \"Definition\" \"M8\"\n" + kSaveNew + named("M12 long") +
        "expect \"Definition\" \"M12 long\"\nexpect \"Length\" 70.0\n");
  EXPECT_EQ(names(), (Texts{"M8", "M10", "M12", "M12 long"}));
  EXPECT_EQ(record(1), "M8,13.000,5.300,8.000,40.000,22.000,6.470");
  EXPECT_EQ(record(2), "M10,17.000,6.400,10.000,55.000,26.000,8.160");
  EXPECT_EQ(record(4), "M12 long,19.000,7.500,12.000,70.000,30.000,9.850");
}

TEST_F(DefinitionDialogTest, StaysWithTheEditedValuesWhereTheyAreNotSaved) {
  visit("set \"Length\" 10\npick \"Definition\" \"M8\"\n" + kSave +
        "expect \"Definition\" \"M10\"\nexpect \"Length\" 10.0\nexpect focus \"Thread length\"\n"
        "pick \"Definition\" \"M8\"\n" +
        kSaveNew + kNoName + "expect \"Definition\" \"M10\"\nexpect \"Length\" 10.0\n");
  EXPECT_EQ(log_.of("message"), Texts{"The thread length may not be greater than the shaft length!"});
  EXPECT_EQ(names(), (Texts{"M8", "M10", "M12"}));
}

TEST_F(DefinitionDialogTest, AChoiceMustBeMadeAndCancelIsDiscard) {
  visit("set \"Length\" 55\npick \"Definition\" \"M8\"\n" + kAsk +
        "expect \"Choice\" \"\"\npress \"OK\"\npress \"Cancel\"\nexpect \"Definition\" \"M8\"\n");
  EXPECT_EQ(log_.of("message"), Texts{"You must select one of the options!"});
  EXPECT_EQ(record(2), "M10,17.000,6.400,10.000,40.000,26.000,8.160");
}

TEST_F(DefinitionDialogTest, OptionsAreNoChangeOfTheDefinition) {
  visit("check \"Top View (plan)\"\nset \"Number =\" 3\npick \"Repeat\" \"Polar\"\npick \"Definition\" \"M8\"\n");
  EXPECT_EQ(log_.of("dialog"), Texts{"Mechanical Ardenix - Hex Bolts"});
}

// ---- Add and Delete -----------------------------------------------------------------------------------------

TEST_F(DefinitionDialogTest, NamesAreTidiedAndMustBeNew) {
  visit("press \"Add\"\n" + named(" M10, fine ") + "press \"Add\"\n" + named("m10") + "press \"Add\"\n" + named("   ") +
        named("M10") + named(std::string(40, 'x')) + "press \"Add\"\n" + named(std::string(32, 'x')) + kNoName +
        "press \"Add\"\n" + named(std::string(31, 'y')));
  EXPECT_EQ(names(), (Texts{"M8", "M10", "M12", "M10  fine", "m10", std::string(31, 'x'), std::string(31, 'y')}));
  const std::string cut = "The bolt name you have entered is too long. It will be truncated to 31 characters.";
  EXPECT_EQ(log_.of("message"),
            (Texts{"Invalid name! Please try again.", "This name already exists! Please enter a different name.", cut,
                   cut, "This name already exists! Please enter a different name."}));
}

TEST_F(DefinitionDialogTest, AThreadLongerThanItsShaftIsNotStored) {
  visit("set \"Length\" 10\npress \"Add\"\n" + kDiscard + named("Short"));
  EXPECT_EQ(log_.of("message"), Texts{"The Thread Length must be less or equal to the Total Length"});
  EXPECT_EQ(names(), (Texts{"M8", "M10", "M12"}));
}

TEST_F(DefinitionDialogTest, DeletingSelectsTheOneBefore) {
  visit(
      "press \"Delete\"\nreply no\nexpect \"Definition\" \"M10\"\npress \"Delete\"\nreply yes\n"
      "expect \"Definition\" \"M8\"\nexpect \"Thread diameter\" 8.0\npress \"Delete\"\nreply yes\n"
      "expect \"Definition\" \"M12\"\nexpect \"Thread diameter\" 12.0\npress \"Delete\"\nreply yes\n"
      "expect \"Definition\" \"\"\nexpect \"Thread diameter\" 12.0\npress \"Delete\"\n");
  EXPECT_EQ(log_.of("message").front(), "Delete Bolt?|Are you sure you want to delete Bolt definition 'M10' ?");
  EXPECT_EQ(names(), Texts{});
  EXPECT_NE(read(path_).find("Bolt3=\n"), std::string::npos);
}

TEST_F(DefinitionDialogTest, AnEmptySectionTakesItsFirstRecord) {
  path_ = useLibrary(kSetupLines);
  visit("expect \"Head size\" 0.0\npress \"Add\"\n" + named("First") + "expect \"Definition\" \"First\"\n");
  EXPECT_EQ(record(1), "First,0.000,0.000,0.000,0.000,0.000,0.000");
}

// ---- OK -----------------------------------------------------------------------------------------------------

TEST_F(DefinitionDialogTest, ValuesThatAreNotSavedAreStillDrawn) {
  play("run MechDrawBolts\n" + kOpen + "set \"Length\" 50\npress \"OK\"\n" + kDiscard +
       "point 0 0\nmenu \"No Rotation\"\nspace\n");
  EXPECT_EQ(groups(), Texts{"BOLTS M10_S1 24"});
  EXPECT_NEAR(drawing().extents().low.y, -52, 1e-9);
  EXPECT_EQ(record(2), "M10,17.000,6.400,10.000,40.000,26.000,8.160");
}

TEST_F(DefinitionDialogTest, ALibraryChangedByAnotherProgramIsNotOverwritten) {
  const std::string script = "run MechDrawBolts\n" + kOpen + "press \"Cancel\"\ntest change\nrun MechDrawBolts\n" +
                             kOpen + "expect \"Definition\" \"M10\"\npress \"OK\"\n";
  EXPECT_THROW(play(script), HostFailure);
  EXPECT_EQ(read(path_), kTheirs);
  EXPECT_EQ(drawing().count(), 0U);
}

// ---- The plain family ---------------------------------------------------------------------------------------

// A kind whose names and edits are taken as given, with a field of every sort.
enum class Quality { kRough, kFine };
struct Wheel {
  double module = 0.0;
  int teeth = 0;
  Quality quality = Quality::kRough;
  bool hardened = false;
  std::string material;
  std::string note;
  int counted = 0;
};
constexpr const char* kQualities[] = {"Rough", "Fine"};
using ardenix::mech::choice;
constexpr ardenix::mech::Field<Wheel> kWheelFields[] = {
    {.member = &Wheel::module, .place = 2, .label = "Module", .tip = "", .maximum = 1000.0, .stored = "%.1f"},
    {.member = &Wheel::teeth,
     .place = 3,
     .label = "Teeth",
     .tip = "",
     .minimum = 2.0,
     .maximum = 1000.0,
     .fallback = 25},
    {.member = &Wheel::note, .place = 8, .label = "Note", .tip = "", .limit = 20, .multiline = true},
    {.member = &Wheel::material, .place = 6, .label = "Material", .tip = "", .limit = 80},
    {.member = choice<&Wheel::quality>(kQualities), .place = 4, .label = "Quality", .tip = ""},
    {.member = &Wheel::hardened,
     .place = 5,
     .label = "Hardened",
     .tip = "",
     .enabled = [](const Wheel& wheel) { return wheel.quality == Quality::kFine; }},
    {.member = &Wheel::counted, .place = 7, .label = "Counted", .tip = "", .marksEdited = false},
};

class PlainDialog : public ardenix::mech::RecordDialog<Wheel> {
 public:
  PlainDialog(const ardenix::Services& services, ardenix::mech::DefinitionStore& store)
      : RecordDialog(services, store, ardenix::mech::definitionKind("GEARS"), kWheelFields) {}
  Wheel accepted;

 protected:
  bool optionsComplete() override { return choicesMade(); }
  void accept() override { accepted = record(); }
};

class PlainFamilyTest : public CommandSession {
 protected:
  void testStep(const std::string&) override {
    const ardenix::Services services{&host().mainFrame(), true, nullptr};
    ardenix::mech::DefinitionStore store(path_);
    PlainDialog dialog(services, store);
    dialog.run();
    accepted_ = dialog.accepted;
  }
  void visit(const std::string& script) { play("test visit\ndialog \"Mechanical Ardenix - Spur Gears\"\n" + script); }

  std::string path_ =
      write("gears.ini", "[GEARS]\nBolt1=A,2.0,20,1,1,steel,0,one\\Ntwo\nBolt2=B,3.0\nBolt3=C,1.0,30,7\n");
  Wheel accepted_;
};

TEST_F(PlainFamilyTest, AsksYesOrNoAndNeverStays) {
  visit(
      "set \"Module\" 5\npick \"Definition\" \"B\"\nreply yes\nexpect \"Teeth\" 25\n"
      "set \"Teeth\" 31\npick \"Definition\" \"A\"\nreply no\nexpect \"Module\" 5.0\n"
      "set \"Teeth\" 25\npress \"OK\"\nreply no\n");
  EXPECT_EQ(log_.of("message"), (Texts{"Save Gear|A has changed, do you want to save it?",
                                       "Save Gear|B has changed, do you want to save it?",
                                       "Save Gear|A has changed, do you want to save it?"}));
  EXPECT_EQ(accepted_.module, 5.0);
  EXPECT_EQ(accepted_.teeth, 25);
  const ardenix::mech::DefinitionStore store(path_);
  EXPECT_EQ(store.record("GEARS", 1), "A,5.0,20,1,1,steel,0,one\\Ntwo");
  EXPECT_EQ(store.record("GEARS", 2), "B,3.0");
}

TEST_F(PlainFamilyTest, FieldsOfEverySortGoBetweenRecordAndDialog) {
  visit(
      "expect \"Material\" \"steel\"\nexpect \"Hardened\" 1\nexpect \"Hardened\" enabled\n"
      "pick \"Quality\" \"Rough\"\nexpect \"Hardened\" disabled\nset \"Material\" \"brass\"\n"
      "press \"OK\"\nreply yes\n");
  EXPECT_EQ(ardenix::mech::DefinitionStore(path_).record("GEARS", 1), "A,2.0,20,0,1,brass,0,one\\Ntwo");
}

TEST_F(PlainFamilyTest, ATextKeepsItsCommasHowManyItHas) {
  const std::string many(60, ',');
  visit("set \"Material\" \"brass" + many + "\"\npress \"OK\"\nreply yes\n");
  visit("expect \"Material\" \"brass" + many + "\"\nexpect \"Hardened\" 1\npress \"Cancel\"\n");
  EXPECT_TRUE(
      ardenix::mech::DefinitionStore(path_).record("GEARS", 1)->starts_with("A,2.0,20,1,1,brass_COMMA__COMMA_"));
}

TEST_F(PlainFamilyTest, AnEntryBeyondTheListIsAskedForAndACountIsNoEdit) {
  visit(
      "set \"Counted\" 4\npick \"Definition\" \"C\"\npress \"OK\"\nexpect focus \"Quality\"\n"
      "pick \"Quality\" \"Fine\"\npress \"OK\"\nreply no\n");
  EXPECT_EQ(log_.of("message"),
            (Texts{"Please select a Quality from its list.", "Save Gear|C has changed, do you want to save it?"}));
}

TEST_F(PlainFamilyTest, TakesNamesAsGivenButForTheirLength) {
  const auto add = [](const std::string& name) {
    return "press \"Add\"\ndialog \"Ardenix - Add New Item\"\nset \"Name for new Gear\" \"" + name +
           "\"\npress \"OK\"\n";
  };
  visit(add("A") + add("") + add(std::string(33, 'g')) + "press \"Cancel\"\n");
  EXPECT_EQ(ardenix::mech::DefinitionStore(path_).names("GEARS"),
            (Texts{"A", "B", "C", "A", "A", std::string(31, 'g')}))
      << "without a name the list's own is taken";
}

}  // namespace

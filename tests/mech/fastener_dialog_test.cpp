#include "mech/definition_store.h"
#include "tests/mech/fastener_session.h"

namespace {

class FastenerDialogTest : public FastenerSession {
 protected:
  FastenerDialogTest() {
    std::string library = kSetup;
    library +=
        "[CAPSCREWS]\nBolt1=M8,13,8,8,30,2,6.466,8,6,0,0\nBolt2=ODD,13,8,8,30,2,6.466,8,6,9,0\n"
        "[NUTS]\nNut1=M8,13,6.8,8,11.6,6.647,0,2.5,3,0,0\n"
        "[HOLES]\nHole1=M8,6.8,8,20,0,1,1,0,15\nHole2=OLD,6.8,8,20,3.5,1,1,0\n"
        "[RIVETS]\nBolt1=R4,4,2.4,7,0,6,2.4,7,0\n";
    path_ = useLibrary(library);
  }
  // Opens a dialog, does what the script says and closes it with Cancel.
  void visit(const std::string& command, const std::string& title, const std::string& script) {
    log_.lines.clear();
    play("run " + command + "\ndialog \"Mechanical Ardenix - " + title + "\"\n" + script + "press \"Cancel\"\n");
  }
  std::string path_;
};

struct BrokenRules {
  const char *command, *title, *edits, *focus;
  std::vector<std::string> messages;
};

const BrokenRules kBroken[] = {
    {"MechDrawScrews",
     "Socket Screws",
     "set \"Head size\" 5\nset \"Head hgt\" 0\nset \"Length\" 1\nset \"Minor dia\" 9\nset \"Number =\" 2\n"
     "set \"Repeat value\" 2\n",
     "Key size",
     {"The head diameter must be larger than the thread (nominal) diameter!",
      "The head height must be greater than 0 (zero)!", "The thread length may not be greater than the shaft length!",
      "The minor diameter may not be greater than the thread (nominal) diameter!",
      "The repeat spacing must be greater than the screw head diameter!",
      "The head key size must be less than the screw head diameter!"}},
    {"MechDrawNuts",
     "Nuts",
     "set \"Head size\" 7\nset \"Head height\" 0\nset \"Minor Dia\" 8\nset \"Washer diameter\" 0\n"
     "pick \"Type\" \"Slotted\"\nset \"Slot Width\" 0\nset \"Slot Depth\" 0\nset \"Number =\" 2\n"
     "set \"Repeat value\" 2\n",
     "Repeat value",
     {"Head size should be greater than thread nominal diameter!", "Head height must be greater than 0!",
      "Thread minor diameter must be less then thread nominal diameter!",
      "Flange or washer diameter must be greater thread nominal diameter!", "Slot width must be greater than 0 (zero)!",
      "Slot depth must be greater than 0 (zero)!",
      "The repeat spacing must be greater than the nut head or washer diameter!"}},
    {"MechDrawHoles",
     "Drilled Holes",
     "set \"Thread diameter\" 6\nset \"Countersink depth\" 21\nset \"Counterbore dia\" 6\nset \"Number =\" 2\n"
     "set \"Repeat value\" 2\n",
     "Repeat value",
     {"The thread diameter must be larger than the hole diameter!",
      "The thread length must be less than the length of the hole, minus the countersink!",
      "The countersink depth is greater then the length of the hole!",
      "The counterbore diameter is less then the hole diameter!",
      "The repeat spacing must be greater than the hole diameter!"}},
    {"MechDrawRivets",
     "Rivets",
     "set \"Nominal dia\" 7\nset \"RHS/Head height\" 0\nset \"LHS/Head height\" 0\nset \"Length\" 0\n"
     "set \"Number =\" 2\nset \"Repeat value\" 6.9\n",
     "Repeat value",
     {"Right head diameter should be greater than the shank diameter!",
      "Left head diameter should be greater than the shank diameter!", "Right head height must be greater than 0!",
      "Left head height must be greater than 0!", "Shank length must be greater than 0!",
      "Repeat spacing must be greater than the rivet head diameter!"}},
};

TEST_F(FastenerDialogTest, EveryRuleThatIsBrokenIsTold) {
  for (const BrokenRules& kind : kBroken) {
    visit(kind.command, kind.title, std::string(kind.edits) + "press \"OK\"\nexpect focus \"" + kind.focus + "\"\n");
    EXPECT_EQ(log_.of("message"), kind.messages) << kind.title;
  }
}

TEST_F(FastenerDialogTest, RulesOfAThreadOrASlotCountOnlyWhereThereIsOne) {
  draw("MechDrawNuts", "Nuts", "set \"Number =\" 2\nset \"Repeat value\" 13\n", "space\n");  // as far as it is wide
  draw("MechDrawHoles", "Drilled Holes", "set \"Thread diameter\" 1\npick \"Hole type\" \"Drilled\"\n",
       "dialog \"Save Changes to Hole?\"\npress \"Cancel\"\nspace\n");
  draw("MechDrawHoles", "Drilled Holes", "pick \"Definition\" \"OLD\"\nexpect \"Thread length\" 16.5\n", "space\n");
  EXPECT_EQ(log_.of("message"), Texts{}) << "a thread down to the bottom passes";
}

TEST_F(FastenerDialogTest, FieldsAndPicturesFollowTheChoices) {
  visit("MechDrawScrews", "Socket Screws",
        "expect \"Head picture\" picture \"screw_cylindrical\"\npick \"Head Type\" \"Rounded CS\"\n"
        "expect \"Head picture\" picture \"screw_rounded_countersunk\"\npick \"Head Key\" \"Pozi Drive\"\n"
        "expect \"Key picture\" picture \"key_cross\"\n");
  visit("MechDrawNuts", "Nuts",
        "expect \"Slot Width\" hidden\nexpect \"Slot Depth\" hidden\n"
        "expect \"Side picture\" picture \"nut_hexagon_rounded\"\npick \"Type\" \"Slotted\"\n"
        "expect \"Slot Width\" shown\npick \"Shape\" \"Flat Base\"\n"
        "expect \"Side picture\" picture \"nut_slotted_flat_base\"\n"
        "expect \"Plan picture\" picture \"nut_slotted_plan\"\n");
  visit("MechDrawHoles", "Drilled Holes",
        "expect \"Thread diameter\" shown\npick \"Hole type\" \"Dowel\"\nexpect \"Thread diameter\" hidden\n"
        "expect \"Thread length\" hidden\n");
  visit("MechDrawRivets", "Rivets",
        "expect \"Left head picture\" picture \"rivet_left_snap\"\npick \"Right head type\" \"C-sunk\"\n"
        "expect \"Left head picture\" picture \"rivet_left_snap\"\n"
        "expect \"Right head picture\" picture \"rivet_right_countersunk\"\n");
}

TEST_F(FastenerDialogTest, AnEntryThatItsListDoesNotHaveMustBeChosenAnew) {
  visit(
      "MechDrawScrews", "Socket Screws",
      "pick \"Definition\" \"ODD\"\nexpect \"Head picture\" picture \"\"\npress \"OK\"\nexpect focus \"Head Type\"\n");
  EXPECT_EQ(log_.of("message"), Texts{"Please select a Head Type from its list."});
}

TEST_F(FastenerDialogTest, RecordsAreSavedInTheirOwnFormats) {
  const struct {
    const char *command, *title, *word, *section, *record;
  } kinds[] = {
      {"MechDrawScrews", "Socket Screws", "Screw", "CAPSCREWS",
       "NEW,13.000,8.000,8.000,30.000,2.000,6.466,8.000,6.000,0,0"},
      {"MechDrawNuts", "Nuts", "Nut", "NUTS", "NEW,13.000,6.800,8.000,11.600,6.647,0.000,2.500,3.000,0,0"},
      {"MechDrawHoles", "Drilled Holes", "Hole", "HOLES", "NEW,6.800,8.000,20.000,0.000,1,1,0.000,15.000"},
      {"MechDrawRivets", "Rivets", "Rivet", "RIVETS", "NEW,4.000,2.400,7.000,0,6.000,2.400,7.000,0"},
  };
  for (const auto& kind : kinds) {
    visit(kind.command, kind.title,
          std::string("press \"Add\"\ndialog \"Ardenix - Add New Item\"\nset \"Name for new ") + kind.word +
              "\" \"NEW\"\npress \"OK\"\n");
    const ardenix::mech::DefinitionStore store(path_);
    EXPECT_EQ(store.record(kind.section, store.count(kind.section)), kind.record);
  }
}

// What one dialog chose is what the next shows, but for its repeat.
TEST_F(FastenerDialogTest, KindsShareTheirViewsAndStyles) {
  draw("MechDrawNuts", "Nuts",
       "check \"Draw top view (plan view)\"\npick \"Style of the side view\" \"Hidden line\"\nset \"Number =\" 4\n"
       "set \"Repeat value\" 25\n",
       "space\n");
  visit("MechDrawRivets", "Rivets",
        "expect \"Top View (plan)\" 1\nexpect \"Draw shaft as:\" \"Hidden line\"\nexpect \"Draw head as:\" \"Solid "
        "line\"\n"
        "expect \"Number =\" 1\n");
  const ardenix::mech::DefinitionStore store(path_);
  EXPECT_EQ(store.file().ReadString("Defaults", "NutRepeat", ""), "25.000000,4,0");
  EXPECT_EQ(store.file().ReadString("Defaults", "AutoAlignElev", "none"), "none") << "nuts are not aligned";
}

// Styles of nuts and holes belong to the views.
TEST_F(FastenerDialogTest, AViewIsDrawnInItsOwnStyle) {
  for (const auto& [command, title, turn] : {std::array{"MechDrawNuts", "Nuts", "point 0 0\n"},
                                             {"MechDrawHoles", "Drilled Holes", "menu \"No Rotation\"\n"}}) {
    draw(command, title, "pick \"Style of the side view\" \"Hidden line\"\n",
         std::string("point 0 0\n") + turn + "space\n");
    drawing().forEach([](brevan::PrimitiveId, const brevan::Primitive& stroke) {
      EXPECT_NE(stroke.pen, 1) << "hidden lines and the axis have pens of their own";
    });
  }
}

}  // namespace

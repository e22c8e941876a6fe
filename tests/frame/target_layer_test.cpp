#include <gtest/gtest.h>

#include <filesystem>

#include "tests/mech/command_session.h"

// What every command that draws does where its layer takes no parts, and to the style that the user works in.
namespace {

using Texts = std::vector<std::string>;

struct Command {
  std::string name;
  std::string dialog;
  std::string layer;  // that it draws on when it is the current one
  std::string answers;
};

const std::string kFastener = "Mechanical Ardenix - ";
const Command kCommands[] = {
    {"MechDrawBolts", kFastener + "Hex Bolts", "MINE", "point 0 0\nmenu \"No Rotation\"\nspace\n"},
    {"MechDrawScrews", kFastener + "Socket Screws", "MINE", "point 0 0\nmenu \"No Rotation\"\nspace\n"},
    {"MechDrawNuts", kFastener + "Nuts", "MINE", "point 0 0\npoint 0 9\nspace\n"},
    {"MechDrawHoles", kFastener + "Drilled Holes", "MINE", "point 0 0\nmenu \"No Rotation\"\nspace\n"},
    {"MechDrawRivets", kFastener + "Rivets", "MINE", "point 0 0\nmenu \"No Rotation\"\nspace\n"},
    {"ArchDrawWalls", "Wall Setup", "WALLS_EXTERNAL", "point 0 0\npoint 0 9000\nspace\nspace\n"},
};

class TargetLayer : public CommandSession {
 protected:
  void SetUp() override {
    for (const std::string name : {"ISO Mechspecs.ini", "ArchSpecs.ini"}) {
      std::filesystem::copy_file(std::string(BREVAN_DATA) + "/" + name, folder() + "/" + name);
    }
    settings().SetString("MechanicalTools", "SpecFile", folder() + "/ISO Mechspecs.ini");
  }
  // Makes the current layer locked or hidden.
  void testStep(const std::string& state) override {
    brevan::Layer layer = *drawing().layer(drawing().currentLayer());
    (state == "locked" ? layer.locked : layer.visible) = state == "locked";
    drawing().changeLayer(drawing().currentLayer(), layer);
  }
  void draw(const Command& command, const std::string& before, const std::string& answers) {
    log_.lines.clear();
    play(before + "run " + command.name + "\ndialog \"" + command.dialog + "\"\npress \"OK\"\n" + answers);
  }
};

TEST_F(TargetLayer, ALockedOrHiddenLayerIsRefusedBeforeTheFirstPrompt) {
  for (const Command& command : kCommands) {
    for (const std::string state : {"locked", "hidden"}) {
      const std::string message =
          "The layer \\\"" + command.layer + "\\\" is " + state + ", nothing can be drawn on it";
      draw(command, "macro NEWLAYER \"" + command.layer + "\"\ntest " + state + "\n",
           "expect message \"" + message + "\"\n");
      EXPECT_EQ(log_.of("prompt"), Texts{}) << command.name << ", " << state;
      EXPECT_EQ(drawing().count(), 0U) << command.name << ", " << state;
    }
    draw(command, "macro NEWLAYER \"" + command.layer + "\"\n", command.answers);
    EXPECT_GT(drawing().count(), 0U) << command.name;
  }
}

TEST_F(TargetLayer, TheUsersStyleIsCurrentAgainHoweverACommandEnds) {
  for (const Command& command : kCommands) {
    for (const std::string& answers : {std::string("space\n"), std::string("escape\n"), command.answers}) {
      draw(command, "macro LINETYPE 7 3\nmacro WIDTH 1.23456789\n", answers);
      const brevan::DrawingStyle& style = host().window().style();
      EXPECT_TRUE(style.linetype == 7 && style.pen == 3 && style.width == 1.23456789)
          << command.name << ", " << answers;
    }
  }
}

}  // namespace

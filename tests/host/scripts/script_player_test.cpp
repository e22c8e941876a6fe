#include "host/scripts/script_player.h"

#include <gtest/gtest.h>

#include "host/files/json_writer.h"
#include "tests/core_fixture.h"
#include "tests/failure.h"

namespace {

using namespace brevan;

class Player : public CoreFixture {
 protected:
  // The script's failure, "" where it played to its end.
  std::string play(const std::string& text) {
    script_ = readScript("a.scr", text);
    player_.reset();
    player_.emplace(script_, PlayerParts{confined_,
                                         settings(),
                                         {{"json", [](const Drawing& drawing, int) { return drawingJson(drawing); }}},
                                         ARDENIX_MODULE,
                                         "",
                                         &transcript_,
                                         {},
                                         {},
                                         mostDrawn_});
    return failureOf([this] { player_->play(); });
  }
  Drawing& drawing() { return player_->host().window().drawing(); }
  Transcript transcript_;
  uint64_t mostDrawn_ = PlayerParts::kMostDrawn;

 private:
  FileServices confined_{folder(), folder(), FileServices::Confinement{folder() + "/out", {}}};
  Script script_;
  std::optional<ScriptPlayer> player_;
};

TEST_F(Player, EveryStatementRefusesBadInputWithItsLineAndRule) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"fly", "there is no statement \"fly\""},
      {"point 1 2", "no command waits for an answer, the script gave: point 1 2"},
      {"press \"OK\"", "no command waits for an answer, the script gave: press \"OK\""},
      {"pen 3", "no command waits for an answer, the script gave: pen 3"},
      {"setting \"A\" \"B\"", "setting expects 3 words after it, got 2"},
      {"parameter scale 0", "scale takes a number above 0"},
      {"parameter unit -1", "unit takes a number above 0"},
      {"parameter scale \"5\"", "parameter expects a number, got \"5\""},
      {"parameter orientation 2", "orientation does not take 2"},
      {"parameter coordinateSystem 0.5", "coordinateSystem does not take 0.5"},
      {"parameter colour 1", "there is no parameter \"colour\""},
      {"textstyle \"Arial\" 0 1 1 1", "a text's height is above 0, got 0"},
      {"textstyle \"Arial\" 35 1 10 1", "a justification is 1 to 9 or 11 to 19"},
      {"textstyle \"Arial\" 35 1 20 1", "a justification is 1 to 9 or 11 to 19"},
      {"textstyle \"Arial\" 35 -1 1 1", "a text's width factor is 0 (for 1) or more"},
      {"textstyle \"Arial\" 35 1 1 0", "a pen is 1 to 256, got 0"},
      {"dimstyle one", "dimstyle expects a number, got \"one\""},
      {"new \"Drawing1\"", "there is a window \"Drawing1\" already"},
      {"window \"None\"", "there is no window \"None\""},
      {"closewindow \"None\"", "there is no window \"None\""},
      {"sheet \"A5\" portrait", "sheet expects A0 to A4, got \"A5\""},
      {"sheet \"A4\" upright", "sheet expects portrait or landscape, got \"upright\""},
      {"sheet \"A4\" portrait 1", "sheet expects both coordinates of its corner"},
      {"style 1 0 1", "a line type is 1 or more"},
      {"style 257 1 1", "a pen is 1 to 256, got 257"},
      {"style 1 1 -1", "a line width is 0 or more"},
      {"style 1 1e10 1", "style expects a whole number, got \"1e10\""},
      {"draw", "draw expects 1 to 11 words after it, got 0"},
      {"draw ellipse 1 2 3", "draw expects line, circle, arc, text or symbol, got \"ellipse\""},
      {"draw line 1 2 3", "draw expects 5 words after it, got 4"},
      {"draw line 1 2 3 1e400", "draw expects a number, got \"1e400\""},
      {"draw circle 0 0 0", "a radius is above 0, got 0"},
      {"draw arc 0 0 1 1 2 2 2", "an arc's direction is 0 or 1"},
      {"draw text 0 0 -1 \"x\"", "a text's height is above 0, got -1"},
      {"draw symbol \"NONE\" 0 0 1 0", "there is no symbol \"NONE\""},
      {"macro NEWLAYER", "column 9: NEWLAYER expects a text in quotes here"},
      {"macro", "column 1: a macro command starts with a word"},
      {"read", "read expects 1 words after it, got 0"},
      {"run NoSuchCommand", "There is no command \"NoSuchCommand\"."},
      {"undo", "there is nothing to undo"},
      {"redo", "there is nothing to redo"},
      {"export \"a.json\" dpi 9", "export expects dpi and a number from 10 to 2400 after the file"},
      {"layerstate \"NONE\" shown locked", "there is no layer \"NONE\""},
      {"layerstate \"0\" seen locked", "layerstate takes shown or hidden, got \"seen\""},
      {"expect \"Length\" 1", "no dialog is open in which a control could be looked at"},
      {"expect prompt \"P\"", "the script expects a prompt, there is none"},
      {"expect status \"S\"", "the status is \"\", the script expects \"S\""},
  };
  for (const auto& [statement, rule] : cases) { EXPECT_EQ(play("\n" + statement + "\n"), "a.scr:2: " + rule); }
  EXPECT_NE(play("parameter unit 1e308\n"), "") << "a unit that overflows";
  EXPECT_NE(play("expect no prompt\n"), "") << "a check that cannot fail";
  EXPECT_NE(play("layer \"L\"\nmacro NEWLAYER \"M\"\nmacro FLY\n").find("a.scr:3: column 1"), std::string::npos);
}

TEST_F(Player, WhatDrawsWithoutEndIsStoppedByName) {
  mostDrawn_ = 100;
  const std::string grow = "macro SELECTLAYER \"0\"\nmacro REPEAT 40 \"Y\" [0,0] [1,1]\n";
  const std::string rule = "a script draws and changes at most 100 primitives";
  EXPECT_EQ(play("draw line 0 0 1 1\n" + grow), "");
  EXPECT_EQ(play("draw line 0 0 1 1\n" + grow + grow), "a.scr:5: " + rule);
  EXPECT_EQ(play("draw line 0 0 1 1\n" + grow + "undo\n" + grow + "undo\n" + grow), "a.scr:9: " + rule);
  EXPECT_EQ(play("draw text 0 0 35 \"" + std::string(20000, 'x') + "\"\n"), "a.scr:1: " + rule);
  std::string windows;
  for (int window = 1; window <= 3; ++window) { windows += "new\ndraw line 0 0 1 1\n" + grow; }
  EXPECT_EQ(play(windows), "a.scr:12: " + rule);
  windows = "";
  for (size_t window = 0; window < Host::kMostWindows; ++window) { windows += "new\n"; }
  EXPECT_EQ(play(windows), "a.scr:1000: there are 1000 windows open, and no more can be opened");
}

TEST_F(Player, DrawsAsTheDesktopsToolsDo) {
  ASSERT_EQ(play("parameter scale 50\nlayer \"WALLS\"\nstyle 3 2 2.5\ntextstyle \"Courier New\" 25 0.8 5 7\n"
                 "draw line 0 0 10 0\ndraw circle 5 5 2\ndraw arc 1 0 0 0 0 1 1\ndraw text 1 2 35 \"A\"\n"
                 "macro PARENT \"P\"\nmacro BEGINGROUP \"G\"\ndraw line 1 1 2 2\nundo\nredo\n"),
            "");
  ASSERT_EQ(drawing().count(), 5U);
  drawing().forEach([&](PrimitiveId, const Primitive& primitive) {
    EXPECT_EQ(drawing().layer(primitive.layer)->name, "WALLS");
    const Primitive wanted{primitive.layer, 3, 2, 2.5, 0, primitive.geometry};
    EXPECT_EQ(primitive, wanted) << "the tools draw outside of any group";
  });
  EXPECT_TRUE(isFullCircle(std::get<Arc>(drawing().find(2)->geometry)));
  const Text wanted{{1, 2}, "A", "Courier New", 35.0, 0.0, 5, 0, 7, 0.8};
  EXPECT_EQ(std::get<Text>(drawing().find(4)->geometry), wanted);
  for (int step = 0; step < 5; ++step) { EXPECT_TRUE(drawing().undo()) << "each figure is a step of its own"; }
  EXPECT_EQ(drawing().count(), 0U);
  ASSERT_EQ(play("layer \"WALLS\"\nlayerstate \"WALLS\" hidden locked\n"), "");
  const Layer& walls = *drawing().layer(drawing().layerNamed("WALLS"));
  EXPECT_TRUE(!walls.visible && walls.locked);
  drawing().undo();
  EXPECT_TRUE(walls.visible && !walls.locked);
}

TEST_F(Player, WindowsSettingsAndVariables) {
  ASSERT_EQ(play("new \"Drawing3\"\nnew\nnew\ndraw line 0 0 1 1\nwindow \"Drawing1\"\n"
                 "setting \"Mech\" \"Key\" \"Val\"\nread NOTSET\n"),
            "");
  EXPECT_EQ(drawing().count(), 0U);
  EXPECT_NE(transcript_.lines().find("{\"event\":\"variable\",\"name\":\"NOTSET\",\"value\":null}\n"),
            std::string::npos);
}

}  // namespace

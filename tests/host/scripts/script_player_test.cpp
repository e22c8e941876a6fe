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
    player_.emplace(
        script_,
        PlayerParts{confined_,
                    settings(),
                    {{"json", [](const Drawing& drawing, const ExportOptions&) { return drawingJson(drawing); }}},
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

#include "frame/drafting/scratch_layer.h"

#include <gtest/gtest.h>

#include "frame/drafting/part_round.h"
#include "frame/drafting/pen.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "tests/core_fixture.h"

namespace ardenix {
namespace {

using scratchNames::kMechanical;

class ScratchLayerTest : public CoreFixture {
 protected:
  CCadWindow& view() { return host_.window(); }
  brevan::Drawing& drawing() { return host_.window().drawing(); }
  void drawLine() { DraftingPen(view(), LineStyle{}).line({0, 0}, {10, 0}); }
  // How many primitives a layer holds; -1 where there is no such layer.
  int count(const std::string& layer) {
    const int index = drawing().layerNamed(layer);
    return index < 0 ? -1 : static_cast<int>(drawing().onLayer(index).size());
  }
  [[nodiscard]] bool shown(const std::string& layer) { return drawing().layer(drawing().layerNamed(layer))->visible; }
  std::string groupOfFirst(const std::string& layer) {
    const auto id = drawing().onLayer(drawing().layerNamed(layer)).front();
    const brevan::GroupId group = drawing().find(id)->group;
    return group == 0 ? "" : std::string(drawing().group(group).parent) + "/" + drawing().group(group).name;
  }

 private:
  brevan::SilentUser user_;
  brevan::Host host_{brevan::HostParts{user_, files(), settings(), nullptr, ""}};
};

TEST_F(ScratchLayerTest, APartGoesToItsTargetInItsGroupOrStaysBehindAsACopyOnly) {
  for (const bool copies : {false, true}) {
    view().gsAddLayer("USER");
    const std::string group = startPart(view(), "PARTS", "P");
    const std::string target = copies ? "COPIED" : "MOVED";
    {
      ScratchLayer scratch(view(), kMechanical);
      EXPECT_EQ(view().gsGetCurrentLayerName(), kMechanical);
      drawLine();
      scratch.link(group);
      copies ? scratch.copyTo(target) : scratch.moveTo(target);
      EXPECT_EQ(view().gsGetCurrentLayerName(), "USER");
    }
    EXPECT_EQ(count(target), 1);
    EXPECT_EQ(groupOfFirst(target), "PARTS/" + group);
    EXPECT_EQ(count(std::string(kMechanical)), -1);
    EXPECT_EQ(drawing().count(), copies ? 2U : 1U);
  }
}

TEST_F(ScratchLayerTest, AnAbandonedPartLeavesNothingBehind) {
  view().gsAddLayer("USER");
  for (const Surroundings surroundings : {Surroundings::kShown, Surroundings::kCurrentHidden}) {
    try {
      const ScratchLayer scratch(view(), kMechanical, surroundings);
      drawLine();
      EXPECT_EQ(shown("USER"), surroundings == Surroundings::kShown);
      throw HostFailure("in the middle");
    } catch (const HostFailure&) { EXPECT_EQ(view().gsGetCurrentLayerName(), "USER"); }
    EXPECT_TRUE(shown("USER"));
    EXPECT_EQ(drawing().count(), 0U);
    EXPECT_EQ(count(std::string(kMechanical)), -1);
  }
}

TEST_F(ScratchLayerTest, LeftoversAreGoneEvenWhereTheyAreLockedHiddenAndCurrent) {
  const int leftover = view().gsAddLayer(kMechanical);
  drawLine();
  view().gsSetLayerDefIndex(leftover, {std::string(kMechanical), false, true, 1});
  ScratchLayer scratch(view(), kMechanical);
  drawLine();
  scratch.link("A");
  scratch.moveTo("TARGET");
  EXPECT_EQ(count("TARGET"), 1);
  EXPECT_EQ(drawing().count(), 1U);
  EXPECT_EQ(view().gsGetCurrentLayerName(), "0");
}

TEST_F(ScratchLayerTest, WhatWasHiddenBeforeStaysHiddenAndAnotherLayerCanBecomeCurrent) {
  const int next = view().gsAddLayer("NEXT");
  const int user = view().gsAddLayer("USER");
  view().gsSetLayerVisibility(user, 0, 0);
  {
    ScratchLayer scratch(view(), kMechanical, Surroundings::kCurrentHidden);
    scratch.leaveCurrent(next);
  }
  EXPECT_FALSE(shown("USER"));
  EXPECT_EQ(view().gsGetCurrentLayerName(), "NEXT");
}

}  // namespace
}  // namespace ardenix

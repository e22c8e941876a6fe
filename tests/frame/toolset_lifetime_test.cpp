#include "frame/entry/toolset_lifetime.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/entry/module_state.h"
#include "host/macros/variables.h"
#include "host/window/drawing_window.h"
#include "host/window/silent_user.h"
#include "tests/core_fixture.h"

namespace ardenix {
namespace {

class View : public brevan::DrawingWindow {
 public:
  View() : DrawingWindow("View", brevan::WindowServices{user(), variables(), nullptr}) {}

 private:
  static brevan::User& user() {
    static brevan::SilentUser nobody;
    return nobody;
  }
  static brevan::MacroVariables& variables() {
    static brevan::MacroVariables none;
    return none;
  }
};

std::vector<std::string> events;

class StandIn : public Toolset {
 public:
  StandIn(CCadWindow* view, std::string name) : Toolset(view), name_(std::move(name)) { events.push_back("+" + name_); }
  ~StandIn() override { events.push_back("-" + name_); }

 private:
  std::string name_;
};

class ArchStandIn : public arch::ArchToolset {
 public:
  ArchStandIn(CCadWindow* view, const Services& services) : arch::ArchToolset(view, services) {}
  ~ArchStandIn() override { events.emplace_back("-arch"); }
};

auto maker(const std::string& name) {
  return [name](CCadWindow* view) { return std::make_unique<StandIn>(view, name); };
}

class ToolsetLifetime : public ::testing::Test {
 protected:
  ToolsetLifetime() { events.clear(); }
  std::optional<View> first_{std::in_place};
  std::optional<View> second_{std::in_place};
  CCadWindow* const firstView_ = &*first_;
  CCadWindow* const secondView_ = &*second_;
  std::unique_ptr<StandIn> slot_;
};

TEST_F(ToolsetLifetime, OfAViewLastsUntilACommandRunsInAnother) {
  StandIn& first = toolsetOfView(slot_, firstView_, maker("a"));
  EXPECT_EQ(&toolsetOfView(slot_, firstView_, maker("b")), &first);
  toolsetOfView(slot_, secondView_, maker("c"));
  EXPECT_EQ(events, (std::vector<std::string>{"+a", "-a", "+c"})) << "the old one goes before the new one loads";
  EXPECT_TRUE(slot_->worksIn(secondView_));
  EXPECT_THROW(
      toolsetOfView(slot_, firstView_, [](CCadWindow*) -> std::unique_ptr<StandIn> { throw std::bad_alloc(); }),
      std::bad_alloc);
  EXPECT_EQ(slot_, nullptr) << "a toolset that failed is tried again by the next command";
}

TEST_F(ToolsetLifetime, OfAClosedViewIsNotThatOfTheNextOneAtItsAddress) {
  toolsetOfView(slot_, firstView_, maker("a"));
  first_.emplace();
  ASSERT_EQ(&*first_, firstView_);
  EXPECT_FALSE(slot_->worksIn(firstView_));
  toolsetOfView(slot_, firstView_, maker("b"));
  EXPECT_EQ(events, (std::vector<std::string>{"+a", "-a", "+b"}));
}

TEST_F(ToolsetLifetime, OfACommandEndsWithItHoweverItEnds) {
  const auto fail = [](StandIn&) { throw std::runtime_error("cancelled"); };
  EXPECT_THROW(withToolsetOfCommand(slot_, firstView_, maker("a"), fail), std::runtime_error);
  EXPECT_EQ(slot_, nullptr);
  withToolsetOfCommand(slot_, firstView_, maker("b"), [this](StandIn& tools) { EXPECT_EQ(&tools, slot_.get()); });
  EXPECT_EQ(events, (std::vector<std::string>{"+a", "-a", "+b", "-b"}));
}

TEST_F(ToolsetLifetime, UntilUnloadIsOnlyPointedAtTheView) {
  StandIn& tools = toolsetUntilUnload(slot_, firstView_, maker("a"));
  EXPECT_EQ(&toolsetUntilUnload(slot_, secondView_, maker("b")), &tools);
  EXPECT_TRUE(tools.worksIn(secondView_));
  EXPECT_EQ(events, std::vector<std::string>{"+a"});
}

TEST_F(ToolsetLifetime, UnloadingGoesInOrderWhateverWasMadeFirst) {
  {
    ModuleState state;
    state.sectionalPlanJob = maker("job")(firstView_);
    state.surveySheet = maker("sheet")(firstView_);
    state.surveyTrace = maker("trace")(firstView_);
    state.architectural = std::make_unique<ArchStandIn>(firstView_, state.services);
    events.clear();
  }
  EXPECT_EQ(events, (std::vector<std::string>{"-arch", "-trace", "-sheet", "-job"}));
}

class ModuleStateTest : public CoreFixture {};

TEST_F(ModuleStateTest, ToolTipsAreOnUnlessTheHostsSettingSaysZero) {
  ModuleState state;
  state.initialise(nullptr, nullptr);
  EXPECT_TRUE(state.services.toolTips);
  settings().SetString("Global", "ToolTips", "0");
  state.initialise(nullptr, nullptr);
  dialog::Dialog box("Box");
  box.enableToolTips(true);
  equip(box, state.services, helpTopic("Hex Bolts"));
  EXPECT_FALSE(box.toolTipsShown());
}

}  // namespace
}  // namespace ardenix

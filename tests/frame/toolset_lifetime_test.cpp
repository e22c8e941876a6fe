#include "frame/entry/toolset_lifetime.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "frame/entry/module_state.h"
#include "tests/core_fixture.h"

namespace ardenix {
namespace {

// Lifetimes only compare views.
char views[2];
CCadWindow* const kFirst = reinterpret_cast<CCadWindow*>(&views[0]);
CCadWindow* const kSecond = reinterpret_cast<CCadWindow*>(&views[1]);

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
  explicit ArchStandIn(const Services& services) : arch::ArchToolset(kFirst, services) {}
  ~ArchStandIn() override { events.emplace_back("-arch"); }
};

auto maker(const std::string& name) {
  return [name](CCadWindow* view) { return std::make_unique<StandIn>(view, name); };
}

class ToolsetLifetime : public ::testing::Test {
 protected:
  ToolsetLifetime() { events.clear(); }
  std::unique_ptr<StandIn> slot_;
};

TEST_F(ToolsetLifetime, OfAViewLastsUntilACommandRunsInAnother) {
  StandIn& first = toolsetOfView(slot_, kFirst, maker("a"));
  EXPECT_EQ(&toolsetOfView(slot_, kFirst, maker("b")), &first);
  toolsetOfView(slot_, kSecond, maker("c"));
  EXPECT_EQ(events, (std::vector<std::string>{"+a", "-a", "+c"})) << "the old one goes before the new one loads";
  EXPECT_TRUE(slot_->worksIn(kSecond));
  EXPECT_THROW(toolsetOfView(slot_, kFirst, [](CCadWindow*) -> std::unique_ptr<StandIn> { throw std::bad_alloc(); }),
               std::bad_alloc);
  EXPECT_EQ(slot_, nullptr) << "a toolset that failed is tried again by the next command";
}

TEST_F(ToolsetLifetime, OfACommandEndsWithItHoweverItEnds) {
  const auto fail = [](StandIn&) { throw std::runtime_error("cancelled"); };
  EXPECT_THROW(withToolsetOfCommand(slot_, kFirst, maker("a"), fail), std::runtime_error);
  EXPECT_EQ(slot_, nullptr);
  withToolsetOfCommand(slot_, kFirst, maker("b"), [this](StandIn& tools) { EXPECT_EQ(&tools, slot_.get()); });
  EXPECT_EQ(events, (std::vector<std::string>{"+a", "-a", "+b", "-b"}));
}

TEST_F(ToolsetLifetime, UntilUnloadIsOnlyPointedAtTheView) {
  StandIn& tools = toolsetUntilUnload(slot_, kFirst, maker("a"));
  EXPECT_EQ(&toolsetUntilUnload(slot_, kSecond, maker("b")), &tools);
  EXPECT_TRUE(tools.worksIn(kSecond));
  EXPECT_EQ(events, std::vector<std::string>{"+a"});
}

TEST_F(ToolsetLifetime, UnloadingGoesInOrderWhateverWasMadeFirst) {
  {
    ModuleState state;
    state.sectionalPlanJob = maker("job")(kFirst);
    state.surveySheet = maker("sheet")(kFirst);
    state.surveyTrace = maker("trace")(kFirst);
    state.architectural = std::make_unique<ArchStandIn>(state.services);
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

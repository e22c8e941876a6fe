#include "frame/help.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

#include "frame/host/dialog.h"
#include "tests/core_fixture.h"

namespace ardenix {
namespace {

// Remembers what was asked for; libraries and entry points are those it was given.
class FakePlatform : public Platform {
 public:
  std::string server;
  std::set<std::string> libraries;
  bool exportsViewer = true;
  std::vector<std::string> loads;
  int lookups = 0;

  std::string registeredServer(std::string_view key) override {
    ++lookups;
    return key == "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32" ? server : "";
  }
  void* loadLibrary(const std::string& name) override {
    loads.push_back(name);
    return libraries.count(name) != 0 ? this : nullptr;
  }
  void* exportNumber(void*, int number) override {
    return exportsViewer && number == 14 ? reinterpret_cast<void*>(&viewer) : nullptr;
  }
  size_t versionResourceSize(std::string_view) override { return 0; }
  bool readVersionResource(std::string_view, std::span<char>) override { return false; }

  static inline std::vector<std::string> shown;
  static void* viewer(void* window, const char* file, unsigned command, uintptr_t data) {
    shown.push_back(std::string(file) + " " + std::to_string(command) + " " + reinterpret_cast<const char*>(data));
    return shown.back().find("Nut_Setup") == std::string::npos ? window : nullptr;
  }
};

class HelpTest : public CoreFixture {
 protected:
  HelpTest() { FakePlatform::shown.clear(); }
  bool show(std::string_view dialog) { return help_.show(box_, helpTopic(dialog)); }

  FakePlatform platform_;
  Help help_{platform_};
  dialog::Dialog box_{"Box"};
};

TEST_F(HelpTest, BindsTheRegisteredViewerOnce) {
  platform_.server = "C:\\Windows\\hh.dll";
  platform_.libraries = {"C:\\Windows\\hh.dll", "hhctrl.ocx"};
  EXPECT_TRUE(show("Hex Bolts"));
  EXPECT_FALSE(show("Nuts")) << "a page that fails does not unbind the viewer";
  EXPECT_TRUE(show("Mechanical Setup"));
  EXPECT_EQ(platform_.loads, std::vector<std::string>{"C:\\Windows\\hh.dll"});
  EXPECT_EQ(platform_.lookups, 1);
  ASSERT_EQ(FakePlatform::shown.size(), 3U);
  EXPECT_EQ(FakePlatform::shown[0], folder() + "/brevan.chm 0 Ardenix/Mechanical_Tools/Dialogs/Bolt_Setup_Dialog.htm");
}

TEST_F(HelpTest, FallsBackToTheViewerByName) {
  struct {
    std::string server;
    std::vector<std::string> loads;
  } cases[] = {{"", {"hhctrl.ocx"}}, {"gone.dll", {"gone.dll", "hhctrl.ocx"}}, {std::string(261, 'x'), {"hhctrl.ocx"}}};
  for (const auto& [server, loads] : cases) {
    FakePlatform own;
    own.server = server;
    own.libraries = {"hhctrl.ocx"};
    EXPECT_TRUE(Help(own).show(box_, helpTopic("Rivets")));
    EXPECT_EQ(own.loads, loads);
  }
}

TEST_F(HelpTest, IsNotTriedAgainOnceItCannotBeBound) {
  for (int i = 0; i < 3; ++i) { EXPECT_FALSE(show("Hex Bolts")); }
  EXPECT_EQ(platform_.loads.size(), 1U);
  EXPECT_EQ(platform_.lookups, 1);

  FakePlatform withoutEntry;
  withoutEntry.libraries = {"hhctrl.ocx"};
  withoutEntry.exportsViewer = false;
  Help bound(withoutEntry);
  for (int i = 0; i < 3; ++i) { EXPECT_FALSE(bound.show(box_, helpTopic("Hex Bolts"))); }
  EXPECT_EQ(withoutEntry.loads.size(), 1U);
}

}  // namespace
}  // namespace ardenix

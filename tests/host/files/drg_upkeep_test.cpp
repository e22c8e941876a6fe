#include "host/files/drg_upkeep.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "host/files/drawing_files.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"
#include "tests/host/core/temporary_folder.h"
#include "tests/host/drawing/random_drawing.h"

namespace {

using namespace brevan;

class DrgUpkeepTest : public ::testing::Test {
 protected:
  DrgUpkeep::NewPath newPath() {
    return [this] { return folder_.path("kept" + std::to_string(++files_) + ".drg"); };
  }
  static std::string fileText(const DrgUpkeep& upkeep) { return drawingJson(readDrawing(upkeep.path()).drawing); }

  TemporaryFolder folder_;
  int files_ = 0;
};

TEST_F(DrgUpkeepTest, keepsInStepThroughAnyChanges) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    RandomDrawing random(seed);
    DrgUpkeep upkeep(newPath(), random.drawing);
    for (int step = 0; step < 60; ++step) {
      random.change();
      if (step % 7 == 3) { random.drawing.undo(); }
      if (step % 11 == 5) { random.drawing.undo(), random.drawing.undo(), random.drawing.redo(); }
      if (step % 3 == 0) { continue; }
      upkeep.keep(random.drawing);
      ASSERT_EQ(fileText(upkeep), drawingJson(random.drawing)) << "seed " << seed << ", step " << step;
    }
  }
}

TEST_F(DrgUpkeepTest, aFailureIsMadeUpFor) {
  Drawing drawing;
  DrgUpkeep upkeep(newPath(), drawing);
  drawing.add({.geometry = Line{{0, 0}, {1, 0}}});
  upkeep.keep(drawing);
  drawing.add({.geometry = Line{{0, 0}, {2, 0}}});
  const std::string moved = upkeep.path() + ".moved";
  std::filesystem::rename(upkeep.path(), moved);
  std::filesystem::create_directory(upkeep.path() + "-journal");
  EXPECT_THROW(upkeep.keep(drawing), HostFailure);
  upkeep.keep(drawing);
  EXPECT_EQ(fileText(upkeep), drawingJson(drawing));
}

}  // namespace

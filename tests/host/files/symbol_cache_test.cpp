#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/core/file_services.h"
#include "host/files/drawing_files.h"
#include "tests/host/core/temporary_folder.h"

namespace {

TEST(SymbolFiles, AreReadAgainWhenTheyChangedAndNotBefore) {
  const TemporaryFolder folder;
  const brevan::FileServices files(folder.path(), folder.path());
  brevan::FileDrawings drawings(files);
  folder.write("marks.sym", "symbol A\n  line 0 0 1 1\n");
  const auto first = drawings.symbolFile("marks.sym");
  EXPECT_EQ(drawings.symbolFile("MARKS.sym"), first);
  folder.write("marks.sym", "symbol LATER\n  line 0 0 1 1\n");
  const auto later = drawings.symbolFile("marks.sym");
  EXPECT_NE(later->symbol("LATER"), nullptr);
  EXPECT_NE(first->symbol("A"), nullptr) << "who holds the old one keeps it";
  folder.write("marks.sym", "symbol\n");
  EXPECT_THROW((void)drawings.symbolFile("marks.sym"), HostFailure);
  EXPECT_THROW((void)drawings.symbolFile("none.sym"), HostFailure);
}

}  // namespace

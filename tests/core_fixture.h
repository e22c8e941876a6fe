#pragma once

#include <gtest/gtest.h>

#include "host/core/core_context.h"
#include "tests/host/core/temporary_folder.h"

// The host's core services over a folder of the test's own.
class CoreFixture : public ::testing::Test {
 protected:
  brevan::FileServices& files() { return files_; }
  INI_LIST& settings() { return settings_; }
  brevan::CoreContext& context() { return context_; }
  [[nodiscard]] const std::string& folder() const { return folder_.path(); }
  std::string write(const std::string& name, const std::string& bytes) const { return folder_.write(name, bytes); }
  static std::string read(const std::string& path) { return TemporaryFolder::readFile(path); }

  TemporaryFolder folder_;

 private:
  brevan::FileServices files_{folder_.path(), folder_.path()};
  INI_LIST settings_{""};
  brevan::CoreContext context_{files_, settings_, folder_.path("brevan.hlp"), nullptr};
  brevan::CoreContextBinding binding_{context_};
};

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "host/core/core_context.h"

// The host's core services over a folder of the test's own.
class CoreFixture : public ::testing::Test {
 public:
  CoreFixture() { std::filesystem::create_directories(folder_); }
  ~CoreFixture() override { std::filesystem::remove_all(folder_); }

 protected:
  brevan::FileServices& files() { return files_; }
  INI_LIST& settings() { return settings_; }
  [[nodiscard]] std::string folder() const { return folder_.string(); }
  std::string write(const std::string& name, const std::string& content) const {
    std::string path = (folder_ / name).string();
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  static std::string read(const std::string& path) {
    std::stringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
  }

 private:
  static std::filesystem::path ownFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ardenix-test-XXXXXX").string();
    return mkdtemp(pattern.data());
  }

  std::filesystem::path folder_ = ownFolder();
  brevan::FileServices files_{folder_.string(), folder_.string()};
  INI_LIST settings_{""};
  brevan::CoreContext context_{files_, settings_, folder_.string() + "/brevan.hlp", nullptr};
  brevan::CoreContextBinding binding_{context_};
};

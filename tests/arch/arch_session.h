#pragma once

#include <string>
#include <vector>

#include "tests/mech/command_session.h"

// A session of architectural commands on a specification file of the test's own.
class ArchSession : public CommandSession {
 protected:
  using Texts = std::vector<std::string>;

  inline static const std::string kOk = "press \"OK\"\n";
  inline static const std::string kCancel = "press \"Cancel\"\n";
  static constexpr const char* kNoFile = "No architectural specification file found";

  // Writes the specification file and makes it the host's.
  std::string useSpecs(const std::string& content, const std::string& name = "My ArchSpecs.ini") {
    std::string path = write(name, content);
    settings().SetString("ArchitecturalTools", "SpecFile", path);
    return path;
  }
  std::string remembered() { return CommandSession::remembered("ArchitecturalTools", "SpecFile"); }
  // The value of a key on disk.
  static std::string value(const std::string& path, const char* section, const char* key) {
    return TINIFile(path).ReadString(section, key, "missing");
  }
  static std::string shipped() { return read(std::string(BREVAN_DATA) + "/ArchSpecs.ini"); }
};

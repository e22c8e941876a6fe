#pragma once

#include <map>
#include <string>
#include <string_view>

#include "host/core/safe_file.h"

namespace brevan {

// Finds names in folders whatever their case. That takes reading the folder, so what it holds is kept until it changes:
// commands name their symbol files over and over.
class FolderNames {
 public:
  // What the folder calls the wanted name, the first in byte order of several; "" where it has none.
  std::string matching(const std::string& folder, std::string_view wanted);

 private:
  // By the name without its case, what the folder has.
  using Names = std::map<std::string, std::string>;
  struct Kept {
    FileStamp stamp;
    Names names;
  };
  static constexpr size_t kMostKept = 32;

  // False where the folder could not be read to its end.
  static bool read(const std::string& folder, Names& names);
  const Names& namesIn(const std::string& folder);

  std::map<std::string, Kept> kept_;  // by folder
  Names passing_;                     // of a folder that is not kept
};

}  // namespace brevan

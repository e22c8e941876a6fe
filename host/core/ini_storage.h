#pragma once

#include <string>
#include <string_view>

#include "host/core/ini_file.h"
#include "host/core/safe_file.h"

namespace brevan {

// An INI file with its place on the disk. Where a core context is bound its file services say which
// file a name means; elsewhere the name is the path.
class IniStorage {
 public:
  // Name in Windows-1252, kept as given. A missing file reads as empty.
  explicit IniStorage(std::string_view name);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const IniFile& document() const { return document_; }
  [[nodiscard]] IniFile& document() { return document_; }

  // Writes the changes, if any. The new text is read back and compared first; a file that was changed
  // or removed underneath is left to the context's conflict question. True when the
  // answer was to drop the changes and read the file again.
  bool save();

 private:
  void load(const std::string& path);
  [[nodiscard]] std::string checkedBytes(IniFile& readBack) const;
  bool settleConflict(const std::string& path, const std::string& bytes, const FileChangedFailure& conflict);

  std::string name_;
  IniFile document_;
  ContentHash loaded_ = kNoFile;
};

}  // namespace brevan

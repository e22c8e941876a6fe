#include "host/core/ini_storage.h"

#include <utility>

#include "host/core/core_context.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

std::string pathForReading(const std::string& name) {
  const std::string native = toUtf8(name);
  return hasCoreContext() ? coreContext().files.resolveForReading(native) : native;
}

std::string pathForWriting(const std::string& name) {
  const std::string native = toUtf8(name);
  return hasCoreContext() ? coreContext().files.resolveForWriting(native) : native;
}

}  // namespace

IniStorage::IniStorage(std::string_view name) : name_(name) {
  if (!name_.empty()) { load(pathForReading(name_)); }
}

void IniStorage::load(const std::string& path) {
  document_ = IniFile();
  loaded_ = kNoFile;
  if (!stampOf(path).exists) { return; }
  std::string bytes = readWhole(path, kMaxTextBytes);
  loaded_ = contentHash(bytes);
  document_ = IniFile::parse(std::move(bytes), messageText(path));
}

std::string IniStorage::checkedBytes(IniFile& readBack) const {
  std::string bytes = document_.bytes();
  readBack = IniFile::parse(bytes, name_);
  if (readBack.entries() != document_.entries()) {
    throw HostFailure("cannot save \"" + name_ + "\": the new text does not read back as the same entries");
  }
  return bytes;
}

bool IniStorage::save() {
  if (name_.empty() || !document_.changed()) { return false; }
  IniFile readBack;
  const std::string bytes = checkedBytes(readBack);
  const std::string path = pathForWriting(name_);
  SaveOptions options;
  options.expectedContent = loaded_;
  try {
    saveWhole(path, bytes, options);
  } catch (const FileChangedFailure& conflict) { return settleConflict(path, bytes, conflict); }
  loaded_ = contentHash(bytes);
  document_ = std::move(readBack);
  return false;
}

bool IniStorage::settleConflict(const std::string& path, const std::string& bytes, const FileChangedFailure& conflict) {
  using Choice = SaveConflictAnswer::Choice;
  SaveConflictAnswer answer;
  if (hasCoreContext() && coreContext().conflict) { answer = coreContext().conflict(path); }
  switch (answer.choice) {
    case Choice::kFail: throw HostFailure(conflict.what());
    case Choice::kReload: load(path); return true;
    case Choice::kOverwrite: saveWhole(path, bytes); break;
    case Choice::kSaveAs: {
      const std::optional<std::string> name = toWindows1252(answer.path);
      if (!name) {
        throw HostFailure("cannot save as \"" + messageText(answer.path) + "\": the name is outside Windows-1252");
      }
      saveWhole(pathForWriting(*name), bytes);
      name_ = *name;
      break;
    }
  }
  loaded_ = contentHash(bytes);
  document_ = IniFile::parse(bytes, name_);
  return false;
}

}  // namespace brevan

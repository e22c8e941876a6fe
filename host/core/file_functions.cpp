#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <functional>

#include "frame/host/core_services.h"
#include "host/core/core_context.h"
#include "host/core/fields.h"
#include "host/core/help_viewer.h"
#include "host/core/safe_file.h"
#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"

namespace {

using brevan::coreContext;

constexpr size_t kMaxCopyBytes = size_t{1} << 30;
constexpr std::string_view kSeparators = "/\\";

std::string pathForReading(std::string_view path) {
  return coreContext().files.resolveForReading(brevan::toUtf8(path));
}
std::string pathForWriting(std::string_view path) {
  return coreContext().files.resolveForWriting(brevan::toUtf8(path));
}

// The module's own text for a native path.
std::string modulePath(const std::string& native) {
  const auto path = brevan::toWindows1252(native);
  if (!path) {
    throw HostFailure("path \"" + brevan::messageText(native) + "\" is refused: a character is outside Windows-1252");
  }
  return *path;
}

// 1 when it could be done; callers that ask so tell the user themselves.
int done(const std::function<void()>& act) {
  try {
    act();
    return 1;
  } catch (const HostFailure&) { return 0; }
}

// Kind and rights of what a path means, 0 where there is nothing.
mode_t modeOf(std::string_view path) {
  struct stat status {};
  mode_t mode = 0;
  done([&] { mode = ::stat(pathForReading(path).c_str(), &status) == 0 ? status.st_mode : 0; });
  return mode;
}

size_t nameStart(std::string_view path) {
  const size_t separator = path.find_last_of(kSeparators);
  return separator == std::string_view::npos ? 0 : separator + 1;
}

std::string withExtension(std::string stem, std::string_view extension) {
  if (!extension.empty() && extension.front() != '.') { stem += '.'; }
  return stem.append(extension);
}

std::string setting(std::string_view section, std::string_view key) {
  constexpr int kLongest = 1024;
  std::string value(kLongest, '\0');
  value.resize(static_cast<size_t>(coreContext().settings.GetString(section, key, "", value.data(), kLongest)));
  return value;
}

}  // namespace

HostFailure::~HostFailure() = default;

int coreFileExist(std::string_view path) { return S_ISREG(modeOf(path)) ? 1 : 0; }

int coreFolderExist(std::string_view path) { return S_ISDIR(modeOf(path)) ? 1 : 0; }

std::string coreChangeFileExt(std::string_view path, std::string_view extension) {
  const size_t name = nameStart(path);
  const size_t dot = path.rfind('.');
  const bool hasExtension = dot != std::string_view::npos && dot > name;
  return withExtension(std::string(path.substr(0, hasExtension ? dot : path.size())), extension);
}

std::string coreChangeFileName(std::string_view path, std::string_view name, std::string_view extension) {
  return withExtension(std::string(path.substr(0, nameStart(path))).append(name), extension);
}

// "/home/ann/.../plate.ini": as many folders from the start as there is room for.
std::string coreAbbreviateFileName(std::string_view path, int length) {
  constexpr std::string_view kGap = "...";
  const size_t room = length > 0 ? static_cast<size_t>(length) : 0;
  if (path.size() <= room) { return std::string(path); }
  const size_t name = nameStart(path);
  const std::string_view tail = path.substr(name > 0 ? name - 1 : 0);
  if (kGap.size() + tail.size() <= room) {
    const std::string_view start = path.substr(0, room - kGap.size() - tail.size());
    const size_t kept = start.find_last_of(kSeparators);
    return std::string(start.substr(0, kept == std::string_view::npos ? 0 : kept + 1)).append(kGap).append(tail);
  }
  const std::string_view whole = path.substr(name);
  if (whole.size() <= room) { return std::string(whole); }
  if (room <= kGap.size()) { return std::string(whole.substr(0, room)); }
  return std::string(whole.substr(0, room - kGap.size())).append(kGap);
}

std::string coreGetDefaultPath() { return modulePath(coreContext().files.dataFolder()); }
std::string coreHelpFilePath() { return modulePath(coreContext().helpFile); }

int coreFileCopy(std::string_view from, std::string_view to) {
  return done([&] {
    const std::string bytes = brevan::readWhole(pathForReading(from), kMaxCopyBytes);
    brevan::saveWhole(pathForWriting(to), bytes);
  });
}

int coreFileDelete(std::string_view path) {
  return done([&] {
    const std::string native = coreContext().files.resolveForDeleting(brevan::toUtf8(path));
    if (::unlink(native.c_str()) != 0) { throw HostFailure(brevan::systemReason(errno)); }
  });
}

// A file that is there but is no text says why; the caller's own message covers one that is missing.
int coreFileOpen(std::string_view path, std::string_view mode) {
  if (mode == "w") { return coreContext().textFiles.openForWriting(pathForWriting(path)); }
  if (mode != "r") { throw HostFailure("text file \"" + std::string(path) + "\": the mode is \"r\" or \"w\""); }
  const std::string native = pathForReading(path);
  return brevan::stampOf(native).exists ? coreContext().textFiles.openForReading(native) : 0;
}

int coreFileTxtRead(int file, std::string& line) { return coreContext().textFiles.readLine(file, line) ? 1 : 0; }
int coreFileTxtWrite(int file, std::string_view line) { return coreContext().textFiles.writeLine(file, line) ? 1 : 0; }

int coreFileClose(int file) {
  coreContext().textFiles.close(file);
  return 1;
}

int coreGetDefaultInt(std::string_view section, std::string_view key, int fallback) {
  return brevan::leadingInteger(setting(section, key)).value_or(fallback);
}

// The settings stand in for the registry; what an INI key cannot hold becomes "_" or a round bracket.
std::string coreRegisteredServer(std::string_view key) {
  std::string safe(key);
  std::replace(safe.begin(), safe.end(), '=', '_');
  std::replace(safe.begin(), safe.end(), '[', '(');
  std::replace(safe.begin(), safe.end(), ']', ')');
  const std::string registered = setting("RegisteredServers", safe);
  return registered.empty() ? brevan::helpViewerServer(key) : registered;
}

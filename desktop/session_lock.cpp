#include "desktop/session_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>

#include "frame/host/core_services.h"

namespace brevan {

namespace {

constexpr int kMostTries = 100;

std::string pathOf(const std::string& folder, const std::string& session) { return folder + '/' + session + ".lock"; }

std::string newName() {
  std::random_device random;
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%08x%08x", random(), random());
  return digits.data();
}

// Waits: nobody but those who ask whether it is held has it, and for a moment only.
void lock(int file) {
  while (flock(file, LOCK_EX) != 0 && errno == EINTR) {}
}

}  // namespace

SessionLock::SessionLock(const std::string& folder) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    if (create(folder)) { return; }
    if (errno != EEXIST) { break; }
  }
  throw HostFailure("\"" + path_ + "\": " + std::generic_category().message(errno));
}

bool SessionLock::create(const std::string& folder) {
  session_ = newName();
  path_ = pathOf(folder, session_);
  constexpr mode_t kOwner = 0600;
  file_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwner);
  if (file_ < 0) { return false; }
  lock(file_);
  return true;
}

SessionLock::~SessionLock() {
  unlink(path_.c_str());
  close(file_);
}

bool SessionLock::isHeld(const std::string& folder, const std::string& session) {
  const int file = open(pathOf(folder, session).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (file < 0) { return false; }
  const bool held = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(file);
  return held;
}

void SessionLock::removeLeft(const std::string& folder, const std::string& session) {
  if (!isHeld(folder, session)) { unlink(pathOf(folder, session).c_str()); }
}

}  // namespace brevan

#pragma once

#include <string>

namespace brevan {

// A file that tells that a session lives. The system holds the lock for as long as the process does and lets it go
// however the process ends, which a process number does not tell: another process may bear it by then.
class SessionLock {
 public:
  // Takes a name that no other session bears and locks its file in the folder, a native path. Throws HostFailure.
  explicit SessionLock(const std::string& folder);
  ~SessionLock();
  SessionLock(const SessionLock&) = delete;
  SessionLock& operator=(const SessionLock&) = delete;

  // The session's name, which is made of letters and digits.
  [[nodiscard]] const std::string& session() const { return session_; }

  // Whether a session of this name lives. One whose file is missing, or lies where nothing can be locked, does not.
  [[nodiscard]] static bool isHeld(const std::string& folder, const std::string& session);
  // Removes what a session that ended by force has left.
  static void removeLeft(const std::string& folder, const std::string& session);

 private:
  [[nodiscard]] bool create(const std::string& folder);
  std::string session_;
  std::string path_;
  int file_ = -1;
};

}  // namespace brevan

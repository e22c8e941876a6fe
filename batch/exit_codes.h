#pragma once

#include <stdexcept>

namespace brevan {

// What the program answers to its caller.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;           // a script or command failed
inline constexpr int kWrongUsage = 2;       // the command line
inline constexpr int kInputUnread = 3;      // an input could not be read
inline constexpr int kOutputUnwritten = 4;  // an output could not be written
inline constexpr int kSignalBase = 128;     // and the signal's number

class InputUnread : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class OutputUnwritten : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace brevan

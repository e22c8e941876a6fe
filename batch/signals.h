#pragma once

#include <string_view>

namespace brevan {

inline constexpr std::string_view kStopped = "stopped by a signal\n";

// A signal that asked the program to stop.
struct Interrupted {
  int signal = 0;
};

// From here on SIGINT and SIGTERM are noted instead of ending the program.
void catchSignals();
// From here on a noted signal ends the program within a tenth of a second, wherever it works, the toolkit and the
// database included, unless stopIfInterrupted was first. Files stay whole, because a save holds signals off until it is
// done; what the program keeps elsewhere must not need tidying up.
void endSoonAtSignals();
// Nobody reading its messages any longer is no reason to leave work undone.
void outliveClosedPipes();
// Throws Interrupted when one was noted. Called between the steps of all work, so files stay whole.
void stopIfInterrupted();

}  // namespace brevan

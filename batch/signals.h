#pragma once

namespace brevan {

// A signal that asked the program to stop.
struct Interrupted {
  int signal = 0;
};

// From here on SIGINT and SIGTERM are noted instead of ending the program.
void catchSignals();
// Nobody reading its messages any longer is no reason to leave work undone.
void outliveClosedPipes();
// Throws Interrupted when one was noted. Called between the steps of all work, so files stay whole.
void stopIfInterrupted();

}  // namespace brevan

#include "batch/signals.h"

#include <csignal>

namespace brevan {

namespace {

// Set by the handler, which may touch nothing else.
volatile std::sig_atomic_t notedSignal = 0;

extern "C" void noteSignal(int signal) { notedSignal = signal; }

}  // namespace

void catchSignals() {
  struct sigaction action = {};
  action.sa_handler = noteSignal;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

void outliveClosedPipes() { static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); }

void stopIfInterrupted() {
  if (notedSignal != 0) { throw Interrupted{notedSignal}; }
}

}  // namespace brevan

#include "batch/signals.h"

#include <pthread.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string_view>

#include "batch/exit_codes.h"

namespace brevan {

namespace {

// What the handlers know; they may touch nothing else.
volatile std::sig_atomic_t notedSignal = 0;
volatile std::sig_atomic_t endsSoon = 0;
pthread_t worker;

void setAlarm(suseconds_t microseconds) {
  const itimerval once = {{0, 0}, {0, microseconds}};
  setitimer(ITIMER_REAL, &once, nullptr);
}

// A thread of the toolkit knows nothing of a save that the worker has begun, so signals are the worker's.
bool passedOn(int signal) {
  if (pthread_equal(pthread_self(), worker) != 0) { return false; }
  pthread_kill(worker, signal);
  return true;
}

extern "C" void noteSignal(int signal) {
  if (passedOn(signal)) { return; }
  constexpr suseconds_t kPatience = 50'000;
  notedSignal = signal;
  if (endsSoon != 0) { setAlarm(kPatience); }
}

extern "C" void endNow(int signal) {
  if (passedOn(signal)) { return; }
  [[maybe_unused]] const ssize_t told = write(STDERR_FILENO, kStopped.data(), kStopped.size());
  _exit(kSignalBase + notedSignal);
}

}  // namespace

void catchSignals() {
  worker = pthread_self();
  struct sigaction action = {};
  action.sa_handler = noteSignal;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

void endSoonAtSignals() {
  struct sigaction action = {};
  action.sa_handler = endNow;
  sigaction(SIGALRM, &action, nullptr);
  endsSoon = 1;
}

void outliveClosedPipes() { static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); }

void stopIfInterrupted() {
  if (notedSignal == 0) { return; }
  endsSoon = 0;
  setAlarm(0);
  throw Interrupted{notedSignal};
}

}  // namespace brevan

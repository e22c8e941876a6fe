#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>

namespace bench {

// The thread's own time, in seconds: other programs share the machine.
inline double ownSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Keeps the shortest time that an action took; the first is the longest to be waited for.
class BestTime {
 public:
  template <class Action>
  void measure(const Action& action) {
    const double start = ownSeconds();
    benchmark::DoNotOptimize(action());
    best_ = std::min(best_, ownSeconds() - start);
  }
  [[nodiscard]] double seconds() const { return best_; }

 private:
  double best_ = std::numeric_limits<double>::infinity();
};

// Big blocks are kept between iterations: clearing fresh pages would drown the work that is measured.
inline void keepBigBlocks() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

struct Peer {
  const char* name;  // as bench/figures.py calls it
  double seconds;
};

// What bench/run reads of a benchmark: how large its task was, counted in what it says it counts, what it took, and
// what its peers or bounds took for the same. What is asked of the ratio stands in bench/figures.py alone.
inline void report(benchmark::State& state, double size, double seconds, std::initializer_list<Peer> peers) {
  state.counters["size"] = size;
  state.counters["ours"] = seconds;
  for (const Peer& peer : peers) { state.counters["peer " + std::string(peer.name)] = peer.seconds; }
}

}  // namespace bench

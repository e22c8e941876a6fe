#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>

#include <algorithm>

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
  double best_ = 1e9;
};

// Big blocks are kept between iterations: clearing fresh pages would drown the work that is measured.
inline void keepBigBlocks() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

}  // namespace bench

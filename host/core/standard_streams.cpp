#include "host/core/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace brevan {

void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0) { continue; }
    // The lowest free number is this one. Opened the wrong way round, so that its use is an error.
    static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
  }
}

}  // namespace brevan

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/host/core_services.h"
#include "fuzz/laws.h"
#include "host/files/dxf/read/reader.h"
#include "host/files/dxf/write/writer.h"

// A file that is read comes to a drawing of finite primitives on layers that are there, which can be written
// and read again with as many primitives, unless symbols in it make that too large.
namespace {

using namespace fuzzing;

void use(const brevan::Drawing& drawing) {
  requireSound(drawing);
  constexpr size_t kMostWritten = 20'000;
  if (drawing.count() < kMostWritten) { brevan::drawingDxf(drawing); }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    use(brevan::drawingFromDxf({reinterpret_cast<const char*>(data), size}, "fuzz.dxf").drawing);
  } catch (const HostFailure&) { return 0; }
  return 0;
}

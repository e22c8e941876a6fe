#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "fuzz/laws.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"
#include "host/files/symbol_text.h"

// A symbol file that is read is a drawing of finite primitives in which each symbol is shown once, and which comes back
// alike from a drawing file. One that is refused is told with its line.
namespace {

using namespace fuzzing;

void use(const brevan::Drawing& drawing) {
  requireSound(drawing);
  constexpr size_t kMostWritten = 50;  // a drawing file takes a thousand times as long as the text
  if (drawing.count() > kMostWritten) { return; }
  const brevan::Drawing again = brevan::drawingFromDrg(brevan::drawingDrg(drawing), "again.drg");
  require(brevan::drawingJson(again) == brevan::drawingJson(drawing));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    use(brevan::drawingFromSymbolText({reinterpret_cast<const char*>(data), size}, "fuzz.sym"));
  } catch (const HostFailure& failure) { require(std::string_view(failure.what()).starts_with("fuzz.sym:")); }
  return 0;
}

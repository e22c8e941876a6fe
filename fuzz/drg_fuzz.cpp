#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "frame/host/core_services.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"

// A drawing file that is read is a drawing that can be written and comes back alike.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const brevan::Drawing drawing = brevan::drawingFromDrg({reinterpret_cast<const char*>(data), size}, "fuzz.drg");
    const brevan::Drawing again = brevan::drawingFromDrg(brevan::drawingDrg(drawing), "again.drg");
    if (brevan::drawingJson(drawing) != brevan::drawingJson(again)) { std::abort(); }
  } catch (const HostFailure&) { return 0; }
  return 0;
}

#include "render/exporters.h"

#include "host/files/dxf/write/writer.h"
#include "host/files/json_writer.h"
#include "host/files/svg_writer.h"
#include "render/pdf_writer.h"
#include "render/png_writer.h"

namespace brevan {

std::map<std::string, Exporter, std::less<>> exporters(const std::string& title) {
  return {
      {"dxf", [](const Drawing& drawing, int) { return drawingDxf(drawing); }},
      {"svg", [](const Drawing& drawing, int) { return drawingSvg(drawing); }},
      {"json", [](const Drawing& drawing, int) { return drawingJson(drawing); }},
      {"pdf", [title](const Drawing& drawing, int) { return pdfBytes(drawing, title); }},
      {"png", [](const Drawing& drawing, int dpi) { return pngBytes(drawing, dpi); }},
  };
}

}  // namespace brevan

#include "render/exporters.h"

#include "host/files/dxf/write/writer.h"
#include "host/files/json_writer.h"
#include "host/files/svg_writer.h"
#include "render/pdf_writer.h"
#include "render/png_writer.h"

namespace brevan {

std::map<std::string, Exporter, std::less<>> exporters(const std::string& title) {
  return {
      {"dxf",
       [](const Drawing& drawing, const ExportOptions& options) { return drawingDxf(drawing, options.dxfVersion); }},
      {"svg", drawingSvg},
      {"json", [](const Drawing& drawing, const ExportOptions&) { return drawingJson(drawing); }},
      {"pdf",
       [title](const Drawing& drawing, const ExportOptions& options) { return pdfBytes(drawing, title, options); }},
      {"png", pngBytes},
  };
}

}  // namespace brevan

#include "host/files/drawing_files.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "frame/host/core_services.h"
#include "host/core/file_services.h"
#include "host/core/text_encoding.h"
#include "host/files/drg_reader.h"
#include "host/files/dxf/read/reader.h"
#include "host/files/symbol_text.h"

namespace brevan {

namespace {

struct FormatRow {
  std::string_view ending;
  ReadDrawing (*read)(const std::string& path);
};

ReadDrawing openDrawingFile(const std::string& path) { return {openDrg(path), {}}; }

ReadDrawing openSymbols(const std::string& path) { return {openSymbolText(path), {}}; }

constexpr std::array<FormatRow, 3> kFormats = {{{"drg", openDrawingFile}, {"dxf", openDxf}, {"sym", openSymbols}}};

const FormatRow* formatOf(const std::string& path) {
  const std::string ending = fileEnding(path);
  const auto* const row = std::find_if(kFormats.begin(), kFormats.end(),
                                       [&ending](const FormatRow& format) { return format.ending == ending; });
  return row == kFormats.end() ? nullptr : row;
}

}  // namespace

std::string fileEnding(const std::string& path) {
  std::string ending = std::filesystem::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(), lowered);
  return ending.empty() ? ending : ending.substr(1);
}

bool isReadableDrawing(const std::string& path) { return formatOf(path) != nullptr; }

ReadDrawing readDrawing(const std::string& path) {
  const FormatRow* format = formatOf(path);
  if (format == nullptr) {
    throw HostFailure("cannot read \"" + messageText(path) +
                      "\": drawings end in .drg or .dxf, symbols as text in .sym");
  }
  return format->read(path);
}

// The stamp is older than the content: a file that changes meanwhile is read again at the next time.
std::shared_ptr<const Drawing> FileDrawings::symbolFile(const std::string& path) {
  const std::string native = files_.resolveForReading(toUtf8(path));
  const FileStamp stamp = stampOf(native);
  const auto kept = kept_.find(native);
  if (kept != kept_.end() && kept->second.stamp == stamp) { return kept->second.drawing; }
  auto drawing = std::make_shared<const Drawing>(readDrawing(native).drawing);
  if (kept_.size() >= kMostKept) { kept_.clear(); }
  kept_.insert_or_assign(native, KeptFile{stamp, drawing});
  return drawing;
}

ReadDrawing FileDrawings::open(const std::string& path) { return readDrawing(files_.resolveForReading(toUtf8(path))); }

}  // namespace brevan

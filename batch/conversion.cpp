#include "batch/conversion.h"

#include <filesystem>
#include <iostream>

#include "batch/exit_codes.h"
#include "batch/signals.h"
#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/files/drawing_files.h"
#include "host/files/drg_writer.h"
#include "render/exporters.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

std::map<std::string, Exporter, std::less<>> converters(const std::string& title) {
  auto all = exporters(title);
  all.emplace("drg", [](const Drawing& drawing, const ExportOptions&) { return drawingDrg(drawing); });
  return all;
}

ReadDrawing read(const std::string& path) {
  try {
    return readDrawing(path);
  } catch (const HostFailure& failure) { throw InputUnread(toUtf8(failure.what())); } catch (const std::bad_alloc&) {
    throw InputUnread("\"" + path + "\": there is not enough memory");
  }
}

}  // namespace

std::string checkConvertibleFrom(const std::string& path) {
  return isReadableDrawing(path) ? "" : "convert reads .drg, .dxf and .sym files, got \"" + path + "\"";
}

std::string checkConvertibleTo(const std::string& path) {
  return converters("").contains(fileEnding(path))
             ? ""
             : "convert writes .drg, .dxf, .svg, .pdf, .png and .json files, got \"" + path + "\"";
}

ReadDrawing readForConversion(const std::string& path) {
  ReadDrawing drawing = read(path);
  if (!drawing.notRead.empty()) { std::cerr << path << ": not read: " << toUtf8(drawing.notRead) << '\n'; }
  return drawing;
}

void saveConversion(const std::string& from, const std::string& to, const std::function<std::string()>& content) {
  std::error_code ignored;
  if (fs::equivalent(from, to, ignored)) { throw OutputUnwritten("\"" + to + "\" is the file that is converted"); }
  try {
    saveWhole(to, content());
  } catch (const HostFailure& failure) {
    throw OutputUnwritten(toUtf8(failure.what()));
  } catch (const std::bad_alloc&) { throw OutputUnwritten("\"" + to + "\": there is not enough memory"); }
}

void convertDrawing(const std::string& from, const std::string& to, ExportOptions options) {
  const ReadDrawing drawing = readForConversion(from);
  stopIfInterrupted();
  options.tell = [&from](const std::string& text) { std::cerr << from << ": " << toUtf8(text) << '\n'; };
  saveConversion(from, to, [&] {
    const Exporter convert = converters(fs::path(from).stem().string()).find(fileEnding(to))->second;
    return convert(drawing.drawing, options);
  });
}

}  // namespace brevan

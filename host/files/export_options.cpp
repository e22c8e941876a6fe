#include "host/files/export_options.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/drawing/sheet.h"

namespace brevan {

namespace {

std::vector<std::string_view> partsAt(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find(separator, at), text.size());
    parts.push_back(trimmed(text.substr(at, end - at)));
    at = end + 1;
  }
  return parts;
}

// Each false for a value that is no such thing.
bool setScale(ExportOptions& options, std::string_view value) {
  options.page.fit = value == "fit";
  if (options.page.fit) { return true; }
  const std::vector<std::string_view> sides = partsAt(value, ':');
  if (sides.size() != 2) { return false; }
  const auto paper = numberText::parseDouble(sides[0]);
  const auto drawing = numberText::parseDouble(sides[1]);
  constexpr double kMost = 1e9;
  if (!paper || !drawing || !(*paper > 0.0) || !(*drawing > 0.0)) { return false; }
  options.page.scale = *drawing / *paper;
  return *options.page.scale <= kMost && *options.page.scale >= 1.0 / kMost;
}

bool setPaper(ExportOptions& options, std::string_view value) {
  options.page.paper = value;
  return isoSheet(value, false).has_value();
}

bool setMargin(ExportOptions& options, std::string_view value) {
  constexpr double kMost = 200.0;
  options.page.margin = numberText::parseDouble(value);
  return options.page.margin && *options.page.margin >= 0.0 && *options.page.margin <= kMost;
}

bool setWindow(ExportOptions& options, std::string_view value) {
  std::vector<double> numbers;
  for (const std::string_view part : partsAt(value, ',')) {
    const auto number = numberText::parseDouble(part);
    if (!number) { return false; }
    numbers.push_back(*number);
  }
  if (numbers.size() != 4 || numbers[0] == numbers[2] || numbers[1] == numbers[3]) { return false; }
  Box window;
  window.add(Point{numbers[0], numbers[1]});
  window.add(Point{numbers[2], numbers[3]});
  options.page.window = window;
  return true;
}

bool setLayers(ExportOptions& options, std::string_view value) {
  for (const std::string_view part : partsAt(value, ',')) {
    const auto name = toWindows1252(part);
    if (!name || name->empty()) { return false; }
    options.page.layers.push_back(*name);
  }
  return true;
}

bool setVersion(ExportOptions& options, std::string_view value) {
  options.dxfVersion = value == "R2000" ? DxfVersion::kR2000 : DxfVersion::kR2010;
  return value == "R2000" || value == "R2010";
}

bool setDots(ExportOptions& options, std::string_view value) {
  constexpr int kLeast = 10;
  constexpr int kMost = 2400;
  const auto dots = numberText::parseInteger(value);
  if (!dots || *dots < kLeast || *dots > kMost) { return false; }
  options.dotsAnInch = static_cast<int>(*dots);
  return true;
}

bool setRotation(ExportOptions& options, std::string_view value) {
  constexpr double kMost = 360.0;
  const auto angle = numberText::parseDouble(value);
  if (!angle || !(std::abs(*angle) <= kMost)) { return false; }
  options.page.rotation = *angle;
  return true;
}

using Set = bool (*)(ExportOptions& options, std::string_view value);
struct OptionRow {
  ExportOptionText text;
  Set set;
};
constexpr auto kOptions = std::to_array<OptionRow>({
    {{"scale", "1:N|fit", "The picture's scale", "two numbers above 0, as 1:50 or 2:1, or fit"}, setScale},
    {{"paper", "NAME", "Its paper, A0 to A4", "A0, A1, A2, A3 or A4"}, setPaper},
    {{"margin", "MM", "The paper's margin that stays empty", "0 to 200 millimetres"}, setMargin},
    {{"rotate", "DEGREES", "Turns the drawing on the paper, counter-clockwise", "-360 to 360 degrees"}, setRotation},
    {{"window", "X1,Y1,X2,Y2", "The part of the drawing to show", "two corners, X1,Y1,X2,Y2 in drawing units"},
     setWindow},
    {{"layers", "NAME,...", "The layers to show", "names of layers with commas between them"}, setLayers},
    {{"dpi", "N", "The dots an inch of a PNG picture", "10 to 2400 dots an inch"}, setDots},
    {{"dxf-version", "R2000|R2010", "The version of a DXF file", "R2000 or R2010"}, setVersion},
});

}  // namespace

Page ExportOptions::tellPage(const Drawing& drawing) const {
  Page chosen = pageOf(drawing, page);
  if (tell && !chosen.told.empty()) { tell(chosen.told); }
  return chosen;
}

std::vector<ExportOptionText> exportOptionTexts() {
  std::vector<ExportOptionText> texts;
  texts.reserve(kOptions.size());
  for (const OptionRow& row : kOptions) { texts.push_back(row.text); }
  return texts;
}

void setExportOption(ExportOptions& options, std::string_view name, std::string_view value) {
  const auto row = std::ranges::find(kOptions, name, [](const OptionRow& option) { return option.text.name; });
  if (row == kOptions.end()) {
    std::string names;
    for (const ExportOptionText& text : exportOptionTexts()) {
      names += (names.empty() ? "" : ", ") + std::string(text.name);
    }
    throw HostFailure("an export takes " + names + ", got \"" + messageText(name) + "\"");
  }
  if (!row->set(options, value)) {
    throw HostFailure("\"" + std::string(name) + "\" takes " + std::string(row->text.rule) + ", got \"" +
                      messageText(value) + "\"");
  }
}

}  // namespace brevan

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/page.h"
#include "host/files/dxf/write/text.h"

namespace brevan {

inline constexpr int kDefaultDotsAnInch = 150;

// What a user asks of an export besides its format.
struct ExportOptions {
  int dotsAnInch = kDefaultDotsAnInch;
  DxfVersion dxfVersion = DxfVersion::kR2010;
  PageOptions page = {};
  std::function<void(const std::string& text)> tell = nullptr;  // what the user should know of the page, Windows-1252

  // The page of a picture; tells what the user should know of it.
  [[nodiscard]] Page tellPage(const Drawing& drawing) const;
};

// What users read of an option.
struct ExportOptionText {
  std::string_view name;
  std::string_view value;  // "1:N|fit"
  std::string_view help;
  std::string_view rule;
};
std::vector<ExportOptionText> exportOptionTexts();

// An option by the name and value that users give, UTF-8: scale "1:50" or "fit", paper "A3", margin "5" (millimetres),
// window "X1,Y1,X2,Y2" (drawing units), layers "Walls,Doors", dxf-version "R2000", dpi "300". Throws HostFailure that
// names the option, the value and the rule.
void setExportOption(ExportOptions& options, std::string_view name, std::string_view value);

}  // namespace brevan

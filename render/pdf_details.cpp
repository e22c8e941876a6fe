#include "render/pdf_details.h"

#include <cmath>
#include <string_view>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace brevan {

namespace {

// Replaces what stands between two marks, filled up with blanks behind the closing one.
void replaceBetween(std::string& file, std::string_view open, char close, const std::string& with) {
  const size_t mark = file.find(open);
  const size_t end = mark == std::string::npos ? mark : file.find(close, mark + open.size());
  const size_t begin = mark + open.size();
  if (end == std::string::npos || with.size() > end - begin) {
    throw HostFailure("The PDF file holds no \"" + std::string(open) + "\" with room for \"" + with + "\".");
  }
  std::string text = with + close;
  text.resize(end - begin + 1, ' ');
  file.replace(begin, text.size(), text);
}

}  // namespace

void fixCreationDate(std::string& file) { replaceBetween(file, "/CreationDate (", ')', "D:20000101000000Z"); }

void fixPageSize(std::string& file, const Sheet& sheet) {
  constexpr double kPointsAMillimetre = 72.0 / 25.4;
  const double height = sheet.height * kPointsAMillimetre;
  const double top = std::round(height);  // where the writer put the upper edge
  replaceBetween(file, "/MediaBox [", ']',
                 numberText::format("0 %.4f %.4f %.0f", top - height, sheet.width * kPointsAMillimetre, top));
}

}  // namespace brevan

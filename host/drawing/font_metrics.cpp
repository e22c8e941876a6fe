#include "host/drawing/font_metrics.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace brevan {

namespace {

constexpr double kUnitsPerEm = 2048.0;
constexpr int kMonoWidth = 1229;

using Widths = std::array<int16_t, 256>;

constexpr Widths kSansWidths = {
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    569,  569,  727,  1139, 1139, 1821,
    1366, 391,  682,  682,  797,  1196, 569,  682,  569,  569,  1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139,
    1139, 569,  569,  1196, 1196, 1196, 1139, 2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593, 1479, 569,  1024, 1366,
    1139, 1706, 1479, 1593, 1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 569,  569,  569,  961,
    1139, 682,  1139, 1139, 1024, 1139, 1139, 569,  1139, 1139, 455,  455,  1024, 455,  1706, 1139, 1139, 1139, 1139,
    682,  1024, 569,  1139, 1024, 1479, 1024, 1024, 1024, 684,  532,  684,  1196, 0,    1139, 0,    455,  1139, 682,
    2048, 1139, 1139, 682,  2048, 1366, 682,  2048, 0,    1251, 0,    0,    455,  455,  682,  682,  717,  1139, 2048,
    682,  2048, 1024, 682,  1933, 0,    1024, 1366, 569,  682,  1139, 1139, 1139, 1139, 532,  1139, 682,  1509, 758,
    1139, 1196, 682,  1509, 1131, 819,  1124, 682,  682,  682,  1180, 1100, 569,  682,  682,  748,  1139, 1708, 1708,
    1708, 1251, 1366, 1366, 1366, 1366, 1366, 1366, 2048, 1479, 1366, 1366, 1366, 1366, 569,  569,  569,  569,  1479,
    1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366, 1251, 1139, 1139, 1139, 1139,
    1139, 1139, 1821, 1024, 1139, 1139, 1139, 1139, 569,  569,  569,  569,  1139, 1139, 1139, 1139, 1139, 1139, 1139,
    1124, 1251, 1139, 1139, 1139, 1139, 1024, 1139, 1024};

constexpr Widths kSerifWidths = {
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    512,  682,  836,  1024, 1024, 1706,
    1593, 369,  682,  682,  1024, 1155, 512,  682,  512,  569,  1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024,
    1024, 569,  569,  1155, 1155, 1155, 909,  1886, 1479, 1366, 1366, 1479, 1251, 1139, 1479, 1479, 682,  797,  1479,
    1251, 1821, 1479, 1479, 1139, 1479, 1366, 1139, 1251, 1479, 1479, 1933, 1479, 1479, 1251, 682,  569,  682,  961,
    1024, 682,  909,  1024, 909,  1024, 909,  682,  1024, 1024, 569,  569,  1024, 569,  1593, 1024, 1024, 1024, 1024,
    682,  797,  569,  1024, 1024, 1479, 1024, 1024, 909,  983,  410,  983,  1108, 0,    1024, 0,    682,  1024, 909,
    2048, 1024, 1024, 682,  2048, 1139, 682,  1821, 0,    1251, 0,    0,    682,  682,  909,  909,  717,  1024, 2048,
    682,  2007, 797,  682,  1479, 0,    909,  1479, 512,  682,  1024, 1024, 1024, 1024, 410,  1024, 682,  1556, 565,
    1024, 1155, 682,  1556, 1024, 819,  1124, 614,  614,  682,  1180, 928,  512,  682,  614,  635,  1024, 1536, 1536,
    1536, 909,  1479, 1479, 1479, 1479, 1479, 1479, 1821, 1366, 1251, 1251, 1251, 1251, 682,  682,  682,  682,  1479,
    1479, 1479, 1479, 1479, 1479, 1479, 1155, 1479, 1479, 1479, 1479, 1479, 1479, 1139, 1024, 909,  909,  909,  909,
    909,  909,  1366, 909,  909,  909,  909,  909,  569,  569,  569,  569,  1024, 1024, 1024, 1024, 1024, 1024, 1024,
    1124, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024};

struct FaceName {
  std::string_view name;
  FontFace face;
};
constexpr std::array<FaceName, 8> kFaceNames = {{
    {"times new roman", FontFace::kSerif},
    {"times", FontFace::kSerif},
    {"liberation serif", FontFace::kSerif},
    {"tinos", FontFace::kSerif},
    {"courier new", FontFace::kMono},
    {"courier", FontFace::kMono},
    {"liberation mono", FontFace::kMono},
    {"cousine", FontFace::kMono},
}};

// Font names are plain ASCII wherever they stand for one of these faces.
bool sameName(std::string_view font, std::string_view lowerCaseName) {
  const auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; };
  return std::equal(font.begin(), font.end(), lowerCaseName.begin(), lowerCaseName.end(), same);
}

}  // namespace

FontFace faceOf(std::string_view font) {
  const auto* const found = std::find_if(kFaceNames.begin(), kFaceNames.end(),
                                         [font](const FaceName& row) { return sameName(font, row.name); });
  return found == kFaceNames.end() ? FontFace::kSans : found->face;
}

double advanceWidth(FontFace face, char character) {
  const auto code = static_cast<unsigned char>(character);
  const int mono = kSansWidths[code] == 0 ? 0 : kMonoWidth;
  switch (face) {
    case FontFace::kSans: return kSansWidths[code] / kUnitsPerEm;
    case FontFace::kSerif: return kSerifWidths[code] / kUnitsPerEm;
    case FontFace::kMono: return mono / kUnitsPerEm;
  }
  return 0.0;
}

double capHeight(FontFace face) {
  // Measured on the fonts that the names mean. The metric equal of the typewriter face shares its widths, not its
  // heights.
  constexpr std::array<double, 3> kCapHeights = {1409.0 / kUnitsPerEm, 1341.0 / kUnitsPerEm, 1170.0 / kUnitsPerEm};
  return kCapHeights[static_cast<size_t>(face)];
}

}  // namespace brevan

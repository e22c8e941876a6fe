#pragma once

#include <string_view>

namespace brevan {

// The three faces that every drawing can rely on: a font stands for the one whose name it bears, any
// other font for the sans serif face.
enum class FontFace { kSans, kSerif, kMono };

FontFace faceOf(std::string_view font);

// The advance width of a Windows-1252 character in em; control characters take none. The widths are those
// of the metric equals of Arial, Times New Roman and Courier New.
double advanceWidth(FontFace face, char character);

// The height of a capital letter in em.
double capHeight(FontFace face);

}  // namespace brevan

#pragma once

#include <string>
#include <string_view>

namespace brevan {

// How the bytes of a DXF file's texts are meant.
enum class DxfEncoding { kWindows1252, kUtf8, kOther };

// A text as the drawing holds it, in Windows-1252, its lines parted by "\N".
struct DxfTextRead {
  std::string text;
  bool underlined = false;   // from its first character on
  double widthFactor = 0.0;  // 0: none given
  size_t replaced = 0;       // characters that Windows-1252 lacks
};

// A name keeps what it is by: characters that Windows-1252 lacks are shown as "<U+4E2D>".
DxfTextRead dxfNameRead(std::string_view bytes, DxfEncoding encoding);
// In texts, such characters become the nearest that it has, "?" where none is near.
// The value of a TEXT or an attribute: "%%d" and its like, carets and "\U+0000" are taken for what they stand for.
DxfTextRead dxfTextRead(std::string_view bytes, DxfEncoding encoding);
// The value of an MTEXT or a dimension: its formatting is left out, stacked fractions become "a/b", a blank before
// them.
DxfTextRead dxfMTextRead(std::string_view bytes, DxfEncoding encoding);

}  // namespace brevan

#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brevan {

enum class DxfVersion { kR2000, kR2010 };

// Texts of a DXF file: Windows-1252 bytes in R2000, UTF-8 in R2010, always within one line.

// A name or a description; control characters become blanks.
std::string dxfPlain(std::string_view windows1252, DxfVersion version);

// The value of a TEXT: control characters, carets and "%%" are written so that they read as themselves.
std::string dxfTextValue(std::string_view windows1252, DxfVersion version);

// The value of an MTEXT or of a dimension: its own braces and backslashes stand for themselves.
std::string dxfMTextValue(std::span<const std::string> lines, DxfVersion version);

}  // namespace brevan

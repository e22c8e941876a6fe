#pragma once

#include <string>

#include <functional>

#include "host/drawing/drawing_source.h"
#include "host/files/export_options.h"

namespace brevan {

// Whether an ending can be read or written: empty where it can, else what to tell the user.
std::string checkConvertibleFrom(const std::string& path);
std::string checkConvertibleTo(const std::string& path);

// Reads a drawing and names on standard error what could not be read. Throws InputUnread.
ReadDrawing readForConversion(const std::string& path);
// Saves what is made of it. Throws OutputUnwritten, also where that would replace the file it was made from.
void saveConversion(const std::string& from, const std::string& to, const std::function<std::string()>& content);

// Reads a drawing and writes it in the format of the other file's ending. What could not be read, and what the user
// should know of the page, is named on standard error. Throws InputUnread and OutputUnwritten.
void convertDrawing(const std::string& from, const std::string& to, ExportOptions options);

}  // namespace brevan

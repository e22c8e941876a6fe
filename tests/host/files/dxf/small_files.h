#pragma once

#include <string>

#include "host/files/dxf/read/reader.h"
#include "tests/failure.h"

// Files of a few groups, as other programs write them.
namespace brevan {

inline ReadDrawing readText(const std::string& text) { return drawingFromDxf(text, "x.dxf"); }

inline std::string dxfReason(const std::string& text) {
  return failureOf([&] { readText(text); });
}

inline std::string section(const std::string& name, const std::string& content) {
  return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
}
inline std::string entities(const std::string& content) { return section("ENTITIES", content) + "0\nEOF\n"; }
inline std::string block(const std::string& name, const std::string& content) {
  return "0\nBLOCK\n2\n" + name + "\n10\n0\n20\n0\n" + content + "0\nENDBLK\n";
}
inline std::string insertOf(const std::string& name, const std::string& more = "") {
  return "0\nINSERT\n8\n0\n2\n" + name + "\n10\n0\n20\n0\n" + more;
}
inline const std::string kLine = "0\nLINE\n8\n0\n10\n1\n20\n2\n11\n3\n21\n4\n";

}  // namespace brevan

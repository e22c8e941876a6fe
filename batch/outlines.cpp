#include "batch/outlines.h"

#include <iostream>
#include <stdexcept>

#include "batch/conversion.h"
#include "batch/exit_codes.h"
#include "batch/signals.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/drawing/outlines.h"
#include "host/files/dxf/write/writer.h"

namespace brevan {

namespace {

bool isNamed(const Group& group, const std::string& name) {
  return name == group.name || name == std::string(group.parent) + ' ' + group.name;
}

std::vector<GroupId> partsOf(const Drawing& drawing, const CutRequest& request) {
  std::vector<GroupId> parts;
  const auto add = [&](const auto& wanted) {
    const size_t before = parts.size();
    drawing.forEachGroup([&](const Group& group) {
      if (wanted(group)) { parts.push_back(group.id); }
    });
    return parts.size() > before;
  };
  if (request.groups.empty()) {
    add([](const Group&) { return true; });
  }
  for (const std::string& name : request.groups) {
    const std::string ours = toWindows1252(name).value_or(name);
    if (!add([&](const Group& group) { return isNamed(group, ours); })) {
      throw InputUnread("\"" + request.from + "\" has no part \"" + name + "\"");
    }
  }
  return parts;
}

std::vector<Loop> loopsOfParts(const Drawing& drawing, const CutRequest& request) {
  std::vector<Loop> loops;
  for (const GroupId part : partsOf(drawing, request)) {
    Outlines outlines = outlinesOf(drawing, part);
    for (const std::string& fault : outlines.faults) {
      std::cerr << toUtf8(drawing.group(part).name) << " does not close at " << fault << '\n';
    }
    std::ranges::move(outlines.loops, std::back_inserter(loops));
  }
  return loops;
}

std::vector<Loop> loopAt(Drawing& drawing, Point at) {
  Loop loop = outerLoopAt(drawing, at);
  return loop.empty() ? std::vector<Loop>{} : std::vector<Loop>{std::move(loop)};
}

}  // namespace

void writeOutlines(const CutRequest& request) {
  ReadDrawing read = readForConversion(request.from);
  stopIfInterrupted();
  const std::vector<Loop> loops = request.at ? loopAt(read.drawing, *request.at) : loopsOfParts(read.drawing, request);
  if (loops.empty()) { throw std::runtime_error("\"" + request.from + "\": nothing closes, so nothing is written"); }
  saveConversion(request.from, request.to, [&] { return loopsDxf(loops, read.drawing.parameters()); });
}

}  // namespace brevan

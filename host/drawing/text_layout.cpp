#include "host/drawing/text_layout.h"

#include <algorithm>

#include "host/drawing/font_metrics.h"

namespace brevan {

namespace {

// Column and row of a justification as parts of the block: 0 left or bottom, 0.5 middle, 1 right or top.
struct Anchor {
  double across = 0.0;
  double up = 0.0;
  bool offset = false;
};

Anchor anchorOf(int justification) {
  const bool offset = justification >= 11 && justification <= 19;
  const int plain = offset ? justification - 10 : justification;
  if (plain < 1 || plain > 9) { return {}; }
  const int column = (plain - 1) / 3;
  const int row = (plain - 1) % 3;
  return {column * 0.5, row * 0.5, offset};
}

// A character counts as half a height wide.
Point offsetOf(const Anchor& anchor, double height, double widthFactor) {
  if (!anchor.offset) { return {}; }
  const double right = 0.25 * height * widthFactor;
  const double up = 0.5 * height;
  return {right * (1.0 - 2.0 * anchor.across), up * (1.0 - 2.0 * anchor.up)};
}

}  // namespace

std::vector<std::string> textLines(std::string_view text) {
  std::vector<std::string> lines(1);
  for (size_t at = 0; at < text.size(); ++at) {
    const bool breaks = text[at] == '\\' && at + 1 < text.size() && (text[at + 1] == 'n' || text[at + 1] == 'N');
    if (breaks) {
      lines.emplace_back();
      ++at;
    } else {
      lines.back() += text[at];
    }
  }
  return lines;
}

double lineWidth(std::string_view font, std::string_view line) {
  const FontFace face = faceOf(font);
  double width = 0.0;
  for (const char character : line) { width += advanceWidth(face, character); }
  return width;
}

TextLayout layOut(const Text& text) {
  TextLayout layout;
  layout.height = text.height / 10.0;
  const double widthFactor = text.widthFactor == 0.0 ? 1.0 : text.widthFactor;
  double widest = 0.0;
  for (std::string& line : textLines(text.text)) {
    const double width = lineWidth(text.font, line) * layout.height * widthFactor;
    widest = std::max(widest, width);
    layout.lines.push_back({std::move(line), {}, width});
  }
  const double spacing = kLineSpacing * layout.height;
  const double blockHeight = layout.height + spacing * static_cast<double>(layout.lines.size() - 1);
  const Anchor anchor = anchorOf(text.justification);
  const Point low =
      offsetOf(anchor, layout.height, widthFactor) - Point{anchor.across * widest, anchor.up * blockHeight};
  double bottom = low.y + blockHeight - layout.height;
  for (PlacedLine& line : layout.lines) {
    line.baseline = {low.x + anchor.across * (widest - line.width), bottom + kDescender * layout.height};
    bottom -= spacing;
  }
  layout.box.add(low);
  layout.box.add(low + Point{widest, blockHeight});
  return layout;
}

Box textBounds(const Text& text, const Parameters& parameters) {
  const Box cell = layOut(text).box;
  const Point along = unitOfDegrees(text.angle / 10.0);
  const double size = parameters.turnedOnPaper() ? -parameters.paperMillimetre() : parameters.paperMillimetre();
  const Transform turn = Transform::rotation({}, along.x, along.y);
  Box box;
  for (const Point corner : {cell.low, cell.high, Point{cell.low.x, cell.high.y}, Point{cell.high.x, cell.low.y}}) {
    box.add(text.at + turn(corner) * size);
  }
  return box;
}

}  // namespace brevan

#include <algorithm>

#include "host/drawing/font_metrics.h"
#include "host/drawing/text_layout.h"
#include "host/files/dxf/read/entity_reader.h"

// TEXT, MTEXT and attributes.
namespace brevan {

namespace {

// Where on a text its point lies: column left, centre, right; row bottom, middle, top.
struct Anchor {
  int column = 0;
  int row = 0;
  bool ofCell = false;  // of the em cell instead of baseline and capitals
  [[nodiscard]] int justification() const { return 1 + 3 * column + row; }
};

Anchor anchorOfText(int horizontal, int vertical) {
  constexpr int kMiddleOfAll = 4;
  if (horizontal == kMiddleOfAll) { return {1, 1}; }
  Anchor anchor;
  anchor.column = horizontal >= 0 && horizontal <= 2 ? horizontal : 0;
  anchor.row = vertical >= 2 && vertical <= 3 ? vertical - 1 : 0;
  anchor.ofCell = vertical == 1;
  return anchor;
}

// The drawing's own point of a text that stands at `at`, in lengths of the space.
Point ownPoint(const Text& text, const Anchor& anchor, Point at) {
  if (anchor.ofCell) { return at; }
  Text measured = text;
  measured.at = {};
  const TextLayout layout = layOut(measured);
  const PlacedLine& line = anchor.row == 0 ? layout.lines.back() : layout.lines.front();
  const double up = anchor.row * 0.5 * layout.height * capHeight(faceOf(text.font));
  const Point along = unitOfDegrees(text.angle / 10.0);
  const Point relative = {line.baseline.x + line.width * 0.5 * anchor.column, line.baseline.y + up};
  return at - Transform::rotation({}, along.x, along.y)(relative);
}

// Breaks lines between words where they exceed the width, in heights.
std::string wrapped(const std::string& text, std::string_view font, double width) {
  std::string all;
  for (const std::string& line : textLines(text)) {
    if (!all.empty()) { all += "\\N"; }
    std::string row;
    for (size_t at = 0; at <= line.size();) {
      const size_t end = std::min(line.find(' ', at), line.size());
      const std::string word = line.substr(at, end - at);
      at = end + 1;
      std::string longer = row;
      if (!row.empty()) { longer += ' '; }
      longer += word;
      if (!row.empty() && lineWidth(font, longer) > width) {
        all += row + "\\N";
        row = word;
      } else {
        row = longer;
      }
    }
    all += row;
  }
  return all;
}

}  // namespace

void DxfEntityReader::noteReplaced(const DxfTextRead& read) {
  report_.note("character that Windows-1252 lacks, shown as the nearest or \"?\"", read.replaced);
}

void DxfEntityReader::singleLine(const DxfRecord& record, int verticalCode) {
  const DxfFont& font = styles_.fontOf(record.name(7));
  const DxfTextRead read = dxfTextRead(record.text(1), styles_.encoding());
  if (read.text.empty()) { return; }
  noteReplaced(read);
  const int horizontal = record.integer(72);
  const int vertical = record.integer(verticalCode);
  const Anchor anchor = anchorOfText(horizontal, vertical);
  Text text;
  text.font = font.font;
  text.text = read.text;
  text.style = read.underlined ? kUnderlined : 0;
  text.angle = record.real(50) * 10.0;
  text.justification = anchor.justification();
  text.widthFactor = record.real(41, font.widthFactor);
  text.height = record.real(40, font.height) / capHeight(faceOf(font.font)) * 10.0;
  const bool fitted = horizontal == 3 || horizontal == 5;  // between two points, from the left one
  const bool secondPoint = (horizontal != 0 || vertical != 0) && !fitted && record.has(11);
  if (fitted && record.has(11)) { text.angle = degrees(angleOf(record.point(11) - record.point(10))) * 10.0; }
  text.at = ownPoint(text, anchor, record.point(secondPoint ? 11 : 10));
  put(std::move(text));
}

void DxfEntityReader::text(const DxfRecord& record) { singleLine(record, 73); }

void DxfEntityReader::attribute(const DxfRecord& record) {
  constexpr int kHidden = 1;
  if ((record.integer(70) & kHidden) != 0) {
    report_.note("ATTRIB that is hidden");
    return;
  }
  singleLine(record, 74);
}

// Its text shows where the block is placed only if it is the same everywhere.
void DxfEntityReader::attributeDefinition(const DxfRecord& record) {
  constexpr int kHidden = 1;
  constexpr int kConstant = 2;
  if ((record.integer(70) & (kHidden | kConstant)) == kConstant) {
    singleLine(record, 74);
  } else {
    report_.note("ATTDEF");
  }
}

void DxfEntityReader::severalLines(const DxfRecord& record) {
  std::string bytes;
  for (const DxfTag& tag : record.tags()) {
    if (tag.code == 3 || tag.code == 1) { bytes += tag.value; }
  }
  const DxfFont& font = styles_.fontOf(record.name(7));
  DxfTextRead read = dxfMTextRead(bytes, styles_.encoding());
  if (read.text.empty()) { return; }
  noteReplaced(read);
  const int place = std::clamp(record.integer(71, 1), 1, 9) - 1;
  const Anchor anchor = {place % 3, 2 - place / 3};
  Text text;
  text.font = font.font;
  text.style = read.underlined ? kUnderlined : 0;
  text.widthFactor = read.widthFactor > 0.0 ? read.widthFactor : 1.0;
  text.justification = anchor.justification();
  const double em = record.real(40, 1.0) / capHeight(faceOf(font.font));
  text.height = em * 10.0;
  const double column = record.real(41) / (em * text.widthFactor);
  text.text = column > 0.0 && std::isfinite(column) ? wrapped(read.text, font.font, column) : read.text;
  const bool direction = record.has(11) && squaredLength(record.point(11)) > 0.0;
  text.angle = direction ? degrees(angleOf(record.point(11))) * 10.0 : record.real(50) * 10.0;
  const Point at = record.point(10);
  text.at = anchor.row == 1 ? at : ownPoint(text, anchor, at);
  put(std::move(text));
}

}  // namespace brevan

#include "survey/sheet/sheet_writer.h"

#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"

namespace ardenix::survey {

SheetWriter::SheetWriter(CCadWindow& view, JobSettings& job, Point origin)
    : view_(view), job_(job), origin_(origin), sign_(paperSign(job.parms())), line_(origin.y) {}

Point SheetWriter::at(double horizontal, double vertical) const {
  return origin_ + Point{across(horizontal), across(vertical)};
}

double SheetWriter::nextLine(const TextRow& row) const {
  constexpr double kSpacing = 1.1;            // of a text's height
  constexpr double kSizesAMillimetre = 10.0;  // sizes are tenths of a millimetre
  return -across(row.size * kSpacing / kSizesAMillimetre);
}

Point SheetWriter::placeBelow(double line, const TextRow& row) const {
  Point place = at(row.horizontal, row.vertical);
  if (row.vertical == kNextLine) { place.y = line + nextLine(row); }
  return place;
}

void SheetWriter::write(const TextRow& row, Point at, std::string_view text) {
  write(row, at, text, row.justification);
}

void SheetWriter::write(const TextRow& row, Point at, std::string_view text, int justification) {
  if (text.empty()) { return; }
  TextStyle& style = job_.textStyle();
  use(row, style);
  style.justification = justification;
  DraftingPen(view_, {}, job_.layer()).text(at, text, style);
  line_ = at.y;
}

}  // namespace ardenix::survey

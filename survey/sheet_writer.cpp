#include "survey/sheet_writer.h"

#include <array>

#include "frame/host/macro_quote.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

// A south-oriented sheet has its first axis to the left and its second downwards.
double paperSign(const DrawingParms& parms) {
  const bool turned = parms.p[10] != 0.0 && parms.p[7] == 0.0;
  return turned ? -1.0 : 1.0;
}

}  // namespace

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
  style.use(row);
  style.justification = justification;
  view_.gsSetPrimHeader(kTextPrimitive, 0, 0, job_.layer(), row.pen, 1, 0.0, 0, 0);
  style.sendTo(view_);
  view_.gsSetText(at.x, at.y, text);
  view_.gsAddPrim();
  line_ = at.y;
}

std::string SheetWriter::ask(std::string_view prompt, std::string_view offered) const {
  constexpr std::string_view kAnswer = "TVAR$";
  constexpr int kLongest = 1024;
  view_.gsSetMacStrVar(kAnswer, offered);
  view_.gsExecuteMacro(numberText::format("#ENTER %s %s", quotedForMacro(prompt), kAnswer));
  std::array<char, kLongest> typed{};
  view_.gsGetMacStrVar(kAnswer, typed.data(), kLongest);
  return typed.data();
}

}  // namespace ardenix::survey

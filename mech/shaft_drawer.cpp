#include "mech/shaft_drawer.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix::mech {

namespace {

constexpr PlacedTrade kShaftTrade = {.category = "SHAFTS",
                                     .prefix = "",
                                     .positionPrompt = "Enter center left point on Shaft (Spacebar to Stop)",
                                     .directionPrompt = "Enter a point on the Shaft center line (Spacebar to Stop)"};

constexpr double kLeastTrim = 1e-12;
constexpr ShaftSection kNoSection{};

std::string sectionKey(size_t number) { return numberText::format("Sec%d", static_cast<int>(number)); }

// A kind that is missing is 0, as any number is; one that cannot be read counts as a chamfer.
Trim readTrim(std::string_view record, int kindField, int sizeField) {
  const int unreadable = textField(record, kindField).empty() ? 0 : 1;
  const bool chamfer = coreGetFieldInt(record, unreadable, kindField, ',') != 0;
  return {chamfer ? TrimKind::kChamfer : TrimKind::kFillet, coreGetFieldDouble(record, 0.0, sizeField, ',')};
}

bool isLarger(double a, double b) { return a > b && !nearlyEqual(a, b); }

// The sections as they are drawn: open ends have no trims.
std::vector<ShaftSection> trimmedSections(const Shaft& shaft) {
  std::vector<ShaftSection> sections = shaft.sections;
  if (sections.empty()) { return sections; }
  if (shaft.leftOpen) { sections.front().left.size = 0.0; }
  if (shaft.rightOpen) { sections.back().right.size = 0.0; }
  return sections;
}

// How large a trim may be that a section has beside its neighbour: on the smaller side of a step it lies on what the
// neighbour's own trim leaves of the step.
double mostTrim(const ShaftSection& section, const ShaftSection* neighbour, double neighbourTrim) {
  if (neighbour == nullptr || !isLarger(neighbour->diameter, section.diameter)) { return section.diameter / 2.0; }
  return (neighbour->diameter - section.diameter) / 2.0 - neighbourTrim;
}

bool isSound(const ShaftSection& section, const ShaftSection* before, const ShaftSection* after) {
  constexpr double kRounding = 1e-9;
  const double left = section.left.size;
  const double right = section.right.size;
  return section.diameter > 0.0 && section.length > 0.0 && left + right <= section.length + kRounding &&
         left <= mostTrim(section, before, before == nullptr ? 0.0 : before->right.size) + kRounding &&
         right <= mostTrim(section, after, after == nullptr ? 0.0 : after->left.size) + kRounding;
}

}  // namespace

// ---- The record -----------------------------------------------------------------------------------------------

double Shaft::length() const {
  return std::accumulate(sections.begin(), sections.end(), 0.0,
                         [](double sum, const ShaftSection& section) { return sum + section.length; });
}

ShaftSection readShaftSection(std::string_view record) {
  return {.left = readTrim(record, 1, 2),
          .diameter = coreGetFieldDouble(record, 0.0, 3, ','),
          .length = coreGetFieldDouble(record, 0.0, 4, ','),
          .right = readTrim(record, 5, 6)};
}

std::string writeShaftSection(const ShaftSection& section) {
  const auto kind = [](const Trim& trim) { return trim.kind == TrimKind::kChamfer ? 1 : 0; };
  return numberText::format("%d,%.3f,%.3f,%.3f,%d,%.3f", kind(section.left), section.left.size, section.diameter,
                            section.length, kind(section.right), section.right.size);
}

bool endsShaft(const ShaftSection& section) { return writeShaftSection(section) == writeShaftSection(kNoSection); }

std::vector<ShaftSection> readShaft(const TINIFile& file, std::string_view name, size_t most) {
  std::vector<ShaftSection> sections;
  while (sections.size() < most) {
    const std::string record = file.ReadString(name, sectionKey(sections.size() + 1), "");
    if (record.empty()) { break; }
    sections.push_back(readShaftSection(record));
  }
  return sections;
}

void writeShaft(TINIFile& file, std::string_view name, const std::vector<ShaftSection>& sections) {
  file.EraseSection(name);
  size_t number = 0;
  for (const ShaftSection& section : sections) {
    file.WriteString(name, sectionKey(++number), writeShaftSection(section));
  }
}

std::optional<size_t> faultySection(const Shaft& shaft) {
  const std::vector<ShaftSection> sections = trimmedSections(shaft);
  for (size_t i = 0; i < sections.size(); ++i) {
    const ShaftSection* before = i > 0 ? &sections[i - 1] : nullptr;
    const ShaftSection* after = i + 1 < sections.size() ? &sections[i + 1] : nullptr;
    if (!isSound(sections[i], before, after)) { return i + 1; }
  }
  return std::nullopt;
}

// ---- Drawing --------------------------------------------------------------------------------------------------

ShaftDrawer::ShaftDrawer(CCadWindow& view, const DefinitionStore& store)
    : PlacedDrawer(view, store, kShaftTrade), store_(store) {}

void ShaftDrawer::takeRecord(std::string_view text) { shaft_ = {.sections = readShaft(store_.file(), text)}; }

void ShaftDrawer::selectDrawn() const {
  view().gsClearSelection();
  send(macroText::selectName(category(), group()));
}

void ShaftDrawer::strokeAxes() {
  if (shaft_.sections.empty()) { return; }
  const Point overhang{shaft_.sections.front().diameter / 2.0, 0};
  centrePen().line(position() - overhang, reference() + overhang);
}

// From the left end on: where two sections meet, the shoulder, the outline of the one that begins, and the corners of
// both. The last step is the right end, where none begins.
void ShaftDrawer::stroke() {
  const std::vector<ShaftSection> sections = trimmedSections(shaft_);
  Point at = position();
  for (size_t i = 0; i <= sections.size() && !sections.empty(); ++i) {
    const ShaftSection& before = i > 0 ? sections[i - 1] : kNoSection;
    const ShaftSection& section = i < sections.size() ? sections[i] : kNoSection;
    strokeStep(before, section, at);
    at = at + Point{section.length, 0};
  }
}

void ShaftDrawer::strokeStep(const ShaftSection& before, const ShaftSection& section, Point at) const {
  const bool first = before.diameter == 0.0;
  const bool last = section.diameter == 0.0;
  if (first && shaft_.leftOpen) {
    strokeBreak(at, section.diameter, -1.0);
  } else if (last && shaft_.rightOpen) {
    strokeBreak(at, before.diameter, 1.0);
  } else {
    strokeShoulder(before, section, at);
  }
  if (!last) { strokeOutline(section, at); }
  strokeCorners(section.left, section.diameter, isLarger(before.diameter, section.diameter), at, 1.0);
  strokeCorners(before.right, before.diameter, isLarger(section.diameter, before.diameter), at, -1.0);
}

// As high as the larger section is beside its trim.
void ShaftDrawer::strokeShoulder(const ShaftSection& before, const ShaftSection& section, Point at) const {
  const bool down = isLarger(before.diameter, section.diameter);
  const double trim = down ? before.right.size : section.left.size;
  const Point up{0, std::max(before.diameter, section.diameter) / 2.0 - trim};
  outlinePen().line(at - up, at + up);
}

void ShaftDrawer::strokeOutline(const ShaftSection& section, Point at) const {
  const Point up{0, section.diameter / 2.0};
  const Point from = at + Point{section.left.size, 0};
  const Point to = at + Point{section.length - section.right.size, 0};
  outlinePen().line(from - up, to - up);
  outlinePen().line(from + up, to + up);
}

// A convex trim takes away from the corner; a concave one fills the corner with the larger section's shoulder.
void ShaftDrawer::strokeCorners(const Trim& trim, double diameter, bool concave, Point at, double inwards) const {
  if (trim.size <= kLeastTrim) { return; }
  const Point side{0, diameter / 2.0};
  const Point face = side - Point{0, concave ? -trim.size : trim.size};
  const Point along{inwards * trim.size, 0};
  const DraftingPen pen = outlinePen();
  if (trim.kind == TrimKind::kChamfer) {
    pen.line(at - face, at + along - side);
    pen.line(at + face, at + along + side);
    pen.line(at + along + side, at + along - side);
    return;
  }
  const bool clockwise = (inwards > 0.0) != concave;
  pen.arc(at + face, at + along + face, at + along + side,
          clockwise ? ArcSense::kClockwise : ArcSense::kCounterClockwise);
  pen.arc(at - face, at + along - face, at + along - side,
          clockwise ? ArcSense::kCounterClockwise : ArcSense::kClockwise);
}

// The mark of a round bar that goes on: an S across it, and the lens at the end that is seen.
void ShaftDrawer::strokeBreak(Point at, double diameter, double outwards) const {
  const Point up{0, diameter / 2.0};
  const Point quarterUp = up / 2.0;
  const Point aside{diameter / 4.0, 0};
  const DraftingPen pen = outlinePen();
  pen.arc(at + up, at - aside + quarterUp, at, ArcSense::kClockwise);
  pen.arc(at, at + aside - quarterUp, at - up, ArcSense::kCounterClockwise);
  if (outwards < 0.0) {
    pen.arc(at, at + aside + quarterUp, at + up, ArcSense::kClockwise);
  } else {
    pen.arc(at, at - aside - quarterUp, at - up, ArcSense::kClockwise);
  }
}

}  // namespace ardenix::mech

#include "survey/plan/label_places.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "frame/drafting/sheet_axes.h"
#include "frame/host/limits.h"

namespace ardenix::survey {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kSizesAMillimetre = 10.0;
constexpr double kFarthest = 10.0;  // millimetres on paper from the mark

// A text's box in tenths of a millimetre, before it is turned about its point.
PaperBox boxOf(std::string_view text, const FontDef& font) {
  constexpr double kCharacter = 0.55;  // of the height
  constexpr double kLine = 1.1;
  size_t longest = 0;
  double lines = 0.0;
  for (size_t from = 0, end = 0; end != std::string_view::npos; from = end + 2) {
    end = std::min(text.find("\\n", from), text.find("\\N", from));
    longest = std::max(longest, std::min(end, text.size()) - from);
    lines += 1.0;
  }
  const Point size = Point{static_cast<double>(longest) * kCharacter * font.widthFactor, lines * kLine} * font.height;
  const int place =
      font.justification > limits::kJustifications.most ? font.justification - 11 : font.justification - 1;
  const int column = place / 3;
  const int row = place % 3;
  const Point low{-size.x * column / 2.0, -size.y * row / 2.0};
  return {low, low + size};
}

// What lies round a mark, on paper from it.
class Surrounding {
 public:
  Surrounding(CCadWindow& view, Point mark, double reach)
      : view_(view), mark_(mark), sign_(paperSignOf(view)), millimetre_(paperMillimetre(view)) {
    const int scan = view.gsGetListHandle(kAnyPrimitive, -1, 0, mark.x - reach, mark.y - reach, mark.x + reach,
                                          mark.y + reach, 0, 0);
    for (int type = view.gsGetNextPrim(scan); type > 0; type = view.gsGetNextPrim(scan)) {
      if (type == kLinePrimitive) { addLine(); }
      if (type == kArcPrimitive) { addArc(); }
      if (type == kTextPrimitive) { addText(); }
    }
    view.gsFreeListHandle(scan);
  }

  [[nodiscard]] bool leavesRoomFor(const PaperBox& box) const {
    return std::ranges::none_of(strokes_, [&](const PaperStroke& stroke) { return crosses(stroke, box); });
  }
  // The middle of the widest gap between the lines that come to the mark; up to the right where none does.
  [[nodiscard]] double freeDirection(double radius) const;

 private:
  [[nodiscard]] Point onPaper(Point p) const { return sign_ * (p - mark_); }
  void add(Point a, Point b) { strokes_.push_back({onPaper(a), onPaper(b)}); }
  void addLine() {
    Point a;
    Point b;
    view_.gsGetLine(a.x, a.y, b.x, b.y);
    add(a, b);
    const PaperStroke line = strokes_.back();
    ends_.push_back(line);
    ends_.push_back({line.b, line.a});
  }
  void addArc();
  void addText();

  CCadWindow& view_;
  Point mark_;
  double sign_;
  double millimetre_;
  std::vector<PaperStroke> strokes_;
  std::vector<PaperStroke> ends_;  // lines, from each of their ends
};

void Surrounding::addArc() {
  constexpr double kStep = std::numbers::pi / 36.0;
  Point start;
  Point centre;
  Point end;
  int clockwise = 0;
  view_.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, clockwise);
  const double whole =
      nearlyEqual(start, end) ? kTurn : std::fmod(angleOf(end - centre) - angleOf(start - centre) + 2 * kTurn, kTurn);
  const double sweep = clockwise != 0 && whole < kTurn ? whole - kTurn : whole;
  const int steps = static_cast<int>(std::ceil(std::fabs(sweep) / kStep));
  Point from = start;
  for (int step = 1; step <= steps; ++step) {
    const Point to = centre + turned(start - centre, sweep * step / steps);
    add(from, to);
    from = to;
  }
}

// As strokes along it, closer together than a label is high, so that none stands between them.
void Surrounding::addText() {
  Point at;
  FontDef font;
  std::array<char, limits::kLongestAnswer + 1> text{};
  view_.gsGetText(at.x, at.y, text.data(), static_cast<int>(text.size()));
  view_.gsGetFont(font);
  if (font.height <= 0.0) { return; }
  const auto [low, high] = boxOf(text.data(), font);
  const auto placed = [&](double across, double up) {
    const Point way = turned({across, up}, radians(font.angle / kSizesAMillimetre));
    return onPaper(at) + way * (millimetre_ / kSizesAMillimetre);
  };
  const int strokes = static_cast<int>(std::ceil(4.0 * (high.y - low.y) / font.height));
  for (int stroke = 0; stroke <= strokes; ++stroke) {
    const double up = low.y + (high.y - low.y) * stroke / strokes;
    strokes_.push_back({placed(low.x, up), placed(high.x, up)});
  }
}

double Surrounding::freeDirection(double radius) const {
  const double near = radius + 0.1 * millimetre_;
  std::vector<double> ways;
  for (const auto& [end, other] : ends_) {
    if (length(end) <= near && length(other) > near) { ways.push_back(angleOf(other)); }
  }
  if (ways.empty()) { return kTurn / 8.0; }
  std::ranges::sort(ways);
  ways.push_back(ways.front() + kTurn);
  size_t widest = 1;
  for (size_t n = 1; n < ways.size(); ++n) {
    if (ways[n] - ways[n - 1] > ways[widest] - ways[widest - 1]) { widest = n; }
  }
  return (ways[widest] + ways[widest - 1]) / 2.0;
}

}  // namespace

LetterPlace placeBeside(CCadWindow& view, const JobSettings& job, Point mark, double radius, std::string_view label) {
  constexpr double kLetter = 0.7;  // wide, of its height
  constexpr double kGap = 0.4;     // millimetres
  constexpr double kStep = 0.5;    // millimetres
  constexpr int kDirections = 24;
  const double millimetre = job.paperFactor();
  const double height = job.textStyle().height / kSizesAMillimetre * millimetre;
  const Point size{kLetter * height * static_cast<double>(label.size()), height};
  const double farthest = radius + kFarthest * millimetre;
  const Surrounding around(view, mark, farthest + length(size));
  const double best = around.freeDirection(radius);
  const double nearest = radius + kGap * millimetre;
  LeadingText place = leadingText(nearest, best, size);
  bool found = false;
  for (double distance = nearest; !found && distance <= farthest; distance += kStep * millimetre) {
    for (int turn = 0; !found && turn < kDirections; ++turn) {
      const int steps = (turn + 1) / 2;
      const LeadingText tried =
          leadingText(distance, best + kTurn / kDirections * (turn % 2 == 0 ? steps : -steps), size);
      found = around.leavesRoomFor(tried.box);
      if (found) { place = tried; }
    }
  }
  return {mark + paperSignOf(view) * place.place.at, place.place.justification};
}

}  // namespace ardenix::survey

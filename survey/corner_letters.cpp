#include "survey/corner_letters.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace ardenix::survey {

namespace {

class LetterPlacing {
 public:
  LetterPlacing(const SheetWriter& sheet, const Figure& figure, const TextRow& row, double circleRadius)
      : sheet_(sheet),
        figure_(figure),
        millimetre_(sheet.job().paperFactor()),
        height_(row.size / 10.0 * millimetre_),
        radius_(circleRadius),
        counterClockwise_(runsCounterClockwise(figure)) {
    constexpr double kStep = std::numbers::pi / 36.0;
    for (const Side& side : figure_) {
      const std::vector<Point> points = side.points(kStep);
      outline_.insert(outline_.end(), points.begin(), points.end());
      starts_.push_back(outline_.size() - points.size());
    }
  }

  std::vector<LetterPlace> run() {
    std::vector<LetterPlace> places;
    for (size_t corner = 0; corner < figure_.size(); ++corner) { places.push_back(placeAt(corner)); }
    return places;
  }

 private:
  [[nodiscard]] Point onPaper(Point p) const { return sheet_.axisSign() * p; }
  [[nodiscard]] Point along(size_t corner, bool forwards) const;
  // A middle direction, and how far round it everything is outside, in radians.
  struct Outside {
    double middle;
    double width;
  };

  LetterPlace placeAt(size_t corner);
  [[nodiscard]] Outside outsideAt(size_t corner) const;
  [[nodiscard]] std::optional<LeadingText> search(const Outside& outside, size_t letters, double farthest,
                                                  bool ofEverything) const;
  [[nodiscard]] double nearest() const { return radius_ + 0.5 * millimetre_; }
  void lookRound(size_t corner);
  [[nodiscard]] std::vector<PaperStroke> surroundingLines() const;
  [[nodiscard]] LeadingText candidate(double distance, double angle, size_t letters) const;
  [[nodiscard]] bool clearOfFigure(const LeadingText& tried) const;
  [[nodiscard]] bool clearOfOthers(const LeadingText& tried) const;
  [[nodiscard]] bool inside(Point p) const;
  [[nodiscard]] PaperBox fromCorner(PaperBox box) const { return {box.low - corner_, box.high - corner_}; }

  const SheetWriter& sheet_;
  const Figure& figure_;
  double millimetre_;
  double height_;
  double radius_;
  bool counterClockwise_;
  std::vector<Point> outline_;    // in the drawing, arcs by their chords
  std::vector<size_t> starts_;    // of each side among them
  std::vector<PaperBox> placed_;  // on paper, from the drawing's origin

  // The corner in hand; what follows is measured on paper from it.
  Point corner_;
  std::vector<PaperStroke> sides_;
  std::vector<PaperStroke> lines_;
  std::vector<Point> beacons_;
};

// The way from a corner along the boundary; with repeated corners from the last of them.
Point LetterPlacing::along(size_t corner, bool forwards) const {
  const size_t count = outline_.size();
  const Point from = outline_[starts_[corner]];
  for (size_t n = 1; n < count; ++n) {
    const Point next = outline_[(starts_[corner] + (forwards ? n : count - n)) % count];
    if (distance(from, next) > 0.0) { return onPaper(next - from); }
  }
  return {1.0, 0.0};
}

// Gathers what lies within reach of the corner.
void LetterPlacing::lookRound(size_t corner) {
  corner_ = onPaper(figure_[corner].from);
  const double reach = 40.0 * millimetre_ + height_ * static_cast<double>(figure_[corner].fromLabel.size());
  const PaperBox near{{-reach, -reach}, {reach, reach}};
  sides_.clear();
  beacons_.clear();
  for (size_t n = 0; n < outline_.size(); ++n) {
    const PaperStroke side{onPaper(outline_[n]) - corner_, onPaper(outline_[(n + 1) % outline_.size()]) - corner_};
    if (crosses(side, near)) { sides_.push_back(side); }
  }
  for (const Side& side : figure_) {
    const Point beacon = onPaper(side.from) - corner_;
    if (length(beacon) <= 2.0 * reach) { beacons_.push_back(beacon); }
  }
  lines_ = surroundingLines();
}

std::vector<PaperStroke> LetterPlacing::surroundingLines() const {
  const double reach = 20.0 * millimetre_;
  const Point low = onPaper(corner_) - Point{reach, reach};
  const Point high = onPaper(corner_) + Point{reach, reach};
  CCadWindow& view = sheet_.view();
  std::vector<PaperStroke> lines;
  const int scan = view.gsGetListHandle(kLinePrimitive, -1, 0, low.x, low.y, high.x, high.y, 0, 0);
  while (view.gsGetNextPrim(scan) > 0) {
    Point a;
    Point b;
    view.gsGetLine(a.x, a.y, b.x, b.y);
    lines.push_back({onPaper(a) - corner_, onPaper(b) - corner_});
  }
  view.gsFreeListHandle(scan);
  return lines;
}

// A letter takes no more than the square of its height.
LeadingText LetterPlacing::candidate(double distance, double angle, size_t letters) const {
  return leadingText(distance, angle, {height_ * static_cast<double>(letters), height_});
}

bool LetterPlacing::inside(Point p) const {
  bool odd = false;
  for (size_t n = 0; n < outline_.size(); ++n) {
    const Point a = onPaper(outline_[n]) - corner_;
    const Point b = onPaper(outline_[(n + 1) % outline_.size()]) - corner_;
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y)) { odd = !odd; }
  }
  return odd;
}

bool LetterPlacing::clearOfFigure(const LeadingText& tried) const {
  const double gap = 0.2 * millimetre_;
  const PaperBox box{tried.box.low - Point{gap, gap}, tried.box.high + Point{gap, gap}};
  return std::ranges::none_of(sides_, [&](const PaperStroke& side) { return crosses(side, box); }) &&
         std::ranges::none_of(beacons_, [&](Point beacon) { return distanceTo(box, beacon) < radius_; }) &&
         !inside(middle(box.low, box.high));
}

bool LetterPlacing::clearOfOthers(const LeadingText& tried) const {
  return std::ranges::none_of(lines_, [&](const PaperStroke& line) { return crosses(line, tried.box); }) &&
         std::ranges::none_of(placed_, [&](const PaperBox& box) { return overlap(fromCorner(box), tried.box); });
}

// To the right of the way round, or to the left where that is clockwise.
LetterPlacing::Outside LetterPlacing::outsideAt(size_t corner) const {
  const double next = angleOf(along(corner, true));
  const double previous = angleOf(along(corner, false));
  double width = counterClockwise_ ? next - previous : previous - next;
  if (width <= 0.0) { width += 2.0 * std::numbers::pi; }
  return {counterClockwise_ ? next - width / 2.0 : next + width / 2.0, width};
}

// Nearest first, and of one distance what points outwards most.
std::optional<LeadingText> LetterPlacing::search(const Outside& outside, size_t letters, double farthest,
                                                 bool ofEverything) const {
  constexpr double kTurn = std::numbers::pi / 12.0;
  const double step = 0.5 * millimetre_;
  const int turns = 2 * static_cast<int>(outside.width / 2.0 / kTurn);
  for (double distance = nearest(); distance <= nearest() + farthest; distance += step) {
    for (int turn = 0; turn <= turns; ++turn) {
      const int steps = (turn + 1) / 2;
      const double aside = kTurn * (turn % 2 == 0 ? steps : -steps);
      const LeadingText tried = candidate(distance, outside.middle + aside, letters);
      if (clearOfFigure(tried) && (!ofEverything || clearOfOthers(tried))) { return tried; }
    }
  }
  return std::nullopt;
}

LetterPlace LetterPlacing::placeAt(size_t corner) {
  lookRound(corner);
  const Outside outside = outsideAt(corner);
  const size_t letters = figure_[corner].fromLabel.size();
  std::optional<LeadingText> place = search(outside, letters, 8.0 * millimetre_, true);
  if (!place) { place = search(outside, letters, 30.0 * millimetre_, false); }
  if (!place) { place = candidate(nearest(), outside.middle, letters); }
  placed_.push_back({place->box.low + corner_, place->box.high + corner_});
  return {onPaper(corner_ + place->place.at), place->place.justification};
}

}  // namespace

std::vector<LetterPlace> placeLetters(const SheetWriter& sheet, const Figure& figure, const TextRow& row,
                                      double circleRadius) {
  return LetterPlacing(sheet, figure, row, circleRadius).run();
}

}  // namespace ardenix::survey

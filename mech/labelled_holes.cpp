#include "mech/labelled_holes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "frame/drafting/sheet_axes.h"
#include "mech/drawing_scan.h"

namespace ardenix::mech {

namespace {

constexpr double kReach = 10.0;  // millimetres on paper
constexpr size_t kLongestLabel = 15;

struct Label {
  Point at;
  std::string text;
};

// Labels by the square of the drawing in which they stand, so that those near a point are found at once.
class LabelField {
 public:
  explicit LabelField(double reach) : reach_(reach) {}
  void add(Label label) { squares_[squareOf(label.at)].push_back(std::move(label)); }
  // The nearest one within reach; null where there is none.
  [[nodiscard]] const Label* nearest(Point p) const {
    const Label* best = nullptr;
    const auto [column, row] = squareOf(p);
    for (double x = column - 1.0; x <= column + 1.0; ++x) {
      for (double y = row - 1.0; y <= row + 1.0; ++y) { best = nearer(squares_.find({x, y}), p, best); }
    }
    return best;
  }

 private:
  using Square = std::pair<double, double>;
  using Squares = std::map<Square, std::vector<Label>>;
  [[nodiscard]] Square squareOf(Point p) const { return {std::floor(p.x / reach_), std::floor(p.y / reach_)}; }
  [[nodiscard]] const Label* nearer(Squares::const_iterator square, Point p, const Label* best) const {
    if (square == squares_.end()) { return best; }
    for (const Label& label : square->second) {
      const double away = distance(label.at, p);
      if (away <= reach_ && (best == nullptr || away < distance(best->at, p))) { best = &label; }
    }
    return best;
  }

  double reach_;
  Squares squares_;
};

LabelField labelsOf(CCadWindow& view) {
  LabelField labels(kReach * paperMillimetre(view));
  forEachVisible(view, kTextPrimitive, [&] {
    std::array<char, kLongestLabel + 1> text{};
    Label label;
    view.gsGetText(label.at.x, label.at.y, text.data(), static_cast<int>(text.size()));
    label.text = text.data();
    labels.add(std::move(label));
  });
  return labels;
}

// The diameter of the smallest full circle about each centre.
std::map<std::pair<double, double>, double> circlesOf(CCadWindow& view) {
  std::map<std::pair<double, double>, double> circles;
  forEachVisible(view, kArcPrimitive, [&] {
    Point start;
    Point centre;
    Point end;
    int sense = 0;
    view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, sense);
    if (!nearlyEqual(start, end)) { return; }
    const double diameter = 2.0 * distance(centre, end);
    const auto [place, added] = circles.try_emplace({centre.x, centre.y}, diameter);
    if (!added) { place->second = std::min(place->second, diameter); }
  });
  return circles;
}

constexpr std::string_view kDigits = "0123456789";
bool isDigit(char c) { return kDigits.find(c) != std::string_view::npos; }

// Takes the digits at the start of a text, leading zeros aside.
std::string_view takeNumber(std::string_view& text) {
  std::string_view number = text.substr(0, std::min(text.find_first_not_of(kDigits), text.size()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

}  // namespace

bool comesBefore(std::string_view label, std::string_view other) {
  while (!label.empty() && !other.empty()) {
    const bool digit = isDigit(label.front());
    if (digit && isDigit(other.front())) {
      const std::string_view number = takeNumber(label);
      const std::string_view otherNumber = takeNumber(other);
      if (number.size() != otherNumber.size()) { return number.size() < otherNumber.size(); }
      if (number != otherNumber) { return number < otherNumber; }
      continue;
    }
    if (label.front() != other.front()) { return label.front() < other.front(); }
    label.remove_prefix(1);
    other.remove_prefix(1);
  }
  return label.empty() && !other.empty();
}

std::vector<LabelledHole> labelledHoles(CCadWindow& view) {
  const LabelField labels = labelsOf(view);
  std::vector<LabelledHole> holes;
  for (const auto& [at, diameter] : circlesOf(view)) {
    const Point centre{at.first, at.second};
    if (const Label* label = labels.nearest(centre)) { holes.push_back({label->text, centre, diameter}); }
  }
  std::ranges::stable_sort(holes, comesBefore, &LabelledHole::label);
  return holes;
}

}  // namespace ardenix::mech

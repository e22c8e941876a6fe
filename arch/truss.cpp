#include "arch/truss.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ardenix::arch {

namespace {

constexpr double kBoardDepth = 40.0;
constexpr double kBoardOffset = 200.0;  // from the plates, and from the tops of the posts
constexpr int kMostPosts = 2000;
constexpr double kRounding = 1e-9;

// A line on which members are cut off.
struct Cut {
  Point at;
  Point way;
};

Point crossingOf(const Cut& line, const Cut& cut) {
  return line.at + line.way * (cross(cut.at - line.at, cut.way) / cross(line.way, cut.way));
}

}  // namespace

// ---- Facing truss -------------------------------------------------------------------------------------------

double FacingTruss::uprightDepth() const { return depth * std::hypot(1.0, slope); }

std::string FacingTruss::fault() const {
  if (depth <= 0.0 || depth > middle() / 3.0) { return "The battons are too wide for the span of the truss"; }
  if (tieDepth >= slope * (middle() - depth / 2.0)) { return "The support truss reaches up to the apex of the roof"; }
  return "";
}

namespace {

// The members of the half, one after the other.
class TrussHalf {
 public:
  explicit TrussHalf(const FacingTruss& truss) : truss_(truss) {}

  std::vector<Stroke> strokes() {
    rafter();
    tie();
    kingPost();
    struts();
    if (struts_[0]) { brace({kingPostAt(), truss_.tieDepth}, upright(kingPostAt()), *struts_[0]); }
    if (struts_[1] && struts_[2]) { brace(struts_[1]->from, upright(struts_[1]->from.x), *struts_[2]); }
    return std::move(strokes_);
  }

 private:
  [[nodiscard]] Point onRafter(double x) const { return {x, x * truss_.slope}; }
  [[nodiscard]] Cut rafterTop() const { return {{}, {1.0, truss_.slope}}; }
  [[nodiscard]] Cut tieTop() const { return {{0.0, truss_.tieDepth}, {1.0, 0.0}}; }
  [[nodiscard]] static Cut upright(double x) { return {{x, 0.0}, {0.0, 1.0}}; }
  [[nodiscard]] double kingPostAt() const { return truss_.middle() - truss_.depth / 2.0; }

  void rafter() {
    const Point foot = onRafter(-truss_.overhang);
    const Point apex = onRafter(truss_.middle());
    const Point under{0.0, -truss_.uprightDepth()};
    strokes_.push_back({foot, apex});
    strokes_.push_back({foot + under, apex + under});
    strokes_.push_back({apex, apex + under});
    strokes_.push_back({foot, foot + under});
  }

  void tie() {
    strokes_.push_back({{}, {truss_.middle(), 0.0}});
    strokes_.push_back({{truss_.middle(), truss_.tieDepth}, crossingOf(tieTop(), rafterTop())});
  }

  void kingPost() { strokes_.push_back({{kingPostAt(), truss_.tieDepth}, onRafter(kingPostAt())}); }

  // From the tie up to the rafter, where there is room.
  void struts() {
    const double third = truss_.middle() / 3.0;
    const double half = truss_.depth / 2.0;
    size_t number = 0;
    for (const double out : {third - half, third + half, 2.0 * third - half, 2.0 * third + half}) {
      const double x = truss_.middle() - out;
      const Stroke strut{{x, truss_.tieDepth}, onRafter(x)};
      if (strut.to.y > strut.from.y + kRounding) {
        struts_[number] = strut;
        strokes_.push_back(strut);
      }
      ++number;
    }
  }

  // A band from the foot of one member to the top of a strut further out: its upper line from that member to the
  // rafter, its lower one from the tie to the strut.
  void brace(Point foot, const Cut& member, const Stroke& strut) {
    const Point way = unit(strut.to - foot);
    const Point aside = quarterTurned(way) * (truss_.depth / 2.0);
    const Point up = aside.y > 0.0 ? aside : -aside;
    const Stroke upper{crossingOf({foot + up, way}, member), crossingOf({foot + up, way}, rafterTop())};
    const Stroke lower{crossingOf({foot - up, way}, tieTop()), crossingOf({foot - up, way}, upright(strut.from.x))};
    if (leadsOut(upper) && upper.from.y < onRafter(upper.from.x).y) { strokes_.push_back(upper); }
    if (leadsOut(lower) && lower.to.y < onRafter(lower.to.x).y) { strokes_.push_back(lower); }
  }
  [[nodiscard]] bool leadsOut(const Stroke& stroke) const {
    return stroke.to.x < stroke.from.x && std::min(stroke.from.y, stroke.to.y) >= truss_.tieDepth - kRounding;
  }

  const FacingTruss& truss_;
  std::vector<Stroke> strokes_;
  std::array<std::optional<Stroke>, 4> struts_;
};

}  // namespace

std::vector<Stroke> FacingTruss::strokes() const { return TrussHalf(*this).strokes(); }

// ---- Side truss ---------------------------------------------------------------------------------------------

int SideTruss::bays() const {
  const double between = span - wallThickness;
  return static_cast<int>(std::min(between / (clearSpacing + postWidth), kMostPosts + 1.0));
}

std::string SideTruss::fault() const {
  return bays() > kMostPosts ? "The struts stand too close together for the length of the roof" : "";
}

std::vector<SideTruss::Post> SideTruss::posts() const {
  const double first = wallThickness / 2.0;
  const int count = bays();
  std::vector<Post> posts = {{first, top() - height, top()}};
  posts.reserve(static_cast<size_t>(count) + 1);
  for (int post = 1; post <= count; ++post) {
    posts.push_back({first + (span - wallThickness) * post / count, top() - height, top()});
  }
  return posts;
}

void SideTruss::add(std::vector<Stroke>& strokes, const Post& post, double width) {
  const double left = post.middle - width / 2.0;
  const double right = post.middle + width / 2.0;
  strokes.push_back({{left, post.bottom}, {left, post.top}});
  strokes.push_back({{left, post.top}, {right, post.top}});
  strokes.push_back({{right, post.top}, {right, post.bottom}});
  strokes.push_back({{right, post.bottom}, {left, post.bottom}});
}

std::vector<Stroke> SideTruss::strokes() const {
  std::vector<Stroke> strokes = {{{}, {span, 0.0}}};
  const auto board = [&](double from, double to) {
    const double end = span + overhang;
    strokes.push_back({{-overhang, from}, {end, from}});
    strokes.push_back({{end, from}, {end, to}});
    strokes.push_back({{end, to}, {-overhang, to}});
    strokes.push_back({{-overhang, to}, {-overhang, from}});
  };
  board(kBoardOffset, kBoardOffset + kBoardDepth);
  board(top() - kBoardOffset, top() - kBoardOffset - kBoardDepth);
  for (const Post& post : posts()) { add(strokes, post, postWidth); }
  return strokes;
}

std::vector<Stroke> SideTruss::strokesBeside(const FacingTruss& truss, double plate) const {
  std::vector<Stroke> strokes;
  const double apex = plate + truss.middle();
  const auto level = [&](double height) {
    const double end = std::min(plate + height / truss.slope, apex);
    const double start = height == 0.0 ? 0.0 : -overhang;
    if (end > start) { strokes.push_back({{start, height}, {end, height}}); }
  };
  level(0.0);
  for (const double foot : {kBoardOffset, top() - kBoardOffset - kBoardDepth}) {
    level(foot);
    level(foot + kBoardDepth);
    strokes.push_back({{-overhang, foot}, {-overhang, foot + kBoardDepth}});
  }
  for (Post post : posts()) {
    const double right = post.middle + postWidth / 2.0;
    if (right >= apex) { break; }
    if (right > plate - truss.overhang) { post.bottom = std::max(post.bottom, (right - plate) * truss.slope); }
    if (post.bottom < post.top) { add(strokes, post, postWidth); }
  }
  return strokes;
}

}  // namespace ardenix::arch

#include "host/drawing/page.h"

#include <array>
#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/drawing/shown_layers.h"
#include "host/drawing/strokes.h"
#include "host/drawing/turned_strokes.h"

namespace brevan {

namespace {

constexpr double kUsualMargin = 10.0;
constexpr double kSpeck = 1.0;  // millimetres: what is no larger shows nothing

// Where strokes lie, and whether one of them meets a part of the paper.
class BoxSink : public StrokeSink {
 public:
  explicit BoxSink(const Box& part = {}) : part_(part) {}
  void line(const StrokeStyle&, Point a, Point b) override {
    all_.add(a);
    all_.add(b);
    meetsPart_ = meetsPart_ || passes(a, b);
  }
  void arc(const StrokeStyle&, const ArcShape& arc) override {
    all_.add(arcBounds(arc));
    if (meetsPart_ || part_.empty()) { return; }
    constexpr int kSides = 64;
    const double start = arcStartAngle(arc);
    const double step = arcSweep(arc) / kSides;
    for (int side = 0; side < kSides; ++side) {
      meetsPart_ =
          meetsPart_ || passes(arcPointAt(arc, start + side * step), arcPointAt(arc, start + (side + 1) * step));
    }
  }
  void text(const StrokeStyle&, const TextStroke& text) override {
    const Point along = unitOfDegrees(text.angle);
    const Point up = Point{-along.y, along.x} * text.height;
    Box box;
    for (const Point corner : {text.baseline, text.baseline + along * text.width}) {
      box.add(corner);
      box.add(corner + up);
    }
    take(box);
  }
  void polygon(const StrokeStyle&, std::span<const Point> corners) override {
    Box box;
    for (const Point corner : corners) { box.add(corner); }
    take(box);
  }
  [[nodiscard]] const Box& all() const { return all_; }
  [[nodiscard]] bool meetsPart() const { return meetsPart_; }

 private:
  void take(const Box& box) {
    all_.add(box);
    meetsPart_ = meetsPart_ || box.meets(part_);
  }
  // Whether a line from a to b meets the part: what is left of it between two sides and the other two is not nothing.
  [[nodiscard]] bool passes(Point a, Point b) const {
    double from = 0.0;
    double to = 1.0;
    const auto cut = [&](double start, double end, double low, double high) {
      const double reach = end - start;
      if (reach == 0.0) { return low <= start && start <= high; }
      const double first = (low - start) / reach;
      const double last = (high - start) / reach;
      from = std::max(from, std::min(first, last));
      to = std::min(to, std::max(first, last));
      return from <= to;
    };
    return !part_.empty() && cut(a.x, b.x, part_.low.x, part_.high.x) && cut(a.y, b.y, part_.low.y, part_.high.y);
  }

  Box part_;
  Box all_;
  bool meetsPart_ = false;
};

// Whole where rounding alone keeps it from that, and never as a power of ten.
std::string plainNumber(double value) {
  const double whole = std::round(value);
  return std::fabs(value - whole) <= 1e-9 * value ? numberText::fixed(whole, 0) : numberText::shortest(value);
}

std::string scaleText(double denominator) {
  return denominator < 1.0 ? plainNumber(1.0 / denominator) + ":1" : "1:" + plainNumber(denominator);
}

// To the thousandth, which is nearer than anybody looks.
std::string pointText(Point p) {
  const auto coordinate = [](double value) { return numberText::shortest(std::round(value * 1000.0) / 1000.0); };
  return "(" + coordinate(p.x) + ", " + coordinate(p.y) + ")";
}

// The least denominator of 1, 2 or 5 times a power of ten that is no less.
double standardScale(double denominator) {
  constexpr double kRounding = 1.0 - 1e-9;
  const int exponent = static_cast<int>(std::floor(std::log10(denominator)));
  for (const double step : {1.0, 2.0, 5.0}) {
    const double power = std::pow(10.0, std::abs(exponent));
    const double standard = exponent < 0 ? step / power : step * power;
    if (standard >= denominator * kRounding) { return standard; }
  }
  return exponent + 1 < 0 ? 1.0 / std::pow(10.0, -(exponent + 1)) : std::pow(10.0, exponent + 1);
}

Transform turnedOnPaper(double degrees) {
  const Point unit = unitOfDegrees(degrees);
  return Transform::rotation({}, unit.x, unit.y);
}

// The upright box round a box that was transformed.
Box boxOf(const Box& box, const Transform& transform) {
  Box moved;
  for (const Point corner : {box.low, box.high, Point{box.low.x, box.high.y}, Point{box.high.x, box.low.y}}) {
    moved.add(transform(corner));
  }
  return moved;
}

class PageChoice {
 public:
  PageChoice(const Drawing& drawing, const PageOptions& options)
      : drawing_(drawing), options_(options), parameters_(drawing.parameters()), layers_(drawing, options.layers) {}

  Page choose() {
    page_.rotation = options_.rotation;
    shown_ = lookAt({}).all();
    refuseUnshown();
    takeContent();
    const bool asItLies = drawing_.sheet() && !options_.window && !options_.scale && !options_.fit &&
                          options_.paper.empty() && !options_.margin && options_.rotation == 0.0;
    if (asItLies) {
      page_.sheet = *drawing_.sheet();
    } else {
      choosePaper();
      centreContent();
    }
    checkContent();
    return std::move(page_);
  }

 private:
  // To millimetres on a paper whose corner lies at the drawing's origin, at its own scale.
  [[nodiscard]] Transform toOwnPaper() const {
    return turnedOnPaper(options_.rotation) * toSheet(Sheet(), parameters_);
  }
  [[nodiscard]] Transform toTurnedPage() const { return turnedOnPaper(page_.rotation) * toPage(page_, parameters_); }
  // The strokes on that paper.
  BoxSink lookAt(const Box& part) const {
    BoxSink sink(part);
    TurnedStrokes turned(sink, options_.rotation);
    StrokeWalk walk(drawing_, toSheet(Sheet(), parameters_), turned);
    layers_.forEachPrimitive(drawing_, [&walk](const Primitive& primitive) { walk.primitive(primitive); });
    return sink;
  }

  void refuseUnshown() const {
    if (drawing_.count() == 0) { throw HostFailure("The drawing is empty, so that the page would be, too."); }
    if (shown_.empty()) {
      throw HostFailure("Nothing of the drawing could be painted: the layers shown hold nothing that has a size.");
    }
    if (!std::isfinite(shown_.width()) || !std::isfinite(shown_.height())) {
      throw HostFailure("The drawing reaches beyond the numbers that can be computed with: " + placeText() + ".");
    }
  }

  // What the page is to hold, on that paper.
  void takeContent() {
    const Transform onPaper = toOwnPaper();
    content_ = shown_;
    margin_ = options_.margin.value_or(kUsualMargin);
    if (options_.window) {
      content_ = boxOf(*options_.window, onPaper);
    } else if (const auto& sheet = drawing_.sheet()) {
      const Point corner = toSheet(Sheet(), parameters_)(sheet->corner);
      content_ = boxOf(Box{corner, corner + Point{sheet->width, sheet->height}}, turnedOnPaper(options_.rotation));
      margin_ = options_.margin.value_or(0.0);
    }
  }

  [[nodiscard]] double roomOn(double side) const {
    const double room = side - 2.0 * margin_;
    if (room <= 0.0) { throw HostFailure("A margin of " + numberText::shortest(margin_) + " mm leaves no paper."); }
    return room;
  }
  // The zoom at which the content fills the paper; that of the better way to lay it, which is taken.
  double fillingZoom(std::string_view name) {
    double best = 0.0;
    for (const bool portrait : {false, true}) {
      const auto sheet = isoSheet(name, portrait);
      if (!sheet) { throw HostFailure("The paper is A0, A1, A2, A3 or A4, got \"" + std::string(name) + "\"."); }
      const double zoom = std::min(roomOn(sheet->width) / content_.width(), roomOn(sheet->height) / content_.height());
      if (zoom <= best) { continue; }
      best = zoom;
      page_.sheet = *sheet;
    }
    if (!hasSize()) { return 1.0; }
    return best;
  }
  [[nodiscard]] bool holds(const Sheet& sheet) const {
    constexpr double kRounding = 1.0 + 1e-9;
    return content_.width() * page_.zoom <= roomOn(sheet.width) * kRounding &&
           content_.height() * page_.zoom <= roomOn(sheet.height) * kRounding;
  }
  // The smallest that holds the content at the zoom; false where the largest does not.
  bool takeSmallestSheet() {
    for (const std::string_view name : {"A4", "A3", "A2", "A1", "A0"}) {
      for (const bool portrait : {false, true}) {
        page_.sheet = *isoSheet(name, portrait);
        if (holds(page_.sheet)) { return true; }
      }
    }
    page_.sheet = *isoSheet("A0", content_.height() > content_.width());
    return false;
  }
  void takeStandardScale(std::string_view paper) {
    const double own = parameters_.scale();
    page_.zoom = own / standardScale(own / fillingZoom(paper));
  }

  void choosePaper() {
    if (options_.scale) {
      page_.zoom = parameters_.scale() / *options_.scale;
      if (options_.paper.empty()) {
        takeSmallestSheet();
      } else {
        fillingZoom(options_.paper);
      }
    } else if (options_.fit) {
      page_.zoom = fillingZoom(options_.paper.empty() ? "A3" : options_.paper);
    } else if (!options_.paper.empty()) {
      const double filling = fillingZoom(options_.paper);
      if (filling < 1.0 - 1e-9) { takeStandardScale(options_.paper); }
    } else {
      chooseByRule();
    }
  }

  void chooseByRule() {
    const bool held = takeSmallestSheet();
    const bool speck = std::max(content_.width(), content_.height()) < kSpeck && hasSize();
    if (held && !speck) { return; }
    takeStandardScale("A3");
    page_.told = "shown on A3 at " + scaleText(parameters_.scale() / page_.zoom) +
                 (held ? ", since it would be a speck at " : ", since no sheet holds it at ") +
                 scaleText(parameters_.scale());
  }
  [[nodiscard]] bool hasSize() const { return content_.width() > 0.0 || content_.height() > 0.0; }

  void centreContent() {
    const Point centre = toOwnPaper().inverted()(content_.centre());
    page_.sheet.corner = {};
    const Point middle = toTurnedPage().inverted()({page_.sheet.width / 2.0, page_.sheet.height / 2.0});
    page_.sheet.corner = centre - middle;
  }

  // What leaves the page is told; a page with nothing on it is refused.
  void checkContent() {
    const Transform fromPage = toOwnPaper() * toTurnedPage().inverted();
    Box paper;
    paper.add(fromPage(Point{}));
    paper.add(fromPage({page_.sheet.width, page_.sheet.height}));
    const double slack = 0.5 / page_.zoom;
    if (paper.grownBy(slack).holds(shown_)) { return; }
    if (!paper.meets(shown_) || !lookAt(paper).meetsPart()) {
      throw HostFailure("Nothing of the drawing lies on its page: it lies " + placeText() + ", the page " +
                        placeText(paper) + ".");
    }
    if (!options_.window) { page_.told += (page_.told.empty() ? "" : "; ") + reachText(paper); }
  }

  [[nodiscard]] std::string reachText(const Box& paper) const {
    const std::array<std::pair<double, const char*>, 4> sides = {{{paper.low.x - shown_.low.x, "to the left"},
                                                                  {shown_.high.x - paper.high.x, "to the right"},
                                                                  {paper.low.y - shown_.low.y, "below"},
                                                                  {shown_.high.y - paper.high.y, "above"}}};
    std::string text;
    for (const auto& [reach, side] : sides) {
      const double millimetres = reach * page_.zoom;
      if (millimetres <= 0.5) { continue; }
      text += text.empty() ? "it reaches beyond the page, " : ", ";
      text += numberText::format("%.0f mm ", millimetres) + side;
    }
    return text;
  }
  [[nodiscard]] std::string placeText() const { return placeText(shown_); }
  // Corners of the paper above in drawing units.
  [[nodiscard]] std::string placeText(const Box& onPaper) const {
    const Transform fromPaper = toOwnPaper().inverted();
    const Point low = fromPaper(onPaper.low);
    const Point high = fromPaper(onPaper.high);
    return "from " + pointText(low) + " to " + pointText(high);
  }

  const Drawing& drawing_;
  const PageOptions& options_;
  const Parameters& parameters_;
  ShownLayers layers_;
  Box shown_;
  Box content_;
  double margin_ = kUsualMargin;
  Page page_;
};

}  // namespace

Page pageOf(const Drawing& drawing, const PageOptions& options) { return PageChoice(drawing, options).choose(); }

Transform toPage(const Page& page, const Parameters& parameters) {
  return Transform::scaling({}, page.zoom, page.zoom) * toSheet(page.sheet, parameters);
}

}  // namespace brevan

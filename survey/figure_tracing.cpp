#include "survey/figure_tracing.h"

#include <cmath>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/number_text.h"
#include "survey/label_sequences.h"

namespace ardenix::survey {

namespace {

struct Corner {
  Point at;
  std::string label;
};

class Tracing {
 public:
  explicit Tracing(CCadWindow& view) : view_(view) {}
  Tracing(const Tracing&) = delete;
  Tracing& operator=(const Tracing&) = delete;
  ~Tracing() {
    view_.gsSetPrompt("");
    view_.gsEndFunc();
  }

  std::optional<TracedFigure> run() {
    view_.gsExecuteMacro(macroText::kSnapNear);
    const std::optional<Point> start = pick("Enter first corner of outside figure");
    if (!start) { return std::nullopt; }
    const Corner first{*start, label("LBL1$", "first", "A")};
    for (Corner previous = first; view_.gsEscapePressed() == 0;) {
      const std::optional<Point> next = pickFrom(previous.at);
      if (!next) { return std::nullopt; }
      if (closes(*next, first.at)) {
        figure_.emplace_back(previous.label, previous.at, first.label, first.at);
        return TracedFigure{std::move(figure_), *next - first.at};
      }
      Corner corner{*next, label("LBL2$", "next", nextLettersThenDigits(previous.label))};
      figure_.emplace_back(previous.label, previous.at, corner.label, corner.at);
      show(figure_.back());
      previous = std::move(corner);
    }
    return std::nullopt;
  }

 private:
  // Where the cursor snapped to.
  std::optional<Point> pick(std::string_view prompt) {
    Point at;
    if (view_.gsGetPointFromUser(prompt, at.x, at.y) != 0) { return std::nullopt; }
    view_.gsGetCurrCoord(at.x, at.y);
    return at;
  }

  std::optional<Point> pickFrom(Point previous) {
    view_.gsSetCurrCoord(previous.x, previous.y);
    view_.gsSetRubberBand(1);
    const auto next = pick("Enter next corner of outside figure (Click on start corner to end)");
    view_.gsSetRubberBand(0);
    return next;
  }

  std::string label(std::string_view variable, std::string_view which, std::string_view offered) {
    view_.gsSetMacStrVar(variable, offered);
    view_.gsExecuteMacro(macroText::enter(numberText::format("Enter label for %s point", which), variable, '\t'));
    return textVariable(view_, variable);
  }

  static bool closes(Point at, Point first) {
    constexpr double kNear = 0.1;
    constexpr double kTolerance = 1e-12;
    return std::hypot(at.x - first.x, at.y - first.y) < kNear - (kNear * kTolerance + kTolerance);
  }

  void show(const Side& side) {
    constexpr int kTemporary = 13;
    constexpr int kNormal = 10;
    constexpr int kPen = 4;
    view_.gsSetDrawMode(kTemporary);
    view_.gsDisplayLine(side.from.x, side.from.y, side.to.x, side.to.y, kPen);
    view_.gsSetDrawMode(kNormal);
  }

  CCadWindow& view_;
  Figure figure_;
};

}  // namespace

std::optional<TracedFigure> traceFigure(CCadWindow& view) { return Tracing(view).run(); }

}  // namespace ardenix::survey

#include "survey/figure_tracing.h"

#include <cmath>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

struct Corner {
  Point at;
  std::string label;
};

class Tracing {
 public:
  Tracing(CCadWindow& view, const TracingStyle& style) : view_(view), style_(style) {}
  Tracing(const Tracing&) = delete;
  Tracing& operator=(const Tracing&) = delete;
  ~Tracing() {
    view_.gsSetPrompt("");
    view_.gsEndFunc();
  }

  std::optional<TracedFigure> run() {
    if (style_.snaps) { view_.gsExecuteMacro(macroText::kSnapNear); }
    const std::optional<Point> start = pick(style_.firstPrompt);
    if (!start) { return std::nullopt; }
    const Corner first{*start, firstLabel()};
    for (Corner previous = first; view_.gsEscapePressed() == 0;) {
      const std::optional<Point> next = pickFrom(previous.at);
      if (!next) { return std::nullopt; }
      if (closes(*next, first.at)) {
        figure_.emplace_back(previous.label, previous.at, first.label, first.at);
        show(figure_.back());
        return TracedFigure{std::move(figure_), *next - first.at};
      }
      if (style_.tellsRepeats && nearlyEqual(*next, previous.at)) {
        view_.gsSetStatus("This corner is the one before it once more.");
      }
      Corner corner{*next, nextLabel(previous.label)};
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
    const auto next = pick(style_.nextPrompt);
    view_.gsSetRubberBand(0);
    return next;
  }

  std::string firstLabel() { return style_.nextLabel == nullptr ? "" : label("LBL1$", "first", "A"); }
  std::string nextLabel(std::string_view previous) {
    return style_.nextLabel == nullptr ? "" : label("LBL2$", "next", style_.nextLabel(previous));
  }

  std::string label(std::string_view variable, std::string_view which, std::string_view offered) {
    view_.gsSetMacStrVar(variable, offered);
    view_.gsExecuteMacro(macroText::enter(numberText::format("Enter label for %s point", which), variable, '\t'));
    return textVariable(view_, variable);
  }

  [[nodiscard]] bool closes(Point at, Point first) const {
    constexpr double kTolerance = 1e-12;
    const double near = style_.closingDistance;
    return figure_.size() >= style_.fewestSides &&
           std::hypot(at.x - first.x, at.y - first.y) < near - (near * kTolerance + kTolerance);
  }

  void show(const Side& side) {
    constexpr int kTemporary = 13;
    constexpr int kNormal = 10;
    view_.gsSetDrawMode(kTemporary);
    view_.gsDisplayLine(side.from.x, side.from.y, side.to.x, side.to.y, style_.pen);
    view_.gsSetDrawMode(kNormal);
  }

  CCadWindow& view_;
  const TracingStyle& style_;
  Figure figure_;
};

}  // namespace

std::optional<TracedFigure> traceFigure(CCadWindow& view, const TracingStyle& style) {
  return Tracing(view, style).run();
}

}  // namespace ardenix::survey

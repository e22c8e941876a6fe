#include "frame/host/number_text.h"
#include "host/drawing/drawing.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"

namespace brevan::macroHandlers {

namespace {

constexpr int kDecimals = 3;

void dimension(MacroRun& run, DimensionKind kind) {
  Dimension drawn{kind, run.point(0), run.point(1), run.point(2), run.text(3)};
  const Point across = drawn.p2 - drawn.p1;
  const double measured = std::abs(kind == DimensionKind::kHorizontal ? across.x : across.y);
  const bool asMeasured = run.arguments[3].kind == TokenKind::kMeasured;
  if (asMeasured) { drawn.text = numberText::fixed(measured, kDecimals); }
  drawInStyle(run.window, std::move(drawn));
}

}  // namespace

void horizontalDimension(MacroRun& run) { dimension(run, DimensionKind::kHorizontal); }

void verticalDimension(MacroRun& run) { dimension(run, DimensionKind::kVertical); }

}  // namespace brevan::macroHandlers

#pragma once

#include "host/drawing/strokes.h"

namespace brevan {

// Hands strokes on, turned on the paper with their texts.
class TurnedStrokes : public StrokeSink {
 public:
  TurnedStrokes(StrokeSink& sink, double degrees, Point about = {});

  void line(const StrokeStyle& style, Point a, Point b) override;
  void arc(const StrokeStyle& style, const ArcShape& arc) override;
  void text(const StrokeStyle& style, const TextStroke& text) override;
  void polygon(const StrokeStyle& style, std::span<const Point> corners) override;

 private:
  StrokeSink& sink_;
  double degrees_;
  Transform turn_;
};

}  // namespace brevan

#pragma once

#include <QString>
#include <QTransform>
#include <optional>
#include <span>

#include "host/drawing/font_metrics.h"
#include "host/drawing/pens.h"
#include "host/files/export_options.h"

class QPainter;

namespace brevan {

struct PaintOptions {
  Ground ground = Ground::kPaper;
  bool lineWidths = true;  // else every line is a pixel wide
  // Drawing units; only what meets it is painted. Nothing: everything.
  std::optional<Box> visible;
  // These alone, in one colour and as wide, in device units, where they are given.
  std::span<const PrimitiveId> only = {};
  std::optional<Colour> colour = {};
  double hairline = 1.0;                     // device units; what a line is wide without its own width
  double rotation = 0.0;                     // degrees by which all is turned on the paper, counter-clockwise
  Point about = {};                          // the point that stays, millimetres from the device's origin, y upwards
  double zoom = 1.0;                         // of lengths on paper, see StrokeWalk
  std::span<const std::string> layers = {};  // shown alone; none: all that are visible
};

// The family that stands for a face.
QString fontFamily(FontFace face);

// Paints the visible layers, in drawing order. `toDevice` leads from drawing units to the painter's own
// coordinates, y downwards, turned and scaled alike in both directions, without mirroring the paper.
// Returns how many strokes were painted. Throws HostFailure where symbols come to too many parts; call
// requirePainting() before the first painting.
size_t paint(QPainter& painter, const Drawing& drawing, const Transform& toDevice, const PaintOptions& options);

// The transform that shows a page in a device whose millimetre is `scale` units long, its upper left
// corner at the origin, and how to paint it. The export options must outlive the painting.
Transform pageToDevice(const Page& page, const Parameters& parameters, double scale);
PaintOptions pageOptions(const Page& page, const ExportOptions& options);

}  // namespace brevan

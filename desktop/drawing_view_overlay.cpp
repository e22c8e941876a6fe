#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "desktop/drawing_view.h"
#include "frame/host/core_services.h"
#include "host/drawing/pens.h"
#include "host/macros/macro_drawing.h"
#include "render/drawing_painter.h"

// What lies over the drawing's picture: sheet, grid, selection, what a click would make, where it would snap to.
namespace brevan {

namespace {

// So many parts of symbols are shown where they would come; more would let the mouse wait.
constexpr size_t kMostSymbolParts = 5000;

QRectF rectOf(const Box& box, const Transform& transform) {
  Box device;
  for (const Point corner : {box.low, box.high, Point{box.low.x, box.high.y}, Point{box.high.x, box.low.y}}) {
    device.add(transform(corner));
  }
  return {QPointF(device.low.x, device.low.y), QPointF(device.high.x, device.high.y)};
}

}  // namespace

void DrawingView::paintOverlay(QPainter& painter) {
  paintSheet(painter);
  if (style_.grid) { paintGrid(painter); }
  paintSelection(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  paintMarks(painter);
  paintRubber(painter);
  paintSnap(painter);
  if (dragFrom_) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(*dragFrom_, mouse_).normalized());
  }
}

void DrawingView::paintSheet(QPainter& painter) {
  const Drawing& drawing = window_.drawing();
  if (!drawing.sheet()) { return; }
  const Transform fromSheet = toSheet(*drawing.sheet(), drawing.parameters()).inverted();
  Box box;
  box.add(fromSheet({0.0, 0.0}));
  box.add(fromSheet({drawing.sheet()->width, drawing.sheet()->height}));
  const QRectF device = rectOf(box, transformOf(placing_));
  const double ratio = devicePixelRatioF();
  painter.setPen(QPen(QColor(128, 128, 128), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(device.topLeft() / ratio, device.bottomRight() / ratio));
}

void DrawingView::paintGrid(QPainter& painter) {
  // The lines stand 1, 2 or 5 times a power of ten units apart, the least of these that is 24 pixels or more.
  constexpr double kLeastPixels = 24.0;
  double step = std::pow(10.0, std::floor(std::log10(kLeastPixels / placing_.pixelsAUnit)));
  for (const double factor : {2.0, 2.5, 2.0}) {
    if (step * placing_.pixelsAUnit >= kLeastPixels) { break; }
    step *= factor;
  }
  const Point corner = toDrawing(QPointF(0, 0));
  const Point opposite = toDrawing(QPointF(width(), height()));
  const Point low{std::min(corner.x, opposite.x), std::min(corner.y, opposite.y)};
  const Point high{std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)};
  painter.setPen(QPen(QColor(128, 128, 128, 150), 1));
  for (double x = std::ceil(low.x / step) * step; x <= high.x; x += step) {
    for (double y = std::ceil(low.y / step) * step; y <= high.y; y += step) { painter.drawPoint(toDevice({x, y})); }
  }
}

void DrawingView::paintSelection(QPainter& painter) {
  const Drawing& drawing = window_.drawing();
  if (!drawing.hasSelection()) { return; }
  painter.save();
  const double ratio = devicePixelRatioF();
  painter.scale(1.0 / ratio, 1.0 / ratio);
  const std::vector<PrimitiveId> selected = drawing.selection();
  PaintOptions options{style_.ground, false, std::nullopt};
  options.only = selected;
  options.colour = 0xFF7A00;
  options.hairline = 2.5 * ratio;
  paint(painter, drawing, transformOf(placing_), options);
  painter.restore();
}

void DrawingView::paintWhatComes(QPainter& painter, std::vector<Geometry> shapes) {
  Drawing scratch;
  scratch.setParameters(window_.drawing().parameters());
  size_t shownParts = 0;
  for (Geometry& shape : shapes) {
    if (const Symbol* symbol = std::get_if<Symbol>(&shape)) {
      copySymbol(window_, symbol->name, scratch);
      const size_t parts = scratch.symbolParts(symbol->name);
      if (shownParts + parts > kMostSymbolParts) { continue; }
      shownParts += parts;
    }
    scratch.add({.geometry = std::move(shape)});
  }
  PaintOptions options{style_.ground, false, std::nullopt};
  options.colour = palette().color(QPalette::Highlight).rgb() & 0xFFFFFFU;
  const double ratio = devicePixelRatioF();
  painter.save();
  painter.scale(1.0 / ratio, 1.0 / ratio);
  paint(painter, scratch, transformOf(placing_), options);
  painter.restore();
}

void DrawingView::paintMarks(QPainter& painter) {
  for (const Mark& mark : window_.marks()) {
    painter.setPen(QPen(QColor::fromRgb(penColour(mark.pen, style_.ground)), 1));
    painter.drawLine(toDevice(mark.line.a), toDevice(mark.line.b));
  }
}

void DrawingView::paintRubber(QPainter& painter) {
  const Cursor& cursor = window_.cursor();
  if (!picking_ || !mouseInside_) { return; }
  const QColor colour = palette().color(QPalette::Highlight);
  if (cursor.held()) {
    const QPointF held = toDevice(cursor.heldAt());
    painter.setPen(QPen(colour, 1));
    painter.drawLine(held - QPointF(6, 0), held + QPointF(6, 0));
    painter.drawLine(held - QPointF(0, 6), held + QPointF(0, 6));
  }
  const Point at = snap_ ? snap_->at : toDrawing(mouse_);
  if (cursor.rubberBand()) {  // from the current coordinate where none is held
    painter.setPen(QPen(colour, 1, Qt::DashLine));
    painter.drawLine(toDevice(cursor.heldAt()), toDevice(at));
  }
  if (cursor.rubber() != nullptr) { paintWhatComes(painter, cursor.rubber()(at)); }
  if (const auto angle = cursor.lockedAngle()) {
    const double turn = (placing_.turned ? *angle + 180.0 : *angle) * kPi / 180.0;
    const QPointF middle = toDevice(at);
    const QPointF along(std::cos(turn) * 2000.0, -std::sin(turn) * 2000.0);
    painter.setPen(QPen(colour, 1, Qt::DotLine));
    painter.drawLine(middle - along, middle + along);
  }
}

void DrawingView::paintSnap(QPainter& painter) {
  if (!snap_ || !mouseInside_) { return; }
  const QPointF at = toDevice(snap_->at);
  constexpr double kHalf = 5.0;
  painter.setPen(QPen(QColor(0x2e, 0xa0, 0x43), 2));
  painter.setBrush(Qt::NoBrush);
  const QRectF box(at - QPointF(kHalf, kHalf), at + QPointF(kHalf, kHalf));
  switch (snap_->kind) {
    case SnapKind::kEnd: painter.drawRect(box); break;
    case SnapKind::kMiddle:
      painter.drawPolygon(QPolygonF({box.bottomLeft(), box.bottomRight(), QPointF(at.x(), box.top())}));
      break;
    case SnapKind::kCentre: painter.drawEllipse(box); break;
    case SnapKind::kOrigin:
      painter.drawLine(QLineF(box.left(), at.y(), box.right(), at.y()));
      painter.drawLine(QLineF(at.x(), box.top(), at.x(), box.bottom()));
      break;
    case SnapKind::kIntersection:
      painter.drawLine(box.topLeft(), box.bottomRight());
      painter.drawLine(box.bottomLeft(), box.topRight());
      break;
    case SnapKind::kPerpendicular:
      painter.drawPolyline(QPolygonF({box.topLeft(), box.bottomLeft(), box.bottomRight()}));
      break;
    case SnapKind::kNearest:
      painter.drawPolygon(QPolygonF({box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}));
      break;
  }
}

}  // namespace brevan

#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <map>
#include <utility>

#include "desktop/drawing_view.h"

// What the user does in the view: points, picks, drags, zooms, types.
namespace brevan {

namespace {

constexpr double kReachPixels = 9.0;
constexpr double kZoomStep = 1.25;

}  // namespace

void DrawingView::setPicking(bool picking) {
  picking_ = picking;
  if (mouseInside_) { updateHover(mouse_); }
  update();
}

void DrawingView::beginZoomWindow() {
  zoomWindow_ = true;
  setCursor(Qt::SizeFDiagCursor);
}

void DrawingView::updateHover(QPointF at) {
  static const std::map<SnapKind, const char*> kNames = {{SnapKind::kEnd, "end"},
                                                         {SnapKind::kMiddle, "middle"},
                                                         {SnapKind::kCentre, "centre"},
                                                         {SnapKind::kIntersection, "intersection"},
                                                         {SnapKind::kOrigin, "origin"},
                                                         {SnapKind::kNearest, "nearest"},
                                                         {SnapKind::kPerpendicular, "perpendicular"}};
  mouse_ = at;
  snap_.reset();
  Point shown = toDrawing(at);
  if (picking_) {
    const Cursor& cursor = window_.cursor();
    const std::optional<Point> from = cursor.held() ? std::optional<Point>(cursor.heldAt()) : std::nullopt;
    snap_ = snapAt(window_.drawing(), shown, kReachPixels / placing_.pixelsAUnit, style_.snaps, from);
    if (snap_) { shown = snap_->at; }
  }
  emit cursorMoved(shown, snap_ ? tr(kNames.at(snap_->kind)) : QString());
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  setFocus();
  mouse_ = event->position();
  if (event->button() == Qt::MiddleButton) {
    panFrom_ = event->position();
    setCursor(Qt::ClosedHandCursor);
  } else if (event->button() == Qt::RightButton) {
    if (picking_) {
      emit spaceAsked();
    } else {
      emit contextAsked(event->globalPosition().toPoint());
    }
  } else if (event->button() == Qt::LeftButton) {
    if (picking_ && !zoomWindow_) {
      updateHover(event->position());
      emit pointPicked(snap_ ? snap_->at : toDrawing(mouse_));
      return;
    }
    dragFrom_ = event->position();
  }
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
  mouseInside_ = true;
  if (panFrom_) {
    const QPointF moved = event->position() - *panFrom_;
    // Whole device pixels, so that what is painted already can be shifted.
    const double ratio = devicePixelRatioF();
    const QPointF whole(std::round(moved.x() * ratio) / ratio, std::round(moved.y() * ratio) / ratio);
    const double sign = placing_.turned ? -1.0 : 1.0;
    Placing placing = placing_;
    placing.centre = placing.centre + Point{-whole.x(), whole.y()} * (sign / placing_.pixelsAUnit);
    panFrom_ = *panFrom_ + whole;
    place(placing);
  }
  updateHover(event->position());
  update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton && panFrom_) {
    panFrom_.reset();
    setCursor(Qt::CrossCursor);
  }
  if (event->button() != Qt::LeftButton || !dragFrom_) { return; }
  const QPointF from = *std::exchange(dragFrom_, std::nullopt);
  const bool more = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
  Box box;
  box.add(toDrawing(from));
  box.add(toDrawing(event->position()));
  const bool dragged = (event->position() - from).manhattanLength() > 5.0;
  if (std::exchange(zoomWindow_, false)) {
    setCursor(Qt::CrossCursor);
    if (dragged) { zoomTo(box); }
  } else if (dragged) {
    emit windowPicked(box, windowTakes(window_.drawing(), toDrawing(from), toDrawing(event->position())), more);
  } else {
    const Drawing& drawing = window_.drawing();
    const Point at = toDrawing(event->position());
    emit picked(drawing.nearest(at, kReachPixels / placing_.pixelsAUnit,
                                [&drawing](PrimitiveId, const Primitive& primitive) {
                                  return drawing.layer(primitive.layer)->visible;
                                }),
                more);
  }
  update();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) {
    zoomAll();
  } else {
    mousePressEvent(event);
  }
}

void DrawingView::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120.0;
  zoomBy(std::pow(kZoomStep, event->angleDelta().y() / kNotch), event->position());
  updateHover(event->position());
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
  if (zoomWindow_ && event->key() == Qt::Key_Escape) {
    zoomWindow_ = false;
    dragFrom_.reset();
    setCursor(Qt::CrossCursor);
    update();
    return;
  }
  emit keyTyped(event);
}

void DrawingView::leaveEvent(QEvent*) {
  mouseInside_ = false;
  snap_.reset();
  update();
}

}  // namespace brevan

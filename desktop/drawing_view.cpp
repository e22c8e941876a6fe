#include "desktop/drawing_view.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/texts.h"
#include "host/drawing/pens.h"
#include "render/drawing_painter.h"

namespace brevan {

namespace {

constexpr int kTile = 192;              // device pixels
constexpr int kSliceMilliseconds = 12;  // of painting between two looks at the user's events
constexpr double kReachPixels = 9.0;
constexpr double kZoomStep = 1.25;
constexpr double kMargin = 0.94;  // of the window that "zoom all" fills

QRectF rectOf(const Box& box, const Transform& transform) {
  Box device;
  for (const Point corner : {box.low, box.high, Point{box.low.x, box.high.y}, Point{box.high.x, box.low.y}}) {
    device.add(transform(corner));
  }
  return {QPointF(device.low.x, device.low.y), QPointF(device.high.x, device.high.y)};
}

}  // namespace

DrawingView::DrawingView(DrawingWindow& window, const ViewStyle& style, QWidget* parent)
    : QWidget(parent), window_(window), style_(style) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  setObjectName("drawingView");
  painting_.setInterval(0);
  connect(&painting_, &QTimer::timeout, this, &DrawingView::paintSomeTiles);
}

// ---- Placing -------------------------------------------------------------------------------------------------

// Survey sheets lie turned by half a turn: x grows to the left and y downwards.
Transform DrawingView::transformOf(const Placing& placing) const {
  const double scale = placing.pixelsAUnit * devicePixelRatioF();
  const double sign = placing.turned ? -1.0 : 1.0;
  const Point middle{width() * devicePixelRatioF() / 2.0, height() * devicePixelRatioF() / 2.0};
  return Transform::shift(middle) * Transform::scaling({}, sign * scale, -sign * scale) *
         Transform::shift(Point{} - placing.centre);
}

QPointF DrawingView::toDevice(Point p) const {
  const Point at = transformOf(placing_)(p) * (1.0 / devicePixelRatioF());
  return {at.x, at.y};
}

Point DrawingView::toDrawing(QPointF device) const {
  const double sign = placing_.turned ? -1.0 : 1.0;
  const Point offset{device.x() - width() / 2.0, height() / 2.0 - device.y()};
  return placing_.centre + offset * (sign / placing_.pixelsAUnit);
}

void DrawingView::place(Placing placing) {
  constexpr double kLeast = 1e-9;
  constexpr double kMost = 1e7;
  placing.pixelsAUnit = std::clamp(placing.pixelsAUnit, kLeast, kMost);
  placing.turned = window_.drawing().parameters().turnedOnPaper();
  fitted_ = false;
  if (placing == placing_ && !picture_.isNull()) { return; }
  placing_ = placing;
  startPainting();
  update();
}

void DrawingView::zoomTo(const Box& box) {
  if (box.empty() || size().isEmpty()) { return; }
  const double across = std::max(box.width(), 1e-6);
  const double up = std::max(box.height(), 1e-6);
  place({box.centre(), kMargin * std::min(width() / across, height() / up), false});
}

void DrawingView::zoomAll() {
  const Drawing& drawing = window_.drawing();
  Box box = drawing.extents();
  if (drawing.sheet()) {
    const Transform fromSheet = toSheet(*drawing.sheet(), drawing.parameters()).inverted();
    box.add(fromSheet({0.0, 0.0}));
    box.add(fromSheet({drawing.sheet()->width, drawing.sheet()->height}));
  }
  if (box.empty()) {  // an A4 sheet's worth about the origin
    const double millimetre = drawing.parameters().paperMillimetre();
    box.add(Point{});
    box.add(Point{297.0, 210.0} * millimetre);
  }
  zoomTo(box);
  fitted_ = true;
}

void DrawingView::zoomBy(double factor) { zoomBy(factor, QPointF(width() / 2.0, height() / 2.0)); }

void DrawingView::zoomBy(double factor, QPointF about) {
  const Point fixed = toDrawing(about);
  Placing placing = placing_;
  placing.pixelsAUnit *= factor;
  placing.centre = fixed + (placing_.centre - fixed) * (1.0 / factor);
  place(placing);
}

// ---- Painting --------------------------------------------------------------------------------------------------

void DrawingView::refresh() {
  pictureHolds_ = false;
  startPainting();
  update();
}

void DrawingView::refreshIfChanged() {
  const bool turned = window_.drawing().parameters().turnedOnPaper();
  if (turned != placing_.turned) {
    zoomAll();
  } else if (paintedRevision_ != window_.drawing().revision()) {
    refresh();
  }
}

QColor DrawingView::groundColour() const {
  return style_.ground == Ground::kPaper ? QColor(Qt::white) : QColor(0x1e, 0x1f, 0x22);
}

void DrawingView::startPainting() {
  const QSize size = this->size() * devicePixelRatioF();
  if (size.isEmpty()) { return; }
  paintedRevision_ = window_.drawing().revision();
  upcoming_ = QImage(size, QImage::Format_RGB32);
  upcoming_.fill(groundColour());
  tiles_.clear();
  // A picture that was only shifted keeps what of it still fits; the rest is painted anew.
  QRect kept;
  const bool shifted = picture_.size() == size && picturePlacing_.pixelsAUnit == placing_.pixelsAUnit &&
                       picturePlacing_.turned == placing_.turned && pictureHolds_;
  if (shifted) {
    const Point move = transformOf(placing_)(placing_.centre) - transformOf(placing_)(picturePlacing_.centre);
    const QPoint whole(static_cast<int>(std::lround(-move.x)), static_cast<int>(std::lround(-move.y)));
    const bool exact = std::abs(move.x + whole.x()) < 0.01 && std::abs(move.y + whole.y()) < 0.01;
    if (exact) {
      QPainter painter(&upcoming_);
      painter.drawImage(whole, picture_);
      kept = QRect(whole, size).intersected(QRect(QPoint(), size));
    }
  }
  for (int y = 0; y < size.height(); y += kTile) {
    for (int x = 0; x < size.width(); x += kTile) {
      const QRect tile(x, y, std::min(kTile, size.width() - x), std::min(kTile, size.height() - y));
      if (!kept.contains(tile)) { tiles_.push_back(tile); }
    }
  }
  const QPoint middle(size.width() / 2, size.height() / 2);
  std::sort(tiles_.begin(), tiles_.end(), [&middle](const QRect& a, const QRect& b) {
    return (a.center() - middle).manhattanLength() > (b.center() - middle).manhattanLength();
  });
  painting_.start();
}

void DrawingView::paintSomeTiles() {
  QElapsedTimer clock;
  clock.start();
  const Transform toDevice = transformOf(placing_);
  while (!tiles_.empty() && clock.elapsed() < kSliceMilliseconds) {
    const QRect tile = tiles_.back();
    tiles_.pop_back();
    QPainter painter(&upcoming_);
    painter.setClipRect(tile);
    painter.fillRect(tile, groundColour());
    const double margin = 4.0 * devicePixelRatioF();  // of wide lines that begin beyond the tile
    const Transform back = toDevice.inverted();
    Box visible;
    visible.add(back({tile.left() - margin, tile.top() - margin}));
    visible.add(back({tile.right() + 1 + margin, tile.bottom() + 1 + margin}));
    paint(painter, window_.drawing(), toDevice, {style_.ground, style_.lineWidths, visible});
  }
  if (!tiles_.empty()) { return; }
  painting_.stop();
  picture_ = upcoming_;
  picturePlacing_ = placing_;
  pictureHolds_ = true;
  update();
}

void DrawingView::finishPainting() {
  while (painting_.isActive()) { paintSomeTiles(); }
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), groundColour());
  if (!picture_.isNull()) {
    // Where the old picture's corners lie now.
    const double ratio = devicePixelRatioF();
    const Transform now = transformOf(placing_) * transformOf(picturePlacing_).inverted();
    const Point low = now({0.0, 0.0}) * (1.0 / ratio);
    const Point high =
        now({static_cast<double>(picture_.width()), static_cast<double>(picture_.height())}) * (1.0 / ratio);
    painter.drawImage(QRectF(QPointF(low.x, low.y), QPointF(high.x, high.y)), picture_);
  }
  paintOverlay(painter);
}

void DrawingView::resizeEvent(QResizeEvent*) {
  if (fitted_) {
    zoomAll();
  } else {
    startPainting();
  }
}

// ---- What lies over the drawing -----------------------------------------------------------------------------------

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
  // Of 1, 2 or 5 times a power of ten units: the least that stands 24 pixels apart.
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
  for (Geometry& shape : shapes) {
    if (!std::holds_alternative<Symbol>(shape)) { scratch.add({.geometry = std::move(shape)}); }
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

// ---- The user ------------------------------------------------------------------------------------------------

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
  static const std::map<SnapKind, const char*> kNames = {
      {SnapKind::kEnd, "end"},         {SnapKind::kMiddle, "middle"},
      {SnapKind::kCentre, "centre"},   {SnapKind::kIntersection, "intersection"},
      {SnapKind::kNearest, "nearest"}, {SnapKind::kPerpendicular, "perpendicular"}};
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
    emit windowPicked(box, more);
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

#include "desktop/drawing_view.h"

#include <QElapsedTimer>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "render/drawing_painter.h"

// Where the drawing lies in the view, and its picture. What lies over it is in drawing_view_overlay.cpp, mouse and keys
// in drawing_view_input.cpp.
namespace brevan {

namespace {

constexpr int kTile = 192;              // device pixels
constexpr int kSliceMilliseconds = 12;  // of painting between two looks at the user's events
constexpr double kMargin = 0.94;        // of the window that "zoom all" fills

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
  window_.setZoom([this](const Box& box) { box.empty() ? zoomAll() : zoomTo(box); });
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
  window_.setSeen(placing.centre);
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

}  // namespace brevan

#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <set>
#include <vector>

#include "host/drawing/part_selection.h"
#include "host/drawing/pens.h"
#include "host/window/drawing_window.h"
#include "host/window/snapping.h"

namespace brevan {

// What a drawing is shown with; shared by the views of a program.
struct ViewStyle {
  Ground ground = Ground::kPaper;
  bool lineWidths = false;
  bool grid = false;
  std::set<SnapKind> snaps = {SnapKind::kEnd, SnapKind::kMiddle, SnapKind::kCentre, SnapKind::kOrigin,
                              SnapKind::kIntersection};
};

// Shows one drawing window. Painting goes tile by tile into a picture between the user's events, so that the
// window answers however much there is to paint; meanwhile the old picture is shown, shifted and scaled.
class DrawingView : public QWidget {
  Q_OBJECT
 public:
  DrawingView(DrawingWindow& window, const ViewStyle& style, QWidget* parent);

  [[nodiscard]] DrawingWindow& window() { return window_; }
  void zoomAll();
  void zoomTo(const Box& box);
  void zoomBy(double factor);
  void zoomBy(double factor, QPointF about);
  // The drawing or the style has changed.
  void refresh();
  // Refreshes where the drawing has changed since it was painted.
  void refreshIfChanged();
  // While a command waits for a point, clicks answer it and the rubber band follows the mouse.
  void setPicking(bool picking);
  // Whether the key Tab is typed here, rather than leading to the next field.
  void setTakesTab(bool takes) { takesTab_ = takes; }
  // Lets the user draw the window that a zoom shall show.
  void beginZoomWindow();
  // Paints all of the picture now, for tests and measurements.
  void finishPainting();
  [[nodiscard]] Point toDrawing(QPointF device) const;
  [[nodiscard]] QPointF toDevice(Point p) const;

 signals:
  void pointPicked(brevan::Point at);
  void spaceAsked();
  void escapeAsked();
  void keyTyped(QKeyEvent* event);
  void cursorMoved(brevan::Point at, const QString& snap);
  void picked(brevan::PrimitiveId id, bool more);  // without a command: 0 for none
  void windowPicked(const brevan::Box& box, brevan::WindowTakes takes, bool more);
  void contextAsked(const QPoint& at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override { return !takesTab_ && QWidget::focusNextPrevChild(next); }

 private:
  // Where the middle of the view lies in the drawing, and how large a drawing unit is.
  struct Placing {
    Point centre;
    double pixelsAUnit = 1.0;
    bool turned = false;
    friend bool operator==(const Placing&, const Placing&) = default;
  };
  [[nodiscard]] Transform transformOf(const Placing& placing) const;  // drawing to widget, in device pixels
  void place(Placing placing);
  void startPainting();
  [[nodiscard]] QColor groundColour() const;
  void paintSomeTiles();
  void paintOverlay(QPainter& painter);
  void paintSheet(QPainter& painter);
  void paintGrid(QPainter& painter);
  void paintSelection(QPainter& painter);
  void paintMarks(QPainter& painter);
  void paintRubber(QPainter& painter);
  void paintWhatComes(QPainter& painter, std::vector<Geometry> shapes);
  void paintSnap(QPainter& painter);
  void updateHover(QPointF at);

  DrawingWindow& window_;
  const ViewStyle& style_;
  Placing placing_;
  bool fitted_ = true;  // shows all, and goes on doing so when the window changes its size
  QImage picture_;      // what is shown, painted for picturePlacing_
  Placing picturePlacing_;
  bool pictureHolds_ = false;  // neither drawing nor style has changed since
  QImage upcoming_;            // being painted for placing_
  std::vector<QRect> tiles_;   // of upcoming_, still to be painted
  uint64_t paintedRevision_ = 0;
  QTimer painting_;
  bool picking_ = false;
  bool takesTab_ = false;
  bool zoomWindow_ = false;
  std::optional<QPointF> dragFrom_;  // of a window being drawn
  std::optional<QPointF> panFrom_;
  QPointF mouse_;
  bool mouseInside_ = false;
  std::optional<SnapPoint> snap_;
};

}  // namespace brevan

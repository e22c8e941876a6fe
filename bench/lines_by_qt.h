#pragma once

#include <QImage>
#include <QPainter>
#include <QPen>

#include "host/drawing/drawing.h"

namespace bench {

// What painting a drawing of lines cannot do without: Qt drawing them with one pen into a picture, their origin at its
// lower left. Returns a pixel, so that nothing is left out.
inline unsigned linesByQt(const brevan::Drawing& drawing, double pixelsAUnit, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QPen pen(Qt::black, 1.0);
  pen.setCapStyle(Qt::RoundCap);
  painter.setPen(pen);
  const auto placed = [&](brevan::Point p) { return QPointF(p.x * pixelsAUnit, size.height() - p.y * pixelsAUnit); };
  drawing.forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
    const brevan::Line& line = std::get<brevan::Line>(primitive.geometry);
    painter.drawLine(placed(line.a), placed(line.b));
  });
  return image.pixel(0, 0);
}

}  // namespace bench

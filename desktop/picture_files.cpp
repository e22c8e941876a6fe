#include "desktop/picture_files.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace brevan {

bool paintPicture(QPainter& painter, const QRectF& into, const QString& folder, const QString& name,
                  const QWidget& beside) {
  QFile file(folder + '/' + name + ".svg");
  if (name.isEmpty() || name.contains('/') || !file.open(QIODevice::ReadOnly)) { return false; }
  QByteArray art = file.readAll();
  art.replace("currentColor", beside.palette().color(QPalette::Text).name().toLatin1());
  QSvgRenderer renderer(art);
  if (!renderer.isValid()) { return false; }
  QSizeF size = renderer.viewBoxF().size();
  size.scale(into.size(), Qt::KeepAspectRatio);
  QRectF place(QPointF(), size);
  place.moveCenter(into.center());
  renderer.render(&painter, place);
  return true;
}

QIcon pictureIcon(const QString& folder, const QString& name, QSize size, const QWidget& beside) {
  const double ratio = beside.devicePixelRatioF();
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  return paintPicture(painter, QRectF(QPointF(), QSizeF(size)), folder, name, beside) ? QIcon(pixmap) : QIcon();
}

}  // namespace brevan

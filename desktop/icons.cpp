#include "desktop/icons.h"

#include <QPainter>
#include <QSvgRenderer>
#include <map>

#include "desktop/picture_files.h"

namespace brevan {

namespace {

// Paths on a square of 24, stroked 1.6 wide.
const std::map<QString, const char*>& drawings() {
  static const std::map<QString, const char*> kDrawings = {
      {"new", "M6 3h9l4 4v14H6zM15 3v4h4"},
      {"open", "M3 19V5h6l2 2h8v3M3 19l3-9h16l-3 9z"},
      {"save", "M4 4h13l3 3v13H4zM8 4v5h7V4M7 20v-7h10v7"},
      {"print", "M7 8V3h10v5M7 17H4V8h16v9h-3M7 14h10v7H7z"},
      {"undo", "M8 5L4 9l4 4M4 9h10a5 5 0 0 1 0 10H8"},
      {"redo", "M16 5l4 4-4 4M20 9H10a5 5 0 0 0 0 10h6"},
      {"zoom-all", "M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5M9 9h6v6H9z"},
      {"zoom-window", "M3 3h3M8 3h3M13 3h3M3 3v3M3 8v3M3 13v3M3 16h3M12 9a4 4 0 1 0 .01 0M15 16l5 5"},
      {"zoom-in", "M10 4a6 6 0 1 0 .01 0M14.5 14.5L20 20M7 10h6M10 7v6"},
      {"zoom-out", "M10 4a6 6 0 1 0 .01 0M14.5 14.5L20 20M7 10h6"},
      {"line", "M5 19L19 5M3.5 17.5h3v3h-3zM17.5 3.5h3v3h-3z"},
      {"polyline", "M3 19l6-12 5 7 7-9"},
      {"rectangle", "M4 6h16v12H4z"},
      {"circle", "M12 4a8 8 0 1 0 .01 0M11 12h2M12 11v2"},
      {"arc", "M4 18A14 14 0 0 1 20 6"},
      {"text", "M5 6V4h14v2M12 4v16M9 20h6"},
      {"select", "M5 3l13 8-6 1.5L9.5 19z"},
      {"erase", "M8 19l-5-5L13 4l7 7-8 8zM8 9l7 7M6 19h14"},
      {"move",
       "M12 3v18M3 12h18M12 3l-2.5 2.5M12 3l2.5 2.5M12 21l-2.5-2.5M12 21l2.5-2.5M3 12l2.5-2.5M3 12l2.5 2.5M21 "
       "12l-2.5-2.5M21 12l-2.5 2.5"},
      {"copy", "M4 4h11v11H4zM9 15v5h11V9h-5"},
      {"rotate", "M19 12a7 7 0 1 1-3-5.7M16 2v5h5"},
      {"mirror", "M12 3v3M12 8v3M12 13v3M12 18v3M9 6L3 18h6zM15 6l6 12h-6z"},
      {"group", "M3 3h7v7H3zM14 14h7v7h-7zM3 14a7 7 0 0 0 7 7M14 3a7 7 0 0 1 7 7"},
      {"ungroup", "M3 3h7v7H3zM14 14h7v7h-7zM5 19L19 5"},
      {"joinwalls", "M3 8h18M3 14h6M15 14h6M9 14v7M15 14v7"},
      {"hatch", "M4 4h16v16H4zM4 12l8-8M4 20L20 4M12 20l8-8"},
      {"trim", "M3 12h6M15 12h6M9 4l6 16M15 4L9 20"}};
  return kDrawings;
}

QPixmap letters(const QString& name, QSize size, const QColor& ink, double ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 1.2));
  painter.drawRoundedRect(QRectF(1, 1, size.width() - 2, size.height() - 2), 4, 4);
  QFont font = painter.font();
  font.setPixelSize(size.height() / 2);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, name.left(2));
  return pixmap;
}

}  // namespace

QIcon toolIcon(const QString& name, const QString& folder, const QWidget& beside) {
  constexpr int kSize = 24;
  const double ratio = beside.devicePixelRatioF();
  const QColor ink = beside.palette().color(QPalette::WindowText);
  const auto drawing = drawings().find(name);
  if (drawing == drawings().end()) {
    const QIcon art = pictureIcon(folder, name, {kSize, kSize}, beside);
    return art.isNull() ? QIcon(letters(name, {kSize, kSize}, ink, ratio)) : art;
  }
  const QString art =
      QString(
          "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='%1' fill='none' stroke='%2' "
          "stroke-width='1.6' stroke-linecap='round' stroke-linejoin='round'/></svg>")
          .arg(QString(drawing->second), ink.name());
  QPixmap pixmap(QSize(kSize, kSize) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QSvgRenderer(art.toUtf8()).render(&painter, QRectF(0, 0, kSize, kSize));
  return pixmap;
}

// A drawn angle with its bisector.
QIcon programIcon() {
  static const char* const kArt =
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 64 64'><rect width='64' height='64' rx='12' "
      "fill='#1f4e79'/>"
      "<path d='M14 50L32 12L50 50M21 36h22' fill='none' stroke='#ffffff' stroke-width='5' stroke-linejoin='round' "
      "stroke-linecap='round'/><circle cx='32' cy='12' r='4.5' fill='#f2a33a'/></svg>";
  QPixmap pixmap(128, 128);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QSvgRenderer(QByteArray(kArt)).render(&painter);
  return pixmap;
}

}  // namespace brevan

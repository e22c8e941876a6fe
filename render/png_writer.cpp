#include "render/png_writer.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/drawing/strokes.h"
#include "render/drawing_painter.h"
#include "render/render_session.h"

namespace brevan {

namespace {

QImage blankSheet(const Sheet& sheet, double dotsAMillimetre) {
  const double width = std::max(1.0, std::round(sheet.width * dotsAMillimetre));
  const double height = std::max(1.0, std::round(sheet.height * dotsAMillimetre));
  if (width * height > kMostPixels) {
    throw HostFailure(
        numberText::format("A picture of %.0f x %.0f dots is too large; ask for fewer dots an inch.", width, height));
  }
  QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
  if (image.isNull()) { throw HostFailure("There is not enough memory for the picture."); }
  image.fill(Qt::white);
  const int dotsAMetre = static_cast<int>(std::round(dotsAMillimetre * 1000.0));
  image.setDotsPerMeterX(dotsAMetre);
  image.setDotsPerMeterY(dotsAMetre);
  return image;
}

}  // namespace

std::string pngBytes(const Drawing& drawing, const ExportOptions& options) {
  constexpr int kMostDotsAnInch = 4800;
  const int dotsAnInch = options.dotsAnInch;
  if (dotsAnInch < 1 || dotsAnInch > kMostDotsAnInch) {
    throw HostFailure(numberText::format("A picture takes 1 to %d dots an inch, got %d.", kMostDotsAnInch, dotsAnInch));
  }
  requirePainting();
  const Page page = options.tellPage(drawing);
  const double scale = dotsAnInch / 25.4;
  QImage image = blankSheet(page.sheet, scale);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  paint(painter, drawing, pageToDevice(page, drawing.parameters(), scale), pageOptions(page, options));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) { throw HostFailure("The picture could not be packed as PNG."); }
  return bytes.toStdString();
}

}  // namespace brevan

#pragma once

#include <QImage>
#include <string>

#include "host/drawing/sheet.h"
#include "host/geometry/box.h"
#include "render/png_writer.h"

namespace brevan {

// A painted sheet and where its ink lies, in millimetres from the sheet's lower left corner.
class Picture {
 public:
  explicit Picture(const Drawing& drawing, int dotsAnInch = 254) : dotsAMillimetre_(dotsAnInch / 25.4) {
    const std::string bytes = pngBytes(drawing, {.dotsAnInch = dotsAnInch});
    image_ = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "PNG")
                 .convertToFormat(QImage::Format_RGB32);
  }

  [[nodiscard]] const QImage& image() const { return image_; }
  [[nodiscard]] bool inked(Point millimetres) const {
    const int x = static_cast<int>(millimetres.x * dotsAMillimetre_);
    const int y = image_.height() - 1 - static_cast<int>(millimetres.y * dotsAMillimetre_);
    return image_.valid(x, y) && qGray(image_.pixel(x, y)) < kInk;
  }
  [[nodiscard]] Box inkBox() const {
    Box box;
    for (int y = 0; y < image_.height(); ++y) {
      const auto* row = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
      for (int x = 0; x < image_.width(); ++x) {
        if (qGray(row[x]) < kInk) { addPixel(box, x, y); }
      }
    }
    return box;
  }

 private:
  static constexpr int kInk = 160;

  void addPixel(Box& box, int x, int y) const {
    const double up = image_.height() - y;
    box.add(Point{x / dotsAMillimetre_, up / dotsAMillimetre_});
    box.add(Point{(x + 1) / dotsAMillimetre_, (up - 1.0) / dotsAMillimetre_});
  }

  double dotsAMillimetre_;
  QImage image_;
};

}  // namespace brevan

#include "render/drawing_painter.h"

#include <QFont>
#include <QFontInfo>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include "frame/host/core_services.h"
#include "host/core/text_encoding.h"
#include "host/drawing/shown_layers.h"
#include "host/drawing/strokes.h"
#include "host/drawing/turned_strokes.h"

namespace brevan {

namespace {

// Fonts are set at this size and scaled, so that advances are those of the font's own design.
constexpr int kDesignSize = 2048;

QFont designFont(FontFace face) {
  QFont font(fontFamily(face));
  font.setPixelSize(kDesignSize);
  font.setKerning(false);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::NoFontMerging | QFont::PreferOutline));
  return font;
}

QPointF pointOf(Point p) { return {p.x, p.y}; }

// Paints strokes in millimetres, y upwards; the painter's transform leads on to the device.
class PainterSink : public StrokeSink {
 public:
  PainterSink(QPainter& painter, const PaintOptions& options, double devicePerMillimetre)
      : painter_(painter), options_(options), devicePerMillimetre_(devicePerMillimetre) {}

  void line(const StrokeStyle& style, Point a, Point b) override {
    ++strokes_;
    usePen(style);
    if (a == b) {
      painter_.drawPoint(pointOf(a));
    } else {
      painter_.drawLine(pointOf(a), pointOf(b));
    }
  }

  void arc(const StrokeStyle& style, const ArcShape& arc) override {
    ++strokes_;
    usePen(style);
    const double radius = arcRadius(arc);
    const QRectF square(arc.centre.x - radius, arc.centre.y - radius, 2.0 * radius, 2.0 * radius);
    QPainterPath path;
    // A path counts angles as if y pointed downwards.
    path.arcMoveTo(square, -degrees(arcStartAngle(arc)));
    path.arcTo(square, -degrees(arcStartAngle(arc)), -degrees(arcSweep(arc)));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPath(path);
  }

  void text(const StrokeStyle& style, const TextStroke& text) override {
    ++strokes_;
    painter_.save();
    painter_.translate(pointOf(text.baseline));
    painter_.rotate(text.angle);
    const double size = text.height / kDesignSize;
    painter_.scale(size * text.widthFactor, -size);
    QFont font = fontOf(faceOf(text.font));
    font.setUnderline(text.underlined);
    painter_.setFont(font);
    painter_.setPen(colourOf(style.pen));
    painter_.drawText(QPointF(0.0, 0.0), QString::fromStdString(toUtf8(text.text)));
    painter_.restore();
    penStyle_.reset();
  }

  void polygon(const StrokeStyle& style, std::span<const Point> corners) override {
    ++strokes_;
    QPolygonF polygon;
    for (const Point corner : corners) { polygon.append(pointOf(corner)); }
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colourOf(style.pen));
    painter_.drawPolygon(polygon);
    penStyle_.reset();
  }

  [[nodiscard]] size_t strokes() const { return strokes_; }

 private:
  // Qt takes another font where it cannot read the one that is asked for; drawings never change so without a word.
  const QFont& fontOf(FontFace face) {
    const auto index = static_cast<size_t>(face);
    const QFont& font = fonts_[index];
    if (!checked_[index] && QFontInfo(font).family() != fontFamily(face)) {
      throw HostFailure("The font \"" + fontFamily(face).toStdString() + "\" could not be read.");
    }
    checked_[index] = true;
    return font;
  }
  [[nodiscard]] QColor colourOf(int pen) const {
    return QColor(QRgb(options_.colour.value_or(penColour(pen, options_.ground))));
  }
  void usePen(const StrokeStyle& style) {
    const bool same = penStyle_ && penStyle_->pen == style.pen && penStyle_->width == style.width &&
                      penStyle_->dashes == style.dashes;
    if (same) { return; }
    penStyle_ = style;
    const double width = options_.lineWidths ? strokeWidth(style) : options_.hairline / devicePerMillimetre_;
    QPen pen(colourOf(style.pen), width);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(style.dashes.lengths.empty() ? Qt::RoundCap : Qt::FlatCap);
    if (!style.dashes.lengths.empty()) { setDashes(pen, style.dashes, width); }
    painter_.setPen(pen);
  }
  // A pen measures its dashes by its own width.
  static void setDashes(QPen& pen, const DashPattern& dashes, double width) {
    QList<qreal> inWidths;
    for (const double length : dashes.lengths) { inWidths.append(length / width); }
    pen.setDashPattern(inWidths);
    pen.setDashOffset(dashes.start / width);
  }

  QPainter& painter_;
  const PaintOptions& options_;
  double devicePerMillimetre_;
  std::array<QFont, 3> fonts_ = {designFont(FontFace::kSans), designFont(FontFace::kSerif),
                                 designFont(FontFace::kMono)};
  std::array<bool, 3> checked_{};
  std::optional<StrokeStyle> penStyle_;
  size_t strokes_ = 0;
};

// Drawing order where only a part is wanted, too.
template <class Function>
void forEachShown(const Drawing& drawing, const PaintOptions& options, const Function& function) {
  const ShownLayers layers(drawing, options.layers);
  const auto show = [&](const Primitive& primitive) {
    if (layers.shows(primitive.layer)) { function(primitive); }
  };
  if (!options.only.empty()) {
    for (const PrimitiveId id : options.only) { show(*drawing.find(id)); }
    return;
  }
  if (!options.visible) {
    drawing.forEach([&](PrimitiveId, const Primitive& primitive) { show(primitive); });
    return;
  }
  for (const PrimitiveId id : drawing.inBox(*options.visible)) { show(*drawing.find(id)); }
}

}  // namespace

QString fontFamily(FontFace face) {
  constexpr std::array<const char*, 3> kFamilies = {"Liberation Sans", "Liberation Serif", "Liberation Mono"};
  return QString::fromLatin1(kFamilies[static_cast<size_t>(face)]);
}

// Strokes are made in millimetres about the device's origin, where coordinates stay small however far from
// theirs the drawing lies.
size_t paint(QPainter& painter, const Drawing& drawing, const Transform& toDevice, const PaintOptions& options) {
  const double deviceUnit = length(toDevice.direction({1.0, 0.0}));
  const double millimetre = deviceUnit * drawing.parameters().paperMillimetre() / options.zoom;
  const Transform toPaper = Transform::scaling({}, 1.0 / millimetre, -1.0 / millimetre) * toDevice;
  painter.save();
  painter.scale(millimetre, -millimetre);
  PainterSink sink(painter, options, millimetre);
  TurnedStrokes turned(sink, options.rotation, options.about);
  StrokeWalk walk(drawing, toPaper, turned, options.zoom);
  forEachShown(drawing, options, [&walk](const Primitive& primitive) { walk.primitive(primitive); });
  painter.restore();
  return sink.strokes();
}

Transform pageToDevice(const Page& page, const Parameters& parameters, double scale) {
  return Transform{scale, 0.0, 0.0, 0.0, -scale, page.sheet.height * scale} * toPage(page, parameters);
}

PaintOptions pageOptions(const Page& page, const ExportOptions& options) {
  PaintOptions painted;
  painted.zoom = page.zoom;
  painted.rotation = page.rotation;
  painted.about = {0.0, -page.sheet.height};
  painted.layers = options.page.layers;
  return painted;
}

}  // namespace brevan

#include <QPainter>

#include "desktop/control_widgets.h"
#include "desktop/picture_files.h"
#include "desktop/texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/drawing/pens.h"
#include "host/window/dialog_fields.h"
#include "host/window/drawing_window.h"
#include "host/window/unseen_window.h"
#include "render/drawing_painter.h"

// Pictures, pixel canvases and previews.
namespace brevan {

using namespace dialog;

namespace {

// Dialog units are a quarter of a letter's width and an eighth of a line's height.
QSize pixels(int width, int height) {
  constexpr double kAcross = 6.0 / 4.0;
  constexpr double kDown = 13.0 / 8.0;
  return {qRound(width * kAcross), qRound(height * kDown)};
}

class PaintedWidget : public QWidget {
 public:
  PaintedWidget(QSize size, std::function<void(QPainter&, QWidget&)> painted, QWidget* parent)
      : QWidget(parent), painted_(std::move(painted)) {
    setMinimumSize(size);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painted_(painter, *this);
  }

 private:
  std::function<void(QPainter&, QWidget&)> painted_;
};

class PictureWidget : public ControlWidget {
 public:
  PictureWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    const Picture& picture = state<Picture>();
    const QSize size = pixels(picture.width, picture.height);
    widget_ = new PaintedWidget(
        size,
        [this](QPainter& painter, QWidget& self) {
          paintPicture(painter, self.rect(), owner_.pictureFolder(), brevan::shown(state<Picture>().name), self);
        },
        parent);
  }
  void show() override { widget_->update(); }
};

// Whole pixels, as the description counts them, on a picture that is shown as large as they are.
class ImageCanvas : public Canvas {
 public:
  explicit ImageCanvas(QImage& image) : image_(image), painter_(&image) {}
  [[nodiscard]] int width() const override { return image_.width(); }
  [[nodiscard]] int height() const override { return image_.height(); }
  void fill(uint32_t colour) override { image_.fill(QColor(QRgb(colour))); }
  void line(int x1, int y1, int x2, int y2, uint32_t colour, Stroke stroke) override {
    painter_.setPen(QPen(QColor(QRgb(colour)), 1, stroke == Stroke::kSolid ? Qt::SolidLine : Qt::DashDotLine));
    painter_.drawLine(x1, y1, x2, y2);
  }
  void circle(int x, int y, int radius, uint32_t colour) override {
    painter_.setPen(QColor(QRgb(colour)));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(QPoint(x, y), radius, radius);
  }
  void pie(int x, int y, int radius, double startAngle, double sweep, uint32_t colour) override {
    constexpr double kSixteenths = 16.0;
    painter_.setPen(QColor(QRgb(colour)));
    painter_.setBrush(QColor(QRgb(colour)));
    painter_.drawPie(x - radius, y - radius, 2 * radius, 2 * radius, static_cast<int>(startAngle * kSixteenths),
                     static_cast<int>(sweep * kSixteenths));
  }
  void text(int x, int y, std::string_view text, int pixelHeight, uint32_t colour, uint32_t ground) override {
    QFont font = painter_.font();
    font.setPixelSize(pixelHeight);
    painter_.setFont(font);
    const QString words = brevan::shown(text);
    const QRect box(x, y, QFontMetrics(font).horizontalAdvance(words), pixelHeight);
    painter_.fillRect(box, QColor(QRgb(ground)));
    painter_.setPen(QColor(QRgb(colour)));
    painter_.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, words);
  }

 private:
  QImage& image_;
  QPainter painter_;
};

class CanvasWidget : public ControlWidget {
 public:
  CanvasWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    const PixelCanvas& canvas = state<PixelCanvas>();
    widget_ = new PaintedWidget(
        pixels(canvas.width, canvas.height),
        [this](QPainter& painter, QWidget&) {
          const PixelCanvas& now = state<PixelCanvas>();
          QImage image(pixels(now.width, now.height), QImage::Format_RGB32);
          image.fill(Qt::white);
          if (now.paint) {
            ImageCanvas paintedOn(image);
            now.paint(paintedOn);
          }
          painter.drawImage(0, 0, image);
        },
        parent);
    widget_->setFixedSize(pixels(canvas.width, canvas.height));
  }
  void show() override { widget_->update(); }
};

class PreviewWidget : public ControlWidget {
 public:
  PreviewWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    const Preview& preview = state<Preview>();
    widget_ = new PaintedWidget(
        pixels(preview.width, preview.height), [this](QPainter& painter, QWidget& self) { paintPart(painter, self); },
        parent);
  }
  void show() override { widget_->update(); }

 private:
  // It reads symbol files where the user's window does.
  static DrawingSource* drawings() {
    const auto* window = dynamic_cast<const DrawingWindow*>(cadGetCurrentView());
    return window == nullptr ? nullptr : window->services().drawings;
  }
  [[nodiscard]] std::unique_ptr<UnseenWindow> drawn() const {
    auto scene = std::make_unique<UnseenWindow>(drawings());
    try {
      if (state<Preview>().draw) { state<Preview>().draw(*scene); }
    } catch (const std::exception&) { scene->setDrawing({}); }  // values that make no part show none
    return scene;
  }

  [[nodiscard]] NumberEdit* focused() const {
    const int control = owner_.description().focus();
    return control < 0 ? nullptr : std::get_if<NumberEdit>(&owner_.description().control(control).state);
  }
  // What the field in focus sets: the strokes that a little more in it moves.
  [[nodiscard]] std::vector<PrimitiveId> setByFocus(const Drawing& drawing) const {
    NumberEdit* edit = focused();
    const auto value = edit == nullptr ? std::nullopt : numberText::parseTyped(edit->text);
    std::vector<PrimitiveId> moved;
    if (!value) { return moved; }
    constexpr double kMore = 1.03;
    const std::string kept = std::exchange(edit->text, numberText::shortest(*value * kMore + 1e-3));
    const std::unique_ptr<UnseenWindow> other = drawn();
    edit->text = kept;
    if (other->drawing().count() != drawing.count()) { return moved; }  // another part altogether
    drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
      const Primitive* there = other->drawing().find(id);
      if (there == nullptr || !(there->geometry == primitive.geometry)) { moved.push_back(id); }
    });
    return moved;
  }

  void paintPart(QPainter& painter, QWidget& self) {
    const bool dark = self.palette().color(QPalette::Base).lightness() < 128;
    painter.fillRect(self.rect(), self.palette().color(QPalette::Base));
    const std::unique_ptr<UnseenWindow> scene = drawn();
    const Drawing& drawing = scene->drawing();
    const Box box = drawing.extents();
    if (box.empty()) { return; }
    constexpr double kFilled = 0.86;
    constexpr double kCaption = 18.0;  // pixels at the foot
    const double scale = kFilled * std::min(self.width() / std::max(box.width(), 1e-6),
                                            (self.height() - kCaption) / std::max(box.height(), 1e-6));
    const Transform toDevice = Transform::shift({self.width() / 2.0, (self.height() - kCaption) / 2.0}) *
                               Transform::scaling({}, scale, -scale) * Transform::shift(Point{} - box.centre());
    PaintOptions options{dark ? Ground::kDark : Ground::kPaper, false, std::nullopt};
    paint(painter, drawing, toDevice, options);
    const std::vector<PrimitiveId> marked = setByFocus(drawing);
    if (marked.empty()) { return; }
    options.only = marked;
    options.colour = kMark;
    options.hairline = 2.0;
    paint(painter, drawing, toDevice, options);
    const int control = owner_.description().focus();
    painter.setPen(QColor(QRgb(kMark)));
    painter.drawText(self.rect().adjusted(4, 0, -4, -3), Qt::AlignBottom | Qt::AlignHCenter,
                     brevan::shown(addressOf(owner_.description(), control) + "  " + focused()->text));
  }

  static constexpr Colour kMark = 0xE06C00;
};

}  // namespace

MadeWidget makeWidget(const Picture&, const WidgetPlace& place) {
  return std::make_unique<PictureWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const PixelCanvas&, const WidgetPlace& place) {
  return std::make_unique<CanvasWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const Preview&, const WidgetPlace& place) {
  return std::make_unique<PreviewWidget>(place.owner, place.control, place.parent);
}

}  // namespace brevan

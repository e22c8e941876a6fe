#include "desktop/pen_widgets.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "desktop/texts.h"
#include "host/drawing/line_types.h"
#include "host/drawing/pens.h"

namespace brevan {

namespace {

constexpr int kByLayer = kPens + 1;
constexpr int kSwatch = 14;
constexpr int kPensInRow = 16;

Ground groundBeside(const QWidget& widget) {
  return widget.palette().color(QPalette::Base).lightness() < 128 ? Ground::kDark : Ground::kPaper;
}

QPixmap cleared(QSize size, double ratio) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

}  // namespace

QIcon penIcon(int pen, const QWidget& beside) {
  QPixmap pixmap = cleared({kSwatch, kSwatch}, beside.devicePixelRatioF());
  QPainter painter(&pixmap);
  const QColor edge = beside.palette().color(QPalette::Mid);
  if (pen == kByLayer) {
    painter.setPen(beside.palette().color(QPalette::Text));
    painter.drawRect(0, 0, kSwatch - 1, kSwatch - 1);
    painter.drawLine(0, kSwatch - 1, kSwatch - 1, 0);
  } else {
    painter.fillRect(0, 0, kSwatch, kSwatch, QColor(QRgb(penColour(pen, groundBeside(beside)))));
    painter.setPen(edge);
    painter.drawRect(0, 0, kSwatch - 1, kSwatch - 1);
  }
  return pixmap;
}

QSize lineTypeIconSize() { return {110, 12}; }

QIcon lineTypeIcon(int number, const QWidget& beside, QSize size) {
  constexpr double kPixelsAMillimetre = 3.0;
  QPixmap pixmap = cleared(size, beside.devicePixelRatioF());
  QPainter painter(&pixmap);
  QPen pen(beside.palette().color(QPalette::Text), 1.5);
  pen.setCapStyle(Qt::FlatCap);
  QList<qreal> dashes;
  for (const double length : lineType(number).pattern) {
    dashes.append(std::max(length, 0.3) * kPixelsAMillimetre / 1.5);
  }
  if (!dashes.isEmpty()) { pen.setDashPattern(dashes); }
  painter.setPen(pen);
  painter.drawLine(QPointF(0, size.height() / 2.0), QPointF(size.width(), size.height() / 2.0));
  return pixmap;
}

std::optional<int> choosePenFrom(QWidget* parent, const QString& title, int pen) {
  QDialog chooser(parent);
  chooser.setWindowTitle(title.isEmpty() ? tr("Pen") : title);
  auto* grid = new QGridLayout(&chooser);
  grid->setSpacing(1);
  std::optional<int> chosen;
  for (int number = 1; number <= kByLayer; ++number) {
    auto* button = new QToolButton(&chooser);
    button->setIcon(penIcon(number, chooser));
    button->setIconSize({kSwatch, kSwatch});
    button->setAutoRaise(true);
    button->setCheckable(true);
    button->setChecked(number == pen);
    button->setToolTip(number == kByLayer ? tr("256: the layer's pen") : QString::number(number));
    button->setObjectName("pen" + QString::number(number));
    QObject::connect(button, &QToolButton::clicked, &chooser, [&chosen, &chooser, number] {
      chosen = number;
      chooser.accept();
    });
    grid->addWidget(button, (number - 1) / kPensInRow, (number - 1) % kPensInRow);
    if (number == pen) { button->setFocus(); }
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, &chooser);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &chooser, &QDialog::reject);
  grid->addWidget(buttons, kPensInRow, 0, 1, kPensInRow);
  chooser.exec();
  return chosen;
}

}  // namespace brevan

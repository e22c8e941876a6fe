#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

class QPainter;

namespace brevan {

// Paints the vector art of this name into the rectangle, as large as fits; in the widget's own ink where the art
// asks for "currentColor". False where there is none of this name.
bool paintPicture(QPainter& painter, const QRectF& into, const QString& folder, const QString& name,
                  const QWidget& beside);

QIcon pictureIcon(const QString& folder, const QString& name, QSize size, const QWidget& beside);

}  // namespace brevan

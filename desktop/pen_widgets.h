#pragma once

#include <QIcon>
#include <QWidget>
#include <optional>

namespace brevan {

// A swatch of a pen's colour as it draws on this desktop's ground.
QIcon penIcon(int pen, const QWidget& beside);
// A stretch of a line type's pattern.
QSize lineTypeIconSize();
QIcon lineTypeIcon(int lineType, const QWidget& beside, QSize size = lineTypeIconSize());

// Lets the user choose one of the 256 pens, 256 being the layer's; nothing when the chooser was left.
std::optional<int> choosePenFrom(QWidget* parent, const QString& title, int pen);

}  // namespace brevan

#pragma once

#include <QIcon>
#include <QWidget>

namespace brevan {

// A tool's or command's icon, drawn in the widget's own ink; one of letters where there is no drawing of its own.
QIcon toolIcon(const QString& name, const QWidget& beside);
// Of the program.
QIcon programIcon();

}  // namespace brevan

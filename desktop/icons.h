#pragma once

#include <QIcon>
#include <QWidget>

namespace brevan {

// The icon of a tool, or of a command, which names a file of the folder; drawn in the widget's own ink. One of letters
// where there is no drawing of that name.
QIcon toolIcon(const QString& name, const QString& folder, const QWidget& beside);
// The program's own icon.
QIcon programIcon();

}  // namespace brevan

#include "desktop/texts.h"

#include "host/core/text_encoding.h"

namespace brevan {

QString shown(std::string_view text) { return QString::fromStdString(toUtf8(text)); }

std::optional<std::string> hostText(const QString& text) { return toWindows1252(text.toStdString()); }

}  // namespace brevan

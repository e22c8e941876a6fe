#include "desktop/texts.h"

#include "host/core/text_encoding.h"
#include "host/scripts/script_syntax.h"

namespace brevan {

QString shown(std::string_view text) { return QString::fromStdString(toUtf8(text)); }

std::optional<std::string> hostText(const QString& text) { return toWindows1252(text.toStdString()); }

QString scriptString(const QString& text) { return QString::fromStdString(scriptString(text.toStdString())); }

}  // namespace brevan

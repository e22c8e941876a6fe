#pragma once

#include <QCoreApplication>
#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace brevan {

// Between the host's Windows-1252 and what Qt shows.
QString shown(std::string_view text);
// Nothing where the text holds a character that Windows-1252 lacks.
std::optional<std::string> hostText(const QString& text);

// A text as a script's string, in quotes.
QString scriptString(const QString& text);

// Texts of the desktop's own, for translation.
inline QString tr(const char* text) { return QCoreApplication::translate("brevan", text); }

}  // namespace brevan

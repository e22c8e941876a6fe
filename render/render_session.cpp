#include "render/render_session.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "frame/host/core_services.h"
#include "render/drawing_painter.h"

namespace brevan {

namespace {

// Qt keeps references to them for the application's life.
int argumentCount = 1;
char programName[] = "brevan";
char* arguments[] = {programName, nullptr};

void requireFonts() {
  for (const FontFace face : {FontFace::kSans, FontFace::kSerif, FontFace::kMono}) {
    const QString family = fontFamily(face);
    if (!QFontDatabase::hasFamily(family)) {
      throw HostFailure(
          "The font \"" + family.toStdString() +
          "\" is not installed; drawings are painted with the Liberation fonts (package fonts-liberation).");
    }
  }
}

// Without a desktop session Qt complains about the folder of its run-time files, which nothing here uses. Where it
// gives up, nothing can come back from it: it would abort. No save has begun then, so the program ends as for an output
// that could not be written.
void keepQuiet(QtMsgType type, const QMessageLogContext&, const QString& message) {
  constexpr int kOutputUnwritten = 4;
  if (type != QtFatalMsg) { return; }
  std::cerr << "Painting could not start: " << message.section('\n', 0, 0).toStdString() << std::endl;
  std::_Exit(kOutputUnwritten);
}

std::unique_ptr<QGuiApplication> startedApplication() {
  if (QCoreApplication::instance() != nullptr) { return nullptr; }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QtMessageHandler handler = qInstallMessageHandler(keepQuiet);
  auto application = std::make_unique<QGuiApplication>(argumentCount, arguments);
  qInstallMessageHandler(handler);
  return application;
}

}  // namespace

void requirePainting() {
  static const std::unique_ptr<QGuiApplication> kApplication = startedApplication();
  static const bool kHasFonts = (requireFonts(), true);
  static_cast<void>(kHasFonts);
}

}  // namespace brevan

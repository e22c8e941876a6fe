#include "render/render_session.h"

#include <QFontDatabase>
#include <QGuiApplication>

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

// Without a desktop session Qt complains about the folder of its run-time files, which nothing here uses.
void keepQuiet(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

RenderSession::RenderSession() {
  if (QCoreApplication::instance() != nullptr) { return; }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QtMessageHandler handler = qInstallMessageHandler(keepQuiet);
  application_ = std::make_unique<QGuiApplication>(argumentCount, arguments);
  qInstallMessageHandler(handler);
}

RenderSession::~RenderSession() = default;

void RenderSession::require() {
  static const RenderSession kSession;
  static const bool kHasFonts = (requireFonts(), true);
  static_cast<void>(kHasFonts);
}

}  // namespace brevan

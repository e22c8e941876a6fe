#include "render/pdf_writer.h"

#include <QBuffer>
#include <QHashSeed>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "frame/host/core_services.h"
#include "host/core/text_encoding.h"
#include "host/drawing/strokes.h"
#include "render/drawing_painter.h"
#include "render/pdf_details.h"
#include "render/render_session.h"

namespace brevan {

namespace {

constexpr int kDotsAnInch = 7200;  // a hundredth of a point; what QPdfWriter rounds to is out of sight then
constexpr double kMillimetresAnInch = 25.4;

// The writer lists fonts in the order of a hash table, which differs from run to run by its seed.
class SteadyHashes {
 public:
  SteadyHashes() { QHashSeed::setDeterministicGlobalSeed(); }
  ~SteadyHashes() { QHashSeed::resetRandomGlobalSeed(); }
  SteadyHashes(const SteadyHashes&) = delete;
  SteadyHashes& operator=(const SteadyHashes&) = delete;
};

void setPage(QPdfWriter& writer, const Sheet& sheet) {
  writer.setResolution(kDotsAnInch);
  const QPageSize size(QSizeF(sheet.width, sheet.height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
  writer.setPageSize(size);
  writer.setPageMargins(QMarginsF(0.0, 0.0, 0.0, 0.0));
}

}  // namespace

std::string pdfBytes(const Drawing& drawing, std::string_view title, const ExportOptions& options) {
  requirePainting();
  const SteadyHashes steady;
  const Page page = options.tellPage(drawing);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    setPage(writer, page.sheet);
    writer.setTitle(QString::fromStdString(toUtf8(title)));
    writer.setCreator(QStringLiteral("Brevan"));
    QPainter painter;
    if (!painter.begin(&writer)) { throw HostFailure("The PDF writer did not start."); }
    const double scale = kDotsAnInch / kMillimetresAnInch;
    paint(painter, drawing, pageToDevice(page, drawing.parameters(), scale), pageOptions(page, options));
    painter.end();
  }
  std::string file = bytes.toStdString();
  fixCreationDate(file);
  fixPageSize(file, page.sheet);
  return file;
}

}  // namespace brevan

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>

#include "frame/host/core_services.h"
#include "host/drawing/strokes.h"
#include "host/drawing/text_layout.h"
#include "render/drawing_painter.h"
#include "render/render_session.h"
#include "tests/host/drawing/dash_ink.h"
#include "tests/host/drawing/survey_parameters.h"
#include "tests/render/picture.h"

namespace brevan {
namespace {

Primitive primitiveOf(Geometry geometry) { return {.width = 5.0, .geometry = std::move(geometry)}; }

// A sheet whose corner is the origin as seen, so that paper and drawing are easily compared.
void lieOnA4(Drawing& drawing, bool turned) {
  drawing.setParameters(turned ? surveyParameters() : Parameters());
  drawing.setSheet(isoSheet("A4", false));
}

TEST(Painting, TextInkFillsItsBoxAtEveryJustificationAngleAndOrientation) {
  for (const bool turned : {false, true}) {
    for (int justification = 1; justification <= 19; justification += justification == 9 ? 2 : 1) {
      Drawing drawing;
      lieOnA4(drawing, turned);
      Text text;
      text.at = turned ? Point{-150.0, -100.0} : Point{150.0, 100.0};
      text.text = "MllllllM\\NMyyyM";
      text.height = 100.0;
      text.font = justification % 3 == 0 ? "Courier New" : justification % 3 == 1 ? "Arial" : "Times New Roman";
      text.angle = justification % 2 == 0 ? 900.0 : 0.0;
      text.justification = justification;
      drawing.add(primitiveOf(text));
      const Box cell = textBounds(text, drawing.parameters());
      const Transform show = toSheet(*drawing.sheet(), drawing.parameters());
      Box box;
      box.add(show(cell.low));
      box.add(show(cell.high));
      const Box ink = Picture(drawing, 100).inkBox();
      EXPECT_TRUE(box.grownBy(0.3).holds(ink)) << justification << ' ' << turned;
      EXPECT_GT(ink.width(), 0.85 * box.width() - 1.0) << justification;
      EXPECT_GT(ink.height(), 0.80 * box.height() - 1.0) << justification;
    }
  }
}

TEST(Painting, WidthFactorStretchesTheText) {
  const auto inkWidth = [](double factor) {
    Drawing drawing;
    lieOnA4(drawing, false);
    Text text = {{20.0, 100.0}, "HHHHHHHH", "Arial", 60.0, 0.0, 1, 0, 1, factor};
    drawing.add(primitiveOf(text));
    return Picture(drawing, 127).inkBox().width();
  };
  EXPECT_NEAR(inkWidth(2.0), 2.0 * inkWidth(1.0), 1.0);
}

TEST(Painting, ArcsCoverTheirSideOnly) {
  for (const bool clockwise : {false, true}) {
    Drawing drawing;
    lieOnA4(drawing, false);
    drawing.add(primitiveOf(Arc{{140.0, 100.0}, {100.0, 100.0}, {100.0, 140.0}, clockwise}));
    drawing.add(primitiveOf(Arc{{130.0, 100.0}, {100.0, 100.0}, {130.0, 100.0}, clockwise}));
    const Picture picture(drawing);
    for (int tenth = 1; tenth < 40; ++tenth) {
      const Point towards = polar(10.0, tenth * kPi / 20.0);
      EXPECT_TRUE(picture.inked(Point{100.0, 100.0} + towards * 3.0)) << "the full circle, at " << tenth;
      if (tenth % 10 == 0) { continue; }
      EXPECT_EQ(picture.inked(Point{100.0, 100.0} + towards * 4.0), (tenth < 10) != clockwise) << tenth;
    }
  }
}

// The inks of dashes on a picture, 0.1 mm and more from their ends.
void expectInked(const Picture& picture, const DashPattern& dashes, double size, auto pointAt) {
  constexpr double kBlurred = 0.1;
  for (double along = 0.02; along < size; along += 0.05) {
    const double ink = inkAt(dashes, along);
    if (std::abs(ink) < kBlurred) { continue; }
    EXPECT_EQ(picture.inked(pointAt(along)), ink > 0.0) << along << " mm along";
  }
}

TEST(Painting, DashesMeasureMillimetresOnPaperWhateverTheWidth) {
  for (const int linetype : {2, 4, 11, 21}) {
    for (const double width : {2.5, 10.0}) {
      SCOPED_TRACE("line type " + std::to_string(linetype) + ", width " + std::to_string(width));
      Drawing drawing;
      lieOnA4(drawing, false);
      Primitive line = primitiveOf(Line{{20.0, 100.0}, {180.0, 100.0}});
      line.linetype = linetype;
      line.width = width;
      drawing.add(line);
      line.geometry = Arc{{90.0, 50.0}, {50.0, 50.0}, {90.0, 50.0}};
      drawing.add(line);
      const Picture picture(drawing);
      expectInked(picture, dashesAlong(linetype, 160.0), 160.0, [](double along) {
        return Point{20.0 + along, 100.0};
      });
      expectInked(picture, dashesAround(linetype, 80.0 * kPi), 80.0 * kPi, [](double along) {
        return Point{50.0, 50.0} + polar(40.0, along / 40.0);
      });
    }
  }
}

TEST(Painting, VisibleBoxPaintsTheSamePartFaster) {
  requirePainting();
  Drawing drawing;
  lieOnA4(drawing, false);
  for (int row = 0; row < 40; ++row) {
    for (int column = 0; column < 40; ++column) {
      const Point at = {column * 7.0, row * 5.0};
      drawing.add(primitiveOf(Line{at, at + Point{5.0, 3.0}}));
    }
  }
  const Transform toDevice = pageToDevice({*drawing.sheet(), 1.0, 0.0, {}}, drawing.parameters(), 4.0);
  const auto painted = [&](const PaintOptions& options, size_t& strokes) {
    QImage image(1188, 840, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    strokes = paint(painter, drawing, toDevice, options);
    return image;
  };
  size_t all = 0;
  size_t some = 0;
  PaintOptions part;
  part.visible = Box{{100.0, 50.0}, {150.0, 80.0}};
  const QImage whole = painted(PaintOptions(), all);
  const QImage window = painted(part, some);
  const QRect inside(QPoint(404, 840 - 316), QPoint(596, 840 - 204));
  EXPECT_EQ(whole.copy(inside), window.copy(inside));
  EXPECT_EQ(all, 1600U);
  EXPECT_LT(some, 100U);
}

TEST(Painting, NothingToSeeOfSomethingAndTooManyDotsAreErrors) {
  Drawing drawing;
  lieOnA4(drawing, false);
  EXPECT_THROW(pngBytes(drawing), HostFailure) << "an empty page";
  const PrimitiveId seen = drawing.add({.geometry = Line{{20.0, 200.0}, {180.0, 200.0}}});
  EXPECT_THROW(pngBytes(drawing, {.dotsAnInch = 0}), HostFailure);
  EXPECT_THROW(pngBytes(drawing, {.dotsAnInch = 4800}), HostFailure) << "more pixels than memory should hold";
  const int hidden = drawing.addLayer({"Hidden", false, false, 1});
  drawing.add({.layer = hidden, .geometry = Line{{20.0, 100.0}, {180.0, 100.0}}});
  EXPECT_GT(Picture(drawing, 72).inkBox().low.y, 190.0) << "hidden layers stay hidden";
  drawing.remove(seen);
  EXPECT_THROW(pngBytes(drawing), HostFailure) << "what is there is hidden";
  drawing.add(primitiveOf(Arrow{{20.0, 100.0}, {20.0, 100.0}}));
  EXPECT_THROW(pngBytes(drawing), HostFailure);
}

}  // namespace
}  // namespace brevan

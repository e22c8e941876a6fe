#include <QMessageBox>
#include <iterator>

#include "frame/host/number_text.h"
#include "tests/desktop/desktop_session.h"

namespace {

using brevan::Point;

class DiagramWindow : public DesktopSession {
 protected:
  static constexpr Point kCorners[] = {
      {42157.61, 2851599.42}, {42135.62, 2851592.69}, {42127.58, 2851618.99}, {42148.40, 2851629.54}};

  void drawErf() {
    window_->host().paths().settings->SetString("SG_DEFAULTS", "SG_DiaramFile", "SG Diagram.ini");
    brevan::Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(0);
    parameters.setOrientation(1);
    drawing().setParameters(parameters);
    for (size_t n = 0; n < std::size(kCorners); ++n) {
      drawing().add({.geometry = brevan::Line{kCorners[n], kCorners[(n + 1) % std::size(kCorners)]}});
    }
  }
  // The diagram that the recorded session makes of the same erf without a window.
  std::string replayedDiagram() {
    std::string text =
        "setting \"SG_DEFAULTS\" \"SG_DiaramFile\" \"SG Diagram.ini\"\nparameter unit 1000\nparameter scale 500\n"
        "parameter coordinateSystem 0\nparameter orientation 1\n";
    for (size_t n = 0; n < std::size(kCorners); ++n) {
      const Point to = kCorners[(n + 1) % std::size(kCorners)];
      text += numberText::format("draw line %.2f %.2f %.2f %.2f\n", kCorners[n].x, kCorners[n].y, to.x, to.y);
    }
    return replayed(text);
  }
  void whenAsked(const QString& start, const std::function<void()>& action) {
    when([this, start] { return !user().wantsPoint() && prompt().startsWith(start); }, action);
  }
  void whenAsked(const QString& start, bool blank) {
    whenAsked(start, [this, blank] {
      if (blank) { edit().clear(); }
      key(Qt::Key_Return);
    });
  }
  void traceErf() {
    for (size_t n = 0; n <= std::size(kCorners); ++n) {
      whenPrompted(
          n == 0 ? "Enter first corner" : "Enter next corner", [this, n, at = kCorners[n % std::size(kCorners)]] {
            EXPECT_EQ(window_->host().window().marks().size(), n == 0 ? 0 : n - 1) << "the sides picked are seen";
            EXPECT_EQ(window_->host().window().cursor().rubberBand(), n > 0);
            type(QString("%1,%2").arg(at.x, 0, 'f', 2).arg(at.y, 0, 'f', 2));
          });
      if (n < std::size(kCorners)) { whenAsked("Enter label", false); }
    }
  }
};

// Backspace on an empty line goes back to what was typed before; Escape asks whether to give up, and the sheet goes.
TEST_F(DiagramWindow, QuestionsAreLeftBackwardsAndADiagramGivenUp) {
  drawErf();
  const std::string traced = json();
  traceErf();
  whenAsked("Property", [this] {
    keys(QString(1100, 'm'));
    key(Qt::Key_Return);
    EXPECT_TRUE(prompt().startsWith("Property")) << "more letters than an answer takes";
    edit().selectAll();
    type("Erf 9");
  });
  whenAsked("Situation clause 1", [this] {
    key(Qt::Key_Backspace);
    EXPECT_TRUE(prompt().startsWith("Situation")) << "the offered text goes first";
    key(Qt::Key_Backspace);
  });
  whenAsked("Property", [this] {
    EXPECT_EQ(edit().text(), "Erf 9");
    EXPECT_EQ(window_->host().windowNames().size(), 2U);
    key(Qt::Key_Escape);
  });
  when([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; },
       [] {
         auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
         EXPECT_EQ(box->text(), "Give up this diagram?");
         press(*box, "Yes");
       });
  act([this] { window_->runCommand("SG_TracePolyArea"); });
  EXPECT_EQ(window_->host().windowNames(), std::vector<std::string>{"Drawing1"});
  EXPECT_EQ(json(), traced);
  EXPECT_EQ(replayedDiagram(), traced) << "in a script, too";
}

}  // namespace

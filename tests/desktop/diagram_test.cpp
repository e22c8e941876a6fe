#include "tests/desktop/desktop_session.h"
#include "tests/host/drawing/survey_parameters.h"

namespace {

using brevan::Point;

class DiagramWindow : public DesktopSession {
 protected:
  void whenAskedFor(const QString& what, const std::function<void()>& action) {
    when([this, what] { return !user().wantsPoint() && prompt().startsWith(what); }, action);
  }
  void traceErf() {
    drawing().setParameters(brevan::surveyParameters(1.0, 1.0, 0));
    const char* const corners[] = {"0,0", "20,0", "20,30", "0,0"};
    for (size_t n = 0; n < std::size(corners); ++n) {
      whenPrompted(n == 0 ? "Enter first corner" : "Enter next corner", [this, n, corner = corners[n]] {
        EXPECT_EQ(window_->host().window().marks().size(), n == 0 ? 0 : n - 1) << "the sides picked are seen";
        EXPECT_EQ(window_->host().window().cursor().rubberBand(), n > 0);
        type(corner);
      });
      if (n < 3) {
        whenAskedFor("Enter label", [this] { key(Qt::Key_Return); });
      }
    }
  }
};

// Backspace on an empty line goes back to what was typed before; Escape asks whether to give up, and the sheet goes.
TEST_F(DiagramWindow, QuestionsAreLeftBackwardsAndADiagramGivenUp) {
  traceErf();
  whenAskedFor("Property", [this] {
    keys(QString(1100, 'm'));
    key(Qt::Key_Return);
    EXPECT_TRUE(prompt().startsWith("Property")) << "more letters than an answer takes";
    edit().selectAll();
    type("Erf 9");
  });
  whenAskedFor("Situation clause 1", [this] {
    key(Qt::Key_Backspace);
    EXPECT_TRUE(prompt().startsWith("Situation")) << "the offered text goes first";
    key(Qt::Key_Backspace);
  });
  whenAskedFor("Property", [this] {
    EXPECT_EQ(edit().text(), "Erf 9");
    EXPECT_EQ(window_->host().windowNames().size(), 2U);
    key(Qt::Key_Escape);
  });
  whenAsked(QMessageBox::Yes, "Give up this diagram?");
  act([this] { window_->runCommand("SG_TracePolyArea"); });
  EXPECT_EQ(window_->host().windowNames(), std::vector<std::string>{"Drawing1"});
  EXPECT_EQ(drawing().count(), 0U);
  EXPECT_EQ(replayed("parameter coordinateSystem 0\n"), json()) << "in a script, too";
}

}  // namespace

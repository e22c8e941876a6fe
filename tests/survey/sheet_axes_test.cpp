#include "frame/drafting/sheet_axes.h"

#include <gtest/gtest.h>

#include "host/drawing/parameters.h"
#include "host/drawing/sheet.h"
#include "survey/sheet/survey_table.h"
#include "tests/mech/command_session.h"

namespace ardenix::survey {

namespace {

class SheetAxes : public CommandSession {};

// What drawers take for right and up is seen so, by the host's own way of showing a drawing on its paper.
TEST_F(SheetAxes, RightAndUpAreSeenSoInEverySystemAndOrientation) {
  for (const int system : {0, 1}) {
    for (const int orientation : {0, 1}) {
      SCOPED_TRACE(testing::Message() << "system " << system << ", orientation " << orientation);
      play("");
      brevan::Parameters parameters;
      parameters.setCoordinateSystem(system);
      parameters.setOrientation(orientation);
      drawing().setParameters(parameters);
      DrawingParms parms;
      host().window().gsGetDrawingParms(parms);
      const brevan::Transform onPaper = brevan::toSheet(brevan::Sheet(), parameters);
      const brevan::Point origin = onPaper({0, 0});
      const brevan::Point upRight = onPaper({paperSign(parms) * 10.0, paperSign(parms) * 10.0});
      EXPECT_TRUE(upRight.x > origin.x && upRight.y > origin.y);
      SurveyTable table(1, 2, 10.0, 10.0, {}, &host().window(), 0);
      table.setBorders(0, 1, {.left = true});
      table.draw();
      table.placeText(10.0, 10.0, "right and down", {});
      table.placeSymbol(10.0, 10.0, "TRIG");
      table.placeText(10.0, 10.0, "", {});
      const brevan::Point text = onPaper(shapes<brevan::Text>().at(0).at);
      EXPECT_EQ(shapes<brevan::Text>().size(), 1U);
      EXPECT_EQ(log_.of("macro").end()[-2],
                paperSign(parms) > 0 ? "#ADDSYM TRIG [10.000,-10.000] 1 0" : "#ADDSYM TRIG [-10.000,10.000] 1 0");
      const brevan::Line left = shapes<brevan::Line>().at(0);  // of the second cell
      EXPECT_TRUE(onPaper(left.a).x > origin.x && onPaper(left.b).y < origin.y);
      EXPECT_TRUE(text.x > origin.x && text.y < origin.y) << "a table runs the same way";
    }
  }
}

// The coordinate system is parameter 7, whatever a host keeps in its neighbour.
TEST_F(SheetAxes, TheSystemIsTheSeventhParameter) {
  for (const double system : {0.0, 1.0}) {
    DrawingParms parms;
    parms.p[7] = system;
    parms.p[6] = 1.0 - system;
    parms.p[10] = 1.0;
    EXPECT_EQ(paperSign(parms), system == 0.0 ? -1.0 : 1.0);
  }
}

}  // namespace

}  // namespace ardenix::survey

#include "survey/job_settings.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/sectional_plan_job.h"
#include "tests/failure.h"
#include "tests/mech/command_session.h"

namespace ardenix::survey {

namespace {

using Texts = std::vector<std::string>;

class SurveyJob : public CommandSession {
 protected:
  // A metre drawing at 1:500 in the survey system.
  CCadWindow& surveyView() {
    play("");
    DrawingParms parms;
    CCadWindow& view = host().window();
    view.gsGetDrawingParms(parms);
    parms.p[1] = 500.0;
    parms.p[3] = 1e8;
    parms.p[6] = parms.p[7] = 0.0;
    view.gsSetDrawingParms(parms);
    return view;
  }
  void remember(const std::string& path) { settings().SetString("SG_DEFAULTS", "SG_DiaramFile", path); }
};

TEST_F(SurveyJob, SeparatorsAreReadByTheirLetter) {
  CCadWindow& view = surveyView();
  const std::pair<std::string, std::string> letters[] = {
      {"C", ","}, {"D", "\xB0"}, {"M", "-"}, {"N", ""}, {"S", " "}, {"P", "."}, {"", "."}, {",", "."}, {"Comma", ","}};
  for (const auto& [stored, separator] : letters) {
    const std::string path =
        write("job.ini", numberText::format("[DEFAULTS]\nDecimal=%s\nBearing=%s\n", stored, stored));
    const JobSettings job(path, SurveyMode::kDiagram, view);
    EXPECT_EQ(job.numbers().decimal, separator) << stored;
    EXPECT_EQ(job.numbers().bearing, separator) << stored;
    EXPECT_EQ(job.numbers().thousands, ".") << "a missing letter";
  }
}

TEST_F(SurveyJob, MissingOptionsAreNotThoseThatDialogsOffer) {
  JobSettings job(write("job.ini", "[DEFAULTS]\nLayer=\n"), SurveyMode::kDiagram, surveyView());
  EXPECT_FALSE(job.numbers().roundBearing || job.options().useOffset || job.options().delLines);
  EXPECT_EQ(job.options().polySnipFactor, 2.0);
  EXPECT_EQ(job.options().lineType, 5);
  EXPECT_EQ(job.options().diagramLayer, "SG_DIAGRAM");
  use(job.textRow("TEXT", "Missing"), job.textStyle());
  EXPECT_TRUE(job.textStyle().pen == 8 && job.textStyle().height == 30.0);
}

TEST_F(SurveyJob, AnOptionOutsideItsRangeIsNamed) {
  CCadWindow& view = surveyView();
  const std::string bad[] = {"PolySnipFactor=0.5", "CornerDiam=-1", "LineType=33", "DimSetting=3", "Offset=1e9"};
  for (const std::string& line : bad) {
    const std::string path = write("job.ini", "[DEFAULTS]\n" + line + "\n");
    const std::string told = failureOf([&] { JobSettings(path, SurveyMode::kDiagram, view); });
    EXPECT_NE(told.find(path), std::string::npos) << line;
    EXPECT_NE(told.find(line.substr(0, line.find('='))), std::string::npos) << told;
  }
}

TEST_F(SurveyJob, ACommandBeginsOnlyWithAFileAndASurveyDrawing) {
  CCadWindow& view = surveyView();
  std::unique_ptr<JobSettings> job;
  EXPECT_FALSE(beginJob(job, SurveyMode::kDiagram, view));
  EXPECT_FALSE(beginJob(job, SurveyMode::kGeneralPlan, view));
  EXPECT_FALSE(beginJob(job, SurveyMode::kSectionalPlan, view));
  EXPECT_EQ(loadJob("gone.ini", SurveyMode::kDiagram, view), nullptr);
  EXPECT_EQ(log_.of("message"),
            (Texts{"Please Load a SG Diagram *.ini file in the Setup dialog.",
                   "Please Load a General Plan *.ini file in the Setup dialog.",
                   "Please Load a SG Sectional *.ini file in the Setup dialog.", "gone.ini does not exist"}));
  remember(write("job.ini", ""));
  EXPECT_TRUE(beginJob(job, SurveyMode::kDiagram, view));
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  parms.p[6] = parms.p[7] = 1.0;
  view.gsSetDrawingParms(parms);
  EXPECT_FALSE(beginJob(job, SurveyMode::kDiagram, view));
  EXPECT_EQ(job, nullptr);
  EXPECT_EQ(log_.of("message").back(),
            "Incompatible coordinate system|The current coordinate system is set to Cartesian. Continuing will "
            "produce\nunexpected results. Change to the Survey coordinate system in\nDrawing Settings under the "
            "Settings menu.");
}

TEST_F(SurveyJob, AFileIsFoundHoweverDeepItLies) {
  CCadWindow& view = surveyView();
  const std::string folder = std::string(120, 'a') + '/' + std::string(120, 'b') + '/' + std::string(120, 'c');
  const std::string path = write(folder + "/job.ini", "[DEFAULTS]\nTitleblock=title.drg\n");
  remember(path);
  write(folder + "/title.drg", "");
  std::unique_ptr<JobSettings> job;
  ASSERT_TRUE(beginJob(job, SurveyMode::kDiagram, view));
  EXPECT_NE(coreFileExist(job->titleBlock()), 0);
}

TEST_F(SurveyJob, FloorNamesEndAtTheFirstMissing) {
  CCadWindow& view = surveyView();
  settings().SetString("SG_DEFAULTS", "SG_SectionalFile",
                       write("job.ini", "[FLOORNAMES]\nFloorName1=Ground, front\nFloorName2=First\nFloorName4=Roof\n"));
  const Services services;
  const SectionalPlanJob job(&view, services);
  EXPECT_EQ(job.floorNames(), (Texts{"Ground, front", "First"}));
}

}  // namespace

}  // namespace ardenix::survey

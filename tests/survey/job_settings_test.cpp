#include "survey/job_settings.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/sectional/sectional_plan_job.h"
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
  EXPECT_EQ(job.textRow("TEXT", "Missing").size, 0) << "neither asked nor drawn";
}

// A row that nothing can be drawn with is refused with the file, the key and the field; one of size 0 is not drawn.
TEST_F(SurveyJob, ARowThatCannotBeDrawnIsNamed) {
  CCadWindow& view = surveyView();
  const struct {
    std::string section, line, field;
  } bad[] = {{"SG_QUESTIONS", "PLS=x,0,0,257,30,2,Arial,0", "Pen"},
             {"SG_QUESTIONS", "Note=x,0,0,9999,30,2,Arial,0", "Pen"},
             {"TEXT", "Area=x,0,0,1,-5,2,Arial,0", "Size"},
             {"TEXT", "AddText1=x,0,0,1,30,10,Arial,0", "Lorg"},
             {"TEXT", "Data=x,1e9,0,1,30,1,Arial,0", "Hor Coord (mm)"},
             {"LINES", "Line1=0,0,1,nan,1,1", "End Ver Coord (mm)"},
             {"LINES", "Line1=0,0,1,1,1,1000", "LT"},
             {"DATA", "Figure1=,1,2,3,4,x,6\nFigure2=,1,1,1,1,1,1", "Hor Coord (mm)"},
             {"DATA", "Figure1=,1,2,3,4,5,6\nFigure2=,1,1,0,1,1,1", "Lorg"}};
  for (const auto& [section, line, field] : bad) {
    const std::string path = write("job.ini", "[" + section + "]\n" + line + "\n");
    const std::string told = failureOf([&] { JobSettings(path, SurveyMode::kDiagram, view); });
    for (const std::string& part : {path, '"' + field + '"', '"' + section + '"'}) {
      EXPECT_NE(told.find(part), std::string::npos) << line << ": " << told;
    }
  }
  const std::string good[] = {"[TEXT]\nArea=x,0,0,999,0,77,Arial,0\n", "[TEXT]\nArea=x,,,,,,,\n",
                              "[LINES]\nLine1=0,9999,0,9999,,\n", "[TEXT]\nArea=x,0,9999,256,1,19,Arial,0\n"};
  for (const std::string& text : good) {
    EXPECT_EQ(failureOf([&] { JobSettings(write("job.ini", text), SurveyMode::kDiagram, view); }), "") << text;
  }
}

TEST_F(SurveyJob, ADamagedControlPointIsNamed) {
  CCadWindow& view = surveyView();
  for (const char* record : {"0,TSM 14,,abc,2200.50", "0,TSM 14", "0,TSM 14,,1100,25,2200,50", "x,TSM 14,,1,2",
                             "TSM 14", "0,TSM 14,,1100.25,", "0,TSM 14,,nan,5"}) {
    const std::string path = write("job.ini", "[TRIGTSM]\nCtrlPnt2=" + std::string(record) + "\n");
    const std::string told = failureOf([&] { JobSettings(path, SurveyMode::kDiagram, view); });
    for (const std::string& part : {path, std::string("\"CtrlPnt2\""), std::string(record)}) {
      EXPECT_NE(told.find(part), std::string::npos) << record << ": " << told;
    }
  }
  for (const char* record : {"", ",,,,", "0,,,0.00,0.00", "1,KLIPKOP,112,-1300.00,2851000.00", "0, TSM 14 ,, 1 , 2 "}) {
    const std::string path = write("job.ini", "[TRIGTSM]\nCtrlPnt2=" + std::string(record) + "\n");
    EXPECT_EQ(failureOf([&] { JobSettings(path, SurveyMode::kDiagram, view); }), "") << record;
  }
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

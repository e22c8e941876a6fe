#include "survey/job_settings.h"

#include <cmath>
#include <cstddef>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/file_paths.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/control_point.h"
#include "survey/settings_keys.h"
#include "survey/settings_sheet.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kNoFile = "<None>";
constexpr size_t kPathBuffer = 4097;  // the longest path that the system opens, and a NUL
constexpr double kNoUnit = 1e-12;
constexpr double kUnitOfParms = 100000.0;
constexpr int kUnderlined = 4;

TextStyle textStyleOf(CCadWindow& view) {
  view.gsExecuteMacro(macroText::enquire("TEXTDEFAULTS", "T3 P2 P3 P4 P5 F$ P7 P8 P9 Q1 Q2 Q3 Q4 Q5 Q6 Q7"));
  return {.height = numberVariable(view, "T3"),
          .justification = wholeVariable(view, "P2"),
          .angle = numberVariable(view, "P3"),
          .style = numberVariable(view, "P4"),
          .width = numberVariable(view, "P5"),
          .font = textVariable(view, "F$"),
          .pen = wholeVariable(view, "P7"),
          .eighth = numberVariable(view, "P8"),
          .ninth = numberVariable(view, "Q7")};
}

AreaUnits areaUnitsOf(CCadWindow& view) {
  view.gsExecuteMacro(macroText::enquire("AREAUNITS", "AU U$ zzz"));
  return {.code = wholeVariable(view, "AU"), .name = textVariable(view, "U$")};
}

double scaleOf(CCadWindow& view) {
  view.gsExecuteMacro(macroText::enquire("SCALE", "S", '\t'));
  return numberVariable(view, "S");
}

}  // namespace

// ---- Text style -------------------------------------------------------------------------------------------------

void use(const TextRow& row, TextStyle& style) {
  style.height = row.size;
  style.justification = row.justification;
  style.angle = 0.0;
  style.style = row.underlined ? kUnderlined : 0;
  style.font = row.font;
  style.pen = row.pen;
}

// ---- Job settings -----------------------------------------------------------------------------------------------

JobSettings::JobSettings(std::string_view path, SurveyMode mode, CCadWindow& view)
    : mode_(mode), file_(path), options_(readJobOptions(file_)) {
  checkSheets(file_, mode);
  if (mode != SurveyMode::kSectionalPlan) { checkControlPoints(file_); }
  symbolFile_ = namedFile(kOptionSection, "Symbol");
  titleBlock_ = namedFile(kOptionSection, "Titleblock");
  if (mode == SurveyMode::kSectionalPlan) {
    const auto rows = templateRows(mode);
    for (size_t i = 0; i < templates_.size(); ++i) { templates_[i] = namedFile(kTemplateSection, rows[i].key); }
  }
  readView(view);
}

std::string JobSettings::namedFile(std::string_view section, std::string_view key) const {
  return pathNamedIn(file_.FileName(), file_.ReadString(section, key, ""));
}

void JobSettings::readView(CCadWindow& view) {
  readParms(view);
  scale_ = scaleOf(view);
  layer_ = view.gsGetCurrentLayer();
  textStyle_ = textStyleOf(view);
  areaUnits_ = areaUnitsOf(view);
}

void JobSettings::readParms(CCadWindow& view) {
  view.gsGetDrawingParms(parms_);
  unitFactor_ = std::fabs(parms_.p[3]) < kNoUnit ? 1.0 : parms_.p[3] / kUnitOfParms;
}

void JobSettings::readScale(CCadWindow& view) {
  readParms(view);
  scale_ = scaleOf(view);
}

std::string JobSettings::value(std::string_view section, std::string_view key) const {
  return file_.ReadString(section, key, "");
}

TextRow JobSettings::textRow(std::string_view section, std::string_view key) const {
  const std::optional<std::string> stored = storedValue(file_, section, key);
  TextRow row = textRowOf(stored.value_or("").empty() ? kDefaultTextRow : std::string_view(*stored));
  if (!stored) { row.size = 0; }  // the setup shows the default, a sheet nothing
  return row;
}

// ---- Beginning a command ----------------------------------------------------------------------------------------

std::string rememberedFile(SurveyMode mode) {
  std::array<char, kPathBuffer> path{};
  GetAllPaths()->settings->GetString(kHostSection, modeRow(mode).settingsKey, kNoFile, path.data(),
                                     static_cast<int>(path.size()));
  return path.data();
}

void rememberFile(SurveyMode mode, std::string_view path) {
  GetAllPaths()->settings->SetString(kHostSection, modeRow(mode).settingsKey, path);
}

std::unique_ptr<JobSettings> loadJob(std::string_view path, SurveyMode mode, CCadWindow& view) {
  if (coreFileExist(path) == 0) {
    ErrorMessage(numberText::format("%s does not exist", path), &view);
    return nullptr;
  }
  return std::make_unique<JobSettings>(path, mode, view);
}

bool beginJob(std::unique_ptr<JobSettings>& job, SurveyMode mode, CCadWindow& view) {
  view.gsEndFunc();
  job.reset();
  const std::string path = rememberedFile(mode);
  if (coreFileExist(path) == 0) {
    InfoMessage(modeRow(mode).fileMissing, &view);
    return false;
  }
  job = loadJob(path, mode, view);
  if (!job || !job->cartesian()) { return job != nullptr; }
  job.reset();  // the next command looks at its drawing again
  coreMessageBox(&view,
                 "The current coordinate system is set to Cartesian. Continuing will produce\nunexpected results. "
                 "Change to the Survey coordinate system in\nDrawing Settings under the Settings menu.",
                 "Incompatible coordinate system", BoxIcon::kWarning, BoxButtons::kOk);
  return false;
}

}  // namespace ardenix::survey

#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "frame/drafting/pen.h"
#include "frame/host/cad_window.h"
#include "frame/host/ini.h"
#include "survey/job_options.h"
#include "survey/survey_mode.h"
#include "survey/text_row.h"

namespace ardenix::survey {

// Takes over what a text row says; its style is otherwise as the view's defaults gave it.
void use(const TextRow& row, TextStyle& style);

enum AreaUnitCode : int { kSquareMillimetres = 6, kSquareMetres = 8 };

struct AreaUnits {
  int code = 0;
  std::string name;
};

// Everything that a drawing command reads of its settings file, and of the view it starts in. Made for one
// command.
class JobSettings {
 public:
  // Throws HostFailure for a file that cannot be read, or holds an option, a row or a control point that nothing can be
  // drawn with.
  JobSettings(std::string_view path, SurveyMode mode, CCadWindow& view);

  // ---- Of the settings file -----------------------------------------------------------------------------------
  [[nodiscard]] SurveyMode mode() const { return mode_; }
  [[nodiscard]] const TINIFile& file() const { return file_; }
  [[nodiscard]] const NumberStyle& numbers() const { return options_; }
  [[nodiscard]] const JobOptions& options() const { return options_; }
  [[nodiscard]] const std::string& symbolFile() const { return symbolFile_; }
  [[nodiscard]] const std::string& titleBlock() const { return titleBlock_; }
  // Sheet 1, block plan, floor plans, participation quotas; of sectional plans only.
  [[nodiscard]] const std::array<std::string, 4>& templates() const { return templates_; }

  // A text row; the default row where the key is empty, one of size 0 where it is missing.
  [[nodiscard]] TextRow textRow(std::string_view section, std::string_view key) const;
  // The value as it stands, "" where the key is missing.
  [[nodiscard]] std::string value(std::string_view section, std::string_view key) const;

  // ---- Of the view ------------------------------------------------------------------------------------------------
  [[nodiscard]] double scale() const { return scale_; }  // the denominator
  [[nodiscard]] int layer() const { return layer_; }
  void setLayer(int layer) { layer_ = layer; }
  [[nodiscard]] const DrawingParms& parms() const { return parms_; }
  [[nodiscard]] bool cartesian() const { return parms_.p[7] == 1.0; }
  [[nodiscard]] double unitFactor() const { return unitFactor_; }  // millimetres per drawing unit
  // Drawing units of a millimetre on paper.
  [[nodiscard]] double paperFactor() const { return scale_ / unitFactor_; }
  [[nodiscard]] TextStyle& textStyle() { return textStyle_; }
  [[nodiscard]] const TextStyle& textStyle() const { return textStyle_; }
  [[nodiscard]] const AreaUnits& areaUnits() const { return areaUnits_; }
  // Takes drawing parameters and unit factor of another view, which was given those of the first.
  void readParms(CCadWindow& view);

 private:
  void readView(CCadWindow& view);
  [[nodiscard]] std::string namedFile(std::string_view section, std::string_view key) const;

  SurveyMode mode_;
  TINIFile file_;
  JobOptions options_;
  std::string symbolFile_;
  std::string titleBlock_;
  std::array<std::string, 4> templates_;
  double scale_ = 1.0;
  int layer_ = 0;
  DrawingParms parms_;
  double unitFactor_ = 1.0;
  TextStyle textStyle_;
  AreaUnits areaUnits_;
};

// The path of a mode's settings file as the host remembers it; "<None>" where it remembers none.
std::string rememberedFile(SurveyMode mode);
void rememberFile(SurveyMode mode, std::string_view path);

// The job of a settings file; null, with a message, for a file that does not exist.
std::unique_ptr<JobSettings> loadJob(std::string_view path, SurveyMode mode, CCadWindow& view);

// How every drawing command begins: ends the host function in progress and replaces the job by a new one of the
// mode's settings file. False, with a message and no job, where that file is missing or the drawing is not a
// survey drawing.
bool beginJob(std::unique_ptr<JobSettings>& job, SurveyMode mode, CCadWindow& view);

}  // namespace ardenix::survey

#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr KeyRow kSheetFiles[] = {{"Symbol", "Symbol file drg"}, {"Titleblock", "Title block drg"}};
constexpr KeyRow kSectionalFiles[] = {{"Sheet1", "Sheet 1 drg"},
                                      {"BpSheet", "Block Plan drg"},
                                      {"FpSheet", "Floor Plan drg"},
                                      {"PqSheet", "PQ Sheet drg"}};

constexpr int kNoLimit = 10'000;

constexpr KeyRow kDiagramQuestions[] = {
    {"PropDescr", "Designation clause", "Property designation", 1, true},
    {"Situation1", "Situation clause 1", "Situation clause 1", 1, true},
    {"Situation2", "Situation clause 2", "Situation clause 2", 1, true},
    {"District", "Admin. District", "Administrative district", 1, true},
    {"Province", "Province", "Province", 1, true},
    {"SurvDate", "Date of survey", "Survey date", 1, true},
    {"PLS", "PLS name", "PLS name", 1, true},
    {"SGNr", "Parent diagram", "Parent diagram number", 1, true},
    {"Transfer", "Parent transfer", "Parent transfer number", 1, true},
    {"FileNr", "SG File number", "SG. File No.", 1, true},
    {"CompNr", "Compilation number", "Compilation number (Blank to continue)", 4},
    {"GenPlan", "Gen. Plan number", "Gen. Plan number"},
    {"ErfNr", "Bottom right text", "Bottom right corner text"},
    {"LOSys", "Central meridian", "Central meridian value"},
    {"YConst", "Y Constant", "Y Constant"},
    {"XConst", "X Constant", "X Constant"},
    {"BDescr", "Beacon description", "Beacon description (Blank to continue)", kNoLimit},
    {"ServDet", "Servitude note", "Servitude note (Blank to continue)", kNoLimit},
    {"Note", "Additional note", "Additional note (Blank to continue)", kNoLimit},
};

constexpr KeyRow kDiagramTexts[] = {
    {"Beacon", "Beacon heading"},  {"Serv", "Servitude heading"}, {"Figure", "Figure prefix"},
    {"Area", "Area postfix"},      {"Notes", "Notes heading"},    {"Scale", "Scale prefix"},
    {kDataTableKey, "Data table"},
};

constexpr KeyRow kHeadingQuestions[] = {
    {"GenPlanNr", "Plan Number", "Enter the General Plan number"},
    {"Text1", "Text 1", "Text line 1"},
    {"Text2", "Text 2", "Text line 2"},
    {"Stand", "Text 3", "Text line 3"},
    {"Including", "Text 4", "Text line 4"},
    {"Text3", "Text 5", "Text line 5"},
    {"StreetName", "Situation clause", "Enter the Situation clause"},
    {"Area", "Admin. District", "Enter the Administrative District"},
    {"District", "Province", "Enter the Province name"},
    {"Scale", "Scale prefix"},
};

constexpr KeyRow kFrameQuestions[] = {{"SGNr", "S.G. number", "Enter the S.G. number"},
                                      {"FileNr", "File number", "Enter the File number"},
                                      {"SRNr", "S.R. number", "Enter the S.R.E. number"},
                                      {"Comp", "Comp. number", "Enter the Compilation number"}};

constexpr KeyRow kSheet1Questions[] = {
    {"TotSheets", "Total sheets"},        {"SchemeName", "Name of Scheme"},
    {"DescrLine1", "Description Line 1"}, {"DescrLine2", "Description Line 2"},
    {"DescrLine3", "Description Line 3"}, {"DescrLine4", "Description Line 4"},
    {"DescrLine5", "Description Line 5"}, {"DiagramNo", "Diagram No."},
    {"LocalAuth", "Local Authority"},     {"Buildings", "Description of Bldgs"},
    {"Encroach", "Encroachments"},        {"Eua", "Exclusive Use Areas"},
    {"SreNo", "Survey Records No."},      {"CompNo", "Comp. No."},
};

constexpr KeyRow kPlanTexts[] = {
    {"Sheet", "Sheet number"},
    {"SchemeName", "Name of scheme"},
    {"TitleLine1", "Drawing title line 1"},
    {"TitleLine2", "Drawing title line 2"},
    {"TitleLine3", "Drawing title line 3"},
    {"Scale", "Scale prefix"},
    {"BpTable", "Block Plan table"},
    {"PqLists", "PQ listings"},
    {"Notes", "Notes"},
};

constexpr TextSheet kDiagramSheets[] = {{"Questions", "SG_QUESTIONS", kDiagramQuestions},
                                        {"Text", kDiagramTextSection, kDiagramTexts}};
constexpr TextSheet kGeneralPlanSheets[] = {{"Heading Questions", "GP_QUESTIONS", kHeadingQuestions},
                                            {"Frame Questions", "GP_QUESTIONS", kFrameQuestions}};
constexpr TextSheet kSectionalSheets[] = {{"Sheet 1", "QUESTIONS", kSheet1Questions}, {"Plans", "PLANS", kPlanTexts}};

constexpr std::string_view kDataColumns[] = {"Boundary name", "Distance",     "Bearing",
                                             "Beacon name",   "Y coordinate", "X coordinate"};

constexpr KeyRow kTables[] = {{"Figure", "Figure"},
                              {"Stands", "Area"},
                              {"Witness", "Reference Marks"},
                              {"Trig", "Trig Beacons/ TSM's"},
                              {"Block", "Block Corners"}};

constexpr KeyRow kExtents[] = {{"BP", "Block Plan"}, {"FP", "Floor plans"}, {"PQ", "PQ Sheet"}};

}  // namespace

std::optional<std::string> storedValue(const TINIFile& file, std::string_view section, std::string_view key) {
  constexpr std::string_view kMissing = "\x01";  // no value of a text file
  std::string value = file.ReadString(section, key, kMissing);
  if (value == kMissing) { return std::nullopt; }
  return value;
}

std::string_view templateSection(SurveyMode mode) {
  return mode == SurveyMode::kSectionalPlan ? kTemplateSection : "DEFAULTS";
}

std::span<const KeyRow> templateRows(SurveyMode mode) {
  if (mode == SurveyMode::kSectionalPlan) { return kSectionalFiles; }
  return kSheetFiles;
}

std::span<const TextSheet> textSheets(SurveyMode mode) {
  switch (mode) {
    case SurveyMode::kDiagram: return kDiagramSheets;
    case SurveyMode::kGeneralPlan: return kGeneralPlanSheets;
    case SurveyMode::kSectionalPlan: return kSectionalSheets;
  }
  return {};
}

std::span<const std::string_view> dataColumns() { return kDataColumns; }
std::span<const KeyRow> tableRows() { return kTables; }
std::span<const KeyRow> extentRows() { return kExtents; }

}  // namespace ardenix::survey

#include <optional>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/control_point.h"
#include "survey/label_sequences.h"
#include "survey/plan/corner_marker.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/plan_tables.h"
#include "survey/sheet/sheet_window.h"

// The tables of points that the user places one after another.
namespace ardenix::survey {

namespace {

struct PointKind {
  int number;  // of its table
  std::string_view heading;
  std::string_view prompt;
  std::string_view firstLabel;
  std::string (*nextLabel)(std::string_view label);
  std::string_view symbol;  // empty: a cleared circle
  std::string_view style;
  std::string_view otherStyle{};
};

constexpr std::string_view kTownMarks = "TOWN SURVEY MARKS";
constexpr double kSymbolSize = 2.4;  // millimetres on paper, of the symbols that ship

constexpr PointKind kBlockCorners{
    0, "BLOCK CORNERS", "Indicate Block corner (Space bar to exit)", "A0", nextPrefixAndNumber, "", "Block"};
constexpr PointKind kReferenceMarks{1,        "REFERENCE MARKS",     "Position Reference marks (Space bar to exit)",
                                    "RM0",    nextDigitsThenLetters, "WITNESS",
                                    "Witness"};
constexpr PointKind kBeacons{2,     "TRIGONOMETRICAL BEACONS", "Position Trig beacons (Space bar to exit)",
                             "T0",  nextDigitsThenLetters,     "TRIG",
                             "Trig"};
constexpr PointKind kTownSurveyMarks{3,
                                     kTownMarks,
                                     "Position Town survey marks (Space bar to exit)",
                                     "T0",
                                     nextDigitsThenLetters,
                                     "TSURVEY",
                                     "TownSurvey",
                                     "Trig"};

// ---- Points -----------------------------------------------------------------------------------------------------

std::optional<std::string> askLabel(CCadWindow& view, std::string_view offered) {
  constexpr std::string_view kLabel = "LBL1$";
  view.gsSetMacStrVar(kLabel, offered);
  view.gsExecuteMacro(macroText::plainEnter("Enter number", kLabel, "\t"));
  if (view.gsEscapePressed() != 0) { return std::nullopt; }
  return textVariable(view, kLabel);
}

void placeSymbol(CCadWindow& view, std::string_view symbol, Point at) {
  view.gsSetMacStrVar("SYM$", symbol);
  view.gsExecuteMacro(macroText::addNamedSymbol(at));
  view.gsExecuteMacro(macroText::kUnnamedPattern);
}

class PointTable {
 public:
  PointTable(SheetTool& tool, const JobSettings& job, const PointKind& kind, TableStyle style, Point origin)
      : view_(tool.view()),
        job_(job),
        kind_(kind),
        corners_(view_, job, kind.symbol.empty() ? job.options().blockDiam : kSymbolSize),
        table_(view_, pointTableForm(kind.number), std::move(style), origin, job.paperFactor()),
        heading_(kind.heading) {}

  // Adds the control points of the settings file; false where the user goes no further without them.
  bool listControlPoints();
  void placePoints();
  void draw() {
    constexpr double kHeadingAcross = 12.167;
    constexpr double kHeadingDown = 1.5;
    table_.addCaption(kHeadingAcross, kHeadingDown, heading_);
    table_.draw();
  }

 private:
  void place(Point at, const std::string& label);
  void addRow(std::string label, Point at) {
    table_.addRow({std::move(label), coordinateText(job_, at.x), coordinateText(job_, at.y)});
  }

  CCadWindow& view_;
  const JobSettings& job_;
  const PointKind& kind_;
  CornerMarker corners_;
  RuledTable table_;
  std::string_view heading_;
};

void PointTable::place(Point at, const std::string& label) {
  if (kind_.symbol.empty()) {
    corners_.drawCircle(at);
  } else {
    placeSymbol(view_, kind_.symbol, at);
  }
  corners_.drawLabel(at, label);
  addRow(label, at);
}

void PointTable::placePoints() {
  std::string offered(kind_.firstLabel);
  Point at;
  while (view_.gsGetPointFromUser(kind_.prompt, at.x, at.y) == 0) {
    const auto label = askLabel(view_, offered);
    if (!label) { return; }
    place(at, *label);
    offered = kind_.nextLabel(*label);
  }
}

// ---- Control points ---------------------------------------------------------------------------------------------

std::string nameOf(const ControlPoint& point) {
  const bool numbered = point.category == ControlCategory::kTrigonometricalBeacon && !point.number.empty();
  return numbered ? point.name + " " + point.number : point.name;
}

bool isUnset(const ControlPoint& point) { return point.y + point.x == 0.0; }

bool PointTable::listControlPoints() {
  const ControlPoint points[] = {controlPointOf(job_.value(kControlSection, kControlKeys[0])),
                                 controlPointOf(job_.value(kControlSection, kControlKeys[1]))};
  if (isUnset(points[0]) &&
      coreMessageBox(&view_,
                     "Control points have not been set.\nThis is done in the setup dialog.\nContinue with default "
                     "values?",
                     "Unitialized control points", BoxIcon::kQuestion, BoxButtons::kYesNo) != BoxAnswer::kYes) {
    return false;
  }
  bool townMarks = true;
  for (const ControlPoint& point : points) {
    townMarks = townMarks && point.category == ControlCategory::kTownSurveyMark;
    const bool empty = point.name.empty() && point.y == 0.0 && point.x == 0.0;
    if (!empty) { addRow(nameOf(point), {point.y, point.x}); }
  }
  if (townMarks) { heading_ = kTownMarks; }
  return true;
}

// ---- The commands -----------------------------------------------------------------------------------------------

void makePointTable(SheetTool& tool, const PointKind& kind) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  TableStyle style = tableStyleOf(*job, view, kind.style, kind.otherStyle);
  const CornerMarker corners(view, *job, kind.symbol.empty() ? job->options().blockDiam : 0.0);
  if (!corners.mayDraw() || !mayDrawTable(view, style)) { return; }
  const auto origin = askHeadingPlace(view);
  if (!origin) { return; }
  if (!kind.symbol.empty()) { loadSheetSymbols(*job, view); }
  PointTable table(tool, *job, kind, std::move(style), *origin);
  if (&kind == &kBeacons && !table.listControlPoints()) { return; }
  table.placePoints();
  table.draw();
}

}  // namespace

void makeBlockTable(SheetTool& tool) { makePointTable(tool, kBlockCorners); }
void makeReferenceMarkTable(SheetTool& tool) { makePointTable(tool, kReferenceMarks); }
void makeBeaconTable(SheetTool& tool) { makePointTable(tool, kBeacons); }
void makeTownMarkTable(SheetTool& tool) { makePointTable(tool, kTownSurveyMarks); }

}  // namespace ardenix::survey

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "survey/label_sequences.h"
#include "survey/number_formats.h"
#include "survey/plan/closure_report.h"
#include "survey/plan/erf_stroke.h"
#include "survey/plan/erf_texts.h"
#include "survey/plan/numbering_settings.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/plan_tables.h"
#include "survey/text_row.h"

// Numbers of erven, each at a point inside, and the table of their areas.
namespace ardenix::survey {

namespace {

// ---- Direction --------------------------------------------------------------------------------------------------

enum class Direction { kHorizontal, kAlongLine };

// Nothing where the user leaves the question.
std::optional<Direction> askDirection(CCadWindow& view, bool table) {
  const std::string question =
      numberText::format("Place the %s numbers Horizontal, or parallel to the nearest line", table ? "erf" : "stand");
  const bool horizontal = view.gsReply(question, {"Horizontal", "Parallel"}) != 0;
  if (view.gsEscapePressed() != 0) { return std::nullopt; }
  return horizontal ? Direction::kHorizontal : Direction::kAlongLine;
}

// That of the line near the cursor, tenths of a degree; nothing, with a message, where no line lies near.
std::optional<double> angleOfNearLine(CCadWindow& view) {
  bool found = view.gsExecuteMacro(macroText::kJumpNear) != 0;
  if (found) {
    Point at;
    view.gsGetCurrCoord(at.x, at.y);
    found = view.gsExecuteMacro(macroText::lockOntoPickedLine(at)) != 0;
  }
  if (!found) {
    ErrorMessage("No line lies within 5 mm of this point", &view);
    return std::nullopt;
  }
  view.gsExecuteMacro(macroText::enquire("LOCKANG", "A2"));
  constexpr double kTenths = 10.0;
  const double angle = numberVariable(view, "A2") * kTenths;
  view.gsExecuteMacro(macroText::kFreeAngle);
  return angle;
}

// ---- Numbering --------------------------------------------------------------------------------------------------

struct Erf {
  double area = 0.0;  // in the drawing's area unit
  Point inside;
};

class ErfNumbering {
 public:
  ErfNumbering(CCadWindow& view, const JobSettings& job, const NumberingSettings& settings, Direction direction)
      : view_(view),
        job_(job),
        settings_(settings),
        direction_(direction),
        used_(numbersOnLayer(view, settings.layer)) {}

  // Numbers erven until the user has enough, and lists them where there is a table.
  void run(RuledTable* table);
  [[nodiscard]] int count() const { return count_; }
  [[nodiscard]] double sum() const { return sum_; }  // of their areas

 private:
  void numberStroke(Point from, double angle, const std::string& first, RuledTable* table);
  [[nodiscard]] std::string_view prompt() const;
  std::optional<std::string> askNumber();
  std::optional<Erf> erfAt(Point at) const;
  [[nodiscard]] bool mayUse(const std::string& number);
  void numberErf(Point at, double angle, const std::string& number, RuledTable* table);
  void giveNumber(const Erf& erf, double angle, const std::string& number, RuledTable* table);
  void writeNumber(const Erf& erf, double angle, const std::string& number);
  [[nodiscard]] std::string areaText(const Erf& erf) const;

  CCadWindow& view_;
  const JobSettings& job_;
  const NumberingSettings& settings_;
  Direction direction_;
  std::set<std::string, std::less<>> used_;
  std::string offered_;
  int count_ = 0;
  double sum_ = 0.0;
};

std::string_view ErfNumbering::prompt() const {
  if (direction_ == Direction::kHorizontal) { return "Position cursor inside erf to be numbered (Space bar to exit)"; }
  return "Position cursor inside erf to be numbered close to line for angle of text (Space bar to exit)";
}

void ErfNumbering::run(RuledTable* table) {
  Point at;
  while (view_.gsGetPointFromUser(prompt(), at.x, at.y) == 0) {
    const auto angle = direction_ == Direction::kHorizontal ? std::optional(0.0) : angleOfNearLine(view_);
    if (!angle) { continue; }
    const auto number = askNumber();
    if (!number) { return; }
    offered_ = *number;
    if (settings_.byStroke) {
      numberStroke(at, *angle, *number, table);
    } else {
      numberErf(at, *angle, *number, table);
    }
  }
}

// Without an end only the erf that the stroke begins in is numbered.
void ErfNumbering::numberStroke(Point from, double angle, const std::string& first, RuledTable* table) {
  view_.gsSetCurrCoord(from.x, from.y);
  view_.gsSetRubberBand(1);
  Point to = from;
  const bool drawn =
      view_.gsGetPointFromUser("Indicate the end of the stroke (Space bar for this erf only)", to.x, to.y) == 0;
  view_.gsSetRubberBand(0);
  if (!drawn || nearlyEqual(from, to)) { return numberErf(from, angle, first, table); }
  std::vector<Point> numbered;  // places in the erven that the stroke crossed, some of which it crosses again
  for (const Point& at : pointsAlongStroke(view_, from, to)) {
    const auto erf = erfAt(at);
    const auto isIt = [&](Point inside) { return nearlyEqual(inside, erf->inside); };
    if (!erf || std::ranges::any_of(numbered, isIt)) { continue; }
    giveNumber(*erf, angle, offered_, table);
    numbered.push_back(erf->inside);
  }
  if (numbered.empty()) { ErrorMessage("No closed boundary lies along this stroke", &view_); }
}

// Nothing once the user wants no more.
std::optional<std::string> ErfNumbering::askNumber() {
  constexpr std::string_view kNumber = "E$";
  while (true) {
    view_.gsSetMacStrVar(kNumber, offered_);
    view_.gsExecuteMacro(macroText::plainEnter("Enter erf number", kNumber, "\t\t"));
    if (view_.gsEscapePressed() != 0) { return std::nullopt; }
    std::string number = textVariable(view_, kNumber);
    if (!number.empty()) { return number; }
  }
}

std::optional<Erf> ErfNumbering::erfAt(Point at) const {
  view_.gsExecuteMacro(macroText::kClearWorkSpace);
  if (view_.gsAutoPerim(at.x, at.y) == 0) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::kQueryBoundary);
  return Erf{numberVariable(view_, "A1"), {numberVariable(view_, "X3"), numberVariable(view_, "Y3")}};
}

bool ErfNumbering::mayUse(const std::string& number) {
  if (!used_.contains(number)) { return true; }
  return ask(&view_, numberText::format("The number %s is used already. Use it again?", number), "Erf number");
}

void ErfNumbering::numberErf(Point at, double angle, const std::string& number, RuledTable* table) {
  if (const auto erf = erfAt(at)) { return giveNumber(*erf, angle, number, table); }
  ErrorMessage("No closed boundary surrounds this point", &view_);
}

void ErfNumbering::giveNumber(const Erf& erf, double angle, const std::string& number, RuledTable* table) {
  if (!mayUse(number)) { return; }
  writeNumber(erf, angle, number);
  if (table != nullptr) { table->addRow({number, formattedArea(erf.area)}); }
  ++count_;
  sum_ += erf.area;
  used_.insert(number);
  offered_ = nextPrefixAndNumber(number);
}

void ErfNumbering::writeNumber(const Erf& erf, double angle, const std::string& number) {
  constexpr double kErfNumber = 16.0;
  const int current = view_.gsGetCurrentLayer();
  const int layer = view_.gsAddLayer(settings_.layer);
  view_.gsSetCurrentLayer(current);
  TextStyle style = job_.textStyle();
  style.justification = kCentred;
  style.style = kErfNumber;
  style.angle = angle;
  DraftingPen(view_, {}, layer).text(erf.inside, settings_.writeArea ? number + areaText(erf) : number, style);
}

// On the line below the number.
std::string ErfNumbering::areaText(const Erf& erf) const {
  const AreaUnits& units = job_.areaUnits();
  std::string unit = units.name;
  if (units.code == kSquareMillimetres) { unit = "mm\xB2"; }
  if (units.code == kSquareMetres) { unit = "m\xB2"; }
  return "\\n" + formattedArea(erf.area) + " " + unit;
}

// ---- The table --------------------------------------------------------------------------------------------------

RuledTable areaTable(CCadWindow& view, const JobSettings& job, TableStyle style, Point origin) {
  RuledTable table(view, areaTableForm(), std::move(style), origin, job.paperFactor());
  const AreaUnits& units = job.areaUnits();
  table.setHeading(1, 1, units.code == kSquareMetres ? "SQUARE\\nMETRES" : units.name);
  constexpr double kAreasAcross = 10.417;
  constexpr double kAreasDown = 1.5;
  table.addCaption(kAreasAcross, kAreasDown, "AREAS");
  return table;
}

void addTotals(RuledTable& table, const ErfNumbering& erven) {
  table.addRow({});
  table.addRow({numberText::format("%d ERVEN", erven.count()), formattedArea(erven.sum())});
}

bool editSettings(NumberingSettings& settings, const JobSettings& job, SheetTool& tool) {
  if (!editNumberingSettings(settings, tool.services(), tool.view())) { return false; }
  TINIFile file(job.file().FileName());
  write(settings, file);
  file.UpdateFile();
  return true;
}

void numberErven(SheetTool& tool, const JobSettings& job, const NumberingSettings& settings, RuledTable* table) {
  const auto direction = askDirection(tool.view(), table != nullptr);
  if (!direction) { return; }
  ErfNumbering erven(tool.view(), job, settings, *direction);
  erven.run(table);
  if (table != nullptr) {
    if (settings.totals) { addTotals(*table, erven); }
    table->draw(static_cast<size_t>(std::max(settings.rowsAColumn, 0)));
  }
  tool.setLastErven({erven.count(), erven.sum()});
  if (settings.check) { tool.view().gsSetStatus(closureReport(tool, job)); }
}

}  // namespace

void makeAreaTable(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  NumberingSettings settings = readNumberingSettings(job->file());
  if (!editSettings(settings, *job, tool) || !mayDrawOn(view, settings.layer)) { return; }
  if (!settings.table) { return numberErven(tool, *job, settings, nullptr); }
  TableStyle style = tableStyleOf(*job, view, "Stands");
  if (!mayDrawTable(view, style)) { return; }
  const auto origin = askHeadingPlace(view);
  if (!origin) { return; }
  RuledTable table = areaTable(view, *job, std::move(style), *origin);
  numberErven(tool, *job, settings, &table);
}

}  // namespace ardenix::survey

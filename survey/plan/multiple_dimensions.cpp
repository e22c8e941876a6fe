#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/number_formats.h"
#include "survey/plan/dimension_choice.h"
#include "survey/plan/erf_sides.h"
#include "survey/plan/erf_texts.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/survey_dimension.h"

// All sides of many erven, which are found by their numbers.
namespace ardenix::survey {

namespace {

using numberText::format;

// How often the user is told how far it went, and asked whether to go on.
constexpr int kErvenAStep = 100;

std::vector<Point> placesOfErven(CCadWindow& view, const DimensionChoice& choice) {
  std::vector<Point> places;
  for (const ErfText& text : erfTextsOn(view, choice.layer)) {
    const bool placed = text.at.x != 0.0 || text.at.y != 0.0;
    if (placed && choice.takes(coreGetFieldInt(text.number, 0, 1, '\n'))) { places.push_back(text.at); }
  }
  return places;
}

class ErvenDimensions {
 public:
  ErvenDimensions(CCadWindow& view, const JobSettings& job, const SurveyDimensions& dimensions)
      : view_(view), job_(job), dimensions_(dimensions) {}

  // Until all are done or the user stops it; each side once.
  void dimension(const std::vector<Point>& erven) {
    if (collect(erven)) { draw(); }
    report();
  }

 private:
  bool collect(const std::vector<Point>& erven);
  void draw();
  void report() const;
  void drawOne(const SidesMet::Met& side);
  bool stops(int done, size_t total, std::string_view doing) {
    if (done % kErvenAStep != 0) { return false; }
    return view_.gsStopsAtProgress(done, static_cast<int>(total), doing) != 0;
  }

  CCadWindow& view_;
  const JobSettings& job_;
  const SurveyDimensions& dimensions_;
  SidesMet met_;
  int open_ = 0;                  // erven without a boundary
  int drawn_ = 0;                 // dimensions
  std::vector<double> tooShort_;  // sides that their texts do not fit
};

bool ErvenDimensions::collect(const std::vector<Point>& erven) {
  const ScratchLayer scratch(view_, scratchNames::kSurveyDimensions);
  int done = 0;
  for (const Point inside : erven) {
    const std::vector<ErfSide> boundary = traceErf(view_, inside);
    if (boundary.empty()) { ++open_; }
    for (const ErfSide& side : wholeSides(view_, boundary)) { met_.add(side); }  // a round erf has none
    if (stops(++done, erven.size(), "Tracing erven")) { return false; }
  }
  return true;
}

void ErvenDimensions::draw() {
  for (const SidesMet::Met& side : met_.all()) {
    drawOne(side);
    view_.gsSetStatus(format("Drawing dimensions %d", ++drawn_));
    if (stops(drawn_, met_.all().size(), "Drawing dimensions")) { return; }
  }
}

void ErvenDimensions::drawOne(const SidesMet::Met& side) {
  const double room = distance(side.from, side.to);
  CombinedPlace place = CombinedPlace::kInside;
  if (room < dimensions_.lengthOfTexts(side.from, side.to)) {
    tooShort_.push_back(room);
    if (job_.options().fitTexts) { place = side.shared ? CombinedPlace::kDistanceOnly : CombinedPlace::kOutside; }
  }
  dimensions_.drawTogether(side.from, side.to, place);
}

void ErvenDimensions::report() const {
  constexpr size_t kMostListed = 10;
  std::string text = format("%d dimensions drawn.", drawn_);
  if (open_ > 0) { text += format(" Not closed round their numbers: %d erven.", open_); }
  if (!tooShort_.empty()) {
    text += " Shorter than their texts:";
    for (size_t n = 0; n < std::min(tooShort_.size(), kMostListed); ++n) {
      text += (n == 0 ? " " : "; ") + formattedNumber(tooShort_[n], job_.numbers());
    }
    if (tooShort_.size() > kMostListed) {
      text += format(" and %d more", static_cast<int>(tooShort_.size() - kMostListed));
    }
    text += ".";
  }
  view_.gsSetStatus(text);
}

bool editChoice(DimensionChoice& choice, const JobSettings& job, SheetTool& tool) {
  if (!editDimensionChoice(choice, tool.services(), tool.view())) { return false; }
  TINIFile file(job.file().FileName());
  write(choice, file);
  file.UpdateFile();
  return true;
}

}  // namespace

void dimensionErven(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  SurveyDimensions dimensions(view, *job);
  DimensionChoice choice = readDimensionChoice(job->file());
  if (!editChoice(choice, *job, tool) || !dimensions.begin()) { return; }
  view.gsExecuteMacro(macroText::kSelectNewEnd);
  const std::vector<Point> erven = placesOfErven(view, choice);
  if (erven.empty()) { return ErrorMessage("No erf numbers on this layer", &view); }
  ErvenDimensions(view, *job, dimensions).dimension(erven);
  view.gsExecuteMacro(macroText::kClearCurrent);
}

}  // namespace ardenix::survey

#include <array>
#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/survey_dimension.h"

// The texts of a survey dimension, moved to the other side of its line.
namespace ardenix::survey {

namespace {

constexpr double kFarther = 4.0;  // offsets from the first text of a dimension to the second

struct DimensionText {
  Point at;
  std::string text;
  FontDef font;
};

struct PickedDimension {
  std::string parent;
  std::string name;
  std::vector<DimensionText> texts;  // selected
};

bool isDimension(std::string_view parent) {
  using namespace dimensionParents;
  return parent == kDistance || parent == kBearing || parent == kBoth;
}

bool hasDimensions(CCadWindow& view) {
  const int layer = view.gsGetLayerIndexFromName(kDimensionLayer);
  if (layer < 0) { return false; }
  const int scan = view.gsGetListHandle(kTextPrimitive, layer, 0, 0.0, 0.0, 0.0, 0.0, 0, 0);
  const bool found = view.gsGetNextPrim(scan) > 0;
  view.gsFreeListHandle(scan);
  return found;
}

std::vector<DimensionText> selectedTexts(CCadWindow& view) {
  std::vector<DimensionText> texts;
  std::array<char, limits::kLongestAnswer + 1> text{};
  const int scan = view.gsGetListHandle(kTextPrimitive, -1, 1, 0.0, 0.0, 0.0, 0.0, 0, 1);
  while (view.gsGetNextPrim(scan) > 0) {
    DimensionText each;
    view.gsGetText(each.at.x, each.at.y, text.data(), static_cast<int>(text.size()));
    view.gsGetFont(each.font);
    each.text = text.data();
    texts.push_back(std::move(each));
  }
  view.gsFreeListHandle(scan);
  return texts;
}

// Nothing where no survey dimension lies near.
std::optional<PickedDimension> pick(CCadWindow& view, Point at) {
  std::string_view parent;
  std::string_view name;
  const bool found = view.gsNearestPrim(kTextPrimitive, at.x, at.y) == kTextPrimitive && view.gsSelectGroup() > 0 &&
                     view.gsGetObject(parent, name) != 0 && isDimension(parent);
  if (!found) { return std::nullopt; }
  PickedDimension picked{std::string(parent), std::string(name), {}};
  picked.texts = selectedTexts(view);
  return picked;
}

// A text that stands above its line goes as far below it, and the other way round.
void swapSide(DimensionText& text, double offset, double paperSign) {
  constexpr double kTenths = 10.0;
  const bool above = text.font.justification == kAboveLine;
  if (!above && text.font.justification != kBelowLine) { return; }
  const double angle = radians(text.font.angle / kTenths);
  const Point up = Point{-std::sin(angle), std::cos(angle)} * paperSign;
  text.at = text.at + up * (above ? -2.0 * offset : 2.0 * offset);
  text.font.justification = kAboveLine + kBelowLine - text.font.justification;
}

void draw(CCadWindow& view, const PickedDimension& dimension) {
  view.gsExecuteMacro(macroText::parent(dimension.parent));
  view.gsStartPat(dimension.name);
  const DraftingPen pen(view, {}, view.gsGetLayerIndexFromName(kDimensionLayer));
  for (const auto& [at, text, font] : dimension.texts) {
    pen.text(at, text,
             {.height = font.height,
              .justification = font.justification,
              .angle = font.angle,
              .style = static_cast<double>(font.style),
              .width = font.widthFactor,
              .font = font.name,
              .pen = font.pen});
  }
  view.gsExecuteMacro(macroText::kRootParent);
  view.gsStartPat("");
}

void swap(CCadWindow& view, const JobSettings& job, const SurveyDimensions& dimensions, PickedDimension dimension) {
  double steps = 1.0;
  for (DimensionText& text : dimension.texts) {
    swapSide(text, steps * dimensions.offsetOf(text.font.height), paperSign(job.parms()));
    steps += kFarther;
  }
  view.gsExecuteMacro(macroText::kDeleteSelection);
  draw(view, dimension);
}

}  // namespace

void swapDimensions(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  CCadWindow& view = tool.view();
  if (job == nullptr || !hasDimensions(view) || !mayDrawOn(view, kDimensionLayer)) { return; }
  const SurveyDimensions dimensions(view, *job);
  Point at;
  while (view.gsGetPointFromUser("Indicate survey dimension to swap (Space bar to stop)", at.x, at.y) == 0) {
    if (auto picked = pick(view, at)) {
      swap(view, *job, dimensions, *std::move(picked));
    } else {
      ErrorMessage("No survey dimension lies near this point", &view);
    }
    view.gsExecuteMacro(macroText::kClearSelection);
  }
}

}  // namespace ardenix::survey

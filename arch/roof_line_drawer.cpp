#include "arch/roof_line_drawer.h"

#include <algorithm>
#include <cmath>

#include "arch/arch_part.h"
#include "arch/roof_drawer.h"
#include "arch/roof_plan.h"
#include "arch/roof_shape.h"
#include "arch/view_settings.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kOverhangKey = "EavesOverHang";
constexpr std::string_view kLayerKey = "Layer";
constexpr std::string_view kRidgesKey = "Ridges";
constexpr std::string_view kRidgePrefix = "RDG";
constexpr std::string_view kGablePrompt = "Indicate gable ends (else spacebar to end selection)";

// The host asks for the figure to follow, and takes the one of the line pointed at, while this lives.
class PerimeterPrompt {
 public:
  explicit PerimeterPrompt(CCadWindow& view) : view_(view) { view_.gsSetAutoperimPromptFlag(1); }
  PerimeterPrompt(const PerimeterPrompt&) = delete;
  PerimeterPrompt& operator=(const PerimeterPrompt&) = delete;
  ~PerimeterPrompt() { view_.gsSetAutoperimPromptFlag(0); }

 private:
  CCadWindow& view_;
};

}  // namespace

double eavesOverhang(const ArchSpecStore& store) {
  return std::fabs(store.readDouble(kRoofLineSection, kOverhangKey, RoofLineSettings{}.offset));
}

RoofLineDrawer::RoofLineDrawer(ArchSpecStore& store) : store_(store), view_(store.view()) {
  settings.offset = store.readDouble(kRoofLineSection, kOverhangKey, settings.offset);
  readStyle(store, kRoofLineSection, settings.style);
  settings.layer = roofLineLayer(store);
  settings.ridges = store.readInt(kRoofLineSection, kRidgesKey) != 0;
  settings.ridgeLayer = ridgeLayer(store);
}

void RoofLineDrawer::save() {
  store_.writeDouble(kRoofLineSection, kOverhangKey, settings.offset);
  writeStyle(store_, kRoofLineSection, settings.style);
  store_.writeString(kRoofLineSection, kLayerKey, settings.layer);
  store_.writeOption(kRoofLineSection, kRidgesKey, settings.ridges);
  store_.flush();
}

std::string roofLineLayer(const ArchSpecStore& store) { return store.readString(kRoofLineSection, kLayerKey, ""); }

std::string ridgeLayer(const ArchSpecStore& store) {
  return store.readString(kRoofLineSection, "RidgeLayer", roofLineLayer(store).append("_RIDGES"));
}

void RoofLineDrawer::draw() {
  if (!mayDrawOn(view_, settings.layer)) { return; }
  if (settings.ridges && !mayDrawOn(view_, settings.ridgeLayer)) { return; }
  const size_t before = linesOnLayer(view_, settings.layer).size();
  if (drawLine() && settings.ridges) { drawRidges(before); }
}

// The layer that was current is current again, and a new one stays only with a roof line on it.
bool RoofLineDrawer::drawLine() {
  const int before = view_.gsGetCurrentLayer();
  const bool isNew = view_.gsGetLayerIndexFromName(settings.layer) < 0;
  view_.gsExecuteMacro(macroText::plainNewLayer(settings.layer));
  view_.gsExecuteMacro(macroText::parallelToFigure(settings.style, settings.offset));
  int drawn = 0;
  {
    const PerimeterPrompt prompt(view_);
    drawn = view_.gsExecuteMacro(macroText::kParallelLine);
  }
  if (drawn == 0) { ErrorMessage("The roof line was not drawn, the status line says why", &view_); }
  const int layer = view_.gsGetCurrentLayer();
  view_.gsSetCurrentLayer(before);
  if (isNew && linesOnLayer(view_, settings.layer).empty()) { view_.gsDeleteLayer(layer); }
  return drawn != 0;
}

// ---- Ridges -------------------------------------------------------------------------------------------------

void RoofLineDrawer::drawRidges(size_t linesBefore) {
  std::vector<PlanLine> lines = linesOnLayer(view_, settings.layer);
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(std::min(linesBefore, lines.size())));
  auto outline = lines.empty() ? std::nullopt : outlineThrough(lines, lines.front());
  if (!outline) { return; }
  askGables(*outline);
  const auto shape = RoofShape::over(*outline, 1.0);
  if (!shape) {
    ErrorMessage("No roof of one pitch stands over this line with these gables", &view_);
    return;
  }
  const std::string parent = store_.readString(kRoofSection, "ParentName", "");
  ArchPart part(view_, {parent, kRidgePrefix, settings.ridgeLayer});
  const DraftingPen pen(view_, {.pen = settings.style.pen});
  for (const PlanLine& seam : shape->seamsOnPlan()) { pen.line(seam.a, seam.b); }
  part.finish(CurrentLayer::kAsBefore);
}

void RoofLineDrawer::askGables(RoofOutline& outline) {
  while (view_.gsEscapePressed() == 0) {
    const auto side = askUntil(view_, kGablePrompt, [&](Point) -> std::optional<size_t> {
      const auto line = jumpToLine(view_);
      if (!line) { return std::nullopt; }
      auto found = sideOf(outline, *line);
      if (!found) { tellMiss(view_, "This line is no side of the roof"); }
      return found;
    });
    if (!side) { return; }
    outline.sides[*side] = RoofSide::kGable;
  }
}

}  // namespace ardenix::arch

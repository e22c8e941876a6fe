#include <cmath>
#include <optional>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "mech/line_style.h"
#include "mech/part_commands.h"

// Slots of one size, placed by the centre of their left end.
namespace ardenix::mech {

namespace {

constexpr std::string_view kSlots = "SLOTS";

struct Slot {
  double length = 0.0;  // over all
  double width = 0.0;
  double rotation = 0.0;  // degrees
  bool centreLines = false;
};

// What is wrong with a slot; "" for one that can be drawn.
std::string_view fault(const Slot& slot) {
  if (slot.length <= 0.0 || slot.width <= 0.0) { return "Give the slot's length and width."; }
  return slot.width > slot.length ? "The slot's length must not be smaller than its width." : "";
}

// Asked again until a slot can be drawn; nothing for an empty answer.
std::optional<Slot> askSlot(CCadWindow& view) {
  for (;;) {
    std::string typed;
    view.gsGetTextFromPromptBar("Enter the length, width and rotation of the slot:", typed, 1);
    coreTrimStr(typed);
    if (typed.empty()) { return std::nullopt; }
    const Slot slot{numberTyped(typed, 1), numberTyped(typed, 2), numberTyped(typed, 3)};
    const std::string_view wrong = fault(slot);
    if (wrong.empty()) { return slot; }
    ErrorMessage(wrong, &view);
  }
}

void strokeSlot(const DraftingPen& pen, Point left, Point right, Point up) {
  pen.line(left - up, right - up);
  pen.line(left + up, right + up);
  pen.arc(left - up, left, left + up, ArcSense::kClockwise);
  pen.arc(right + up, right, right - up, ArcSense::kClockwise);
}

void strokeCentreLines(const DraftingPen& pen, Point left, Point right, double reach) {
  pen.line(left - Point{reach, 0}, right + Point{reach, 0});
  for (const Point end : {left, right}) { pen.line(end - Point{0, reach}, end + Point{0, reach}); }
}

void drawSlotAt(CCadWindow& view, const LineStyles& styles, const Slot& slot, Point left) {
  constexpr double kReach = 1.5;  // radii of the ends
  const double radius = slot.width / 2.0;
  const Point right = left + Point{slot.length - slot.width, 0};
  const std::string group = startPart(view, kSlots, "SL");
  strokeSlot({view, styles.solid}, left, right, {0, radius});
  if (slot.centreLines) { strokeCentreLines({view, styles.centre}, left, right, kReach * radius); }
  view.gsExecuteMacro(macroText::selectNameUnclosed(kSlots, group));
  view.gsExecuteMacro(macroText::linkSelection(group));
  if (std::fabs(slot.rotation) > 1e-12) { view.gsExecuteMacro(macroText::rotate(left, slot.rotation)); }
}

void placeSlots(CCadWindow& view, const LineStyles& styles) {
  if (!mayDrawOn(view, view.gsGetCurrentLayerName())) { return; }
  std::optional<Slot> slot = askSlot(view);
  if (!slot) { return; }
  slot->centreLines = view.gsReply("Do you want to draw the slot with centrelines?") != 0;
  drawRounds(view, [&] {
    clearAll(view);
    const auto left = askPlace(view, "Click to place the slot (spacebar to exit)");
    if (left) { drawSlotAt(view, styles, *slot, *left); }
    return left.has_value();
  });
}

}  // namespace

void drawSlots(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  placeSlots(toolset.view(), lineStyles(toolset.configuration().store()));
  endPart(toolset.view());
}

}  // namespace ardenix::mech

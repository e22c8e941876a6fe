#include "mech/fastener_options.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::mech {

namespace {

constexpr double kSmallestRepeat = 1.0;
constexpr double kLargestRepeat = 10000.0;
constexpr int kMostItems = 10000;

}  // namespace

Repeat readRepeat(std::string_view text) {
  Repeat repeat;
  repeat.value = coreGetFieldDouble(text, 0.0, 1, ',');
  repeat.number = coreGetFieldInt(text, 1, 2, ',');
  const int kind = coreGetFieldInt(text, 0, 3, ',');
  repeat.kind = kind == 0 ? RepeatKind::kLinear : kind < 0 ? RepeatKind::kPitchCircle : RepeatKind::kSpacing;
  return repeat;
}

std::string repeatText(const Repeat& repeat) {
  return numberText::format("%1f,%d,%d", repeat.value, repeat.number, static_cast<int>(repeat.kind));
}

FastenerOptions::FastenerOptions(dialog::Dialog& dialog, const FastenerOptionTexts& texts, int row) : texts_(texts) {
  addViews(dialog, row);
  addStyles(dialog, row + 1);
  addRepeat(dialog, row + 2);
}

void FastenerOptions::addViews(dialog::Dialog& dialog, int row) {
  const int group = dialog.addGroup({.place = {.row = row}});
  const auto viewTip = [this](std::string_view view) {
    return numberText::format("Check this to draw the %s of the %s", view, texts_.word);
  };
  sideView_ = addCheck(
      dialog,
      {.caption = std::string(texts_.sideViewCaption), .toolTip = viewTip("side view (elevation)"), .group = group});
  planView_ = addCheck(dialog, {.caption = std::string(texts_.planViewCaption),
                                .toolTip = viewTip("top view (plan)"),
                                .group = group,
                                .place = {.column = 1}});
  if (!texts_.alignable) { return; }
  align_ = addCheck(
      dialog, {.caption = "Automatically align the side view",
               .toolTip = numberText::format("Draw the %s aligned to an existing line in the drawing", texts_.word),
               .group = group,
               .place = {.row = 1, .columnSpan = 2}});
}

void FastenerOptions::addStyles(dialog::Dialog& dialog, int row) {
  const int group = dialog.addGroup({.place = {.row = row}});
  const auto add = [&](std::string_view caption, std::string_view part, int column) {
    dialog::Setting setting{.caption = std::string(caption), .group = group, .place = {.column = column}};
    if (caption.empty()) { setting.name = numberText::format("Style of the %s", part); }
    return StyleChoice(dialog, std::move(setting), numberText::format("%s of the %s", part, texts_.word));
  };
  // Styles of views stand below their views.
  headStyle_ = add(texts_.headStyleCaption, texts_.headPart, texts_.stylesOfViews ? 1 : 0);
  shaftStyle_ = add(texts_.shaftStyleCaption, texts_.shaftPart, texts_.stylesOfViews ? 0 : 1);
}

void FastenerOptions::addRepeat(dialog::Dialog& dialog, int row) {
  const int group = dialog.addGroup({.place = {.row = row}});
  pattern_ = addRadio(dialog, {.caption = "Repeat", .group = group, .place = {.rowSpan = 2}},
                      {{"Linear", "Check this to do a linear repeat"},
                       {"Polar", "Check this to do a polar (radial) repeat, instead of a linear repeat"}});
  pattern_.onEdit([this] { enablePolarValue(); });
  number_ = addInteger(dialog,
                       {.caption = "Number = ",
                        .toolTip = numberText::format("The number of copies of the %s to draw", texts_.word),
                        .group = group,
                        .place = {.column = 1}},
                       1, kMostItems);
  value_ = addFloat(dialog,
                    {.toolTip = numberText::format("The spacing of the %ss when repeat is used", texts_.word),
                     .group = group,
                     .place = {.row = 1, .column = 1},
                     .name = "Repeat value"},
                    kSmallestRepeat, kLargestRepeat, "%.3f");
  const std::string polarTip(texts_.polarTip);
  polarValue_ = addRadio(
      dialog, {.toolTip = polarTip, .group = group, .place = {.column = 2, .rowSpan = 2}, .name = "Polar value"},
      {{"Spacing", polarTip}, {"PCD", polarTip}});
}

void FastenerOptions::read(const DefinitionStore& store) {
  const TINIFile& file = store.file();
  sideView_.setChecked(file.ReadInt(kDefaultsSection, "DrawElev", 1) != 0);
  planView_.setChecked(file.ReadInt(kDefaultsSection, "DrawPlan", 0) != 0);
  if (texts_.alignable) { align_.setChecked(file.ReadInt(kDefaultsSection, "AutoAlignElev", 0) != 0); }
  headStyle_.read(store, "HeadLT");
  shaftStyle_.read(store, "ShaftLT");
  showRepeat(readRepeat(file.ReadString(kDefaultsSection, texts_.repeatKey, "")));
}

void FastenerOptions::showRepeat(const Repeat& repeat) {
  pattern_.choose(repeat.kind == RepeatKind::kLinear ? kLinearRow : kPolar);
  polarValue_.choose(repeat.kind == RepeatKind::kPitchCircle ? kPitchCircle : kSpacing);
  enablePolarValue();
  number_.SetValue(repeat.number);
  value_.SetValue(repeat.value);
}

void FastenerOptions::write(DefinitionStore& store) const {
  TINIFile& file = store.file();
  file.WriteInt(kDefaultsSection, "DrawElev", sideView_.checked() ? 1 : 0);
  file.WriteInt(kDefaultsSection, "DrawPlan", planView_.checked() ? 1 : 0);
  if (texts_.alignable) { file.WriteInt(kDefaultsSection, "AutoAlignElev", align_.checked() ? 1 : 0); }
  headStyle_.write(store, "HeadLT");
  shaftStyle_.write(store, "ShaftLT");
  file.WriteString(kDefaultsSection, texts_.repeatKey, repeatText(repeat()));
}

void FastenerOptions::applyTo(Fastener& fastener) const {
  fastener.headHidden = headStyle_.hidden();
  fastener.shaftHidden = shaftStyle_.hidden();
  fastener.autoAlign = texts_.alignable && align_.checked();
  fastener.repeat = repeat();
}

ViewMode FastenerOptions::viewMode() const {
  if (sideView_.checked() && planView_.checked()) { return ViewMode::kBoth; }
  return planView_.checked() ? ViewMode::kPlan : ViewMode::kSide;
}

Repeat FastenerOptions::repeat() const {
  Repeat repeat{value_.GetValue(), number_.GetValue(), RepeatKind::kLinear};
  if (pattern_.chosen() == kPolar) {
    repeat.kind = polarValue_.chosen() == kPitchCircle ? RepeatKind::kPitchCircle : RepeatKind::kSpacing;
  }
  return repeat;
}

}  // namespace ardenix::mech

#include "survey/plan/dimension_choice.h"

#include <algorithm>

#include "frame/messages.h"
#include "survey/plan/numbering_settings.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kFromKey = "FromRange";
constexpr std::string_view kToKey = "ToRange";
constexpr int kLargestNumber = 999'999'999;
enum Range : int { kAll, kRange };

std::vector<std::string> layerNames(CCadWindow& view) {
  std::vector<std::string> names;
  const int count = view.gsGetLayerCount();
  for (int index = 0; index < count; ++index) {
    LayerDef layer;
    if (view.gsGetLayerDefIndex(index, layer) != 0) { names.push_back(layer.name); }
  }
  return names;
}

class ChoiceDialog {
 public:
  ChoiceDialog(DimensionChoice& choice, const Services& services, CCadWindow& view)
      : choice_(choice), services_(services) {
    equip(dialog_, services_, helpTopic("Multiple dimensioning"));
    layer_ = addDropDown(dialog_,
                         {.caption = "Select the layer containing erf numbers",
                          .toolTip = "Layer that contains numerical erf numbers within the boundaries you want "
                                     "dimensioned",
                          .place = {.row = 0}},
                         layerNames(view));
    const int erven = dialog_.addGroup({.caption = "Dimension erven", .place = {.row = 1, .columnSpan = 2}});
    range_ = addRadio(dialog_, {.group = erven, .place = {.columnSpan = 2}, .name = "Dimension erven"},
                      {{"All", "Dimension each and every erf number encountered"},
                       {"Range of erf numbers", "Dimension specifically numbered erven"}});
    from_ = addInteger(
        dialog_,
        {.caption = "From:", .toolTip = "Starting erf number to be dimensioned", .group = erven, .place = {.row = 1}},
        1, kLargestNumber);
    to_ = addInteger(
        dialog_,
        {.caption = "To:", .toolTip = "Ending erf number to be dimensioned", .group = erven, .place = {.row = 2}}, 1,
        kLargestNumber);
    addOkCancel(dialog_, 2);
    range_.onEdit([this] { enableRange(); });
    dialog_.onOpen = [this] { show(); };
    dialog_.onOk = [this] { return confirm(); };
  }
  ChoiceDialog(const ChoiceDialog&) = delete;
  ChoiceDialog& operator=(const ChoiceDialog&) = delete;

  bool run(CWnd& owner) { return services_.mainFrame->RunDialog(dialog_, &owner); }

 private:
  void enableRange() const {
    from_.enable(range_.chosen() == kRange);
    to_.enable(range_.chosen() == kRange);
  }
  void show() const {
    const auto& names = layer_.items();
    layer_.select(static_cast<int>(std::ranges::find(names, choice_.layer) - names.begin()));
    range_.choose(choice_.all() ? kAll : kRange);
    from_.SetValue(std::max(choice_.from, 1));
    to_.SetValue(std::max(choice_.to, 1));
    enableRange();
  }
  bool confirm() {
    if (layer_.selected() < 0) {
      warn(&dialog_, "Select the layer that contains the erf numbers.");
      layer_.focus();
      return false;
    }
    const bool range = range_.chosen() == kRange;
    choice_ = {layer_.text(), range ? from_.GetValue() : 0, range ? to_.GetValue() : 0};
    return true;
  }

  DimensionChoice& choice_;
  const Services& services_;
  dialog::Dialog dialog_{"Multiple dimensioning"};
  dialog::DropDownHandle layer_;
  dialog::RadioHandle range_;
  CIntEdit from_;
  CIntEdit to_;
};

}  // namespace

bool DimensionChoice::takes(int number) const {
  if (number == 0) { return false; }
  return all() || (number >= std::min(from, to) && number <= std::max(from, to));
}

DimensionChoice readDimensionChoice(const TINIFile& file) {
  return {.layer = file.ReadString(kNumberingSection, kNumberLayerKey, kNumberLayer),
          .from = file.ReadInt(kNumberingSection, kFromKey, 0),
          .to = file.ReadInt(kNumberingSection, kToKey, 0)};
}

void write(const DimensionChoice& choice, TINIFile& file) {
  file.WriteString(kNumberingSection, kNumberLayerKey, choice.layer);
  file.WriteInt(kNumberingSection, kFromKey, choice.from);
  file.WriteInt(kNumberingSection, kToKey, choice.to);
}

bool editDimensionChoice(DimensionChoice& choice, const Services& services, CCadWindow& view) {
  return ChoiceDialog(choice, services, view).run(view);
}

}  // namespace ardenix::survey

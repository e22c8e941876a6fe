#pragma once

#include <memory>
#include <utility>

#include "frame/host/core_services.h"
#include "mech/mech_toolset.h"
#include "mech/placed_drawer.h"
#include "mech/record_dialog.h"
#include "mech/style_choice.h"

namespace ardenix::mech {

// A condition on which a part can be drawn, the field to go to and the error where it is not met.
template <class Record>
struct DrawingRule {
  bool (*met)(const Record&);
  Member<Record> field;
  std::string_view message;
};

// Something that a part can be drawn with besides, kept under a key of section "Defaults"; off until it is ticked.
struct ExtraRow {
  std::string_view key;
  std::string_view caption;
  std::string_view tip;
};

// The dialog of a kind of part that is placed by points, as data.
template <class Record>
struct PlacedForm {
  std::string_view section;
  std::string_view word;      // "flange"
  std::string_view styleKey;  // under which the choice of solid or hidden lines is kept
  std::span<const Rule<Record>> rules{};
  std::span<const DrawingRule<Record>> drawingRules{};
  std::span<const PictureRow<Record>> pictures{};
  std::span<const ExtraRow> extras{};
  // Written with the options, for dialogs of other kinds: that side views are drawn.
  bool drawsSideViews = false;
};

// The definition dialog of such a kind: its fields with pictures and a preview beside them, and the choice of lines.
template <class Record, class Drawer>
class PlacedDialog : public RecordDialog<Record> {
 public:
  PlacedDialog(const Services& services, DefinitionStore& store, const PlacedForm<Record>& form, Drawer& drawer)
      : RecordDialog<Record>(services, store, definitionKind(form.section), drawer.fields()),
        form_(form),
        drawer_(drawer),
        options_(this->box().addGroup({.place = {.row = kOptionsRow}})),
        style_(this->box(), {.caption = "Draw as", .group = options_}, form.word) {
    addExtras();
    this->addPictures(form.pictures);
    addPreview();
  }

 protected:
  static constexpr int kOptionsRow = 2;

  // Below the preview.
  [[nodiscard]] int previewGroup() const { return preview_; }

  void readOptions() override {
    style_.read(this->store(), form_.styleKey);
    for (size_t i = 0; i < extras_.size(); ++i) {
      extras_[i].setChecked(this->store().extraWanted(kDefaultsSection, form_.extras[i].key));
    }
  }
  void writeOptions() override {
    if (form_.drawsSideViews) { this->store().file().WriteInt(kDefaultsSection, "DrawElev", 1); }
    style_.write(this->store(), form_.styleKey);
    for (size_t i = 0; i < extras_.size(); ++i) {
      this->store().setExtra(kDefaultsSection, form_.extras[i].key, extras_[i].checked());
    }
  }

  bool validate() override {
    bool all = RecordDialog<Record>::validate();
    for (const Rule<Record>& rule : form_.rules) { all = this->meets(rule) && all; }
    return all;
  }

  bool drawable() override {
    for (const DrawingRule<Record>& rule : form_.drawingRules) {
      if (rule.met(this->record())) { continue; }
      ErrorMessage(rule.message, &this->box());
      this->control(rule.field).focus();
      return false;
    }
    return true;
  }

  void accept() override {
    drawer_.setName(this->shownName());
    drawer_.drawHidden(style_.hidden());
    drawer_.drawExtras(extrasChosen());
    drawer_.take(this->record());
  }

 private:
  void addExtras() {
    int row = 0;
    for (const ExtraRow& extra : form_.extras) {
      extras_.push_back(addCheck(this->box(), {.caption = std::string(extra.caption),
                                               .toolTip = std::string(extra.tip),
                                               .group = options_,
                                               .place = {.row = row++, .column = 1}}));
    }
  }
  [[nodiscard]] std::vector<bool> extrasChosen() const {
    std::vector<bool> chosen;
    chosen.reserve(extras_.size());
    for (const dialog::CheckHandle& extra : extras_) { chosen.push_back(extra.checked()); }
    return chosen;
  }

  void addPreview() {
    constexpr int kSide = 120;
    const auto draw = [this](CCadWindow& view) {
      Drawer part(view, this->store());
      part.drawHidden(style_.hidden());
      part.drawExtras(extrasChosen());
      part.take(this->record());
      part.sketch();
    };
    preview_ = this->addSideGroup("Preview", 2);
    dialog::addControl(this->box(), dialog::Preview{kSide, kSide, draw}, {.group = preview_});
  }

  const PlacedForm<Record>& form_;
  Drawer& drawer_;
  int options_;  // the group of what does not belong to a definition
  StyleChoice style_;
  std::vector<dialog::CheckHandle> extras_;
  int preview_ = 0;  // the group of the preview
};

// The command of a kind: its dialog, which answers whether it was left with OK, then part after part.
template <class Drawer, class RunDialog>
void runPlacedCommand(MechToolset& toolset, const RunDialog& runDialog) {
  if (!toolset.checkConfiguration()) { return; }
  DefinitionStore& store = toolset.configuration().store();
  Drawer drawer(toolset.view(), store);
  if (runDialog(store, drawer)) { drawer.placeParts(); }
}
template <class Drawer, class Record>
void runPlacedCommand(MechToolset& toolset, const PlacedForm<Record>& form) {
  runPlacedCommand<Drawer>(toolset, [&](DefinitionStore& store, Drawer& drawer) {
    return PlacedDialog<Record, Drawer>(toolset.services(), store, form, drawer).run();
  });
}

}  // namespace ardenix::mech

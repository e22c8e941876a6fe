#pragma once

#include <memory>

#include "frame/host/core_services.h"
#include "mech/fastener_drawer.h"
#include "mech/fastener_options.h"
#include "mech/mech_toolset.h"
#include "mech/record_dialog.h"

namespace ardenix::mech {

// The parts of a repeat, so wide, must stand clear of each other.
template <class Record>
struct RepeatRule {
  double (*width)(const Record&);
  std::string_view message;
};
template <class Record>
using FastenerRule = std::variant<Rule<Record>, RepeatRule<Record>>;

// A condition on which a record may be stored, and the error where it is not met.
template <class Record>
struct SavingRule {
  bool (*met)(const Record&);
  std::string_view message;
};

// The dialog of a kind of fastener as data.
template <class Record>
struct FastenerForm {
  std::string_view section;
  std::span<const FastenerRule<Record>> rules;
  FastenerOptionTexts options;
  std::span<const PictureRow<Record>> pictures{};
  std::span<const SavingRule<Record>> savingRules{};
  // Paints the preview where it is not the sketch of the part's own drawer.
  void (*paint)(dialog::Canvas&, const Record&) = nullptr;
};

// The definition dialog of a fastener: its fields above the options that all fasteners share, pictures and a preview
// beside them.
template <class Record>
class FastenerDialog : public RecordDialog<Record> {
 public:
  using Drawer = FastenerOf<Record>;
  // Makes a drawer that works in the preview's view.
  using DrawerIn = std::function<std::unique_ptr<Drawer>(CCadWindow& view)>;

  FastenerDialog(const Services& services, DefinitionStore& store, const FastenerForm<Record>& form, Drawer& drawer)
      : RecordDialog<Record>(services, store, definitionKind(form.section), drawer.fields()),
        form_(form),
        drawer_(drawer),
        options_(this->box(), form.options, kOptionsRow) {
    this->addPictures(form.pictures);
    if (form.paint != nullptr) { addCanvases(); }
  }

  [[nodiscard]] ViewMode viewMode() const { return options_.viewMode(); }
  void addPreview(DrawerIn drawerIn) {
    if (form_.paint != nullptr) { return; }
    constexpr int kSide = 120;
    const int group = this->addSideGroup("Preview", 2);
    dialog::Preview preview{kSide, kSide, [this, drawerIn = std::move(drawerIn)](CCadWindow& view) {
                              const std::unique_ptr<Drawer> part = drawerIn(view);
                              part->take(this->record());
                              part->sketch();
                            }};
    dialog::addControl(this->box(), std::move(preview), {.group = group});
  }

 protected:
  void readOptions() override { options_.read(this->store()); }
  void writeOptions() override { options_.write(this->store()); }

  bool optionsComplete() override {
    if (options_.viewChosen()) { return this->choicesMade(); }
    return this->refuse(options_.firstView(), "Please select which view to draw, or both.");
  }

  bool validate() override {
    bool all = true;
    for (const FastenerRule<Record>& rule : form_.rules) {
      all = std::visit([this](const auto& one) { return this->passes(one); }, rule) && all;
    }
    return all;
  }

  bool mayBeSaved() override {
    for (const SavingRule<Record>& rule : form_.savingRules) {
      if (rule.met(this->record())) { continue; }
      ErrorMessage(rule.message, &this->box());
      return false;
    }
    return true;
  }

  // A part of an empty list keeps the name it was made with.
  void accept() override {
    Fastener& fastener = drawer_.fastener();
    std::string name = this->shownName();
    coreTrimStr(name);
    if (!name.empty()) { fastener.name = name; }
    options_.applyTo(fastener);
    drawer_.take(this->record());
  }

 private:
  static constexpr int kOptionsRow = 2;

  bool passes(const Rule<Record>& rule) { return this->meets(rule); }
  bool passes(const RepeatRule<Record>& rule) {
    const Repeat repeat = options_.repeat();
    return repeat.number <= 1 || rule.width(this->record()) <= repeat.value ||
           this->refuse(options_.repeatValue(), rule.message);
  }

  void addCanvases() {
    constexpr int kWidth = 130;
    constexpr int kPlanHeight = 55;
    constexpr int kSideHeight = 145;
    const int group = this->addSideGroup("Preview", 1);
    const auto paint = [this](dialog::Canvas& canvas) { form_.paint(canvas, this->record()); };
    addControl(this->box(), dialog::PixelCanvas{kWidth, kPlanHeight, paint}, {.group = group, .name = "Plan preview"});
    addControl(this->box(), dialog::PixelCanvas{kWidth, kSideHeight, paint},
               {.group = group, .place = {.row = 1}, .name = "Side preview"});
  }

  const FastenerForm<Record>& form_;
  Drawer& drawer_;
  FastenerOptions options_;
};

// The command of a kind: its dialog, then part after part.
template <class Drawer, class Record>
void runFastenerCommand(MechToolset& toolset, const FastenerForm<Record>& form) {
  if (!toolset.checkConfiguration()) { return; }
  DefinitionStore& store = toolset.configuration().store();
  Drawer drawer(toolset.view(), store);
  FastenerDialog<Record> dialog(toolset.services(), store, form, drawer);
  dialog.addPreview([&store](CCadWindow& view) { return std::make_unique<Drawer>(view, store); });
  if (dialog.run()) { drawFasteners(drawer, dialog.viewMode()); }
}

}  // namespace ardenix::mech

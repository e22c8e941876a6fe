#pragma once

#include "mech/definition_kinds.h"
#include "mech/mech_toolset.h"
#include "mech/record_dialog.h"

namespace ardenix::mech {

// The definition dialog of a kind of annotation: its fields, with a preview beside them.
template <class Record, class Drawer>
class AnnotationDialog : public RecordDialog<Record> {
 public:
  AnnotationDialog(MechToolset& toolset, std::string_view section, Fields<Record> fields, Drawer& drawer)
      : RecordDialog<Record>(toolset.services(), toolset.configuration().store(), definitionKind(section), fields),
        drawer_(drawer) {
    addPreview();
    this->show(Record{});
  }

 protected:
  void accept() override { drawer_.take(this->record()); }

 private:
  void addPreview() {
    constexpr int kWidth = 160;
    constexpr int kHeight = 100;
    const int group = this->addSideGroup("Preview", 1);
    dialog::Preview preview{kWidth, kHeight, [this](CCadWindow& view) {
                              Drawer drawer(view, this->store());
                              drawer.take(this->record());
                              drawer.sketch();
                            }};
    dialog::addControl(this->box(), std::move(preview), {.group = group});
  }

  Drawer& drawer_;
};

}  // namespace ardenix::mech

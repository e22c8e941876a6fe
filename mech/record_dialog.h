#pragma once

#include "mech/definition_dialog.h"
#include "mech/record_controls.h"

namespace ardenix::mech {

// A condition on the values, the field to go to and the message where it is not met.
template <class Record>
struct Rule {
  bool (*met)(const Record&);
  Member<Record> field;
  std::string_view message;
};

// A picture beside the fields: its name follows from the values, none for "".
template <class Record>
struct PictureRow {
  const char* name;
  const char* (*picture)(const Record&);
};

// The picture of an entry of a list; none where nothing is chosen.
inline const char* pictureOf(int chosen, std::span<const char* const> pictures) {
  return chosen < 0 || chosen >= static_cast<int>(pictures.size()) ? "" : pictures[static_cast<size_t>(chosen)];
}
template <class Entry>
const char* pictureOf(Entry chosen, std::span<const char* const> pictures) {
  return pictureOf(static_cast<int>(chosen), pictures);
}

// The definition dialog of a kind whose records are described by a table of fields.
template <class Record>
class RecordDialog : public DefinitionDialog {
 public:
  RecordDialog(const Services& services, DefinitionStore& store, const DefinitionKind& kind, Fields<Record> fields)
      : DefinitionDialog(services, store, kind),
        controls_(fields),
        body_(box().addGroup({.place = {.row = kBodyRow}})) {
    controls_.describe(box(), body_);
    controls_.forEach([this](const Field<Record>& field, const dialog::Handle& control) {
      follow(control, field.marksEdited, field.settlesOnLeave);
    });
  }

 protected:
  static constexpr int kBodyRow = 1;  // of the dialog's grid; rows below it are free for options

  // The values that the dialog shows; where it shows none, those of the definition.
  [[nodiscard]] Record record() const { return controls_.values(loaded_); }
  [[nodiscard]] dialog::Handle control(const Member<Record>& member) const { return controls_.of(member); }

  // Beside the fields, for pictures and previews; the fields stand in column 0.
  [[nodiscard]] int addSideGroup(std::string_view caption, int column) {
    return box().addGroup({.caption = std::string(caption), .parent = body_, .place = {.column = column}});
  }
  // Below the fields.
  [[nodiscard]] int addGroupBelow() { return box().addGroup({.parent = body_, .place = {.row = 1}}); }
  void addPictures(std::span<const PictureRow<Record>> pictures) {
    pictures_ = pictures;
    if (pictures.empty()) { return; }
    const int group = addSideGroup("", 1);
    for (const PictureRow<Record>& row : pictures) {
      const int line = static_cast<int>(shown_.size());
      shown_.push_back(addPicture(box(), {.group = group, .place = {.row = line}, .name = row.name},
                                  {.name = row.picture(record())}));
    }
  }

  // Warns of a rule that the values do not meet.
  bool meets(const Rule<Record>& rule) { return rule.met(record()) || refuse(control(rule.field), rule.message); }
  // Whether every list has a choice; tells which has none.
  bool choicesMade() { return passes(controls_.firstUnchosen()); }

  void fieldsChanged() override {
    const Record values = record();
    controls_.showFor(values);
    for (size_t i = 0; i < shown_.size(); ++i) { shown_[i].setPicture(pictures_[i].picture(values)); }
  }
  void showRecord(std::string_view text) override { show(readRecord(text, controls_.fields())); }
  void show(const Record& record) {
    loaded_ = record;
    controls_.show(loaded_);
  }
  [[nodiscard]] std::string recordText(std::string_view name) const override {
    return writeRecord(name, record(), controls_.fields());
  }

 private:
  bool passes(const std::optional<FieldProblem>& problem) {
    return !problem || refuse(problem->control, problem->message);
  }

  RecordControls<Record> controls_;
  int body_;  // the group of the fields and what stands beside them
  Record loaded_{};
  std::span<const PictureRow<Record>> pictures_;
  std::vector<dialog::PictureHandle> shown_;
};

}  // namespace ardenix::mech

#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "frame/host/dialog.h"
#include "mech/record_fields.h"

namespace ardenix::mech {

using FieldControl = std::variant<CFloatEdit, CIntEdit, dialog::CheckHandle, dialog::TextHandle, dialog::DropDownHandle,
                                  dialog::PictureListHandle>;

template <class Handle>
inline constexpr bool kIsList = std::is_base_of_v<dialog::DropDownHandle, std::remove_cvref_t<Handle>> ||
                                std::is_base_of_v<dialog::PictureListHandle, std::remove_cvref_t<Handle>>;
// The entry that is chosen in a list, with pictures or without; -1 where none is, and of other controls.
int selectedIn(const FieldControl& control);

// The control of a field, of the kind that its member asks for.
template <class Record>
class ControlMaker {
 public:
  ControlMaker(dialog::Dialog& box, const Field<Record>& field, dialog::Setting setting)
      : box_(box), field_(field), setting_(std::move(setting)) {}

  FieldControl operator()(double Record::*) {
    return withUnit(
        addFloat(box_, setting_, field_.minimum, field_.maximum, numberText::format("%%.%df", field_.decimals)));
  }
  FieldControl operator()(int Record::*) {
    return withUnit(addInteger(box_, setting_, static_cast<int>(field_.minimum), static_cast<int>(field_.maximum)));
  }
  FieldControl operator()(bool Record::*) { return addCheck(box_, setting_); }
  FieldControl operator()(std::string Record::*) { return addText(box_, setting_, field_.limit, field_.multiline); }
  FieldControl operator()(const Choice<Record>& member) {
    if (!field_.pictures.empty()) { return addPictureList(box_, setting_, member.items, field_.pictures); }
    return addDropDown(box_, setting_, {member.items.begin(), member.items.end()});
  }

 private:
  template <class Edit>
  FieldControl withUnit(const Edit& edit) {
    box_.state<dialog::NumberEdit>(edit.index()).unit = field_.unit;
    return edit;
  }

  dialog::Dialog& box_;
  const Field<Record>& field_;
  dialog::Setting setting_;
};

// Shows a member's value in its control.
template <class Record>
struct ShowMember {
  const Record& record;
  const FieldControl& control;

  void operator()(double Record::*member) const { std::get<CFloatEdit>(control).SetValue(record.*member); }
  void operator()(int Record::*member) const { std::get<CIntEdit>(control).SetValue(record.*member); }
  void operator()(bool Record::*member) const { std::get<dialog::CheckHandle>(control).setChecked(record.*member); }
  void operator()(std::string Record::*member) const { std::get<dialog::TextHandle>(control).setText(record.*member); }
  void operator()(const Choice<Record>& member) const {
    const int entry = member.get(record);
    std::visit(
        [entry](const auto& list) {
          if constexpr (kIsList<decltype(list)>) { list.select(entry); }
        },
        control);
  }
};

// Takes a member's value from its control; a list without a choice leaves what the record holds.
template <class Record>
struct TakeMember {
  Record& record;
  const FieldControl& control;

  void operator()(double Record::*member) const { record.*member = std::get<CFloatEdit>(control).GetValue(); }
  void operator()(int Record::*member) const { record.*member = std::get<CIntEdit>(control).GetValue(); }
  void operator()(bool Record::*member) const { record.*member = std::get<dialog::CheckHandle>(control).checked(); }
  void operator()(std::string Record::*member) const { record.*member = std::get<dialog::TextHandle>(control).text(); }
  void operator()(const Choice<Record>& member) const {
    if (const int entry = selectedIn(control); entry >= 0) { member.set(record, entry); }
  }
};

inline dialog::Handle handleOf(const FieldControl& control) {
  return std::visit([](const dialog::Handle& handle) { return handle; }, control);
}

// A control whose value cannot be taken, and what to say of it.
struct FieldProblem {
  dialog::Handle control;
  std::string message;
};
// A list without a choice, as a record that holds no entry of it leaves it.
std::optional<FieldProblem> unchosen(const FieldControl& control);

// The controls of a table of fields, one for each, in the table's order.
template <class Record>
class RecordControls {
 public:
  explicit RecordControls(Fields<Record> fields) : fields_(fields) {}
  [[nodiscard]] Fields<Record> fields() const { return fields_; }

  // Adds the controls to a group, two a line; fields with a box stand in it, below those before it.
  void describe(dialog::Dialog& box, int parent) {
    const int column = box.addGroup({.parent = parent});
    int group = -1;
    int groups = 0;
    int cell = 0;
    std::string_view caption;
    for (const Field<Record>& field : fields_) {
      if (group < 0 || field.box != caption) {
        caption = field.box;
        group = box.addGroup({.caption = std::string(caption), .parent = column, .place = {.row = groups++}});
        cell = 0;
      }
      controls_.push_back(std::visit(ControlMaker<Record>(box, field, settingOf(field, group, cell++)), field.member));
    }
  }

  template <class Visit>
  void forEach(Visit&& visit) const {
    for (size_t i = 0; i < controls_.size(); ++i) { visit(fields_[i], handleOf(controls_[i])); }
  }
  [[nodiscard]] dialog::Handle of(const Member<Record>& member) const {
    const auto row = std::ranges::find(fields_, member, &Field<Record>::member);
    assert(row != fields_.end());
    return handleOf(controls_.at(static_cast<size_t>(row - fields_.begin())));
  }

  void show(const Record& record) const {
    for (size_t i = 0; i < controls_.size(); ++i) {
      std::visit(ShowMember<Record>{record, controls_[i]}, fields_[i].member);
    }
  }
  // A record with the values that the controls show.
  [[nodiscard]] Record values(Record record) const {
    for (size_t i = 0; i < controls_.size(); ++i) {
      std::visit(TakeMember<Record>{record, controls_[i]}, fields_[i].member);
    }
    return record;
  }

  // Shows and enables the controls as their rules say for these values.
  void showFor(const Record& values) const {
    forEach([&](const Field<Record>& field, const dialog::Handle& control) {
      if (field.shown != nullptr) { control.show(field.shown(values)); }
      if (field.enabled != nullptr) { control.enable(field.enabled(values)); }
    });
  }

  // The first of its kind.
  [[nodiscard]] std::optional<FieldProblem> firstUnchosen() const {
    for (const FieldControl& control : controls_) {
      if (auto problem = unchosen(control)) { return problem; }
    }
    return std::nullopt;
  }

 private:
  static dialog::Setting settingOf(const Field<Record>& field, int group, int cell) {
    const std::string_view caption = field.caption.empty() ? field.label : field.caption;
    return {.caption = std::string(field.captioned ? caption : ""),
            .toolTip = std::string(field.tip),
            .group = group,
            .place = {.row = cell / 2, .column = cell % 2},
            .name = std::string(field.captioned && !field.addressed ? "" : field.label)};
  }

  Fields<Record> fields_;
  std::vector<FieldControl> controls_;
};

}  // namespace ardenix::mech

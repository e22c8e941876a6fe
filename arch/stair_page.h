#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "arch/record_chooser.h"
#include "arch/stair_records.h"
#include "frame/messages.h"

namespace ardenix::arch {

// What a page holds: its records' fields and format, and what it says of them.
template <class Record>
struct StairPageForm {
  RecordWords words;
  std::span<const StairField<Record>> fields;
  Record (*read)(std::string_view record);
  std::string (*write)(const Record& record);
  std::string_view saveTitle;
  std::string_view deleteTitle;
  std::string_view deleteQuestion;  // before the name
};

// A page of the stairs' property sheet: a list of records with their fields. Add, Delete and the question whether what
// was changed is to be saved act on the file at once.
template <class Record>
class StairPage {
 public:
  StairPage(const Services& services, ArchSpecStore& store, dialog::Dialog& dialog, const StairPageForm<Record>& form)
      : store_(store), dialog_(dialog), form_(form), chooser_(services, store, dialog, form.words) {}

  // `changed` runs whenever what is shown has changed.
  void describe(int page, std::function<void()> changed) {
    changed_ = std::move(changed);
    chooser_.describe(dialog_.addGroup({.place = {.columnSpan = 2}, .page = page}),
                      {.show = [this](int number) { show(number); },
                       .mayBeSaved = [] { return true; },
                       .record = [this](const std::string& name) { return form_.write(named(name)); },
                       .leaving = [this] { offerToSave(); },
                       .mayBeRemoved = [this] { return mayBeRemoved(); }});
    group_ = dialog_.addGroup({.place = {.row = 1}, .page = page});
    fields_.reserve(form_.fields.size());
    for (const StairField<Record>& field : form_.fields) { addField(field); }
  }
  [[nodiscard]] int group() const { return group_; }

  void open(int number) { chooser_.open(number); }
  [[nodiscard]] int number() const { return chooser_.number(); }  // 0: none

  // The record as the page shows it.
  [[nodiscard]] Record record() const { return named(shown_.name); }
  void set(const Record& record) {
    for (size_t i = 0; i < fields_.size(); ++i) { setField(i, record); }
  }
  [[nodiscard]] const dialog::Handle* field(std::string_view caption) const {
    const auto row = std::ranges::find(form_.fields, caption, &StairField<Record>::caption);
    return row == form_.fields.end() ? nullptr : &fields_[static_cast<size_t>(row - form_.fields.begin())];
  }

  // Whether what is shown can be saved under the name in the list; else says why. Without any record nothing is saved.
  [[nodiscard]] bool takeName() {
    if (number() == 0) { return true; }
    auto name = chooser_.nameToSave();
    if (!name) { return false; }
    shown_.name = *std::move(name);
    return true;
  }
  void save() const {
    if (number() > 0) { store_.writeRecord(number(), form_.write(record()), form_.words.section); }
  }

 private:
  static constexpr double kLeast = 0.01;
  static constexpr double kMost = 9999.0;

  // ---- Fields -------------------------------------------------------------------------------------------------

  void addField(const StairField<Record>& field) {
    const dialog::Setting setting{.caption = std::string(field.caption),
                                  .toolTip = std::string(field.toolTip),
                                  .group = group_,
                                  .place = {.row = static_cast<int>(fields_.size())}};
    if (std::holds_alternative<double Record::*>(field.member)) {
      fields_.push_back(addFloat(dialog_, setting, kLeast, kMost, "%.2f"));
    } else if (std::holds_alternative<int Record::*>(field.member)) {
      const CIntEdit edit = addInteger(dialog_, setting, 1, static_cast<int>(kMost));
      dialog_.state<dialog::NumberEdit>(edit.index()).spin = true;
      fields_.push_back(edit);
    } else {
      fields_.push_back(addCheck(dialog_, setting));
    }
    fields_.back().onEdit([this] { changed_(); });
    if (field.whole) { refuseFractions(fields_.back(), field.caption); }
  }
  void refuseFractions(const dialog::Handle& field, std::string_view caption) {
    const CFloatEdit edit(dialog_, field.index());
    field.onLeave([this, edit, caption] {
      if (edit.GetValue() == std::floor(edit.GetValue())) { return; }
      warn(&dialog_, "\"%s\" takes a whole number, got \"%.2f\"", caption, edit.GetValue());
      edit.focus();
    });
  }

  void setField(size_t index, const Record& record) {
    const int control = fields_[index].index();
    const auto& member = form_.fields[index].member;
    if (const auto* real = std::get_if<double Record::*>(&member)) {
      CFloatEdit(dialog_, control).SetValue(record.*(*real));
    } else if (const auto* count = std::get_if<int Record::*>(&member)) {
      CIntEdit(dialog_, control).SetValue(record.*(*count));
    } else {
      dialog::CheckHandle(dialog_, control).setChecked(record.*std::get<bool Record::*>(member));
    }
  }
  void takeField(size_t index, Record& record) const {
    const int control = fields_[index].index();
    const auto& member = form_.fields[index].member;
    if (const auto* real = std::get_if<double Record::*>(&member)) {
      record.*(*real) = CFloatEdit(dialog_, control).GetValue();
    } else if (const auto* count = std::get_if<int Record::*>(&member)) {
      record.*(*count) = CIntEdit(dialog_, control).GetValue();
    } else {
      record.*std::get<bool Record::*>(member) = dialog::CheckHandle(dialog_, control).checked();
    }
  }
  [[nodiscard]] Record named(const std::string& name) const {
    Record record;
    record.name = name;
    for (size_t i = 0; i < fields_.size(); ++i) { takeField(i, record); }
    return record;
  }

  // ---- Records ------------------------------------------------------------------------------------------------

  void show(int number) {
    if (const auto stored = store_.readRecord(form_.words.section, number)) { shown_ = form_.read(*stored); }
    set(shown_);
    changed_();
  }

  void offerToSave() {
    if (form_.write(record()) == form_.write(shown_)) { return; }
    const std::string question = numberText::format("%s has changed, to you want to save it?", shown_.name);
    if (ask(&dialog_, question, form_.saveTitle)) { save(); }
  }

  [[nodiscard]] bool mayBeRemoved() {
    return ask(&dialog_, std::string(form_.deleteQuestion).append(shown_.name).append("' ?"), form_.deleteTitle);
  }

  ArchSpecStore& store_;
  dialog::Dialog& dialog_;
  const StairPageForm<Record>& form_;
  RecordChooser chooser_;
  std::function<void()> changed_;
  std::vector<dialog::Handle> fields_;  // one for each of the form's
  int group_ = 0;
  Record shown_;  // as it was loaded
};

}  // namespace ardenix::arch

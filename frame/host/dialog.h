#pragma once

#include <algorithm>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "frame/host/dialog_description.h"
#include "frame/host/number_text.h"

// What the module makes a dialog with: the handles by which rules see its controls, and functions that add controls.
namespace dialog {

// A control of a dialog as its rules see it.
class Handle {
 public:
  Handle() = default;
  Handle(Dialog& dialog, int index) : dialog_(&dialog), index_(index) {}
  [[nodiscard]] int index() const { return index_; }
  [[nodiscard]] Control& control() const { return dialog_->control(index_); }
  void enable(bool enabled) const { dialog_->setEnabled(index_, enabled); }
  void show(bool visible) const { dialog_->setVisible(index_, visible); }
  void focus() const { dialog_->focusOn(index_); }
  void onEdit(std::function<void()> rule) const { control().onEdit = std::move(rule); }
  void onLeave(std::function<void()> rule) const { control().onLeave = std::move(rule); }
  void onPress(std::function<void()> rule) const { control().onPress = std::move(rule); }

 protected:
  template <class Kind>
  [[nodiscard]] Kind& as() const {
    return dialog_->state<Kind>(index_);
  }
  void changed() const { dialog_->changed(index_); }
  Dialog* dialog_ = nullptr;
  int index_ = -1;
};

class LabelHandle : public Handle {
 public:
  using Handle::Handle;
  void setText(std::string text) const {
    as<Label>().text = std::move(text);
    changed();
  }
};

class ReadOnlyHandle : public Handle {
 public:
  using Handle::Handle;
  void setText(std::string text) const {
    as<ReadOnlyText>().text = std::move(text);
    changed();
  }
};

class TextHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] const std::string& text() const { return as<TextEdit>().text; }
  void setText(std::string text) const {
    as<TextEdit>().text = std::move(text);
    changed();
  }
};

class CheckHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] bool checked() const { return as<CheckBox>().checked; }
  void setChecked(bool checked) const {
    as<CheckBox>().checked = checked;
    changed();
  }
};

class RadioHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] int chosen() const { return as<RadioGroup>().chosen; }
  void choose(int item) const {
    as<RadioGroup>().chosen = item;
    changed();
  }
};

class DropDownHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] const std::vector<std::string>& items() const { return as<DropDown>().items; }
  [[nodiscard]] int count() const { return static_cast<int>(items().size()); }
  [[nodiscard]] int selected() const { return as<DropDown>().selected; }
  // The text shown: the selected entry, or what was typed into an editable list.
  [[nodiscard]] std::string text() const {
    const DropDown& list = as<DropDown>();
    if (list.editable) { return list.text; }
    return list.selected >= 0 && list.selected < count() ? list.items[static_cast<size_t>(list.selected)]
                                                         : std::string();
  }
  // The last change was typed into an editable list, key by key or at once. On its way it may have been the text of
  // another entry, which the user did not mean.
  [[nodiscard]] bool typed() const { return as<DropDown>().typed; }
  void setItems(std::vector<std::string> items) const {
    as<DropDown>().items = std::move(items);
    select(-1);
  }
  void addItem(std::string item) const {
    as<DropDown>().items.push_back(std::move(item));
    changed();
  }
  void removeItem(int item) const {
    as<DropDown>().items.erase(as<DropDown>().items.begin() + item);
    changed();
  }
  // Outside the list: nothing is selected.
  void select(int item) const {
    DropDown& list = as<DropDown>();
    list.selected = item >= 0 && item < count() ? item : -1;
    list.text = list.selected >= 0 ? list.items[static_cast<size_t>(list.selected)] : std::string();
    list.typed = false;
    changed();
  }
  // For an editable list. The text of an entry selects that entry.
  void setText(std::string text) const {
    DropDown& list = as<DropDown>();
    const auto entry = std::find(list.items.begin(), list.items.end(), text);
    list.selected = entry != list.items.end() ? static_cast<int>(entry - list.items.begin()) : -1;
    list.text = std::move(text);
    changed();
  }
};

// The width in pixels of a column that holds a text of so many characters, the same at the desktop and in a script,
// since tables are drawn from it.
[[nodiscard]] constexpr int widthForText(size_t characters) {
  constexpr int kCharacter = 7;
  constexpr int kMargins = 10;
  constexpr int kLeast = 26;
  constexpr int kMost = 400;
  return std::clamp(static_cast<int>(std::min<size_t>(characters, kMost)) * kCharacter + kMargins, kLeast, kMost);
}

class PictureListHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] int selected() const { return as<PictureList>().selected; }
  // Outside the list: nothing is selected.
  void select(int item) const {
    PictureList& list = as<PictureList>();
    list.selected = item >= 0 && item < static_cast<int>(list.items.size()) ? item : -1;
    changed();
  }
};

class GridHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] Grid& grid() const { return as<Grid>(); }
  [[nodiscard]] Cell& cell(int row, int column) const {
    return grid().rows.at(static_cast<size_t>(row)).at(static_cast<size_t>(column));
  }
  // To be called after a rule changed cells.
  void update() const { changed(); }
  // Gives each column the width of its longest text.
  void sizeToContents() const {
    Grid& table = grid();
    for (size_t column = 0; column < table.columns.size(); ++column) {
      size_t longest = 0;
      for (const auto& row : table.rows) {
        longest = std::max(longest, column < row.size() ? row[column].text.size() : 0);
      }
      table.columns[column].width = widthForText(longest);
    }
    changed();
  }
};

class ColumnListHandle : public Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] ColumnList& list() const { return as<ColumnList>(); }
  // To be called after a rule changed rows or columns.
  void update() const { changed(); }
};

class PictureHandle : public Handle {
 public:
  using Handle::Handle;
  void setPicture(std::string name) const {
    as<Picture>().name = std::move(name);
    changed();
  }
};

class ButtonHandle : public Handle {
 public:
  using Handle::Handle;
};

}  // namespace dialog

// The host's own edit controls.
class CNumberEdit : public dialog::Handle {
 public:
  using Handle::Handle;
  void SetParameters(double minimum, double maximum, std::string displayFormat) const {
    dialog::NumberEdit& edit = as<dialog::NumberEdit>();
    edit.minimum = minimum;
    edit.maximum = maximum;
    edit.format = std::move(displayFormat);
    changed();
  }

 protected:
  // What the text shows while it is being typed. A field left alone keeps the digits that its format does not show.
  [[nodiscard]] double number() const {
    const dialog::NumberEdit& edit = as<dialog::NumberEdit>();
    return edit.edited ? numberText::parseTyped(edit.text).value_or(edit.value) : edit.value;
  }
  void show(double value, std::string text) const {
    dialog::NumberEdit& edit = as<dialog::NumberEdit>();
    edit.value = value;
    edit.text = std::move(text);
    edit.edited = false;
    changed();
  }
};

class CFloatEdit : public CNumberEdit {
 public:
  using CNumberEdit::CNumberEdit;
  void SetValue(double value) const {
    CNumberEdit::show(value, numberText::format(as<dialog::NumberEdit>().format, value));
  }
  // The number last set or typed; the last one accepted while the text is no number.
  [[nodiscard]] double GetValue() const { return number(); }
};

class CIntEdit : public CNumberEdit {
 public:
  using CNumberEdit::CNumberEdit;
  void SetValue(int value) const {
    CNumberEdit::show(value, numberText::format(as<dialog::NumberEdit>().format, value));
  }
  // As above, cut to the numbers that an int can hold: a text that is still being typed may be out of range.
  [[nodiscard]] int GetValue() const {
    constexpr double kLargest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(number(), -kLargest, kLargest));
  }
};

// A whole number, or none.
class COptionalIntEdit : public CIntEdit {
 public:
  using CIntEdit::CIntEdit;
  [[nodiscard]] bool IsEmpty() const { return as<dialog::NumberEdit>().text.empty(); }
  void Clear() const { CNumberEdit::show(0, ""); }
};

class CIntSpinCtrl : public CIntEdit {
 public:
  using CIntEdit::CIntEdit;
};

class CColourButton : public dialog::Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] int GetPen() const { return as<dialog::PenButton>().pen; }
  void SetPen(int pen) const {
    as<dialog::PenButton>().pen = pen;
    changed();
  }
};

// Entry i is line type i + 1.
class CLineTypeCombo : public dialog::Handle {
 public:
  using Handle::Handle;
  [[nodiscard]] int GetCurSel() const { return as<dialog::LineTypeList>().selected; }
  void SetCurSel(int index) const {
    as<dialog::LineTypeList>().selected = index;
    changed();
  }
};

namespace dialog {

// ---- Adding controls ---------------------------------------------------------------------------------

// What every control has besides its contents.
struct Setting {
  std::string caption{};
  std::string toolTip{};
  int group = 0;
  Place place{};
  std::string name{};
};

inline int addControl(Dialog& dialog, State state, Setting setting) {
  Control control;
  control.state = std::move(state);
  control.caption = std::move(setting.caption);
  control.toolTip = std::move(setting.toolTip);
  control.group = setting.group;
  control.place = setting.place;
  control.name = std::move(setting.name);
  return dialog.add(std::move(control));
}

inline CFloatEdit addFloat(Dialog& dialog, Setting setting, double minimum, double maximum, std::string format) {
  NumberEdit edit;
  edit.minimum = minimum;
  edit.maximum = maximum;
  edit.format = std::move(format);
  CFloatEdit handle(dialog, addControl(dialog, edit, std::move(setting)));
  handle.SetValue(0.0);
  return handle;
}

inline CIntEdit addInteger(Dialog& dialog, Setting setting, int minimum, int maximum) {
  NumberEdit edit;
  edit.integer = true;
  edit.minimum = minimum;
  edit.maximum = maximum;
  edit.format = "%d";
  CIntEdit handle(dialog, addControl(dialog, edit, std::move(setting)));
  handle.SetValue(minimum > 0 ? minimum : 0);
  return handle;
}

inline CIntSpinCtrl addSpin(Dialog& dialog, Setting setting, int minimum, int maximum) {
  const CIntEdit number = addInteger(dialog, std::move(setting), minimum, maximum);
  dialog.state<NumberEdit>(number.index()).spin = true;
  return {dialog, number.index()};
}

// Empty to begin with.
inline COptionalIntEdit addOptionalInteger(Dialog& dialog, Setting setting, int minimum, int maximum) {
  const CIntEdit edit = addInteger(dialog, std::move(setting), minimum, maximum);
  dialog.state<NumberEdit>(edit.index()).mayBeEmpty = true;
  const COptionalIntEdit handle(dialog, edit.index());
  handle.Clear();
  return handle;
}

inline TextHandle addText(Dialog& dialog, Setting setting, int limit = 255, bool multiline = false) {
  return {dialog, addControl(dialog, TextEdit{"", limit, multiline}, std::move(setting))};
}

inline LabelHandle addLabel(Dialog& dialog, Setting setting, std::string text) {
  return {dialog, addControl(dialog, Label{std::move(text)}, std::move(setting))};
}

inline ReadOnlyHandle addReadOnly(Dialog& dialog, Setting setting) {
  return {dialog, addControl(dialog, ReadOnlyText{}, std::move(setting))};
}

inline CheckHandle addCheck(Dialog& dialog, Setting setting) {
  return {dialog, addControl(dialog, CheckBox{}, std::move(setting))};
}

inline RadioHandle addRadio(Dialog& dialog, Setting setting, std::vector<RadioItem> items, int chosen = 0) {
  return {dialog, addControl(dialog, RadioGroup{std::move(items), chosen}, std::move(setting))};
}

inline DropDownHandle addDropDown(Dialog& dialog, Setting setting, std::vector<std::string> items = {}) {
  DropDown list;
  list.items = std::move(items);
  return {dialog, addControl(dialog, std::move(list), std::move(setting))};
}

// A list that also takes any text.
inline DropDownHandle addEditableList(Dialog& dialog, Setting setting, std::vector<std::string> items = {}) {
  DropDown list;
  list.items = std::move(items);
  list.editable = true;
  return {dialog, addControl(dialog, std::move(list), std::move(setting))};
}

// Captions and pictures, one for each entry; an entry without a picture has "".
inline PictureListHandle addPictureList(Dialog& dialog, Setting setting, std::span<const char* const> captions,
                                        std::span<const char* const> pictures) {
  PictureList list;
  list.items.reserve(captions.size());
  for (size_t item = 0; item < captions.size(); ++item) { list.items.push_back({captions[item], pictures[item]}); }
  return {dialog, addControl(dialog, std::move(list), std::move(setting))};
}

inline GridHandle addGrid(Dialog& dialog, Setting setting, Grid grid) {
  return {dialog, addControl(dialog, std::move(grid), std::move(setting))};
}

inline ColumnListHandle addColumnList(Dialog& dialog, Setting setting, std::vector<ListColumn> columns) {
  return {dialog, addControl(dialog, ColumnList{std::move(columns), {}, -1}, std::move(setting))};
}

inline PictureHandle addPicture(Dialog& dialog, Setting setting, Picture picture) {
  return {dialog, addControl(dialog, std::move(picture), std::move(setting))};
}

inline CColourButton addPen(Dialog& dialog, Setting setting) {
  return {dialog, addControl(dialog, PenButton{}, std::move(setting))};
}

inline CLineTypeCombo addLineType(Dialog& dialog, Setting setting) {
  return {dialog, addControl(dialog, LineTypeList{}, std::move(setting))};
}

inline ButtonHandle addButton(Dialog& dialog, Setting setting, ButtonRole role = ButtonRole::kPlain) {
  return {dialog, addControl(dialog, Button{role}, std::move(setting))};
}

}  // namespace dialog

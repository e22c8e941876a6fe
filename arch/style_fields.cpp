#include "arch/style_fields.h"

#include "frame/drafting/scratch_layer.h"
#include "frame/messages.h"
#include "frame/names.h"

namespace ardenix::arch {

// ---- Numbers ------------------------------------------------------------------------------------------------

CFloatEdit addNumber(dialog::Dialog& dialog, const NumberRow& row, int group, dialog::Place place) {
  return addFloat(
      dialog,
      {.caption = std::string(row.caption), .toolTip = std::string(row.toolTip), .group = group, .place = place},
      kLeastNumber, kLargestNumber, std::string(row.format));
}

// ---- Pen and line type --------------------------------------------------------------------------------------

void StyleFields::describe(dialog::Dialog& dialog, std::string_view what, int group, dialog::Place place) {
  const std::string before = what.empty() ? "" : std::string(what) + " ";
  pen_ = addPen(dialog, {.caption = before + (what.empty() ? "Pen" : "pen"),
                         .toolTip = "The pen of the lines drawn",
                         .group = group,
                         .place = place});
  ++place.row;
  linetype_ = addLineType(dialog, {.caption = before + (what.empty() ? "Line type" : "line type"),
                                   .toolTip = "The line type of the lines drawn",
                                   .group = group,
                                   .place = place});
}

void StyleFields::show(const LineStyle& style) const {
  pen_.SetPen(style.pen);
  linetype_.SetCurSel(style.linetype - 1);
}

void StyleFields::take(LineStyle& style) const {
  style.pen = pen_.GetPen();
  style.linetype = linetype_.GetCurSel() + 1;
}

// ---- Layers -------------------------------------------------------------------------------------------------

void LayerFields::describe(dialog::Dialog& dialog, std::vector<Row> rows, dialog::Place place, int parent) {
  dialog_ = &dialog;
  const int group =
      dialog.addGroup({.caption = rows.size() > 1 ? "Layer names:" : "", .parent = parent, .place = place});
  fields_.reserve(rows.size());
  for (Row& row : rows) {
    const int line = static_cast<int>(fields_.size());
    const auto list = addEditableList(
        dialog, {.caption = row.caption, .toolTip = row.toolTip, .group = group, .place = {.row = line}});
    fields_.push_back({std::move(row), list});
  }
}

void LayerFields::show() const {
  for (const Field& field : fields_) {
    field.list.setItems(store_.layersAndSetting(section_, field.row.key));
    field.list.setText(store_.readString(section_, field.row.key, ""));
  }
}

std::string LayerFields::nameIn(const Field& field) {
  std::string name = field.list.text();
  cleanName(name, true);
  return name;
}

bool LayerFields::mayBeSaved() const {
  for (const Field& field : fields_) {
    if (!isScratchName(nameIn(field))) { continue; }
    warn(dialog_, "The layer \"%s\" holds parts in the making only.", nameIn(field));
    field.list.focus();
    return false;
  }
  return true;
}

void LayerFields::take(std::span<std::string> names) const {
  for (size_t row = 0; row < fields_.size(); ++row) { names[row] = nameIn(fields_[row]); }
}

void LayerFields::write() const {
  for (const Field& field : fields_) { store_.writeString(section_, field.row.key, nameIn(field)); }
}

}  // namespace ardenix::arch

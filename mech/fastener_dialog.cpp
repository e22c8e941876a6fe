#include "mech/fastener_dialog.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"

namespace ardenix {

namespace {

constexpr double kLongestField = 10000.0;
constexpr int kBodyRow = 1;
constexpr int kOptionsRow = 2;

}  // namespace

FastenerDialog::FastenerDialog(const Services& services, DefinitionStore& store, const FastenerForm& form,
                               FastenerDrawer& drawer)
    : DefinitionDialog(services, store, definitionKind(form.section), form.fields),
      rows_(form.rows),
      drawer_(drawer),
      body_(box().addGroup({.place = {.row = kBodyRow}})) {
  addFields();
  options_.emplace(box(), form.options, kOptionsRow);
}

void FastenerDialog::addFields() {
  const int fields = box().addGroup({.parent = body_});
  int group = -1;
  int boxes = 0;
  int cell = 0;
  std::string_view caption;
  for (const FieldRow& row : rows_) {
    if (group < 0 || row.box != caption) {
      caption = row.box;
      group = box().addGroup({.caption = row.box, .parent = fields, .place = {.row = boxes++}});
      cell = 0;
    }
    addField(row, group, cell++);
  }
}

void FastenerDialog::addField(const FieldRow& row, int group, int cell) {
  const dialog::Setting setting{.caption = row.caption,
                                .toolTip = row.toolTip,
                                .group = group,
                                .place = {.row = cell / 2, .column = cell % 2},
                                .name = row.name};
  if (row.items.empty()) {
    addNumberField(row.field, setting, kLongestField);
  } else {
    addListField(row.field, setting, {row.items.begin(), row.items.end()});
  }
}

int FastenerDialog::addPictureGroup(std::string_view caption) {
  return box().addGroup({.caption = std::string(caption), .parent = body_, .place = {.column = 1}});
}

void FastenerDialog::addPreview(DrawerIn drawerIn) {
  constexpr int kWidth = 120;
  constexpr int kHeight = 120;
  const int group = box().addGroup({.caption = "Preview", .parent = body_, .place = {.column = 2}});
  dialog::Preview preview{kWidth, kHeight, [this, drawerIn = std::move(drawerIn)](CCadWindow& view) {
                            const std::unique_ptr<FastenerDrawer> part = drawerIn(view);
                            part->take(values());
                            part->sketch();
                          }};
  dialog::addControl(box(), std::move(preview), {.group = group});
}

bool FastenerDialog::repeatClears(double width) const {
  const Repeat repeat = options_->repeat();
  return repeat.number <= 1 || width <= repeat.value;
}

void FastenerDialog::showChoice(const dialog::PictureHandle& picture, size_t field,
                                std::span<const char* const> pictures) const {
  const int chosen = choice(field);
  picture.setPicture(chosen < 0 ? "" : pictures[static_cast<size_t>(chosen)]);
}

bool FastenerDialog::optionsComplete() {
  if (options_->viewChosen()) { return choicesMade(); }
  warn(&box(), "Please select which view to draw, or both.");
  options_->firstView().focus();
  return false;
}

// A record that holds no entry of a list leaves the list without a choice.
bool FastenerDialog::choicesMade() {
  for (const FieldRow& row : rows_) {
    if (row.items.empty() || choice(row.field) >= 0) { continue; }
    const dialog::Handle list = control(row.field);
    warn(&box(), "Please select a %s from its list.", list.control().caption);
    list.focus();
    return false;
  }
  return true;
}

// A part of an empty list keeps the name it was made with.
void FastenerDialog::accept() {
  Fastener& fastener = drawer_.fastener();
  std::string name = shownName();
  coreTrimStr(name);
  if (!name.empty()) { fastener.name = name; }
  options_->applyTo(fastener);
  drawer_.take(values());
}

}  // namespace ardenix

#include "mech/list_command.h"

#include <algorithm>
#include <array>

#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/messages.h"

namespace ardenix::mech {

namespace {

constexpr int kListRow = 1;
constexpr int kButtonRow = 2;
constexpr int kClosingRow = 3;

}  // namespace

ListCommand::ListCommand(MechToolset& toolset, const ListTrade& trade)
    : services_(toolset.services()),
      view_(toolset.view()),
      trade_(trade),
      dialog_(std::string(trade.title)),
      options_(dialog_.addGroup({.caption = "Options"})),
      buttons_(dialog_.addGroup({.place = {.row = kButtonRow}})),
      list_(addColumnList(
          dialog_,
          {.toolTip = std::string(trade.listTip), .place = {.row = kListRow}, .name = std::string(trade.listName)},
          {})) {
  equip(dialog_, services_, helpTopic(trade.help));
  addOkCancel(dialog_, kClosingRow);
  dialog_.onOk = [this] { return confirm(); };
}

void ListCommand::addPickButton(std::string caption, std::string toolTip, int column, std::function<bool()> pickOne) {
  addButton(
      dialog_,
      {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = buttons_, .place = {.column = column}})
      .onPress([this, pickOne = std::move(pickOne)] {
        picks_ = pickOne;
        dialog_.close(false);
      });
}

void ListCommand::addFrameChoice(std::string toolTip, dialog::Place place) {
  frame_ =
      addCheck(dialog_, {.caption = "Draw frame", .toolTip = std::move(toolTip), .group = options_, .place = place});
  frame_.setChecked(true);
}

void ListCommand::run() {
  for (;;) {
    picks_ = nullptr;
    if (services_.mainFrame->RunDialog(dialog_, services_.mainFrame)) { place(); }
    if (!picks_) { break; }
    pick(picks_);
  }
  endPart(view_);
  view_.gsSetViewDirty(1);
  view_.gsRefresh();
}

void ListCommand::pick(const std::function<bool()>& pickOne) {
  view_.SetFocus();
  while (pickOne()) {}
  donePicking();
  view_.gsSetViewDirty(1);
  view_.gsRefresh();
}

void ListCommand::showRows(std::vector<TableRow> rows) const {
  for (const TableRow& row : rows) { widenFor(row); }
  list_.list().rows = std::move(rows);
  list_.update();
}

// What the user made wider stays.
void ListCommand::widenFor(const TableRow& row) const {
  auto& columns = list_.list().columns;
  for (size_t column = 0; column < row.size() && column < columns.size(); ++column) {
    columns[column].width = std::max(columns[column].width, pixelsForText(view_, row[column]));
  }
}

std::string ListCommand::textAt(Point at) const {
  constexpr size_t kLongest = 15;
  std::array<char, kLongest + 1> text{};
  Point origin;
  if (view_.gsNearestPrim(kTextPrimitive, at.x, at.y) != 0) {
    view_.gsGetText(origin.x, origin.y, text.data(), static_cast<int>(text.size()));
  } else {
    view_.gsSetStatus("No text lies near this point.");
  }
  return text.data();
}

// ---- OK -------------------------------------------------------------------------------------------------------

bool ListCommand::confirm() {
  if (!list_.list().rows.empty() && ask(&dialog_, trade_.saveQuestion, "")) { save(); }
  return true;
}

void ListCommand::save() {
  std::string path;
  if (coreChooseFile(&dialog_, false, kTextFilesFilter, "txt", "*.txt", path) == 0) { return; }
  writeLines(path, fileLines(), view_, &dialog_);
}

void ListCommand::place() {
  if (list_.list().rows.empty() || !mayDrawOn(view_, view_.gsGetCurrentLayerName())) { return; }
  const auto origin = askPlace(view_, trade_.placePrompt);
  if (!origin) { return; }
  DrawnList list = drawn();
  ListTable table = listTable(view_, trade_.kind, list.pixels);
  table.frame = frame_.checked();
  table.rows = std::move(list.rows);
  drawListTable(view_, table, *origin);
  placed();
}

}  // namespace ardenix::mech

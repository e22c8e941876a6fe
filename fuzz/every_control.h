#pragma once

#include <string>
#include <vector>

#include "frame/host/dialog.h"

// A dialog with one control of each kind that a user can operate, and a log of the rules that ran.
class EveryControl {
 public:
  dialog::Dialog dialog{"Every Control"};
  std::vector<std::string> log;
  CFloatEdit length;
  CIntEdit count;
  CIntSpinCtrl copies;
  dialog::TextHandle name;
  dialog::TextHandle notes;
  dialog::CheckHandle plan;
  dialog::RadioHandle side;
  dialog::DropDownHandle thread;
  int material = 0;
  int pictures = 0;
  int sizes = 0;
  int rows = 0;
  int tree = 0;
  CColourButton pen;
  CLineTypeCombo lineType;
  int grid = 0;
  int tabs = 0;
  dialog::ButtonHandle apply;
  dialog::ButtonHandle ok;
  dialog::ButtonHandle cancel;
  int topWidth = 0;
  int bottomWidth = 0;

  EveryControl() {
    using namespace dialog;
    length = addFloat(dialog, {.caption = "&Length:"}, 0.0, 10000.0, "%.3f");
    count = addInteger(dialog, {.caption = "Number ="}, 1, 50);
    copies = addSpin(dialog, {.caption = "Copies"}, 1, 3);
    name = addText(dialog, {.caption = "Name"}, 8);
    notes = addText(dialog, {.caption = "Notes"}, 40, true);
    plan = addCheck(dialog, {.caption = "&Plan"});
    side = addRadio(dialog, {.caption = "Side"}, {{"&Left", ""}, {"Right", ""}, {"Both", "", false}});
    thread = addDropDown(dialog, {.caption = "Thread"}, {"Coarse", "Fine"});
    DropDown steels;
    steels.items = {"8.8", "10.9"};
    steels.editable = true;
    material = addControl(dialog, steels, {.caption = "Material"});
    pictures = addControl(dialog, PictureList{{{"Plain", "plain"}, {"Slotted", "slotted"}}, 0}, {.caption = "Head"});
    sizes = addControl(dialog, ListBox{{"M8", "M10", "M12"}, true, {false, false, false}}, {.caption = "Sizes"});
    rows = addControl(dialog, ColumnList{{{"Size", 80}, {"Pitch", 60}}, {{"M8", "1.25"}, {"M10", "1.5"}}, -1},
                      {.caption = "Table"});
    tree = addControl(dialog, Tree{{{"Windows", {{"W1200", {}}, {"W900", {}}}}, {"Doors", {{"D813", {}}}}}, {}},
                      {.caption = "Symbols"});
    pen = addPen(dialog, {.caption = "Pen"});
    lineType = addLineType(dialog, {.caption = "Line type"});
    grid = addControl(dialog, cells(), {.name = "Walls"});
    tabs = addControl(dialog, Tabs{{"General", "Details"}, 0}, {.name = "Pages"});
    apply = addButton(dialog, {.caption = "&Apply"});
    const int top = dialog.addGroup({.caption = "&Top"});
    const int bottom = dialog.addGroup({.caption = "Bottom"});
    topWidth = addFloat(dialog, {.caption = "Width", .group = top}, 0, 10, "%.1f").index();
    bottomWidth = addFloat(dialog, {.caption = "Width", .group = bottom}, 0, 10, "%.1f").index();
    const int unseen = dialog.addGroup({"Unseen", 0, {}, -1, false});
    addText(dialog, {.caption = "Secret", .group = unseen});
    addLabel(dialog, {.caption = "Hint"}, "Millimetres");
    addPicture(dialog, {.name = "Sketch"}, Picture{"bolt"});
    addControl(dialog, MenuBar{{menu()}}, {.name = "Menu"});
    ok = addButton(dialog, {.caption = "OK"}, ButtonRole::kOk);
    cancel = addButton(dialog, {.caption = "Cancel"}, ButtonRole::kCancel);
    noteRules();
  }

 private:
  static dialog::Grid cells() {
    using namespace dialog;
    Grid grid;
    grid.columns = {{"Name", ""}, {"Width", ""}, {"Pen", ""}, {"Kind", ""}, {"Shown", ""}, {"Area", ""}};
    const auto cell = [](CellKind kind, const char* text) { return Cell{.kind = kind, .text = text}; };
    const Cell width{.kind = CellKind::kNumber, .text = "1.0", .minimum = 0.5, .maximum = 9.5, .format = "%.1f"};
    const Cell kind{.kind = CellKind::kList, .text = "Brick", .items = {"Brick", "Stone"}};
    const Cell area{.kind = CellKind::kText, .text = "12", .readOnly = true};
    grid.rows.assign(
        2, {cell(CellKind::kText, "W"), width, cell(CellKind::kPen, "1"), kind, cell(CellKind::kCheck, "0"), area});
    return grid;
  }

  dialog::MenuItem menu() {
    const auto item = [this](const char* caption, bool enabled, const char* said) {
      return dialog::MenuItem{caption, enabled, false, {}, [this, said] { log.emplace_back(said); }};
    };
    const dialog::MenuItem separator{"", true, false, {}, {}};
    return {"&Actions",
            true,
            false,
            {item("&Import Data", true, "import"), separator, item("Delete", false, "delete")},
            {}};
  }

  void noteRules() {
    for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
      dialog::Control& control = dialog.control(index);
      const std::string called = control.name.empty() ? dialog::plainCaption(control.caption) : control.name;
      control.onEdit = [this, called] { log.push_back("edit " + called); };
      control.onLeave = [this, called] { log.push_back("leave " + called); };
      control.onFocus = [this, called] { log.push_back("focus " + called); };
      control.onPress = [this, called] { log.push_back("press " + called); };
    }
    auto& walls = dialog.state<dialog::Grid>(grid);
    const auto note = [this](const char* what) {
      return [this, what](int row, int column) {
        log.push_back(std::string(what) + ' ' + std::to_string(row) + ' ' + std::to_string(column));
      };
    };
    walls.onCellEdit = note("cell edit");
    walls.onCellPress = note("cell press");
    walls.onCellRightClick = note("cell rightclick");
    walls.onCellSelect = note("cell select");
    walls.onCellClick = note("cell click");
    walls.onInsertRow = [this](int row) { log.push_back("insert row " + std::to_string(row)); };
    dialog.onCancel = [this] {
      log.emplace_back("cancel");
      return name.text() != "KEPT";
    };
    dialog.onOk = [this] {
      log.emplace_back("ok");
      return name.text() != "WRONG";
    };
  }
};

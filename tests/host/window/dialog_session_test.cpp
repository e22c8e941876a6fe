#include "host/window/dialog_session.h"

#include <gtest/gtest.h>

#include "fuzz/every_control.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;
using Log = std::vector<std::string>;

class DialogUse : public HostSession {
 protected:
  EveryControl every_;
  std::optional<DialogSession> session_;

  void open(const std::string& answers = "") {
    start(answers);
    session_.emplace(every_.dialog, user(), nullptr);
    session_->open();
    every_.log.clear();
  }
  void SetUp() override { open(); }
  int at(const std::string& address) { return controlAt(every_.dialog, address); }
  std::string valueOf(const std::string& address) { return valueText(every_.dialog.control(at(address)).state); }
  // Why it was refused, "" where it was taken.
  static std::string why(const DialogSession::Refusal& refusal) { return refusal.value_or(""); }
  Log takeLog() { return std::exchange(every_.log, {}); }
};

TEST_F(DialogUse, ANumberIsTakenAsAPersonTypesItOrRefusedWithItsRule) {
  for (const auto& [typed, shown] :
       {std::pair{"40", "40.000"}, {"1,5", "1.500"}, {" +7 ", "7.000"}, {"0", "0.000"}, {"1e4", "10000.000"}}) {
    EXPECT_EQ(why(session_->setText(at("Length"), typed)), "");
    EXPECT_EQ(valueOf("Length"), shown);
  }
  for (const char* typed : {"4O", "", "10000.1", "-1", "nan", "1e400", "1,5,0", "1.5mm"}) {
    EXPECT_EQ(why(session_->setText(at("Length"), typed)),
              std::string("\"Length\" takes 0 to 10000, got \"") + typed + '"');
    EXPECT_EQ(every_.dialog.focus(), at("Length")) << "a refused field keeps the focus";
    EXPECT_NE(why(session_->check(at("Plan"), true)), "") << "nothing else can be done before it is mended";
    EXPECT_FALSE(every_.plan.checked());
  }
  EXPECT_EQ(every_.length.GetValue(), 10000.0) << "the value last accepted";
  EXPECT_EQ(why(session_->setText(at("Length"), "5")), "");
  EXPECT_EQ(why(session_->setText(at("Number ="), "2.5")),
            "\"Number =\" takes a whole number from 1 to 50, got \"2.5\"");
  EXPECT_EQ(why(session_->setText(at("Number ="), "7")), "");
  EXPECT_EQ(every_.count.GetValue(), 7);
}

TEST_F(DialogUse, ANumberThatMayBeLeftOut) {
  COptionalIntEdit edit = dialog::addOptionalInteger(every_.dialog, {.caption = "Building"}, 1, 50);
  EXPECT_EQ(why(session_->setText(at("Building"), "7")), "");
  EXPECT_EQ(edit.GetValue(), 7);
  EXPECT_EQ(why(session_->setText(at("Building"), "")), "");
  EXPECT_TRUE(edit.IsEmpty());
  EXPECT_EQ(edit.GetValue(), 0);
  EXPECT_EQ(why(session_->setText(at("Building"), "51")), "\"Building\" takes a whole number from 1 to 50, got \"51\"");
}

TEST_F(DialogUse, ANumberLeftAloneKeepsTheDigitsThatAreNotShown) {
  every_.length.SetValue(22.15004);
  EXPECT_EQ(valueOf("Length"), "22.150");
  EXPECT_EQ(why(session_->setText(at("Number ="), "7")), "");
  EXPECT_EQ(every_.length.GetValue(), 22.15004);
  EXPECT_EQ(why(session_->setText(at("Length"), "22.15")), "");
  EXPECT_EQ(every_.length.GetValue(), 22.15);
}

TEST_F(DialogUse, TypingRaisesTheEditRuleAtEachKey) {
  session_->focus(at("Number ="));
  takeLog();
  EXPECT_EQ(why(session_->typeText(at("Name"), "abc")), "");
  EXPECT_EQ(takeLog(), (Log{"leave Number =", "focus Name", "edit Name", "edit Name", "edit Name"}));
  EXPECT_EQ(why(session_->typeText(at("Name"), "")), "");
  EXPECT_EQ(takeLog(), Log{"edit Name"});
  EXPECT_EQ(every_.name.text(), "");
  EXPECT_EQ(why(session_->setText(at("Name"), "set")), "");
  EXPECT_EQ(takeLog(), (Log{"edit Name", "leave Name"}));
  EXPECT_EQ(why(session_->setText(at("Name"), "ninechars")), "\"Name\" takes at most 8 characters");
  EXPECT_EQ(why(session_->setText(at("Name"), "a\nb")), "\"Name\" takes one line");
  EXPECT_EQ(every_.name.text(), "set") << "what was refused is not taken";
  EXPECT_EQ(why(session_->setText(at("Notes"), "a\nb")), "");
}

TEST_F(DialogUse, EveryAddressLeadsBackToItsControl) {
  for (int index = 0; index < static_cast<int>(every_.dialog.controls().size()); ++index) {
    EXPECT_EQ(at(addressOf(every_.dialog, index)), index) << addressOf(every_.dialog, index);
  }
  EXPECT_EQ(at("length"), every_.length.index()) << "case counts for nothing";
  EXPECT_EQ(at("TOP/width"), every_.topWidth);
  EXPECT_EQ(at("Width"), -2) << "two of this caption";
  EXPECT_EQ(at("Walls"), every_.grid) << "a fixed name";
  EXPECT_EQ(at("Height"), -1);
  // One of the three stands in no group, and its plain caption means it alone.
  const int plain = dialog::addFloat(every_.dialog, {.caption = "Width"}, 0, 1, "%.1f").index();
  EXPECT_EQ(at(addressOf(every_.dialog, plain)), plain);
  EXPECT_EQ(at("Bottom/Width"), every_.bottomWidth);
}

TEST_F(DialogUse, WhatIsHiddenOrDisabledIsRefused) {
  const std::vector<std::pair<std::string, std::function<DialogSession::Refusal(int)>>> uses = {
      {"Name", [&](int c) { return session_->setText(c, "x"); }},
      {"Name", [&](int c) { return session_->typeText(c, "x"); }},
      {"Copies", [&](int c) { return session_->spin(c, true); }},
      {"Plan", [&](int c) { return session_->check(c, true); }},
      {"Thread", [&](int c) { return session_->choose(c, "Fine"); }},
      {"Apply", [&](int c) { return session_->press(c); }},
      {"Cancel", [&](int c) { return session_->press(c); }},
      {"OK", [&](int c) { return session_->press(c); }},
      {"Walls", [&](int c) { return session_->editCell(c, 1, "Name", "x"); }},
      {"Length", [&](int c) { return session_->focus(c); }},
      {"Table", [&](int c) { return session_->setColumnWidth(c, "Size", 50); }},
      {"Sizes", [&](int c) { return session_->chooseSeveral(c, {"M8"}); }}};
  session_->focus(at("Notes"));
  takeLog();
  for (const auto& [address, use] : uses) {
    const int control = at(address);
    every_.dialog.setEnabled(control, false);
    EXPECT_EQ(why(use(control)), '"' + address + "\" is disabled");
    every_.dialog.setEnabled(control, true);
    every_.dialog.setVisible(control, false);
    EXPECT_EQ(why(use(control)), '"' + address + "\" is hidden");
    every_.dialog.setVisible(control, true);
  }
  every_.dialog.setGroupVisible(every_.dialog.control(every_.topWidth).group, false);
  EXPECT_EQ(why(session_->setText(every_.topWidth, "1")), "\"Top/Width\" is hidden");
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_FALSE(session_->closed());
  EXPECT_EQ(every_.dialog.focus(), at("Notes"));
}

TEST_F(DialogUse, WhatCannotBeOperatedSaysSo) {
  session_->focus(at("Notes"));
  takeLog();
  EXPECT_NE(why(session_->setText(at("Hint"), "x")), "");
  EXPECT_NE(why(session_->focus(at("Sketch"))), "");
  EXPECT_EQ(every_.dialog.focus(), at("Notes")) << "the focus does not come to a label";
  const DialogSession::Refusal refusals[] = {
      session_->setText(at("Pen"), "0"),   session_->spin(at("Length"), true),
      session_->check(at("Length"), true), session_->choose(at("Length"), "5"),
      session_->press(at("Name")),         session_->editCell(at("Name"), 1, "Width", "5")};
  for (const DialogSession::Refusal& refusal : refusals) { EXPECT_NE(why(refusal), "") << &refusal - refusals; }
}

TEST_F(DialogUse, PressingOkChecksThenAsksThenCloses) {
  every_.length.SetValue(-5.0);  // what was not edited is not checked
  EXPECT_EQ(why(session_->focus(at("Length"))) + why(session_->focus(at("Name"))) + why(session_->press(at("OK"))), "");
  EXPECT_TRUE(session_->accepted());
  open();
  session_->typeText(at("Length"), "4O");
  takeLog();
  EXPECT_NE(why(session_->press(at("OK"))), "");
  EXPECT_EQ(takeLog(), Log{});
  session_->typeText(at("Length"), "40");
  session_->typeText(at("Name"), "WRONG");
  takeLog();
  EXPECT_EQ(why(session_->press(at("OK"))), "");
  EXPECT_EQ(takeLog(), (Log{"leave Name", "focus OK", "leave OK", "ok"}));
  EXPECT_FALSE(session_->closed()) << "OK's rule kept it open";
  session_->setText(at("Name"), "RIGHT");
  session_->press(at("OK"));
  EXPECT_TRUE(session_->closed() && session_->accepted());
}

TEST_F(DialogUse, CancelClosesWhateverTheFieldsHold) {
  for (const bool button : {true, false}) {
    open();
    session_->typeText(at("Length"), "4O");
    takeLog();
    button ? static_cast<void>(session_->press(at("Cancel"))) : session_->cancel();
    EXPECT_EQ(takeLog(), Log{"cancel"});
    EXPECT_TRUE(session_->closed() && !session_->accepted());
  }
}

TEST_F(DialogUse, CancelMayBeRefused) {
  session_->typeText(at("Name"), "KEPT");
  session_->press(at("Cancel"));
  session_->perform({Verb::kClose});
  EXPECT_FALSE(session_->closed());
  session_->typeText(at("Name"), "");
  session_->perform({Verb::kClose});
  EXPECT_TRUE(session_->closed() && !session_->accepted());
}

TEST_F(DialogUse, OpenedAgainItStartsAtItsFirstControl) {
  session_->focus(at("Apply"));
  session_->cancel();
  open();
  EXPECT_EQ(every_.dialog.focus(), every_.length.index());
  every_.dialog.onOpen = [this] { every_.name.focus(); };
  open();
  EXPECT_EQ(every_.dialog.focus(), every_.name.index()) << "where the opening rule put it";
}

TEST_F(DialogUse, ChoicesOfEveryKind) {
  const std::vector<std::array<std::string, 3>> choices = {
      {"Side", "right", "Right"},      {"Thread", "Fine", "Fine"}, {"Material", "10.9", "10.9"},
      {"Head", "Slotted", "Slotted"},  {"Table", "M10", "M10"},    {"Line type", "21", "21"},
      {"Pages", "Details", "Details"}, {"Sizes", "M12", "M12"}};
  for (const auto& [address, item, shown] : choices) {
    takeLog();
    EXPECT_EQ(why(session_->choose(at(address), item)), "") << address;
    EXPECT_EQ(valueOf(address), shown);
    EXPECT_EQ(every_.log.back(), "edit " + address);
    EXPECT_NE(why(session_->choose(at(address), "no such")), "") << address;
    EXPECT_EQ(valueOf(address), shown) << "a refused choice changes nothing";
  }
  EXPECT_EQ(why(session_->choose(at("Side"), "Both")), "\"Both\" is disabled");
  EXPECT_EQ(why(session_->choose(at("Thread"), "M8")), "\"Thread\" has no entry \"M8\", it has \"Coarse\", \"Fine\"");
  EXPECT_EQ(why(session_->setText(at("Material"), "A2-70")), "") << "an editable list takes any text";
  EXPECT_EQ(valueOf("Material"), "A2-70");
  EXPECT_EQ(why(session_->chooseSeveral(at("Sizes"), {"M8", "m12"})), "");
  EXPECT_EQ(valueOf("Sizes"), "M8\nM12");
  EXPECT_NE(why(session_->chooseSeveral(at("Sizes"), {"M8", "M99"})), "");
  EXPECT_EQ(valueOf("Sizes"), "M8\nM12");
  takeLog();
  EXPECT_EQ(why(session_->check(at("Plan"), false)), "");
  EXPECT_EQ(std::count(every_.log.begin(), every_.log.end(), "edit Plan"), 0)
      << "unchecking what is unchecked is no edit";
}

TEST_F(DialogUse, SpinStaysWithinItsRange) {
  for (const char* shown : {"2", "3", "3"}) {
    EXPECT_EQ(why(session_->spin(at("Copies"), true)), "");
    EXPECT_EQ(valueOf("Copies"), shown);
  }
  session_->typeText(at("Copies"), "x");
  EXPECT_EQ(why(session_->spin(at("Copies"), false)), "");
  EXPECT_EQ(why(session_->leave()), "");
  EXPECT_GE(every_.copies.GetValue(), 1);
}

TEST_F(DialogUse, GridCellsAreTypedAndCountedFromOne) {
  const int walls = at("Walls");
  auto& rows = every_.dialog.state<dialog::Grid>(walls).rows;
  EXPECT_EQ(why(session_->editCell(walls, 2, "width", "2,25")), "");
  EXPECT_EQ(rows[1][1].text, "2.2");
  EXPECT_EQ(takeLog(), (Log{"leave Length", "focus Walls", "cell select 1 1", "cell edit 1 1", "edit Walls"}));
  const std::vector<std::array<std::string, 3>> refused = {
      {"Width", "0.4", "\"Width\" takes 0.5 to 9.5, got \"0.4\""},
      {"Width", "4O", "\"Width\" takes 0.5 to 9.5, got \"4O\""},
      {"Pen", "257", "\"Pen\" takes a whole number from 1 to 256, got \"257\""},
      {"Kind", "Wood", "\"Kind\" has no entry \"Wood\""},
      {"Shown", "yes", "\"Shown\" takes 0 or 1"},
      {"Area", "1", "\"Area\" cannot be edited in this row"},
      {"Height", "1", "\"Walls\" has no column \"Height\""}};
  for (const auto& [column, text, rule] : refused) { EXPECT_EQ(why(session_->editCell(walls, 1, column, text)), rule); }
  EXPECT_EQ(rows[0][1].text, "1.0");
  const std::pair<int, const char*> outside[] = {{1, ""}, {3, "Name"}, {0, "Name"}};  // a row's heading is no cell
  for (const auto& [row, column] : outside) { EXPECT_NE(why(session_->editCell(walls, row, column, "x")), "") << row; }
  takeLog();
  EXPECT_EQ(why(session_->clickCell(walls, 1, "", DialogSession::Click::kRight)), "");
  EXPECT_EQ(why(session_->clickCell(walls, 2, "Kind", DialogSession::Click::kPress)), "");
  EXPECT_EQ(takeLog(), (Log{"cell rightclick 0 -1", "cell press 1 3"}));
  every_.dialog.state<dialog::Grid>(walls).onCellSelect = [&rows](int, int) { rows.clear(); };
  EXPECT_NE(why(session_->editCell(walls, 2, "Name", "x")), "") << "the click took the row away";
}

TEST_F(DialogUse, WhatASpreadsheetCopiedIsPastedWholeOrNotAtAll) {
  const int walls = at("Walls");
  auto& grid = every_.dialog.state<dialog::Grid>(walls);
  EXPECT_EQ(why(session_->paste(walls, 1, "Name", "A \t2,5\r\n\"B\t\"\"C\"\"\"\t3\r\n")), "");
  EXPECT_EQ(grid.rows[0][0].text + grid.rows[0][1].text, "A 2.5");
  EXPECT_EQ(grid.rows[1][0].text + grid.rows[1][1].text, "B\t\"C\"3.0");
  EXPECT_EQ(every_.log.back(), "edit Walls");
  const auto rows = grid.rows;
  const std::pair<const char*, const char*> refused[] = {
      {"X\t0.4", "row 2: \"Width\" takes 0.5 to 9.5, got \"0.4\""},
      {"X\t1\t2\tBrick\t1\t13", "row 2: \"Area\" cannot be edited in this row"},
      {"X\nY", "\"Walls\" has no room for 2 rows and 1 columns there"}};
  for (const auto& [text, rule] : refused) { EXPECT_EQ(why(session_->paste(walls, 2, "Name", text)), rule); }
  EXPECT_EQ(grid.rows, rows);
  grid.onGrow = [&grid](size_t count, size_t) { grid.rows.resize(count, grid.rows.front()); };
  EXPECT_NE(why(session_->paste(walls, 2, "Width", "2\n99")), "");
  EXPECT_EQ(grid.rows, rows) << "what it grew by is gone";
  EXPECT_EQ(why(session_->paste(walls, 2, "Width", "2\n3\n4")), "");
  EXPECT_EQ(grid.rows[3][1].text, "4.0");
  takeLog();
  EXPECT_EQ(why(session_->insertRow(walls, 2)), "");
  EXPECT_EQ(every_.log.back(), "insert row 1");
  EXPECT_NE(why(session_->insertRow(at("Table"), 1)), "");
}

TEST_F(DialogUse, ARowIsMadeSureOfByItsCells) {
  const int walls = at("Walls");
  auto& grid = every_.dialog.state<dialog::Grid>(walls);
  EXPECT_EQ(why(session_->ensureRow(walls, 2, {"Width", "2.2", "Shown", "1"})), "");
  EXPECT_EQ(grid.rows[1][1].text, "2.2");
  takeLog();
  EXPECT_EQ(why(session_->ensureRow(walls, 2, {"Width", "2.2"})), "");
  EXPECT_EQ(takeLog(), Log()) << "what holds already is no edit";
  EXPECT_EQ(why(session_->ensureRow(walls, 2, {"Width", "0.4"})), "\"Width\" takes 0.5 to 9.5, got \"0.4\"");
  EXPECT_EQ(why(session_->ensureRow(walls, 2, {"Width", "2.25"})), "\"Width\" in row 2 does not take \"2.25\"");
  EXPECT_NE(why(session_->ensureRow(walls, 2, {"Width"})), "");
  EXPECT_NE(why(session_->ensureRowCount(walls, 3)), "") << "it has as many as its rules give it";
  grid.onRowCount = [&grid](int rows) { grid.rows.resize(static_cast<size_t>(rows)); };
  EXPECT_EQ(why(session_->ensureRowCount(walls, 3)), "");
  EXPECT_NE(why(session_->ensureRowCount(walls, -1)), "");
  EXPECT_EQ(grid.rows.size(), 3U);
}

TEST_F(DialogUse, ColumnsAndRowsOfOneTextAreToldApart) {
  auto& walls = every_.dialog.state<dialog::Grid>(every_.grid);
  walls.columns[0].name = "Left";
  walls.columns[1].title = "Name";
  EXPECT_EQ(why(session_->editCell(every_.grid, 1, "left", "a")), "");
  EXPECT_EQ(why(session_->editCell(every_.grid, 1, "Name", "2")), "");
  EXPECT_EQ(walls.rows[0][0].text + walls.rows[0][1].text, "a2.0");
  EXPECT_EQ(why(session_->setColumnWidth(every_.grid, "Left", 33)), "");
  EXPECT_EQ(walls.columns[0].width, 33);
  auto& list = every_.dialog.state<dialog::ColumnList>(every_.rows);
  list.rows.assign(3, {"M8"});
  EXPECT_EQ(why(session_->clickCell(every_.rows, 3, "", DialogSession::Click::kClick)), "");
  EXPECT_EQ(list.selected, 2);
  EXPECT_EQ(every_.log.back(), "edit Table");
  EXPECT_EQ(why(session_->clickCell(every_.rows, 4, "", DialogSession::Click::kClick)),
            "\"Table\" has no row 4, it has 3");
}

TEST_F(DialogUse, MenusPensAndColumnWidths) {
  open("pen 9\ncancel\n");
  EXPECT_EQ(why(session_->chooseMenu("actions/Import Data")), "");
  EXPECT_EQ(why(session_->chooseMenu("Actions/Delete")), "the menu entry \"Actions/Delete\" is disabled");
  for (const char* path : {"Actions", "Actions/", "Import Data", "", "Actions/Import Data/x"}) {
    EXPECT_EQ(why(session_->chooseMenu(path)), std::string("the dialog's menu has no entry \"") + path + '"');
  }
  EXPECT_EQ(std::count(every_.log.begin(), every_.log.end(), "import"), 1);
  EXPECT_EQ(why(session_->press(at("Pen"))), "");
  EXPECT_EQ(why(session_->press(at("Pen"))), "");
  EXPECT_EQ(every_.pen.GetPen(), 9) << "a chooser left by Cancel keeps the pen";
  EXPECT_EQ(why(session_->setColumnWidth(at("Table"), "pitch", 120)), "");
  EXPECT_EQ(every_.dialog.state<dialog::ColumnList>(every_.rows).columns[1].width, 120);
  EXPECT_NE(why(session_->setColumnWidth(at("Table"), "Pitch", -1)), "");
  EXPECT_NE(why(session_->setColumnWidth(at("Table"), "Mass", 10)), "");
}

TEST_F(DialogUse, OnAnotherPageNothingIsReached) {
  const int details = every_.dialog.addGroup({.caption = "Rest", .page = 1});
  const int field = dialog::addText(every_.dialog, {.caption = "Remark", .group = details}).index();
  EXPECT_EQ(why(session_->setText(field, "x")), "\"Remark\" is hidden");
  EXPECT_EQ(why(session_->choose(at("Pages"), "Details")), "");
  EXPECT_EQ(why(session_->setText(field, "x")), "");
}

}  // namespace

#include "host/window/dialog_session.h"

#include <gtest/gtest.h>

#include "host/window/control_text.h"
#include "tests/host/window/every_control.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;
using Log = std::vector<std::string>;

class DialogUse : public HostSession {
 protected:
  EveryControl every;
  std::optional<DialogSession> session;

  void open(const std::string& answers = "") {
    start(answers);
    session.emplace(every.dialog, user(), nullptr);
    session->open();
    every.log.clear();
  }
  void SetUp() override { open(); }
  int at(const std::string& address) { return controlAt(every.dialog, address); }
  std::string valueOf(const std::string& address) { return valueText(every.dialog.control(at(address)).state); }
  // Why it was refused, "" where it was taken.
  static std::string why(const DialogSession::Refusal& refusal) { return refusal.value_or(""); }
  Log takeLog() { return std::exchange(every.log, {}); }
};

TEST_F(DialogUse, ANumberIsTakenAsAPersonTypesItOrRefusedWithItsRule) {
  for (const auto& [typed, shown] :
       {std::pair{"40", "40.000"}, {"1,5", "1.500"}, {" +7 ", "7.000"}, {"0", "0.000"}, {"1e4", "10000.000"}}) {
    EXPECT_EQ(why(session->setText(at("Length"), typed)), "");
    EXPECT_EQ(valueOf("Length"), shown);
  }
  for (const char* typed : {"4O", "", "10000.1", "-1", "nan", "1e400", "1,5,0", "1.5mm"}) {
    EXPECT_EQ(why(session->setText(at("Length"), typed)),
              std::string("\"Length\" takes 0 to 10000, got \"") + typed + '"');
    EXPECT_EQ(every.dialog.focus(), at("Length")) << "a refused field keeps the focus";
    EXPECT_NE(why(session->check(at("Plan"), true)), "") << "nothing else can be done before it is mended";
    EXPECT_FALSE(every.plan.checked());
  }
  EXPECT_EQ(every.length.GetValue(), 10000.0) << "the value last accepted";
  EXPECT_EQ(why(session->setText(at("Length"), "5")), "");
  EXPECT_EQ(why(session->setText(at("Number ="), "2.5")),
            "\"Number =\" takes a whole number from 1 to 50, got \"2.5\"");
  EXPECT_EQ(why(session->setText(at("Number ="), "7")), "");
  EXPECT_EQ(every.count.GetValue(), 7);
}

TEST_F(DialogUse, OnlyEditedFieldsAreChecked) {
  every.length.SetValue(-5.0);
  EXPECT_EQ(why(session->focus(at("Length"))), "");
  EXPECT_EQ(why(session->focus(at("Name"))), "");
  EXPECT_EQ(why(session->press(at("OK"))), "");
  EXPECT_TRUE(session->accepted());
}

TEST_F(DialogUse, TypingRaisesTheEditRuleAtEachKey) {
  session->focus(at("Number ="));
  takeLog();
  EXPECT_EQ(why(session->typeText(at("Name"), "abc")), "");
  EXPECT_EQ(takeLog(), (Log{"leave Number =", "focus Name", "edit Name", "edit Name", "edit Name"}));
  EXPECT_EQ(why(session->typeText(at("Name"), "")), "");
  EXPECT_EQ(takeLog(), Log{"edit Name"});
  EXPECT_EQ(every.name.text(), "");
  EXPECT_EQ(why(session->setText(at("Name"), "set")), "");
  EXPECT_EQ(takeLog(), (Log{"edit Name", "leave Name"}));
  EXPECT_EQ(why(session->setText(at("Name"), "ninechars")), "\"Name\" takes at most 8 characters");
  EXPECT_EQ(why(session->setText(at("Name"), "a\nb")), "\"Name\" takes one line");
  EXPECT_EQ(every.name.text(), "set");
  EXPECT_EQ(why(session->setText(at("Notes"), "a\nb")), "");
}

TEST_F(DialogUse, EveryAddressLeadsBackToItsControl) {
  for (int index = 0; index < static_cast<int>(every.dialog.controls().size()); ++index) {
    EXPECT_EQ(at(addressOf(every.dialog, index)), index) << addressOf(every.dialog, index);
  }
  EXPECT_EQ(at("length"), every.length.index()) << "case counts for nothing";
  EXPECT_EQ(at("TOP/width"), every.topWidth);
  EXPECT_EQ(at("Width"), -2) << "two of this caption";
  EXPECT_EQ(at("Walls"), every.grid) << "a fixed name";
  EXPECT_EQ(at("Height"), -1);
  // One of the three stands in no group, and its plain caption means it alone.
  const int plain = dialog::addFloat(every.dialog, {.caption = "Width"}, 0, 1, "%.1f").index();
  EXPECT_EQ(at(addressOf(every.dialog, plain)), plain);
  EXPECT_EQ(at("Bottom/Width"), every.bottomWidth);
}

TEST_F(DialogUse, WhatIsHiddenOrDisabledIsRefused) {
  const std::vector<std::pair<std::string, std::function<DialogSession::Refusal(int)>>> uses = {
      {"Name", [&](int c) { return session->setText(c, "x"); }},
      {"Name", [&](int c) { return session->typeText(c, "x"); }},
      {"Copies", [&](int c) { return session->spin(c, true); }},
      {"Plan", [&](int c) { return session->check(c, true); }},
      {"Thread", [&](int c) { return session->choose(c, "Fine"); }},
      {"Apply", [&](int c) { return session->press(c); }},
      {"Cancel", [&](int c) { return session->press(c); }},
      {"OK", [&](int c) { return session->press(c); }},
      {"Walls", [&](int c) { return session->editCell(c, 1, "Name", "x"); }},
      {"Length", [&](int c) { return session->focus(c); }},
      {"Table", [&](int c) { return session->setColumnWidth(c, "Size", 50); }},
      {"Sizes", [&](int c) { return session->chooseSeveral(c, {"M8"}); }}};
  session->focus(at("Notes"));
  takeLog();
  for (const auto& [address, use] : uses) {
    const int control = at(address);
    every.dialog.setEnabled(control, false);
    EXPECT_EQ(why(use(control)), '"' + address + "\" is disabled");
    every.dialog.setEnabled(control, true);
    every.dialog.setVisible(control, false);
    EXPECT_EQ(why(use(control)), '"' + address + "\" is hidden");
    every.dialog.setVisible(control, true);
  }
  every.dialog.setGroupVisible(every.dialog.control(every.topWidth).group, false);
  EXPECT_EQ(why(session->setText(every.topWidth, "1")), "\"Top/Width\" is hidden");
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_FALSE(session->closed());
  EXPECT_EQ(every.dialog.focus(), at("Notes"));
}

TEST_F(DialogUse, WhatCannotBeOperatedSaysSo) {
  session->focus(at("Notes"));
  takeLog();
  EXPECT_NE(why(session->setText(at("Hint"), "x")), "");
  EXPECT_NE(why(session->focus(at("Sketch"))), "");
  EXPECT_EQ(every.dialog.focus(), at("Notes")) << "the focus does not come to a label";
  EXPECT_NE(why(session->setText(at("Pen"), "3")), "");
  EXPECT_NE(why(session->spin(at("Length"), true)), "");
  EXPECT_NE(why(session->check(at("Length"), true)), "");
  EXPECT_NE(why(session->choose(at("Length"), "5")), "");
  EXPECT_NE(why(session->press(at("Name"))), "");
  EXPECT_NE(why(session->editCell(at("Name"), 1, "Width", "5")), "");
}

TEST_F(DialogUse, PressingOkChecksThenAsksThenCloses) {
  session->typeText(at("Length"), "4O");
  takeLog();
  EXPECT_NE(why(session->press(at("OK"))), "");
  EXPECT_EQ(takeLog(), Log{});
  session->typeText(at("Length"), "40");
  session->typeText(at("Name"), "WRONG");
  takeLog();
  EXPECT_EQ(why(session->press(at("OK"))), "");
  EXPECT_EQ(takeLog(), (Log{"leave Name", "focus OK", "leave OK", "ok"}));
  EXPECT_FALSE(session->closed()) << "OK's rule kept it open";
  session->setText(at("Name"), "RIGHT");
  session->press(at("OK"));
  EXPECT_TRUE(session->closed());
  EXPECT_TRUE(session->accepted());
}

TEST_F(DialogUse, CancelClosesWhateverTheFieldsHold) {
  for (const bool button : {true, false}) {
    open();
    session->typeText(at("Length"), "4O");
    takeLog();
    if (button) {
      EXPECT_EQ(why(session->press(at("Cancel"))), "");
    } else {
      session->cancel();
    }
    EXPECT_EQ(takeLog(), Log{"cancel"});
    EXPECT_TRUE(session->closed());
    EXPECT_FALSE(session->accepted());
  }
}

TEST_F(DialogUse, OpenedAgainItStartsAtItsFirstControl) {
  session->focus(at("Apply"));
  session->cancel();
  open();
  EXPECT_EQ(every.dialog.focus(), every.length.index());
  every.dialog.onOpen = [this] { every.name.focus(); };
  open();
  EXPECT_EQ(every.dialog.focus(), every.name.index()) << "where the opening rule put it";
}

TEST_F(DialogUse, ChoicesOfEveryKind) {
  const std::vector<std::array<std::string, 3>> choices = {
      {"Side", "right", "Right"},      {"Thread", "Fine", "Fine"}, {"Material", "10.9", "10.9"},
      {"Head", "Slotted", "Slotted"},  {"Table", "M10", "M10"},    {"Line type", "21", "21"},
      {"Pages", "Details", "Details"}, {"Sizes", "M12", "M12"}};
  for (const auto& [address, item, shown] : choices) {
    takeLog();
    EXPECT_EQ(why(session->choose(at(address), item)), "") << address;
    EXPECT_EQ(valueOf(address), shown);
    EXPECT_EQ(every.log.back(), "edit " + address);
    EXPECT_NE(why(session->choose(at(address), "no such")), "") << address;
    EXPECT_EQ(valueOf(address), shown) << "a refused choice changes nothing";
  }
  EXPECT_EQ(why(session->choose(at("Side"), "Both")), "\"Both\" is disabled");
  EXPECT_EQ(why(session->choose(at("Thread"), "M8")), "\"Thread\" has no entry \"M8\", it has \"Coarse\", \"Fine\"");
  EXPECT_EQ(why(session->setText(at("Material"), "A2-70")), "") << "an editable list takes any text";
  EXPECT_EQ(valueOf("Material"), "A2-70");
  EXPECT_EQ(why(session->chooseSeveral(at("Sizes"), {"M8", "m12"})), "");
  EXPECT_EQ(valueOf("Sizes"), "M8\nM12");
  EXPECT_NE(why(session->chooseSeveral(at("Sizes"), {"M8", "M99"})), "");
  EXPECT_EQ(valueOf("Sizes"), "M8\nM12");
  takeLog();
  EXPECT_EQ(why(session->check(at("Plan"), false)), "");
  EXPECT_EQ(std::count(every.log.begin(), every.log.end(), "edit Plan"), 0)
      << "unchecking what is unchecked is no edit";
}

TEST_F(DialogUse, SpinStaysWithinItsRange) {
  for (const char* shown : {"2", "3", "3"}) {
    EXPECT_EQ(why(session->spin(at("Copies"), true)), "");
    EXPECT_EQ(valueOf("Copies"), shown);
  }
  session->typeText(at("Copies"), "x");
  EXPECT_EQ(why(session->spin(at("Copies"), false)), "");
  EXPECT_EQ(why(session->leave()), "");
  EXPECT_GE(every.copies.GetValue(), 1);
}

TEST_F(DialogUse, GridCellsAreTypedAndCountedFromOne) {
  const int walls = at("Walls");
  auto& rows = every.dialog.state<dialog::Grid>(walls).rows;
  EXPECT_EQ(why(session->editCell(walls, 2, "width", "2,25")), "");
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
  for (const auto& [column, text, rule] : refused) { EXPECT_EQ(why(session->editCell(walls, 1, column, text)), rule); }
  EXPECT_EQ(rows[0][1].text, "1.0");
  EXPECT_NE(why(session->editCell(walls, 1, "", "x")), "") << "a row's heading is no cell";
  EXPECT_NE(why(session->editCell(walls, 3, "Name", "x")), "");
  EXPECT_NE(why(session->editCell(walls, 0, "Name", "x")), "");
  takeLog();
  EXPECT_EQ(why(session->clickCell(walls, 1, "", DialogSession::Click::kRight)), "");
  EXPECT_EQ(why(session->clickCell(walls, 2, "Kind", DialogSession::Click::kPress)), "");
  EXPECT_EQ(takeLog(), (Log{"cell rightclick 0 -1", "cell press 1 3"}));
  every.dialog.state<dialog::Grid>(walls).onCellSelect = [&rows](int, int) { rows.clear(); };
  EXPECT_NE(why(session->editCell(walls, 2, "Name", "x")), "") << "the click took the row away";
}

TEST_F(DialogUse, MenusPensAndColumnWidths) {
  open("pen 9\ncancel\n");
  EXPECT_EQ(why(session->chooseMenu("actions/Import Data")), "");
  EXPECT_EQ(why(session->chooseMenu("Actions/Delete")), "the menu entry \"Actions/Delete\" is disabled");
  for (const char* path : {"Actions", "Actions/", "Import Data", "", "Actions/Import Data/x"}) {
    EXPECT_EQ(why(session->chooseMenu(path)), std::string("the dialog's menu has no entry \"") + path + '"');
  }
  EXPECT_EQ(std::count(every.log.begin(), every.log.end(), "import"), 1);
  EXPECT_EQ(why(session->press(at("Pen"))), "");
  EXPECT_EQ(why(session->press(at("Pen"))), "");
  EXPECT_EQ(every.pen.GetPen(), 9) << "a chooser left by Cancel keeps the pen";
  EXPECT_EQ(why(session->setColumnWidth(at("Table"), "pitch", 120)), "");
  EXPECT_EQ(every.dialog.state<dialog::ColumnList>(every.rows).columns[1].width, 120);
  EXPECT_NE(why(session->setColumnWidth(at("Table"), "Pitch", -1)), "");
  EXPECT_NE(why(session->setColumnWidth(at("Table"), "Mass", 10)), "");
}

TEST_F(DialogUse, ControlsOnAnotherPageAreOutOfReach) {
  const int details = every.dialog.addGroup({.caption = "Rest", .page = 1});
  const int field = dialog::addText(every.dialog, {.caption = "Remark", .group = details}).index();
  EXPECT_EQ(why(session->setText(field, "x")), "\"Remark\" is hidden");
  EXPECT_EQ(why(session->choose(at("Pages"), "Details")), "");
  EXPECT_EQ(why(session->setText(field, "x")), "");
}

}  // namespace

#include "host/scripts/dialog_statements.h"

#include <gtest/gtest.h>

#include "fuzz/every_control.h"
#include "host/window/control_kinds.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

DialogOperation reread(const std::string& statement, dialog::Dialog& dialog) {
  const Script script = readScript("recorded.scr", statement);
  const ScriptCursor cursor(script);
  const Statement& read = script.statements.front();
  const OperationRow* row = operationNamed(read.name());
  if (row == nullptr) { throw ScriptFailure("recorded.scr", 1, "no row for " + statement); }
  return readOperation(cursor, read, *row, dialog);
}

// An operation with this many arguments, of texts that a script has to quote.
DialogOperation sample(const OperationRow& row, size_t arguments, int control) {
  const std::string texts[] = {"12.5", R"(a "b" \ c)", "caf\xE9, # no comment", ""};
  DialogOperation operation{row.verb};
  for (size_t place = 0; place < arguments; ++place) {
    const Argument argument = row.argument(place);
    if (argument == Argument::kControl) { operation.control = control; }
    if (argument == Argument::kNumber) { operation.number = 7; }
    if (argument == Argument::kText) { operation.texts.push_back(texts[place % 4]); }
  }
  return operation;
}

// What is recorded is what is played.
TEST(DialogStatements, EveryOperationIsReadAsItWasWritten) {
  EveryControl every;
  for (const OperationRow& row : operationRows()) {
    for (size_t arguments = row.least; arguments <= std::min(row.most, row.least + 2); ++arguments) {
      for (const int control : {every.bottomWidth, every.grid, every.length.index()}) {
        const DialogOperation operation = sample(row, arguments, control);
        const std::string statement = statementOf(operation, every.dialog);
        DialogOperation read = reread(statement, every.dialog);
        EXPECT_EQ(operationRow(read.verb).word, row.word);
        read.verb = row.verb;  // hands have verbs that scripts say with another's word
        EXPECT_EQ(read, operation) << statement;
      }
    }
  }
}

void change(DialogSession& session, EveryControl& every) {
  session.setText(every.length.index(), "41.5");
  session.setText(every.count.index(), "9");
  session.setText(every.copies.index(), "3");
  session.setText(every.name.index(), "A\"b");
  session.setText(every.notes.index(), "one\n\nthree");
  session.check(every.plan.index(), true);
  session.setText(every.material, "A2-70");
  session.chooseSeveral(every.sizes, {"M8", "M12"});
  for (const auto& [control, entry] : {std::pair{every.side.index(), "Right"},
                                       {every.thread.index(), "Fine"},
                                       {every.pictures, "Slotted"},
                                       {every.rows, "M10"},
                                       {every.tree, "Doors/D813"},
                                       {every.lineType.index(), "21"},
                                       {every.tabs, "Details"}}) {
    session.choose(control, entry);
  }
}

TEST(DialogStatements, EveryValueIsWrittenDownByTheOperationOfItsKind) {
  EveryControl changed;
  EveryControl fresh;
  SilentUser nobody;
  DialogSession there(changed.dialog, nobody, nullptr);
  DialogSession here(fresh.dialog, nobody, nullptr);
  change(there, changed);
  size_t written = 0;
  for (int control = 0; control < static_cast<int>(changed.dialog.controls().size()); ++control) {
    const dialog::State& wanted = changed.dialog.control(control).state;
    const dialog::State& found = fresh.dialog.control(control).state;
    if (valueText(wanted) == valueText(found)) { continue; }
    const auto operation = operationThatSets(control, wanted);
    ASSERT_TRUE(operation) << kindName(wanted);
    EXPECT_EQ(here.perform(reread(statementOf(*operation, changed.dialog), fresh.dialog)), std::nullopt);
    EXPECT_EQ(valueText(found), valueText(wanted)) << kindName(wanted);
    ++written;
  }
  EXPECT_EQ(written, 15U) << "every kind that takes a value of its user was changed";
}

}  // namespace

#pragma once

#include <string>

#include "host/scripts/script_cursor.h"
#include "host/window/dialog_operations.h"
#include "host/window/dialog_session.h"

// The statements between `dialog` and the press that closes it.
namespace brevan {

// What a statement of this row asks for; fails where it has too few or too many words, or one of another kind than the
// row says.
DialogOperation readOperation(const ScriptCursor& cursor, const Statement& statement, const OperationRow& row,
                              dialog::Dialog& dialog);
// The statement that asks for it; UTF-8.
std::string statementOf(const DialogOperation& operation, dialog::Dialog& dialog);

// expect "Control" VALUE|enabled|disabled|shown|hidden|picture "NAME"|items "A" "B", expect focus "Control".
void expectControl(const ScriptCursor& cursor, const Statement& statement, DialogSession& session,
                   dialog::Dialog& dialog);

}  // namespace brevan

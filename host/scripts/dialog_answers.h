#pragma once

#include <string_view>

#include "host/scripts/script_cursor.h"
#include "host/window/dialog_session.h"

namespace brevan {

// One statement between `dialog` and the press that closes it.
struct DialogStep {
  const ScriptCursor& cursor;
  const Statement& statement;
  DialogSession& session;
  dialog::Dialog& dialog;

  // The control that a word addresses; fails where there is none or more than one.
  [[nodiscard]] int control(size_t word) const;
};

struct DialogAnswer {
  std::string_view name;
  size_t least;  // words, the name included
  size_t most;
  DialogSession::Refusal (*run)(const DialogStep& step);

  // Checks the number of words first.
  DialogSession::Refusal operate(const DialogStep& step) const;
};

// Null for a statement that is none of a dialog's.
const DialogAnswer* dialogAnswer(std::string_view name);

// expect "Control" VALUE|enabled|disabled|shown|hidden|picture "NAME"|items "A" "B", expect focus "Control".
void expectControl(const ScriptCursor& cursor, const Statement& statement, DialogSession& session,
                   dialog::Dialog& dialog);

}  // namespace brevan

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/dialog.h"

// What a control is called and what it shows, as text: for scripts, for descriptions, for messages.
namespace brevan {

// "number", "check box", "drop-down list", ...
std::string_view kindName(const dialog::State& state);
// "0 to 10000" for a number, the items of a list; empty where there is no range.
std::string rangeText(const dialog::State& state);
// What the control shows: a field's text, a list's selected entry, "1" or "0" of a check box.
std::string valueText(const dialog::State& state);
// The entries to choose from.
std::vector<std::string> itemTexts(const dialog::State& state);
// Whether the focus can come to it.
bool takesFocus(const dialog::State& state);

// Neither the control nor a group around it is hidden, nor on another page.
bool isShown(dialog::Dialog& dialog, int control);

// A control's address: its fixed name, else its caption, with its group before it where the caption
// occurs twice.
std::string addressOf(dialog::Dialog& dialog, int control);
// What a person reads about one field: its address or a radio item's caption, what it takes, what it is for.
struct FieldLine {
  int control;
  bool item;  // of the radio group before it
  std::string name;
  std::string toolTip;
};
// The fields that have a name, in the dialog's order, each radio item with a tool tip after its group.
std::vector<FieldLine> fieldLines(dialog::Dialog& dialog);

// The control of an address (case counts for nothing); -1 where there is none, -2 where there are several. Of several
// the only one that is shown is meant.
int controlAt(dialog::Dialog& dialog, std::string_view address);

// Why a number field refuses its text; nothing where it takes it.
std::optional<std::string> refusalOf(std::string_view name, const dialog::NumberEdit& edit);

}  // namespace brevan

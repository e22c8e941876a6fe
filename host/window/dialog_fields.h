#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host/dialog_description.h"

// The controls of a dialog as scripts, messages and help address them.
namespace brevan {

// Neither the control nor a group around it is hidden, nor on another page.
bool isShown(dialog::Dialog& dialog, int control);
// The page of the tabs that the control stands on; "" for one that stands on none.
std::string pageOf(dialog::Dialog& dialog, int control);

// A control's address: its fixed name, else its caption, with its group before it where the caption
// occurs twice.
std::string addressOf(dialog::Dialog& dialog, int control);

// What a person reads about one field: its address or a radio item's caption, what it takes, what it is for.
struct FieldLine {
  int control;
  bool item;  // of the radio group before it, which says what is taken
  std::string name;
  std::string_view kind;
  std::string takes;  // empty where there is no range
  std::string toolTip;
};
// The fields that have a name, in the dialog's order, each radio item with a tool tip after its group.
std::vector<FieldLine> fieldLines(dialog::Dialog& dialog);

// The control of an address (case counts for nothing); -1 where there is none, -2 where there are several. Of several
// the only one that is shown is meant.
int controlAt(dialog::Dialog& dialog, std::string_view address);

}  // namespace brevan

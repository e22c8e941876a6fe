#pragma once

#include "frame/help.h"
#include "frame/host/dialog.h"
#include "frame/host/main_frame.h"

namespace ardenix {

// What the module state lends every command.
struct Services {
  CMDIFrameWnd* mainFrame = nullptr;  // parent of every dialog
  bool toolTips = true;               // dialogs show tool tips
  Help* help = nullptr;
};

// Gives a dialog the module's tool-tip setting and its page of the help file.
inline void equip(dialog::Dialog& dialog, const Services& services, const HelpTopic& topic) {
  dialog.enableToolTips(services.toolTips);
  dialog.onHelp = [&dialog, &services, &topic](int) { services.help->open(dialog, topic); };
}

// Adds the two closing buttons in a group of their own at a row of the dialog.
inline void addOkCancel(dialog::Dialog& dialog, int row) {
  const int group = dialog.addGroup({.place = {.row = row}});
  addButton(dialog, {.caption = "OK", .group = group}, dialog::ButtonRole::kOk);
  addButton(dialog, {.caption = "Cancel", .group = group, .place = {.column = 1}}, dialog::ButtonRole::kCancel);
}

}  // namespace ardenix

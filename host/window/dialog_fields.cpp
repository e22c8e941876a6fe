#include "host/window/dialog_fields.h"

#include <algorithm>

#include "host/core/text_encoding.h"
#include "host/window/control_kinds.h"

namespace brevan {

using namespace dialog;

namespace {

std::string ownName(const Control& control) {
  return control.name.empty() ? plainCaption(control.caption) : control.name;
}

// The caption of the innermost group that has one.
std::string groupCaption(Dialog& dialog, int group) {
  for (; group > 0; group = dialog.groups()[static_cast<size_t>(group)].parent) {
    std::string caption = plainCaption(dialog.groups()[static_cast<size_t>(group)].caption);
    if (!caption.empty()) { return caption; }
  }
  return "";
}

// A group on another page of the tabs is out of sight.
bool groupIsShown(Dialog& dialog, const dialog::Group& group) {
  if (group.page < 0) { return group.visible; }
  const auto& controls = dialog.controls();
  return group.visible && std::all_of(controls.begin(), controls.end(), [&group](const Control& control) {
           const auto* tabs = std::get_if<Tabs>(&control.state);
           return tabs == nullptr || tabs->current == group.page;
         });
}

// The only one of some controls that is shown, -2 where several or none are.
int onlyShown(Dialog& dialog, const std::vector<int>& controls) {
  int found = -2;
  for (const int control : controls) {
    if (!isShown(dialog, control)) { continue; }
    if (found >= 0) { return -2; }
    found = control;
  }
  return found;
}

}  // namespace

bool isShown(Dialog& dialog, int control) {
  bool shown = dialog.control(control).visible;
  for (int group = dialog.control(control).group; group > 0;) {
    const dialog::Group& around = dialog.groups()[static_cast<size_t>(group)];
    shown = shown && groupIsShown(dialog, around);
    group = around.parent;
  }
  return shown;
}

std::string pageOf(Dialog& dialog, int control) {
  int page = -1;
  for (int group = dialog.control(control).group; group > 0 && page < 0;) {
    const dialog::Group& around = dialog.groups()[static_cast<size_t>(group)];
    page = around.page;
    group = around.parent;
  }
  for (const Control& other : dialog.controls()) {
    const auto* tabs = std::get_if<Tabs>(&other.state);
    if (tabs != nullptr && page >= 0 && static_cast<size_t>(page) < tabs->pages.size()) {
      return tabs->pages[static_cast<size_t>(page)];
    }
  }
  return "";
}

std::string addressOf(Dialog& dialog, int control) {
  const Control& wanted = dialog.control(control);
  const std::string name = ownName(wanted);
  const auto alike = std::count_if(dialog.controls().begin(), dialog.controls().end(), [&](const Control& other) {
    return has(other.state, kTakesFocus) == has(wanted.state, kTakesFocus) && equalWithoutCase(ownName(other), name);
  });
  const std::string group = groupCaption(dialog, wanted.group);
  return alike > 1 && !group.empty() ? group + '/' + name : name;
}

std::vector<FieldLine> fieldLines(Dialog& dialog) {
  std::vector<FieldLine> lines;
  for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
    const Control& control = dialog.control(index);
    std::string name = addressOf(dialog, index);
    if (name.empty()) { continue; }
    lines.push_back(
        {index, false, std::move(name), kindName(control.state), takenText(control.state), control.toolTip});
    const auto* radio = std::get_if<RadioGroup>(&control.state);
    if (radio == nullptr) { continue; }
    for (const RadioItem& item : radio->items) {
      if (!item.toolTip.empty()) { lines.push_back({index, true, plainCaption(item.caption), "", "", item.toolTip}); }
    }
  }
  return lines;
}

int controlAt(Dialog& dialog, std::string_view address) {
  const std::string wanted = plainCaption(address);
  const auto search = [&](bool focusable) {
    std::vector<int> found;
    std::vector<int> ungrouped;  // of a caption that occurs twice, the one in no group has no longer address
    for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
      const Control& control = dialog.control(index);
      const std::string name = ownName(control);
      if (has(control.state, kTakesFocus) != focusable || name.empty()) { continue; }
      const std::string group = groupCaption(dialog, control.group);
      const bool byName = equalWithoutCase(name, wanted);
      std::string path = group;
      path.append("/").append(name);
      if (!byName && !equalWithoutCase(path, wanted)) { continue; }
      found.push_back(index);
      if (byName && group.empty()) { ungrouped.push_back(index); }
    }
    if (found.empty()) { return -1; }
    if (found.size() == 1) { return found.front(); }
    return ungrouped.size() == 1 ? ungrouped.front() : onlyShown(dialog, found);
  };
  const int operable = search(true);
  return operable == -1 ? search(false) : operable;
}

}  // namespace brevan

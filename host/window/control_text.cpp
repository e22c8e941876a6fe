#include "host/window/control_text.h"

#include <algorithm>
#include <array>

#include "frame/host/limits.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

using namespace dialog;

template <class... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

template <class Items, class Caption>
std::vector<std::string> captions(const Items& items, const Caption& caption) {
  std::vector<std::string> texts;
  texts.reserve(items.size());
  for (const auto& item : items) { texts.push_back(caption(item)); }
  return texts;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) { all += (all.empty() ? "" : ", ") + ('"' + text + '"'); }
  return all;
}

std::string entry(const std::vector<std::string>& items, int index) {
  return index >= 0 && index < static_cast<int>(items.size()) ? items[static_cast<size_t>(index)] : std::string();
}

// "Windows/Casement/W1200"
std::string branchText(const Tree& tree) {
  std::string text;
  const std::vector<TreeNode>* level = &tree.roots;
  for (const int index : tree.selected) {
    if (index < 0 || static_cast<size_t>(index) >= level->size()) { break; }
    const TreeNode& node = (*level)[static_cast<size_t>(index)];
    text += (text.empty() ? "" : "/") + node.caption;
    level = &node.children;
  }
  return text;
}

}  // namespace

std::string_view kindName(const State& state) {
  if (const auto* edit = std::get_if<NumberEdit>(&state)) {
    if (edit->spin) { return "spin"; }
    return edit->integer ? "integer" : "number";
  }
  if (const auto* edit = std::get_if<TextEdit>(&state)) { return edit->multiline ? "multi-line text" : "text"; }
  if (const auto* list = std::get_if<DropDown>(&state)) { return list->editable ? "editable list" : "drop-down list"; }
  if (const auto* list = std::get_if<ListBox>(&state)) {
    return list->multiple ? "list with several selections" : "list";
  }
  constexpr std::array<std::string_view, std::variant_size_v<State>> kNames = {
      "label",       "read-only text", "number",         "text",        "check box",
      "radio group", "drop-down list", "picture list",   "list",        "list with columns",
      "tree",        "pen button",     "line-type list", "picture",     "pixel canvas",
      "preview",     "button",         "menu bar",       "status line", "grid",
      "tabs"};
  return kNames[state.index()];
}

std::vector<std::string> itemTexts(const State& state) {
  return std::visit(
      Overloaded{
          [](const RadioGroup& group) {
            return captions(group.items, [](const auto& item) { return plainCaption(item.caption); });
          },
          [](const DropDown& list) { return list.items; },
          [](const PictureList& list) { return captions(list.items, [](const auto& item) { return item.caption; }); },
          [](const ListBox& list) { return list.items; },
          [](const ColumnList& list) {
            return captions(list.rows, [](const auto& row) { return row.empty() ? "" : row.front(); });
          },
          [](const Tabs& tabs) { return tabs.pages; }, [](const auto&) { return std::vector<std::string>(); }},
      state);
}

std::string rangeText(const State& state) {
  if (const auto* edit = std::get_if<NumberEdit>(&state)) {
    return numberText::shortest(edit->minimum) + " to " + numberText::shortest(edit->maximum);
  }
  if (const auto* edit = std::get_if<TextEdit>(&state)) {
    return "at most " + std::to_string(edit->limit) + " characters";
  }
  if (std::holds_alternative<PenButton>(state)) { return limits::kPens.text(); }
  if (std::holds_alternative<LineTypeList>(state)) { return limits::kListedLineTypes.text(); }
  if (std::holds_alternative<CheckBox>(state)) { return "0 or 1"; }
  return joined(itemTexts(state));
}

std::string valueText(const State& state) {
  return std::visit(
      Overloaded{[](const Label& label) { return label.text; }, [](const ReadOnlyText& text) { return text.text; },
                 [](const NumberEdit& edit) { return edit.text; }, [](const TextEdit& edit) { return edit.text; },
                 [](const CheckBox& box) { return std::string(box.checked ? "1" : "0"); },
                 [&state](const RadioGroup& group) { return entry(itemTexts(state), group.chosen); },
                 [](const DropDown& list) { return list.editable ? list.text : entry(list.items, list.selected); },
                 [&state](const PictureList& list) { return entry(itemTexts(state), list.selected); },
                 [](const ListBox& list) {
                   std::string chosen;
                   for (size_t i = 0; i < list.items.size() && i < list.selected.size(); ++i) {
                     if (list.selected[i]) { chosen += (chosen.empty() ? "" : "\n") + list.items[i]; }
                   }
                   return chosen;
                 },
                 [&state](const ColumnList& list) { return entry(itemTexts(state), list.selected); },
                 [](const Tree& tree) { return branchText(tree); },
                 [](const PenButton& button) { return std::to_string(button.pen); },
                 [](const LineTypeList& list) { return std::to_string(list.selected + 1); },
                 [](const Picture& picture) { return picture.name; }, [](const StatusLine& line) { return line.text; },
                 [](const Tabs& tabs) { return entry(tabs.pages, tabs.current); },
                 [](const auto&) { return std::string(); }},
      state);
}

bool takesFocus(const State& state) {
  return !(std::holds_alternative<Label>(state) || std::holds_alternative<Picture>(state) ||
           std::holds_alternative<PixelCanvas>(state) || std::holds_alternative<Preview>(state) ||
           std::holds_alternative<StatusLine>(state) || std::holds_alternative<MenuBar>(state));
}

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

std::string addressOf(Dialog& dialog, int control) {
  const Control& wanted = dialog.control(control);
  const std::string name = ownName(wanted);
  const auto alike = std::count_if(dialog.controls().begin(), dialog.controls().end(), [&](const Control& other) {
    return takesFocus(other.state) == takesFocus(wanted.state) && equalWithoutCase(ownName(other), name);
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
    lines.push_back({index, false, std::move(name), control.toolTip});
    const auto* radio = std::get_if<RadioGroup>(&control.state);
    if (radio == nullptr) { continue; }
    for (const RadioItem& item : radio->items) {
      if (!item.toolTip.empty()) { lines.push_back({index, true, plainCaption(item.caption), item.toolTip}); }
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
      if (takesFocus(control.state) != focusable || name.empty()) { continue; }
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

std::optional<std::string> refusalOf(std::string_view name, const NumberEdit& edit) {
  const auto value = numberText::parseTyped(edit.text);
  const bool whole = !edit.integer || (value && *value == std::floor(*value));
  if (value && whole && *value >= edit.minimum && *value <= edit.maximum) { return std::nullopt; }
  return '"' + std::string(name) + "\" takes " + (edit.integer ? "a whole number from " : "") +
         numberText::shortest(edit.minimum) + " to " + numberText::shortest(edit.maximum) + ", got \"" + edit.text +
         '"';
}

}  // namespace brevan

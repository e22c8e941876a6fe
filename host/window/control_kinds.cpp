#include "host/window/control_kinds.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "frame/host/dialog_description.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

using namespace dialog;

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

namespace {

// Both limits as a person writes them, 100000 and not 1e+05.
std::string limitsOf(const NumberEdit& edit) {
  const auto written = [](double limit) {
    constexpr double kWritable = 1e15;
    const bool whole = limit == std::floor(limit) && limit != 0.0 && std::abs(limit) < kWritable;
    return whole ? numberText::fixed(limit, 0) : numberText::shortest(limit);
  };
  return written(edit.minimum) + " to " + written(edit.maximum);
}

using Texts = std::vector<std::string>;

template <class Items, class Caption>
Texts captions(const Items& items, const Caption& caption) {
  Texts texts;
  texts.reserve(items.size());
  for (const auto& item : items) { texts.push_back(caption(item)); }
  return texts;
}

std::string joined(const Texts& texts) {
  std::string all;
  for (const std::string& text : texts) { all += (all.empty() ? "" : ", ") + inQuotes(text); }
  return all;
}

std::string entryAt(const Texts& entries, int index) {
  return index >= 0 && index < static_cast<int>(entries.size()) ? entries[static_cast<size_t>(index)] : std::string();
}

Refusal noEntry(const std::string& name, const std::string& entry, const Texts& entries) {
  return name + " has no entry " + inQuotes(entry) + ", it has " + joined(entries);
}

// ---- Entries -----------------------------------------------------------------------------------------------------

Texts entriesOfRadio(const RadioGroup& group) {
  return captions(group.items, [](const RadioItem& item) { return plainCaption(item.caption); });
}
Texts entriesOfPictures(const PictureList& list) {
  return captions(list.items, [](const PictureItem& item) { return item.caption; });
}
// A row goes by its first column.
Texts entriesOfColumns(const ColumnList& list) {
  return captions(list.rows, [](const Texts& row) { return row.empty() ? std::string() : row.front(); });
}

Refusal chooseRadio(RadioGroup& group, const std::string& entry, const std::string& name) {
  const Texts entries = entriesOfRadio(group);
  const int index = entryNamed(entries, entry);
  if (index < 0) { return noEntry(name, entry, entries); }
  if (!group.items[static_cast<size_t>(index)].enabled) { return inQuotes(entry) + " is disabled"; }
  group.chosen = index;
  return std::nullopt;
}

Refusal chooseIn(const Texts& entries, int& selected, const std::string& entry, const std::string& name) {
  const int index = entryNamed(entries, entry);
  if (index < 0) { return noEntry(name, entry, entries); }
  selected = index;
  return std::nullopt;
}

Refusal chooseDropDown(DropDown& list, const std::string& entry, const std::string& name) {
  if (auto refusal = chooseIn(list.items, list.selected, entry, name)) { return refusal; }
  list.text = list.items[static_cast<size_t>(list.selected)];
  list.typed = false;
  return std::nullopt;
}

Refusal chooseInList(ListBox& list, const std::string& entry, const std::string& name) {
  int selected = -1;
  if (auto refusal = chooseIn(list.items, selected, entry, name)) { return refusal; }
  list.selected.assign(list.items.size(), false);
  list.selected[static_cast<size_t>(selected)] = true;
  return std::nullopt;
}

Refusal chooseLineType(LineTypeList& list, const std::string& entry, const std::string& name) {
  const auto number = numberText::parseInteger(entry);
  if (!number || !limits::kListedLineTypes.contains(static_cast<double>(*number))) {
    return name + " takes a line type from " + limits::kListedLineTypes.text() + ", got \"" + entry + '"';
  }
  list.selected = static_cast<int>(*number) - 1;
  return std::nullopt;
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

Refusal chooseBranch(Tree& tree, const std::string& entry, const std::string& name) {
  std::vector<int> indexes;
  const std::vector<TreeNode>* level = &tree.roots;
  for (std::string_view path = entry;;) {
    const std::string_view caption = path.substr(0, path.find('/'));
    const auto node = std::ranges::find_if(
        *level, [caption](const TreeNode& child) { return equalWithoutCase(child.caption, caption); });
    if (node == level->end()) { return name + " has no branch " + inQuotes(entry); }
    indexes.push_back(static_cast<int>(node - level->begin()));
    if (caption.size() == path.size()) { break; }
    level = &node->children;
    path.remove_prefix(caption.size() + 1);
  }
  tree.selected = std::move(indexes);
  return std::nullopt;
}

// ---- Typed text --------------------------------------------------------------------------------------------------

// Taken as it is typed; it is checked when the field is left.
Refusal typeNumber(NumberEdit& edit, const std::string& text, const std::string&) {
  edit.text = text;
  edit.edited = true;
  return std::nullopt;
}

Refusal typeLines(TextEdit& field, const std::string& text, const std::string& name) {
  if (text.size() > static_cast<size_t>(field.limit)) {
    return name + " takes at most " + std::to_string(field.limit) + " characters";
  }
  if (!field.multiline && text.find('\n') != std::string::npos) { return name + " takes one line"; }
  field.text = text;
  return std::nullopt;
}

Refusal typePen(PenButton& button, const std::string& text, const std::string& name) {
  const auto pen = numberText::parseInteger(text);
  if (!pen || !limits::kPens.contains(static_cast<double>(*pen))) {
    return name + " takes a pen from " + limits::kPens.text() + ", got \"" + text + '"';
  }
  button.pen = static_cast<int>(*pen);
  return std::nullopt;
}

Refusal typeEntry(DropDown& list, const std::string& text, const std::string& name) {
  if (!list.editable) { return notThisKind(name, State(list), "takes no typed text"); }
  list.text = text;
  list.selected = entryNamed(list.items, text);
  list.typed = true;
  return std::nullopt;
}

// ---- The kinds ---------------------------------------------------------------------------------------------------

struct KindName {
  std::string_view name;
  unsigned traits = 0;
};

// A column that is left out: the kind has nothing of the sort.
template <class Kind>
struct KindRow {
  KindName usual;
  // The operation that writes the value down for a script.
  Verb written = Verb::kLeave;
  // Set for a kind whose controls differ among themselves.
  KindName (*own)(const Kind&, KindName usual) = nullptr;
  std::string (*value)(const Kind&) = nullptr;
  std::string (*range)(const Kind&) = nullptr;
  Texts (*entries)(const Kind&) = nullptr;
  Refusal (*choose)(Kind&, const std::string& entry, const std::string& name) = nullptr;
  Refusal (*type)(Kind&, const std::string& text, const std::string& name) = nullptr;
};

constexpr unsigned kLabelled = kTakesFocus | kLabelBefore;
constexpr unsigned kFieldTraits = kLabelled | kField;

constexpr auto kKinds = std::tuple{
    KindRow<Label>{.usual = {"label"}, .value = [](const Label& label) { return label.text; }},
    KindRow<ReadOnlyText>{.usual = {"read-only text", kFieldTraits},
                          .value = [](const ReadOnlyText& text) { return text.text; }},
    KindRow<NumberEdit>{.usual = {"number", kFieldTraits | kNarrow},
                        .written = Verb::kSet,
                        .own =
                            [](const NumberEdit& edit, KindName usual) {
                              return KindName{edit.spin ? "spin" : edit.integer ? "integer" : usual.name, usual.traits};
                            },
                        .value = [](const NumberEdit& edit) { return edit.text; },
                        .range =
                            [](const NumberEdit& edit) {
                              const std::string unit = edit.unit.empty() ? "" : " " + edit.unit;
                              return limitsOf(edit) + unit + (edit.mayBeEmpty ? ", or nothing" : "");
                            },
                        .type = typeNumber},
    KindRow<TextEdit>{
        .usual = {"text", kFieldTraits},
        .written = Verb::kSet,
        .own =
            [](const TextEdit& edit, KindName usual) {
              return edit.multiline ? KindName{"multi-line text", usual.traits | kGrows} : usual;
            },
        .value = [](const TextEdit& edit) { return edit.text; },
        .range = [](const TextEdit& edit) { return "at most " + std::to_string(edit.limit) + " characters"; },
        .type = typeLines},
    KindRow<CheckBox>{.usual = {"check box", kTakesFocus | kTick},
                      .written = Verb::kSet,
                      .value = [](const CheckBox& box) { return std::string(box.checked ? "1" : "0"); },
                      .range = [](const CheckBox&) { return std::string("0 or 1"); }},
    KindRow<RadioGroup>{.usual = {"radio group", kTakesFocus | kTick | kSetChooses},
                        .written = Verb::kPick,
                        .value = [](const RadioGroup& group) { return entryAt(entriesOfRadio(group), group.chosen); },
                        .entries = entriesOfRadio,
                        .choose = chooseRadio},
    KindRow<DropDown>{
        .usual = {"drop-down list", kFieldTraits | kSetChooses},
        .written = Verb::kSet,
        .own =
            [](const DropDown& list, KindName usual) {
              return list.editable ? KindName{"editable list", kFieldTraits} : usual;
            },
        .value = [](const DropDown& list) { return list.editable ? list.text : entryAt(list.items, list.selected); },
        .entries = [](const DropDown& list) { return list.items; },
        .choose = chooseDropDown,
        .type = typeEntry},
    KindRow<PictureList>{
        .usual = {"picture list", kLabelled | kSetChooses},
        .written = Verb::kPick,
        .value = [](const PictureList& list) { return entryAt(entriesOfPictures(list), list.selected); },
        .entries = entriesOfPictures,
        .choose =
            [](PictureList& list, const std::string& entry, const std::string& name) {
              return chooseIn(entriesOfPictures(list), list.selected, entry, name);
            }},
    KindRow<ListBox>{.usual = {"list", kLabelled | kGrows},
                     .written = Verb::kSelect,
                     .own =
                         [](const ListBox& list, KindName usual) {
                           return list.multiple ? KindName{"list with several selections", usual.traits} : usual;
                         },
                     .value =
                         [](const ListBox& list) {
                           std::string chosen;
                           for (size_t i = 0; i < list.items.size() && i < list.selected.size(); ++i) {
                             if (list.selected[i]) { chosen += (chosen.empty() ? "" : "\n") + list.items[i]; }
                           }
                           return chosen;
                         },
                     .entries = [](const ListBox& list) { return list.items; },
                     .choose = chooseInList},
    KindRow<ColumnList>{
        .usual = {"list with columns", kLabelled | kGrows},
        .written = Verb::kPick,
        .value = [](const ColumnList& list) { return entryAt(entriesOfColumns(list), list.selected); },
        .entries = entriesOfColumns,
        .choose = [](ColumnList& list, const std::string& entry,
                     const std::string& name) { return chooseIn(entriesOfColumns(list), list.selected, entry, name); }},
    KindRow<Tree>{
        .usual = {"tree", kLabelled | kGrows}, .written = Verb::kPick, .value = branchText, .choose = chooseBranch},
    KindRow<PenButton>{.usual = {"pen button", kLabelled},
                       .written = Verb::kSet,
                       .value = [](const PenButton& button) { return std::to_string(button.pen); },
                       .range = [](const PenButton&) { return limits::kPens.text(); },
                       .type = typePen},
    KindRow<LineTypeList>{.usual = {"line-type list", kLabelled | kSetChooses},
                          .written = Verb::kPick,
                          .value = [](const LineTypeList& list) { return std::to_string(list.selected + 1); },
                          .range = [](const LineTypeList&) { return limits::kListedLineTypes.text(); },
                          .choose = chooseLineType},
    KindRow<Picture>{.usual = {"picture"}, .value = [](const Picture& picture) { return picture.name; }},
    KindRow<PixelCanvas>{.usual = {"pixel canvas", kRepainted}},
    KindRow<Preview>{.usual = {"preview", kGrows | kRepainted}},
    KindRow<Button>{.usual = {"button", kTakesFocus | kNarrow}},
    KindRow<MenuBar>{.usual = {"menu bar"}},
    KindRow<StatusLine>{.usual = {"status line"}, .value = [](const StatusLine& line) { return line.text; }},
    KindRow<Grid>{.usual = {"grid", kLabelled | kGrows}},
    KindRow<Tabs>{.usual = {"tabs", kTakesFocus},
                  .written = Verb::kTab,
                  .value = [](const Tabs& tabs) { return entryAt(tabs.pages, tabs.current); },
                  .entries = [](const Tabs& tabs) { return tabs.pages; },
                  .choose = [](Tabs& tabs, const std::string& entry,
                               const std::string& name) { return chooseIn(tabs.pages, tabs.current, entry, name); }},
};

template <class Kind>
constexpr const KindRow<Kind>& rowOf(const Kind&) {
  return std::get<KindRow<Kind>>(kKinds);
}

KindName own(const State& state) {
  return std::visit(
      [](const auto& kind) {
        const auto& row = rowOf(kind);
        return row.own != nullptr ? row.own(kind, row.usual) : row.usual;
      },
      state);
}

}  // namespace

bool has(const State& state, ControlTrait trait) { return (own(state).traits & trait) != 0; }

std::string_view kindName(const State& state) { return own(state).name; }

Texts itemTexts(const State& state) {
  return std::visit(
      [](const auto& kind) {
        const auto& row = rowOf(kind);
        return row.entries != nullptr ? row.entries(kind) : Texts();
      },
      state);
}

std::string rangeText(const State& state) {
  return std::visit(
      [&state](const auto& kind) {
        const auto& row = rowOf(kind);
        return row.range != nullptr ? row.range(kind) : joined(itemTexts(state));
      },
      state);
}

std::string takenText(const State& state) {
  constexpr size_t kMostListed = 12;  // a library's list is not its meaning
  const size_t entries = itemTexts(state).size();
  return entries > kMostListed ? "one of " + std::to_string(entries) : rangeText(state);
}

std::string valueText(const State& state) {
  return std::visit(
      [](const auto& kind) {
        const auto& row = rowOf(kind);
        return row.value != nullptr ? row.value(kind) : std::string();
      },
      state);
}

// ---- Changes -----------------------------------------------------------------------------------------------------

std::string notThisKind(const std::string& name, const State& state, std::string_view what) {
  return name + " is a " + std::string(kindName(state)) + " and " + std::string(what);
}

Refusal chooseEntry(State& state, const std::string& entry, const std::string& name) {
  return std::visit(
      [&](auto& kind) {
        const auto& row = rowOf(kind);
        return row.choose != nullptr ? row.choose(kind, entry, name) : notThisKind(name, state, "has no entries");
      },
      state);
}

Refusal chooseEntries(State& state, const Texts& entries, const std::string& name) {
  auto* list = std::get_if<ListBox>(&state);
  if (list == nullptr || (entries.size() > 1 && !list->multiple)) {
    return notThisKind(name, state, "takes one entry at a time");
  }
  std::vector<bool> selected(list->items.size(), false);
  for (const std::string& entry : entries) {
    const int index = entryNamed(list->items, entry);
    if (index < 0) { return name + " has no entry " + inQuotes(entry); }
    selected[static_cast<size_t>(index)] = true;
  }
  list->selected = std::move(selected);
  return std::nullopt;
}

Refusal typeInto(State& state, const std::string& text, const std::string& name) {
  return std::visit(
      [&](auto& kind) {
        const auto& row = rowOf(kind);
        return row.type != nullptr ? row.type(kind, text, name) : notThisKind(name, state, "takes no typed text");
      },
      state);
}

std::optional<DialogOperation> operationThatSets(int control, const State& state) {
  return operationThatSets(control, state, valueText(state));
}

std::optional<DialogOperation> operationThatSets(int control, const State& state, const std::string& value) {
  const Verb verb = std::visit([](const auto& kind) { return rowOf(kind).written; }, state);
  const bool typed = has(state, kField) && !has(state, kSetChooses);
  if (verb == Verb::kLeave || (value.empty() && !typed)) { return std::nullopt; }
  DialogOperation operation{verb, verb == Verb::kTab ? -1 : control, std::nullopt, {""}};
  for (const char c : value) {
    if (c == '\n') {
      operation.texts.emplace_back();
    } else {
      operation.texts.back() += c;
    }
  }
  return operation;
}

int entryNamed(const Texts& entries, std::string_view name) {
  auto found = std::ranges::find(entries, name);
  if (found == entries.end()) {
    found = std::ranges::find_if(entries, [name](const std::string& entry) { return equalWithoutCase(entry, name); });
  }
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

Refusal refusalOf(std::string_view name, const NumberEdit& edit) {
  if (edit.mayBeEmpty && edit.text.empty()) { return std::nullopt; }
  const auto value = numberText::parseTyped(edit.text);
  const bool whole = !edit.integer || (value && *value == std::floor(*value));
  if (value && whole && *value >= edit.minimum && *value <= edit.maximum) { return std::nullopt; }
  return '"' + std::string(name) + "\" takes " + (edit.integer ? "a whole number from " : "") + limitsOf(edit) +
         ", got \"" + edit.text + '"';
}

}  // namespace brevan

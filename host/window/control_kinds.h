#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/dialog_controls.h"
#include "host/core/text_encoding.h"
#include "host/window/dialog_operations.h"

// What the host knows of each kind of control: one row a kind in control_kinds.cpp, found by the type of its contents,
// so that a kind without a row does not compile.
namespace brevan {

enum ControlTrait : unsigned {
  kTakesFocus = 1U << 0U,
  kLabelBefore = 1U << 1U,  // its caption stands before it, and not in it
  kField = 1U << 2U,        // stands in the column of the fields
  kNarrow = 1U << 3U,       // stays at the left of a wide column
  kTick = 1U << 4U,         // is ticked, in columns of one width
  kGrows = 1U << 5U,        // takes the height that is left over
  kRepainted = 1U << 6U,    // shows what the other controls hold
  kSetChooses = 1U << 7U,   // `set` chooses an entry of it, since it takes no other text
};
[[nodiscard]] bool has(const dialog::State& state, ControlTrait trait);

// "number", "check box", "drop-down list", ...
std::string_view kindName(const dialog::State& state);
// "0 to 10000" for a number, the entries of a list; empty where there is no range.
std::string rangeText(const dialog::State& state);
// The same for a reader: of a long list how many entries it has.
std::string takenText(const dialog::State& state);
// What the control shows: a field's text, a list's selected entry, several of them a line each, "1" or "0" of a
// check box.
std::string valueText(const dialog::State& state);
// The entries to choose from.
std::vector<std::string> itemTexts(const dialog::State& state);

// The operation that gives a control the value it has; nothing where it holds none, as a list without a choice.
std::optional<DialogOperation> operationThatSets(int control, const dialog::State& state);
// Likewise of another value, as valueText would give it.
std::optional<DialogOperation> operationThatSets(int control, const dialog::State& state, const std::string& value);

// Changes of the contents of a control of this name, as messages quote it; why one is refused, which changes nothing.
Refusal chooseEntry(dialog::State& state, const std::string& entry, const std::string& name);
Refusal chooseEntries(dialog::State& state, const std::vector<std::string>& entries, const std::string& name);
Refusal typeInto(dialog::State& state, const std::string& text, const std::string& name);
// As messages show names and texts.
std::string inQuotes(std::string_view text);
// `"Name" is a check box and WHAT`.
std::string notThisKind(const std::string& name, const dialog::State& state, std::string_view what);

// The place of the column that a script calls so, -1 where there is none.
template <class Columns>
int columnNamed(const Columns& columns, std::string_view address) {
  const auto found = std::ranges::find_if(
      columns, [address](const auto& column) { return equalWithoutCase(dialog::addressOf(column), address); });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

// The place of an entry, the exact one before one that differs in case; -1 where there is none.
int entryNamed(const std::vector<std::string>& entries, std::string_view name);

// Why a number field refuses its text; nothing where it takes it.
Refusal refusalOf(std::string_view name, const dialog::NumberEdit& edit);

}  // namespace brevan

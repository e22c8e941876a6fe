#pragma once

#include <array>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What a user does in a dialog, as data. Scripts are read into operations, the desktop makes them of keys and clicks,
// the recorder writes them down, and DialogSession::perform carries them out.
namespace brevan {

class DialogSession;

// Why a dialog does not take something; nothing where it did.
using Refusal = std::optional<std::string>;

enum class Verb {
  kSet,
  kHave,
  kType,
  kSpin,
  kPick,
  kSelect,
  kCheck,
  kUncheck,
  kFocus,
  kLeave,
  kCell,
  kHaveRow,
  kHaveRows,
  kClick,
  kRightClick,
  kPress,
  kInsertRow,
  kPaste,
  kWidth,
  kTab,
  kMenu,
  kHelp,
  kClose,
  // Only hands do these; scripts say them with the word of another row.
  kKeyed,       // what a field holds after a key, the focus staying in it
  kKeyedLines,  // likewise of several lines
  kSelectCell,  // a cell became current, by the keyboard or before the mouse's click counts
};

struct DialogOperation {
  Verb verb = Verb::kLeave;
  int control = -1;                  // -1: the dialog, or the control in focus
  std::optional<int> number{};       // a row counted from 1, a width in pixels
  std::vector<std::string> texts{};  // Windows-1252
  bool recorded = true;              // false: part of an operation that the recorder writes down

  friend bool operator==(const DialogOperation&, const DialogOperation&) = default;
};

// A word after the operation's own in a script.
enum class Argument { kNone, kControl, kNumber, kText };

struct OperationRow {
  static constexpr size_t kAnyNumber = std::numeric_limits<size_t>::max();
  using Arguments = std::array<Argument, 4>;

  Verb verb;
  std::string_view word;
  Arguments arguments;  // the last one stands for all words that follow, too
  size_t least;         // arguments
  size_t most;
  Refusal (*perform)(DialogSession& session, const DialogOperation& operation);

  // What the argument at a place is, counted from 0.
  [[nodiscard]] Argument argument(size_t place) const;
};

std::span<const OperationRow> operationRows();
const OperationRow& operationRow(Verb verb);
// The row that a script's word means; null for a word of none.
const OperationRow* operationNamed(std::string_view word);

}  // namespace brevan

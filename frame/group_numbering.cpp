#include "frame/group_numbering.h"

#include "frame/host/number_text.h"
#include "frame/macro_texts.h"
#include "frame/names.h"

namespace ardenix {

namespace {

std::string cleaned(std::string_view name) {
  std::string text(name);
  cleanName(text, true);
  return text;
}

// A scan over every group of the drawing.
class GroupScan {
 public:
  explicit GroupScan(CCadWindow& view)
      : view_(view), handle_(view.gsGetListHandle(kGroupPrimitive, -1, 0, 0, 0, 0, 0, 0, 0)) {}
  GroupScan(const GroupScan&) = delete;
  GroupScan& operator=(const GroupScan&) = delete;
  ~GroupScan() { view_.gsFreeListHandle(handle_); }
  bool next() { return view_.gsGetNextPrim(handle_) >= 1; }

 private:
  CCadWindow& view_;
  int handle_;
};

}  // namespace

GroupCounter::GroupCounter(std::string_view parent, std::string_view prefix)
    : parent_(cleaned(parent)), prefix_(cleaned(prefix)) {}

void GroupCounter::see(std::string_view parent, std::string_view name) {
  if (parent != parent_ || !name.starts_with(prefix_)) { return; }
  const std::string_view number = name.substr(prefix_.size());
  if (number.empty() || number.find_first_not_of("0123456789") != std::string_view::npos) { return; }
  // Digits that end the prefix belong to the number of another series: W21 is W's twenty-first.
  if (prefix_.back() >= '0' && prefix_.back() <= '9') { return; }
  constexpr long long kBeyondAnyName = 1'000'000'000'000'000;
  const long long value = numberText::parseInteger(number).value_or(kBeyondAnyName);
  if (value < kBeyondAnyName && value > largest_) { largest_ = value; }
}

std::string GroupCounter::nextName() const {
  return (prefix_ + std::to_string(largest_ + 1)).substr(0, kGroupNameLimit);
}

std::string startNumberedGroup(CCadWindow& view, std::string_view parent, std::string_view prefix) {
  GroupCounter counter(parent, prefix);
  std::string_view groupParent;
  std::string_view groupName;
  for (GroupScan scan(view); scan.next();) {
    view.gsGetObject(groupParent, groupName);
    counter.see(groupParent, groupName);
  }
  const std::string name = counter.nextName();
  view.gsClearWorkSpace();
  view.gsExecuteMacro(macroText::parent(counter.parent()));
  view.gsExecuteMacro(macroText::beginGroup(name));
  return name;
}

}  // namespace ardenix

#include "frame/drafting/group_numbering.h"

#include "frame/drafting/macro_texts.h"
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

// Digits that end a prefix belong to the number of another series: W21 is W's twenty-first, not W2's first.
GroupCounter::GroupCounter(std::string_view parent, std::string_view prefix)
    : parent_(cleaned(parent)), prefix_(cleaned(prefix)), countable_(digit(prefix_.back()) > 9) {
  const size_t first = std::min(prefix_.size(), sizeof firstEight_);
  std::memcpy(&firstEight_, prefix_.data(), first);
  std::memset(&firstMask_, 0xFF, first);
  restOfPrefix_ = std::string_view(prefix_).substr(first);
}

void GroupCounter::take(const char* number, size_t digits) {
  long long value = 0;
  for (const char* at = number; at != number + digits; ++at) {
    if (digit(*at) > 9) { return; }
    value = value * 10 + digit(*at);
  }
  if (!countable_ || value <= largest_) { return; }
  largest_ = value;
  largestDigits_ = std::to_string(value);
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
  std::string name = counter.nextName();
  view.gsClearWorkSpace();
  view.gsExecuteMacro(macroText::parent(counter.parent()));
  view.gsExecuteMacro(macroText::beginGroup(name));
  return name;
}

}  // namespace ardenix

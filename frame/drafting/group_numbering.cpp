#include "frame/drafting/group_numbering.h"

#include "frame/drafting/group_counter.h"
#include "frame/drafting/macro_texts.h"

namespace ardenix {

namespace {

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

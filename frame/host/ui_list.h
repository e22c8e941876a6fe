#pragma once

#include <functional>

class UI_LIST;

// An item of a UI_LIST; derive from it what the list is to hold.
class UI_ELEMENT {
 public:
  UI_ELEMENT() = default;
  UI_ELEMENT(const UI_ELEMENT&) = delete;
  UI_ELEMENT& operator=(const UI_ELEMENT&) = delete;
  virtual ~UI_ELEMENT() = default;

  // Null at the ends.
  [[nodiscard]] UI_ELEMENT* Next() const { return next_; }
  [[nodiscard]] UI_ELEMENT* Previous() const { return previous_; }

 private:
  friend class UI_LIST;
  UI_ELEMENT* next_ = nullptr;
  UI_ELEMENT* previous_ = nullptr;
};

// A doubly linked list that owns its items. With a compare function (below zero: the first argument
// comes first) items are kept sorted, equal ones in the order of adding; without one in the order of
// adding.
class UI_LIST {
 public:
  using Compare = std::function<int(const UI_ELEMENT&, const UI_ELEMENT&)>;

  explicit UI_LIST(Compare compare = nullptr) : compare_(std::move(compare)) {}
  UI_LIST(const UI_LIST&) = delete;
  UI_LIST& operator=(const UI_LIST&) = delete;
  ~UI_LIST() { Destroy(); }

  // Takes ownership; returns the item.
  UI_ELEMENT* Add(UI_ELEMENT* element) {
    UI_ELEMENT* before = last_;
    if (compare_) {
      while (before != nullptr && compare_(*element, *before) < 0) { before = before->previous_; }
    }
    element->previous_ = before;
    element->next_ = before != nullptr ? before->next_ : first_;
    (before != nullptr ? before->next_ : first_) = element;
    (element->next_ != nullptr ? element->next_->previous_ : last_) = element;
    ++count_;
    return element;
  }

  // Unlinks the item without deleting it; the caller owns it then.
  UI_ELEMENT* Subtract(UI_ELEMENT* element) {
    (element->previous_ != nullptr ? element->previous_->next_ : first_) = element->next_;
    (element->next_ != nullptr ? element->next_->previous_ : last_) = element->previous_;
    element->next_ = element->previous_ = nullptr;
    --count_;
    return element;
  }

  // Counted from 0; null outside the list.
  [[nodiscard]] UI_ELEMENT* Get(int index) const {
    if (index < 0) { return nullptr; }
    UI_ELEMENT* element = first_;
    for (; element != nullptr && index > 0; --index) { element = element->next_; }
    return element;
  }
  [[nodiscard]] int Count() const { return count_; }
  [[nodiscard]] UI_ELEMENT* First() const { return first_; }
  [[nodiscard]] UI_ELEMENT* Last() const { return last_; }

  // Deletes every item.
  void Destroy() {
    while (first_ != nullptr) { delete Subtract(first_); }
  }

 private:
  Compare compare_;
  UI_ELEMENT* first_ = nullptr;
  UI_ELEMENT* last_ = nullptr;
  int count_ = 0;
};

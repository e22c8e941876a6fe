#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/host/dialog_controls.h"
#include "frame/host/window.h"

// A dialog is described once, as data and rules, and knows no toolkit. The desktop paints the
// description, a script operates it; both go through the host's dialog session, which changes the data
// first and then runs the rule, so that a rule behaves alike everywhere.
namespace dialog {

// A cell of the grid in which a group lays out its controls and groups.
struct Place {
  int row = 0;
  int column = 0;
  int columnSpan = 1;
  int rowSpan = 1;
};

// A box of controls. Group 0 is the dialog itself; a group with a page lies on that page of the tabs.
struct Group {
  std::string caption{};  // empty: without a frame
  int parent = -1;
  Place place{};
  int page = -1;
  bool visible = true;
};

struct Control {
  State state;
  std::string caption;  // "&" marks the mnemonic
  std::string name;     // its address where the caption does not tell it apart; else empty
  std::string toolTip;
  int group = 0;
  Place place;
  bool enabled = true;
  bool visible = true;
  // Rules. Each runs after the data has changed.
  std::function<void()> onEdit;   // the user changed the contents: each key, choice, tick
  std::function<void()> onLeave;  // the focus left it
  std::function<void()> onFocus;  // the focus came to it
  std::function<void()> onPress;  // a button was pressed
};

// What a running dialog tells whoever shows it.
class Presenter {
 public:
  Presenter() = default;
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;
  virtual ~Presenter() = default;
  virtual void controlChanged(int control) = 0;
  virtual void groupChanged(int group) = 0;
  // The rule moved the focus; with selectAll its whole text is selected.
  virtual void focusMoved(int control, bool selectAll) = 0;
  virtual void titleChanged() = 0;
};

class Dialog : public CWnd {
 public:
  explicit Dialog(std::string title) : title_(std::move(title)) { groups_.emplace_back(); }

  // ---- Description -----------------------------------------------------------------------------------
  int addGroup(Group group) {
    if (group.parent < 0) { group.parent = 0; }
    groups_.push_back(std::move(group));
    return static_cast<int>(groups_.size()) - 1;
  }
  int add(Control control) {
    controls_.push_back(std::move(control));
    return static_cast<int>(controls_.size()) - 1;
  }

  std::function<void()> onOpen;
  // OK closes the dialog when this returns true (or is not set); so do Cancel, Escape and the window's cross.
  std::function<bool()> onOk;
  std::function<bool()> onCancel;
  // F1, with the control in focus (-1: none).
  std::function<void(int control)> onHelp;

  // ---- Reading it ----------------------------------------------------------------------------------------
  [[nodiscard]] const std::string& title() const { return title_; }
  [[nodiscard]] std::vector<Group>& groups() { return groups_; }
  [[nodiscard]] std::vector<Control>& controls() { return controls_; }
  [[nodiscard]] Control& control(int index) { return controls_.at(static_cast<size_t>(index)); }
  template <class Kind>
  [[nodiscard]] Kind& state(int index) {
    return std::get<Kind>(control(index).state);
  }
  [[nodiscard]] bool toolTipsShown() const { return toolTips_; }
  [[nodiscard]] int focus() const { return focus_; }
  [[nodiscard]] bool closed() const { return closed_; }
  [[nodiscard]] bool accepted() const { return accepted_; }

  // ---- Changes made by rules ---------------------------------------------------------------------------------
  void setTitle(std::string title) {
    title_ = std::move(title);
    if (presenter_ != nullptr) { presenter_->titleChanged(); }
  }
  void enableToolTips(bool shown) { toolTips_ = shown; }
  void changed(int index) {
    if (presenter_ != nullptr) { presenter_->controlChanged(index); }
  }
  void setEnabled(int index, bool enabled) {
    control(index).enabled = enabled;
    changed(index);
  }
  void setVisible(int index, bool visible) {
    control(index).visible = visible;
    changed(index);
  }
  void setGroupVisible(int group, bool visible) {
    groups_.at(static_cast<size_t>(group)).visible = visible;
    if (presenter_ != nullptr) { presenter_->groupChanged(group); }
  }
  // Puts the focus on a control and selects its whole text.
  void focusOn(int index, bool selectAll = true) {
    focus_ = index;
    if (presenter_ != nullptr) { presenter_->focusMoved(index, selectAll); }
  }
  void close(bool accepted) {
    closed_ = true;
    accepted_ = accepted;
  }

  // ---- For the host while it runs the dialog -------------------------------------------------------------------
  void attach(Presenter* presenter) {
    presenter_ = presenter;
    if (presenter != nullptr) { closed_ = accepted_ = false; }
  }
  void noteFocus(int index) { focus_ = index; }

  void SetFocus() override {}

 private:
  std::string title_;
  std::vector<Group> groups_;
  std::vector<Control> controls_;
  Presenter* presenter_ = nullptr;
  int focus_ = -1;
  bool toolTips_ = false;
  bool closed_ = false;
  bool accepted_ = false;
};

// A caption without mnemonic marks, closing colon and outer blanks.
inline std::string plainCaption(std::string_view caption) {
  std::string plain;
  for (const char c : caption) {
    if (c != '&') { plain += c; }
  }
  const auto trim = [&plain] {
    while (!plain.empty() && plain.back() == ' ') { plain.pop_back(); }
  };
  trim();
  if (!plain.empty() && plain.back() == ':') { plain.pop_back(); }
  trim();
  plain.erase(0, plain.find_first_not_of(' ') == std::string::npos ? plain.size() : plain.find_first_not_of(' '));
  return plain;
}

}  // namespace dialog

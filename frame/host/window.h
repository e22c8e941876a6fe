#pragma once

// Anything that can own a message box: the main frame, a drawing view, a dialog.
class CWnd {
 public:
  CWnd() = default;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  virtual ~CWnd() = default;

  // Gives the keyboard to this window.
  virtual void SetFocus() = 0;
};

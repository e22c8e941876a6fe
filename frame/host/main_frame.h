#pragma once

#include "frame/host/window.h"

class CCadWindow;
namespace dialog {
class Dialog;
}

// The host's main window: parent of every dialog and toolset object.
class CMDIFrameWnd : public CWnd {
 public:
  // The user message that returns a new drawing view.
  static constexpr unsigned kNewDrawingView = 1055;

  // Shows a dialog until it is closed. Returns true when it was closed with OK, false for Cancel, the
  // window's cross and Escape.
  virtual bool RunDialog(dialog::Dialog& dialog, CWnd* parent) = 0;

  // Closes a drawing view that the running command opened; it is gone afterwards.
  virtual void closeDrawingView(CCadWindow& view) = 0;

  // kNewDrawingView: opens a drawing window and returns its view; any other message returns null.
  virtual CCadWindow* SendUserMessage(unsigned message) = 0;
};

// The host's side bar; the symbol library browser puts its group there.
class COXShortcutBar : public CWnd {
 public:
  // Returns the new group's index.
  virtual int InsertGroup(const char* caption) = 0;
  virtual void SetGroupMargin(int group, int pixels) = 0;
  virtual void ExpandGroup(int group) = 0;
  virtual void RedrawBar() = 0;
};
